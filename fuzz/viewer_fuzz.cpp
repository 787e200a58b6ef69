// A random user in front of the viewer and a random host behind it. The user clicks, types, selects,
// presses keys, opens menus, answers boxes and fills in dialogs; the host comes back into the model
// at every box, dialog and event: it edits, shows, reads, saves, simplifies, and closes windows.
// After each step the model is whole, every control is in a state that it can have, every cell has
// a text, and a window that was refreshed shows what the model holds. In the end all windows close.

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <exception>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "component/lp_model.h"
#include "fuzz/choices.h"
#include "fuzz/folder.h"
#include "fuzz/form_faults.h"
#include "fuzz/viewer_faults.h"
#include "platform/automation_error.h"
#include "platform/basic_controls.h"
#include "platform/focus_order.h"
#include "platform/grid.h"
#include "platform/input_box.h"
#include "platform/input_controls.h"
#include "platform/menu.h"
#include "platform/scripted/scripted_desktop.h"
#include "tests/support/edit_operations.h"
#include "tests/support/model_builder.h"
#include "tests/support/naive_simplify.h"
#include "tests/support/naive_writer.h"
#include "tests/support/save_comparison.h"
#include "viewer/frm_view_equations.h"

namespace {

using namespace quarvel;
using namespace quarvel::platform;
using fuzz::Choices;
using fuzz::Require;
using testing::NaiveModel;

constexpr int kMostSteps = 300;
constexpr int kDeepest = 5;

class Play : public ScriptedDesktop {
 public:
  Play(Choices& choose, const TemporaryFolder& folder) : choose_(choose), folder_(folder) {
    idle_limit = 10 * kMostSteps;
    on_box = [this](const ShownBox& box) { return Answer(box); };
    on_events = [this](std::int64_t) { HostStep(); };
    on_idle = [this](Form& top) { Turn(top); };
  }

  void Run() {
    fuzz::EmptyFolder(folder_);
    Start();
    for (int show = 0; show < 3 && !IsOver(); ++show) {
      Try([this] { Show(); });
      CheckModel();
      Require(shown().empty() ? "" : "a window is left", history_);
    }
    over_ = true;
    model_.reset();
  }

  // As a drawer with windows asks, or answered at once.
  std::string InputBox(std::string_view prompt, std::string_view title,
                       std::string_view default_text) override {
    HostStep();
    if (IsOver() || choose_(2) == 0) return Text();
    const auto height_of = [](std::string_view words, int width) {
      constexpr int kLetter = 7;
      constexpr int kLine = 15;
      return kLine * (1 + static_cast<int>(words.size()) * kLetter / std::max(width, kLetter));
    };
    const WordsOnScreen screen = {300 + static_cast<int>(choose_(900)),
                                  200 + static_cast<int>(choose_(700)), height_of};
    return AskLine(*this, screen, prompt, title, default_text);
  }
  std::string ShowFileDialog(const FileDialog&) override {
    HostStep();
    return File();
  }
  bool OpenInEditor(const std::string&) override { return choose_(2) == 0; }

 private:
  // --- the start ---
  void Start() {
    const testing::Choice choose = [this](std::uint32_t bound) { return choose_(bound); };
    model_ = std::make_unique<LPModel>(*this);
    const std::uint32_t kind = choose_(4);
    if (kind == 0) return;
    const NaiveModel start = testing::ChooseKeptModel(choose);
    ChangeFields(*model_, [&](model::ModelData& data) {
      testing::Fill(data, start);
      data.FileLocation = folder_.File("a.mps");
    });
    WriteWholeFile(folder_.File("a.mps"), testing::WriteNaively(start).text);
    WriteWholeFile(folder_.File("b.mps"), "ROWS\n N R\n L R\nCOLUMNS\n C R 1\nBOUNDS\n UP B C x\n");
  }

  bool IsOver() const { return over_ || steps_ >= kMostSteps || choose_.at_end(); }
  void Note(const std::string& what) { history_ += what + "\n"; }

  // Operations of a host may fail as the component says; nothing else leaves them.
  template <class Call>
  void Try(const Call& call) {
    try {
      call();
    } catch (const AutomationError& error) {
      Note("raised " + std::to_string(error.number()));
      Require(error.run_time_error() == RunTimeError::kInternalError ? "an error of our own" : "",
              history_);
    } catch (const std::exception& error) {
      Require(std::string("raised ") + error.what(), history_);
    }
  }

