// Running events: until something is done, or those that are pending.
//
// A loop ends on the caller's word alone. A wish to quit the program that arrives meanwhile belongs
// to whoever runs the program: it is held and handed on when the outermost loop has ended.
#pragma once

#include <QObject>
#include <chrono>
#include <functional>

namespace quarvel::platform::qt {

class EventPump : public QObject {
 public:
  // Waits for events and runs them until `done`.
  void RunUntil(const std::function<bool()>& done);
  // Runs what is pending, but does nothing for some thirtieth of a second after the last time.
  void RunPending();
  // As RunUntil, without the user's keyboard and mouse, and not for longer than `limit`.
  void PaintUntil(const std::function<bool()>& done, std::chrono::milliseconds limit);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  class Turn;

  int depth_ = 0;
  bool quit_wanted_ = false;
  std::chrono::steady_clock::time_point last_pending_{};
};

}  // namespace quarvel::platform::qt
