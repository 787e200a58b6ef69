#include "platform/win32/drawer_state.h"

#include "platform/automation_error.h"
#include "platform/box.h"
#include "platform/win32/form_window.h"
#include "platform/win32/wide_text.h"

namespace quarvel::platform::win32 {

DrawerState::DrawerState(HINSTANCE owner)
    : module(owner), common_controls(owner), form_class(owner, FormWindow::Receive) {}

void DrawerState::TellFailure(HWND window) const noexcept {
  try {
    const AutomationError error = CurrentError();
    const ActivationContext::Use use(common_controls);
    MessageBoxW(window, ToWide(error.description()).c_str(), ToWide(kDefaultTitle).c_str(),
                MB_TASKMODAL);
  } catch (...) {
    // Not even memory for a box is left: there is no other way to tell.
    MessageBeep(MB_ICONERROR);
  }
}

void ShowPointer(MousePointer pointer) {
  SetCursor(LoadCursorW(nullptr, pointer == MousePointer::kWait ? IDC_WAIT : IDC_ARROW));
}

}  // namespace quarvel::platform::win32