  std::string Text() {
    static const std::array<const char*, 16> kTexts = {
        "",  "1",   "-2.5", "1E11",      "NEW",   "two words",     "R0", "C0",
        "x", "abc", "3",    "NINE_CHAR", "R1\tC", "12345.6789012", "0",  "-1E10"};
    const std::uint32_t kind = choose_(kTexts.size() + 1);
    return kind < kTexts.size() ? kTexts[kind] : choose_.Until(0);
  }
  std::string File() {
    static const std::array<const char*, 4> kFiles = {"a.mps", "b.mps", "missing.mps", "new.mps"};
    const std::uint32_t kind = choose_(kFiles.size() + 1);
    return kind < kFiles.size() ? folder_.File(kFiles[kind]) : "";
  }
  std::int32_t Number() { return static_cast<std::int32_t>(choose_(8)) - 1; }

  // --- the host ---
  void Show() {
    const bool editing = choose_(4) != 0;
    const std::int32_t number = Number();
    switch (choose_(8)) {
      case 0:
        return model_->ViewCol(number, editing);
      case 1:
        return model_->ViewRow(number, editing);
      case 2:
        return model_->ViewBindingRow(number, editing);
      case 3:
        return model_->ViewNonBindingRow(number, editing);
      case 4:
        return model_->NewMPSModel();
      default:
        return model_->ViewEquations(editing);
    }
  }

  void HostStep() {
    if (IsOver() || depth_ >= kDeepest || choose_(4) != 0) return;
    ++steps_;
    ++depth_;
    Try([this] { HostDoes(); });
    --depth_;
    CheckModel();
  }

  void HostDoes() {
    const std::uint32_t kind = choose_(24);
    Note("host " + std::to_string(kind));
    switch (kind) {
      case 0:
        return Show();
      case 1:
        return model_->MakeNewModel();
      case 2:
        return static_cast<void>(model_->SaveMPSFile(File()));
      case 3:
        return static_cast<void>(model_->ReadMPSFile());
      case 4:
        return model_->SimplifyMPSModel();
      case 5:
        return static_cast<void>(model_->SaveAsMPSFile());
      case 6:
        model_->strMPSFile(File());
        return static_cast<void>(model_->StartFileReding());
      case 7:
        return CloseViewer();
      case 8:
        return model_->DisplayAuthor();
      default:
        return HostEdits();
    }
  }

  void HostEdits() {
    const testing::Choice choose = [this](std::uint32_t bound) { return choose_(bound); };
    const NaiveModel sketch = fuzz::Sketch(model_->store().data());
    const testing::EditStyle style = {.duplicates = false, .new_models = false};
    const testing::EditOperation operation = ChooseOperation(choose, sketch, style);
    Note(operation.text);
    operation.on_model(*model_);
  }

  void CloseViewer() {
    if (Form* const form = LastShown("frmViewEquations")) form->Unload();
  }

  // --- the user ---
  MsgBoxResult Answer(const ShownBox& box) {
    Note("box " + box.text);
    Require(box.text == Describe(RunTimeError::kInternalError) ? "an error of our own" : "",
            history_);
    HostStep();
    const auto buttons = LookOf(box.style).buttons;
    // Who goes does not save, stops what goes on, and reads no further.
    if (IsOver()) return box.title == "Confirm" ? MsgBoxResult::kYes : Last(buttons);
    return buttons[choose_(static_cast<std::uint32_t>(buttons.size()))];
  }
  static MsgBoxResult Last(std::span<const MsgBoxResult> buttons) {
    const bool has_no =
        std::find(buttons.begin(), buttons.end(), MsgBoxResult::kNo) != buttons.end();
    return has_no ? MsgBoxResult::kNo : buttons.back();
  }

  // Dialogs keep the user out of the viewer, also when a host brings it to the front.
  Form& UsableForm(Form& top) const {
    for (Form* const form : shown()) {
      if (form->name() != "frmViewEquations") return *form;
    }
    return top;
  }

  void Turn(Form& front) {
    Form& top = UsableForm(front);
    if (IsOver()) return Leave(top);
    ++steps_;
    Note("user at " + top.name());
    // What a handler raises reaches whoever shows the form.
    UserStep(top);
    HostStep();
    CheckWindows();
    CheckModel();
  }

  // A window that shows work is left by stopping the work.
  static void Leave(Form& top) {
    for (Control* const control : top.controls()) {
      auto* const button = dynamic_cast<Button*>(control);
      if (button != nullptr && button->is_stop) button->Click();
    }
    top.RequestClose();
  }

  void UserStep(Form& top) {
    switch (choose_(16)) {
      case 0:
        return top.RequestClose();
      case 1:
        return static_cast<void>(top.PressDefaultButton());
      case 2:
        return static_cast<void>(top.PressEscape());
      case 3:
        return static_cast<void>(PressShortcut(top, Keys()));
      case 7:
        return PressArrows(top);
      case 4:
      case 5:
      case 6:
        return ChooseFromMenu(top);
      default:
        return Use(*top.controls()[choose_(static_cast<std::uint32_t>(top.controls().size()))]);
    }
  }

