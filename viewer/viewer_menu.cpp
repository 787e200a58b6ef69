#include "viewer/viewer_menu.h"

#include <cassert>
#include <cstddef>
#include <iterator>

#include "viewer/viewer_commands.h"

namespace quarvel::viewer {
namespace {

using platform::Ctrl;
using platform::CtrlShift;
using platform::Key;
using platform::KeyPress;
using platform::MenuItem;
using Commands = ViewerCommands;

// When an item can be used, apart from the need for editing.
using Usable = bool (*)(const CommandDesk& desk);

bool Always(const CommandDesk&) { return true; }

bool WithRow(const CommandDesk& desk) { return desk.contents().rows.filter.count() > 0; }

bool WithColumn(const CommandDesk& desk) { return desk.contents().columns.filter.count() > 0; }

bool WithElementOfRow(const CommandDesk& desk) {
  if (!WithRow(desk) || !desk.IsReady()) return false;
  const auto row = desk.contents().rows.Selected();
  return row && desk.model().RowNumberElements(*row) > 0;
}

bool WithElements(const CommandDesk& desk) {
  return desk.IsReady() && desk.model().NumberOfElements() > 0;
}

enum class Access { kReads, kEdits };
constexpr Access kReads = Access::kReads;
constexpr Access kEdits = Access::kEdits;

// An item: a menu, a command, or a separator, which has neither caption nor command.
struct Entry {
  std::string_view menu;  // the item in whose menu it stands; empty on the menu bar
  const char* name;
  const char* caption = "";
  char access_key = 0;
  KeyPress shortcut = {};
  Access access = kReads;
  Usable usable = Always;
  void (*run)(Commands& commands) = nullptr;
};

constexpr KeyPress kNoKey = {};
constexpr KeyPress kF1{Key::kF1};
constexpr KeyPress kF2{Key::kF2};
constexpr KeyPress kDelete{Key::kDelete};

// The two rename commands share a key: one of them is hidden at any time.
// clang-format off
constexpr Entry kEntries[] = {
    {"", "mnuFile", "File", 'F'},
    {"mnuFile", "mnuFileNew", "New", 'N', Ctrl('N'), kEdits, Always,
     [](Commands& c) { c.file.New(); }},
    {"mnuFile", "mnuFileOpen", "Open...", 'O', Ctrl('O'), kEdits, Always,
     [](Commands& c) { c.file.Open(); }},
    {"mnuFile", "mnuFileSave", "Save", 'S', Ctrl('S'), kEdits, Always,
     [](Commands& c) { c.file.Save(); }},
    {"mnuFile", "mnuFileSaveAs", "Save As...", 'A', CtrlShift('S'), kEdits, Always,
     [](Commands& c) { c.file.SaveAs(); }},
    {"mnuFile", "mnuFileLine"},
    {"mnuFile", "mnuFileExit", "Exit", 'x', kNoKey, kReads, Always,
     [](Commands& c) { c.file.Exit(); }},

    {"", "mnuEdit", "Edit", 'E', kNoKey, kEdits},
    {"mnuEdit", "mnuEditRow", "Row", 'R', kNoKey, kEdits},
    {"mnuEditRow", "mnuEditRowAdd", "Add Row...", 'A', kNoKey, kEdits, Always,
     [](Commands& c) { c.rows.Add(); }},
    {"mnuEditRow", "mnuEditRowRename", "Rename Row...", 'R', kF2, kEdits, WithRow,
     [](Commands& c) { c.rows.Rename(); }},
    {"mnuEditRow", "mnuEditRowDel", "Delete Row", 'D', kDelete, kEdits, WithRow,
     [](Commands& c) { c.rows.Delete(); }},
    {"mnuEditRow", "mnuEditRowLine1"},
    {"mnuEditRow", "mnuEditRowAddEle", "Add Element...", 'E', kNoKey, kEdits, WithRow,
     [](Commands& c) { c.elements.AddToRow(); }},
    {"mnuEditRow", "mnuEditRowChangeEle", "Change Element Value...", 'V', kNoKey, kEdits,
     WithElementOfRow, [](Commands& c) { c.elements.ChangeInRow(); }},
    {"mnuEditRow", "mnuEditRowDelEle", "Delete Element", 'l', kNoKey, kEdits, WithElementOfRow,
     [](Commands& c) { c.elements.DeleteFromRow(); }},
    {"mnuEditRow", "mnuEditRowLine2"},
    {"mnuEditRow", "mnuEditRowChangeBnd", "Change Type and Bounds...", 'B', kNoKey, kEdits, WithRow,
     [](Commands& c) { c.rows.ChangeBounds(); }},
    {"mnuEdit", "mnuEditCol", "Column", 'C', kNoKey, kEdits},
    {"mnuEditCol", "mnuEditColAdd", "Add Column...", 'A', kNoKey, kEdits, Always,
     [](Commands& c) { c.columns.Add(); }},
    {"mnuEditCol", "mnuEditColRename", "Rename Column...", 'R', kF2, kEdits, WithColumn,
     [](Commands& c) { c.columns.Rename(); }},
    {"mnuEditCol", "mnuEditColDel", "Delete Column", 'D', kDelete, kEdits, WithColumn,
     [](Commands& c) { c.columns.Delete(); }},
    {"mnuEditCol", "mnuEditColLine1"},
    {"mnuEditCol", "mnuEditColChangeEle", "Change Element Value...", 'V', kNoKey, kEdits,
     WithColumn, [](Commands& c) { c.elements.ChangeInColumn(); }},
    {"mnuEditCol", "mnuEditColDelEle", "Delete Element", 'l', kNoKey, kEdits, WithColumn,
     [](Commands& c) { c.elements.DeleteFromColumn(); }},
    {"mnuEditCol", "mnuEditColLine2"},
    {"mnuEditCol", "mnuEditColChangeTypeBnd", "Change Type and Bounds...", 'B', kNoKey, kEdits,
     WithColumn, [](Commands& c) { c.columns.ChangeBounds(); }},
    {"mnuEdit", "mnuEditLine"},
    {"mnuEdit", "mnuEditSimplify", "Simplify Model...", 'S', kNoKey, kEdits, WithElements,
     [](Commands& c) { c.file.Simplify(); }},

    {"", "mnuHelp", "Help", 'H'},
    {"mnuHelp", "mnuHelpHelp", "Help", 'H', kF1, kReads, Always,
     [](Commands& c) { c.file.Help(); }},
    {"mnuHelp", "mnuHelpAbout", "About Quarvel", 'A', kNoKey, kReads, Always,
     [](Commands& c) { c.file.About(); }},
};
// clang-format on

constexpr std::size_t kNone = std::size(kEntries);

constexpr std::size_t PlaceOf(std::string_view name) {
  for (std::size_t i = 0; i < std::size(kEntries); ++i) {
    if (kEntries[i].name == name) return i;
  }
  return kNone;
}

constexpr bool StandsInOrder() {
  for (std::size_t i = 0; i < std::size(kEntries); ++i) {
    if (!kEntries[i].menu.empty() && PlaceOf(kEntries[i].menu) >= i) return false;
  }
  return true;
}
static_assert(StandsInOrder(), "a menu stands before its items");

void Run(const Entry& entry, ViewerCommands& commands) {
  CommandDesk& desk = commands.desk;
  if (!desk.IsReady() || (entry.access == kEdits && !desk.editing())) return;
  try {
    entry.run(commands);
  } catch (...) {
    desk.Refill();
    throw;
  }
}

}  // namespace

ViewerMenu::ViewerMenu(platform::Form& form) {
  for (const Entry& entry : kEntries) {
    MenuItem* const menu = entry.menu.empty() ? nullptr : &(*this)[entry.menu];
    auto item = std::make_unique<MenuItem>(form, entry.name, menu);
    item->set_caption(entry.caption);
    item->is_separator = entry.caption[0] == '\0';
    item->access_key = entry.access_key;
    item->shortcut = entry.shortcut;
    // The key deletes a record in its list alone; in a text box it deletes a letter.
    item->shortcut_is_label = entry.shortcut.key == Key::kDelete;
    items_.push_back(std::move(item));
  }
}

void ViewerMenu::Connect(ViewerCommands& commands) {
  for (std::size_t i = 0; i < items_.size(); ++i) {
    const Entry& entry = kEntries[i];
    if (entry.run != nullptr) items_[i]->on_click = [&entry, &commands] { Run(entry, commands); };
  }
}

void ViewerMenu::Update(const CommandDesk& desk) {
  for (std::size_t i = 0; i < items_.size(); ++i) {
    const Entry& entry = kEntries[i];
    items_[i]->set_enabled((entry.access == kReads || desk.editing()) && entry.usable(desk));
  }
}

void ViewerMenu::ShowPart(int page) {
  for (const PageDesign* design : {&kRowsPage, &kColumnsPage}) {
    (*this)[design->menu].set_visible(design->number == page);
  }
}

MenuItem& ViewerMenu::operator[](std::string_view name) const {
  const std::size_t place = PlaceOf(name);
  assert(place < items_.size());
  return *items_[place];
}

}  // namespace quarvel::viewer
