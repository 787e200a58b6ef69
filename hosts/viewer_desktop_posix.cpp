#include "hosts/viewer_desktop.h"

#ifdef QUARVEL_HAS_QT
#include "platform/qt/qt_desktop.h"
#endif

namespace quarvel::hosts {

std::unique_ptr<platform::Desktop> MakeViewerDesktop() {
#ifdef QUARVEL_HAS_QT
  return platform::MakeQtDesktop();
#else
  return nullptr;
#endif
}

}  // namespace quarvel::hosts
