#include "platform/qt/stage.h"

#include <QMetaObject>
#include <utility>

#include "platform/automation_error.h"

namespace quarvel::platform::qt {

void Stage::Raise(QWidget& window) {
  std::erase(shown_, &window);
  shown_.push_back(&window);
}

void Stage::Bury(std::unique_ptr<QWidget> window) {
  std::erase(shown_, window.get());
  buried_.push_back(std::move(window));
}

void Stage::Clear() {
  if (doings_ > 0) return;
  const auto gone = std::exchange(buried_, {});
}

void Stage::ClearSoon() {
  if (buried_.empty()) return;
  QMetaObject::invokeMethod(
      &later_, [this] { Clear(); }, Qt::QueuedConnection);
}

void Stage::Report() const {
  if (on_failure) on_failure(CurrentError().description());
}

}  // namespace quarvel::platform::qt
