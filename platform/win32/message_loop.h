// Running the events of this thread. A loop of ours never ends by a quit message: it keeps it and
// posts it again when it is done, for the loop of the host that it is meant for.
#pragma once

#include <optional>

#include "platform/win32/win32.h"

namespace quarvel::platform::win32 {

class MessageLoop {
 public:
  MessageLoop() = default;
  ~MessageLoop();
  MessageLoop(const MessageLoop&) = delete;
  MessageLoop& operator=(const MessageLoop&) = delete;

  // Runs one event that is pending; false when there is none.
  bool RunPending();
  // Waits for an event and runs it. Raises when the system has none to give.
  void RunNext();

 private:
  void Run(const MSG& message);

  std::optional<int> quit_;
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
