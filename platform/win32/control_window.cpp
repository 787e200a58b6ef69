#include "platform/win32/control_window.h"

#include "platform/automation_error.h"
#include "platform/win32/automation_name.h"
#include "platform/win32/button_windows.h"
#include "platform/win32/form_window.h"
#include "platform/win32/grid_window.h"
#include "platform/win32/input_windows.h"
#include "platform/win32/wide_text.h"

namespace quarvel::platform::win32 {

ControlWindow::ControlWindow(FormWindow& owner, Control& control, int id)
    : owner_(owner), control_(control), id_(id) {}

void ControlWindow::Open(HFONT font) {
  const Mirroring mirroring(*this);
  const Style style = WindowStyle();
  const DWORD state = (control_.visible() ? WS_VISIBLE : 0U) |
                      (control_.enabled() ? 0U : static_cast<DWORD>(WS_DISABLED));
  handle_ =
      CreateWindowExW(style.extended_style, style.window_class, L"",
                      style.style | state | WS_CHILD | WS_CLIPSIBLINGS, 0, 0, 0, 0, owner_.handle(),
                      reinterpret_cast<HMENU>(INT_PTR{id_}), owner_.module(), nullptr);
  if (handle_ == nullptr) RaiseRunTimeError(RunTimeError::kOutOfMemory);
  GiveAutomationName(handle_, control_.name());
  SetFont(font);
  Fill();
}

void ControlWindow::Close() {
  if (handle_ != nullptr) TakeAutomationName(handle_);
  handle_ = nullptr;
}

void ControlWindow::Mirror(Change change) {
  const Mirroring mirroring(*this);
  switch (change) {
    case Change::kCaption:
      return ShowCaption();
    case Change::kEnabled:
      EnableWindow(handle_, control_.enabled() ? TRUE : FALSE);
      return;
    case Change::kVisible:
      ShowWindow(handle_, control_.visible() ? SW_SHOWNA : SW_HIDE);
      return;
    default:
      return;
  }
}

void ControlWindow::SetFont(HFONT font) { Send(WM_SETFONT, reinterpret_cast<WPARAM>(font), TRUE); }

ControlWindow::KeyUse ControlWindow::Press(KeyPress) { return KeyUse::kNone; }

void ControlWindow::ShowCaption() { SetWindowTextTo(handle_, MarkedCaption(control_, '&')); }

std::unique_ptr<ControlWindow> MakeControlWindow(FormWindow& owner, Control& control, int id) {
  switch (control.kind()) {
    case ControlKind::kLabel:
      return std::make_unique<LabelWindow>(owner, control, id);
    case ControlKind::kFrame:
      return std::make_unique<FrameWindow>(owner, control, id);
    case ControlKind::kButton:
      return std::make_unique<ButtonWindow>(owner, control, id);
    case ControlKind::kOptionButton:
      return std::make_unique<OptionWindow>(owner, control, id);
    case ControlKind::kCheckBox:
      return std::make_unique<CheckWindow>(owner, control, id);
    case ControlKind::kTextBox:
      return std::make_unique<TextWindow>(owner, control, id);
    case ControlKind::kComboBox:
      return std::make_unique<ComboWindow>(owner, control, id);
    case ControlKind::kGrid:
      return std::make_unique<GridWindow>(owner, control, id);
    case ControlKind::kTabStrip:
      return std::make_unique<TabWindow>(owner, control, id);
    case ControlKind::kProgressBar:
      return std::make_unique<ProgressWindow>(owner, control, id);
    case ControlKind::kMenuItem:
      break;
  }
  return nullptr;
}

}  // namespace quarvel::platform::win32
