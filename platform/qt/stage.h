// The windows of one desktop: which are on the screen, which of the user's doings are under way,
// and when a window that has left the screen may be deleted.
//
// A form may go away inside an event of its own window. Qt goes on with that event afterwards, so
// the window is only hidden then and is deleted as soon as nothing of the user's is under way.
#pragma once

#include <QApplication>
#include <QObject>
#include <QWidget>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace quarvel::platform::qt {

class Stage {
 public:
  // Hears of a failure that a handler let out: its description.
  std::function<void(const std::string&)> on_failure;

  // Puts a window on top of the others, also one that is among them.
  void Raise(QWidget& window);
  // The window on top, null when there is none.
  QWidget* Top() const { return shown_.empty() ? nullptr : shown_.back(); }
  // Whom a modal window belongs to: the component's window on top, else the host's that is active.
  QWidget* Owner() const { return shown_.empty() ? QApplication::activeWindow() : Top(); }
  // Takes a window away for good.
  void Bury(std::unique_ptr<QWidget> window);
  // Deletes what was buried, unless something is under way.
  void Clear();

  // Does what the user wants; no failure gets out to Qt. Whoever calls must look whether his form
  // is still there afterwards.
  template <typename Action>
  void ForUser(Action action) {
    const Doing doing(*this);
    try {
      action();
    } catch (...) {
      Report();
    }
  }

 private:
  class Doing {
   public:
    explicit Doing(Stage& stage) : stage_(stage) { ++stage_.doings_; }
    ~Doing() {
      if (--stage_.doings_ == 0) stage_.ClearSoon();
    }
    Doing(const Doing&) = delete;
    Doing& operator=(const Doing&) = delete;

   private:
    Stage& stage_;
  };

  void ClearSoon();
  void Report() const;

  std::vector<QWidget*> shown_;  // the topmost last
  std::vector<std::unique_ptr<QWidget>> buried_;
  int doings_ = 0;
  QObject later_;  // calls that wait for the next event die with it
};

}  // namespace quarvel::platform::qt
