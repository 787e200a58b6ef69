#include "platform/qt/drawer_state.h"

#include <QMetaObject>
#include <utility>

#include "platform/automation_error.h"

namespace quarvel::platform::qt {

void DrawerState::Raise(QWidget& window) {
  std::erase(shown_, &window);
  shown_.push_back(&window);
}

void DrawerState::Retire(std::shared_ptr<QWidget> window) {
  std::erase(shown_, window.get());
  retired_.push_back(std::move(window));
}

void DrawerState::DestroyRetired() {
  if (doings_ > 0) return;
  const auto gone = std::exchange(retired_, {});
}

void DrawerState::DestroyRetiredSoon() {
  if (retired_.empty()) return;
  QMetaObject::invokeMethod(
      &later_, [this] { DestroyRetired(); }, Qt::QueuedConnection);
}

void DrawerState::TellFailure() const noexcept {
  try {
    if (on_failure) on_failure(CurrentError().description());
  } catch (...) {
    // Not even memory for a box is left: there is no other way to tell.
    QApplication::beep();
  }
}

}  // namespace quarvel::platform::qt
