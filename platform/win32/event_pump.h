// Running the events of this thread: until something is done, or those that are pending.
//
// A loop ends on the caller's word alone. A quit message that arrives meanwhile belongs to the
// host's loop: it is kept and posted again when the loop has ended.
#pragma once

#include <chrono>
#include <functional>
#include <optional>

#include "platform/win32/win32.h"

namespace quarvel::platform::win32 {

class EventPump {
 public:
  // Waits for events and runs them until `done`. Raises when the system has none to give.
  void RunUntil(const std::function<bool()>& done);
  // Whether RunPending would do anything now.
  bool IsDue() const;
  // Runs what is pending, but does nothing for some eighth of a second after the last time, and
  // nothing longer than a fifth, so that a busy host cannot stop the work.
  void RunPending();

 private:
  std::chrono::steady_clock::time_point last_pending_{};
};

// Keeps a quit message that is pending from the system's boxes and dialogs, which would close
// unanswered for it. It is posted again in the end.
class QuitKept {
 public:
  QuitKept();
  ~QuitKept();
  QuitKept(const QuitKept&) = delete;
  QuitKept& operator=(const QuitKept&) = delete;

 private:
  std::optional<int> quit_;
};

}  // namespace quarvel::platform::win32
