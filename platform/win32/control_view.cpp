#include "platform/win32/control_view.h"

#include "platform/automation_error.h"
#include "platform/win32/automation_name.h"
#include "platform/win32/basic_views.h"
#include "platform/win32/choice_views.h"
#include "platform/win32/form_window.h"
#include "platform/win32/grid_view.h"
#include "platform/win32/text_view.h"
#include "platform/win32/wide_text.h"

namespace quarvel::platform::win32 {

ControlView::ControlView(FormWindow& owner, Control& control, int id)
    : owner_(owner), control_(control), id_(id) {}

bool ControlView::alive() const { return owner_.alive(); }

void ControlView::Open(HFONT font) {
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

void ControlView::Close() {
  if (handle_ != nullptr) TakeAutomationName(handle_);
  handle_ = nullptr;
}

void ControlView::Mirror(Change change) {
  const Mirroring mirroring(*this);
  switch (change) {
    case Change::kEnabled:
      EnableWindow(handle_, control_.enabled() ? TRUE : FALSE);
      return;
    case Change::kVisible:
      ShowWindow(handle_, control_.visible() ? SW_SHOWNA : SW_HIDE);
      return;
    default:
      return Show(change);
  }
}

void ControlView::Show(Change change) {
  if (change == Change::kCaption) ShowCaption();
}

void ControlView::SetFont(HFONT font) { Send(WM_SETFONT, reinterpret_cast<WPARAM>(font), TRUE); }

ControlView::KeyUse ControlView::Press(KeyPress) { return KeyUse::kNone; }

void ControlView::ShowCaption() { SetWindowTextTo(handle_, MarkedCaption(control_, '&')); }

std::unique_ptr<ControlView> MakeView(FormWindow& owner, Control& control, int id) {
  switch (control.kind()) {
    case ControlKind::kLabel:
      return std::make_unique<LabelView>(owner, control, id);
    case ControlKind::kFrame:
      return std::make_unique<FrameView>(owner, control, id);
    case ControlKind::kButton:
      return std::make_unique<ButtonView>(owner, control, id);
    case ControlKind::kOptionButton:
      return std::make_unique<OptionView>(owner, control, id);
    case ControlKind::kCheckBox:
      return std::make_unique<CheckView>(owner, control, id);
    case ControlKind::kTextBox:
      return std::make_unique<TextView>(owner, control, id);
    case ControlKind::kComboBox:
      return std::make_unique<ComboView>(owner, control, id);
    case ControlKind::kGrid:
      return std::make_unique<GridView>(owner, control, id);
    case ControlKind::kTabStrip:
      return std::make_unique<TabView>(owner, control, id);
    case ControlKind::kProgressBar:
      return std::make_unique<ProgressView>(owner, control, id);
    case ControlKind::kMenuItem:
      break;
  }
  return nullptr;
}

}  // namespace quarvel::platform::win32
