#include "platform/win32/drawer_state.h"

#include "platform/win32/form_window.h"

namespace quarvel::platform::win32 {

DrawerState::DrawerState(HINSTANCE owner)
    : module(owner), common_controls(owner), form_class(owner, FormWindow::Receive) {}

void ShowPointer(MousePointer pointer) {
  SetCursor(LoadCursorW(nullptr, pointer == MousePointer::kWait ? IDC_WAIT : IDC_ARROW));
}

}  // namespace quarvel::platform::win32
