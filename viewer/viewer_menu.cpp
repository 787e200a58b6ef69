#include "viewer/viewer_menu.h"

namespace quarvel {
namespace {

using platform::Ctrl;
using platform::CtrlShift;
using platform::Key;
using platform::KeyPress;
using platform::MenuItem;

struct Line {
  MenuId id;
  MenuId parent;  // an item of the menu bar is its own
  const char* name;
  const char* caption;  // empty for a line between items
  char access_key = 0;
  KeyPress shortcut = {};
};

// The two rename commands share a key: one of them is hidden at any time.
constexpr std::array<Line, kMenuItems> kLines = {{
    {MenuId::kFile, MenuId::kFile, "mnuFile", "File", 'F'},
    {MenuId::kFileNew, MenuId::kFile, "mnuFileNew", "New", 'N', Ctrl('N')},
    {MenuId::kFileOpen, MenuId::kFile, "mnuFileOpen", "Open...", 'O', Ctrl('O')},
    {MenuId::kFileSave, MenuId::kFile, "mnuFileSave", "Save", 'S', Ctrl('S')},
    {MenuId::kFileSaveAs, MenuId::kFile, "mnuFileSaveAs", "Save As...", 'A', CtrlShift('S')},
    {MenuId::kFileLine, MenuId::kFile, "mnuFileLine", ""},
    {MenuId::kFileExit, MenuId::kFile, "mnuFileExit", "Exit", 'x'},
    {MenuId::kEdit, MenuId::kEdit, "mnuEdit", "Edit", 'E'},
    {MenuId::kEditRow, MenuId::kEdit, "mnuEditRow", "Row", 'R'},
    {MenuId::kEditRowAdd, MenuId::kEditRow, "mnuEditRowAdd", "Add Row...", 'A'},
    {MenuId::kEditRowRename, MenuId::kEditRow, "mnuEditRowRename", "Rename Row...", 'R',
     KeyPress{Key::kF2}},
    {MenuId::kEditRowDel, MenuId::kEditRow, "mnuEditRowDel", "Delete Row", 'D',
     KeyPress{Key::kDelete}},
    {MenuId::kEditRowLine1, MenuId::kEditRow, "mnuEditRowLine1", ""},
    {MenuId::kEditRowAddEle, MenuId::kEditRow, "mnuEditRowAddEle", "Add Element...", 'E'},
    {MenuId::kEditRowChangeEle, MenuId::kEditRow, "mnuEditRowChangeEle", "Change Element Value...",
     'V'},
    {MenuId::kEditRowDelEle, MenuId::kEditRow, "mnuEditRowDelEle", "Delete Element", 'l'},
    {MenuId::kEditRowLine2, MenuId::kEditRow, "mnuEditRowLine2", ""},
    {MenuId::kEditRowChangeBnd, MenuId::kEditRow, "mnuEditRowChangeBnd",
     "Change Type and Bounds...", 'B'},
    {MenuId::kEditCol, MenuId::kEdit, "mnuEditCol", "Column", 'C'},
    {MenuId::kEditColAdd, MenuId::kEditCol, "mnuEditColAdd", "Add Column...", 'A'},
    {MenuId::kEditColRename, MenuId::kEditCol, "mnuEditColRename", "Rename Column...", 'R',
     KeyPress{Key::kF2}},
    {MenuId::kEditColDel, MenuId::kEditCol, "mnuEditColDel", "Delete Column", 'D',
     KeyPress{Key::kDelete}},
    {MenuId::kEditColLine1, MenuId::kEditCol, "mnuEditColLine1", ""},
    {MenuId::kEditColChangeEle, MenuId::kEditCol, "mnuEditColChangeEle", "Change Element Value...",
     'V'},
    {MenuId::kEditColDelEle, MenuId::kEditCol, "mnuEditColDelEle", "Delete Element", 'l'},
    {MenuId::kEditColLine2, MenuId::kEditCol, "mnuEditColLine2", ""},
    {MenuId::kEditColChangeTypeBnd, MenuId::kEditCol, "mnuEditColChangeTypeBnd",
     "Change Type and Bounds...", 'B'},
    {MenuId::kEditLine, MenuId::kEdit, "mnuEditLine", ""},
    {MenuId::kEditSimplify, MenuId::kEdit, "mnuEditSimplify", "Simplify Model...", 'S'},
    {MenuId::kHelp, MenuId::kHelp, "mnuHelp", "Help", 'H'},
    {MenuId::kHelpHelp, MenuId::kHelp, "mnuHelpHelp", "Help", 'H', KeyPress{Key::kF1}},
    {MenuId::kHelpAbout, MenuId::kHelp, "mnuHelpAbout", "About Quarvel", 'A'},
}};

constexpr bool StandsInOrder() {
  for (std::size_t i = 0; i < kLines.size(); ++i) {
    if (static_cast<std::size_t>(kLines[i].id) != i || kLines[i].parent > kLines[i].id)
      return false;
  }
  return true;
}
static_assert(StandsInOrder());

}  // namespace

ViewerMenu::ViewerMenu(platform::Form& form) {
  for (const Line& line : kLines) {
    MenuItem* const parent = line.parent == line.id ? nullptr : &(*this)[line.parent];
    auto item = std::make_unique<MenuItem>(form, line.name, parent);
    item->set_caption(line.caption);
    item->is_separator = line.caption[0] == '\0';
    item->access_key = line.access_key;
    item->shortcut = line.shortcut;
    // The key deletes a row or column in its list alone; in a text box it deletes a letter.
    item->shortcut_is_label = line.shortcut.key == Key::kDelete;
    items_[static_cast<std::size_t>(line.id)] = std::move(item);
  }
}

}  // namespace quarvel
