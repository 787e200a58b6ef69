#include <objbase.h>

#include "hosts/viewer_desktop.h"
#include "platform/win32/win32_desktop.h"

namespace quarvel::hosts {

std::unique_ptr<platform::Desktop> MakeViewerDesktop() {
  // For the names that accessibility tools read and for the file dialogs. The program ends soon
  // after its windows, and takes this with it.
  static_cast<void>(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED | COINIT_DISABLE_OLE1DDE));
  return platform::MakeWin32Desktop(GetModuleHandleW(nullptr));
}

}  // namespace quarvel::hosts
