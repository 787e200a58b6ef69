// What the windows of one desktop share: which are on the screen, which of the user's doings are
// under way, and when a window that has left the screen may be destroyed.
//
// A form may go away inside an event of its own window. Qt goes on with that event afterwards, so
// the window is only hidden then and is destroyed as soon as nothing of the user's is under way.
#pragma once

#include <QApplication>
#include <QObject>
#include <QWidget>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace quarvel::platform::qt {

class DrawerState {
 public:
  // Hears of a failure that a handler let out: its description.
  std::function<void(const std::string&)> on_failure;

  // Puts a window on top of the others, also one that is among them.
  void Raise(QWidget& window);
  // The window on top, null when there is none.
  QWidget* Top() const { return shown_.empty() ? nullptr : shown_.back(); }
  // Whom a modal window belongs to: the component's window on top, else the host's that is active.
  QWidget* OwnerWindow() const { return shown_.empty() ? QApplication::activeWindow() : Top(); }
  // The window has left the screen.
  void Retire(std::shared_ptr<QWidget> window);
  // Destroys what has left the screen, unless something is under way.
  void DestroyRetired();

  // Does what the user wants; no failure gets out to Qt. Whoever calls must look whether his form
  // is still there afterwards.
  template <typename Action>
  void ForUser(Action action) {
    const Doing doing(*this);
    try {
      action();
    } catch (...) {
      TellFailure();
    }
  }

 private:
  class Doing {
   public:
    explicit Doing(DrawerState& state) : state_(state) { ++state_.doings_; }
    ~Doing() {
      if (--state_.doings_ == 0) state_.DestroyRetiredSoon();
    }
    Doing(const Doing&) = delete;
    Doing& operator=(const Doing&) = delete;

   private:
    DrawerState& state_;
  };

  void DestroyRetiredSoon();
  void TellFailure() const noexcept;

  std::vector<QWidget*> shown_;  // the topmost last
  std::vector<std::shared_ptr<QWidget>> retired_;
  int doings_ = 0;
  QObject later_;  // calls that wait for the next event die with it
};

}  // namespace quarvel::platform::qt
