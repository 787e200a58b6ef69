#include "platform/qt/event_pump.h"

#include <QCoreApplication>
#include <QEvent>
#include <QEventLoop>
#include <utility>

namespace quarvel::platform::qt {
namespace {

constexpr std::chrono::milliseconds kPaintInterval{33};

void WantToQuit() {
  QCoreApplication::postEvent(QCoreApplication::instance(), new QEvent(QEvent::Quit));
}

}  // namespace

// One loop of the pump, nested in others perhaps.
class EventPump::Turn {
 public:
  explicit Turn(EventPump& pump) : pump_(pump) {
    if (pump_.depth_++ == 0) QCoreApplication::instance()->installEventFilter(&pump_);
  }
  ~Turn() {
    if (--pump_.depth_ > 0) return;
    QCoreApplication::instance()->removeEventFilter(&pump_);
    if (std::exchange(pump_.quit_wanted_, false)) WantToQuit();
  }
  Turn(const Turn&) = delete;
  Turn& operator=(const Turn&) = delete;

 private:
  EventPump& pump_;
};

bool EventPump::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::Quit || watched != QCoreApplication::instance()) return false;
  quit_wanted_ = true;
  event->ignore();
  return true;
}

void EventPump::RunUntil(const std::function<bool()>& done) {
  const Turn turn(*this);
  while (!done()) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
}

void EventPump::RunPending() {
  const auto now = std::chrono::steady_clock::now();
  if (now - last_pending_ < kPaintInterval) return;
  const Turn turn(*this);
  QCoreApplication::processEvents(QEventLoop::AllEvents);
  last_pending_ = std::chrono::steady_clock::now();
}

void EventPump::PaintUntil(const std::function<bool()>& done, std::chrono::milliseconds limit) {
  const Turn turn(*this);
  const auto end = std::chrono::steady_clock::now() + limit;
  constexpr auto kKinds = QEventLoop::ExcludeUserInputEvents | QEventLoop::ExcludeSocketNotifiers;
  while (!done() && std::chrono::steady_clock::now() < end) {
    QCoreApplication::processEvents(kKinds);
  }
}

}  // namespace quarvel::platform::qt