  void PressArrows(Form& top) {
    Note("arrows");
    if (choose_(2) == 0) return static_cast<void>(TurnPage(top, choose_(2) == 0));
    for (Control* const control : top.controls()) {
      auto* const option = dynamic_cast<OptionButton*>(control);
      if (option != nullptr && CanHaveFocus(*option)) {
        return GoInGroup(*option, choose_(2) == 0 ? 1 : -1);
      }
    }
  }

  KeyPress Keys() {
    static constexpr std::array<KeyPress, 7> kKeys = {Ctrl('N'),
                                                      Ctrl('O'),
                                                      Ctrl('S'),
                                                      CtrlShift('S'),
                                                      KeyPress{Key::kF1},
                                                      KeyPress{Key::kF2},
                                                      KeyPress{Key::kDelete}};
    return kKeys[choose_(kKeys.size())];
  }

  void ChooseFromMenu(const Form& top) {
    std::vector<MenuItem*> items;
    for (Control* const control : top.controls()) {
      if (control->kind() == ControlKind::kMenuItem)
        items.push_back(static_cast<MenuItem*>(control));
    }
    if (items.empty()) return;
    MenuItem& item = *items[choose_(static_cast<std::uint32_t>(items.size()))];
    Note("menu " + item.name());
    if (item.parent() != nullptr) item.parent()->Open();
    item.Click();
  }

  void Use(Control& control) {
    Note("use " + control.name());
    switch (control.kind()) {
      case ControlKind::kButton:
        return static_cast<Button&>(control).Click();
      case ControlKind::kOptionButton:
        return static_cast<OptionButton&>(control).Click();
      case ControlKind::kCheckBox:
        return static_cast<CheckBox&>(control).Click();
      case ControlKind::kTextBox:
        return static_cast<TextBox&>(control).Type(Text());
      case ControlKind::kComboBox:
        return static_cast<ComboBox&>(control).Select(Number());
      case ControlKind::kTabStrip:
        return static_cast<TabStrip&>(control).Select(Number());
      case ControlKind::kMenuItem:
        return static_cast<MenuItem&>(control).Click();
      case ControlKind::kGrid:
        return UseGrid(static_cast<Grid&>(control));
      default:
        return;
    }
  }

  void UseGrid(Grid& grid) {
    static constexpr std::array<KeyPress, 3> kKeys = {KeyPress{Key::kDelete}, Ctrl('A'), Ctrl('C')};
    switch (choose_(8)) {
      case 0:
      case 1:
        return grid.DoubleClick(Number());
      case 2:
        return static_cast<void>(grid.Press(kKeys[choose_(kKeys.size())]));
      case 3:
        return grid.TypeCharacter(choose_(2) == 0 ? "R" : "C");
      default:
        return grid.Select(Number());
    }
  }

  // --- what must hold ---
  void CheckModel() { Require(fuzz::FaultOf(model_->store()), history_); }

  void CheckWindows() {
    for (Form* const form : shown()) {
      for (const Control* const control : form->controls()) {
        Require(fuzz::FaultOf(*control), history_);
      }
      CheckForm(*form);
    }
    auto* const window = dynamic_cast<viewer::frmViewEquations*>(LastShown("frmViewEquations"));
    if (window == nullptr || !window->IsShowing()) return;
    Require(fuzz::FaultOf(window->contents.rows), history_);
    Require(fuzz::FaultOf(window->contents.columns), history_);
    if (choose_(4) == 0) Refresh(*window);
  }

  void CheckForm(const Form& form) {
    const bool grows = form.resizable();
    const int width =
        grows ? form.smallest_width() + static_cast<int>(choose_(1000)) : form.width();
    const int height =
        grows ? form.smallest_height() + static_cast<int>(choose_(1000)) : form.height();
    Require(fuzz::FaultOfForm(form, width, height), history_);
  }

  // A window that was just filled shows the model that there is.
  void Refresh(viewer::frmViewEquations& window) {
    Note("refresh");
    window.RefreshForm();
    if (window.contents.TakeWantedRefresh()) return window.RefreshForm();  // it is not to ask now
    Require(fuzz::FaultOfFilled(window.contents, *model_), history_);
  }

  Choices& choose_;
  const TemporaryFolder& folder_;
  std::unique_ptr<LPModel> model_;
  std::string history_;
  int steps_ = 0;
  int depth_ = 0;
  bool over_ = false;
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const TemporaryFolder folder;
  Choices choose(data, size);
  Play(choose, folder).Run();
  return 0;
}
