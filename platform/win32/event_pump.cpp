#include "platform/win32/event_pump.h"

#include "platform/automation_error.h"
#include "platform/win32/form_keyboard.h"
#include "platform/win32/pace.h"

namespace quarvel::platform::win32 {
namespace {

constexpr std::chrono::milliseconds kLongestTurn{200};

// One loop, nested in others perhaps.
class Turn {
 public:
  Turn() = default;
  ~Turn() {
    if (quit_) PostQuitMessage(*quit_);
  }
  Turn(const Turn&) = delete;
  Turn& operator=(const Turn&) = delete;

  void Run(const MSG& message) {
    if (message.message == WM_QUIT) {
      quit_ = static_cast<int>(message.wParam);
      return;
    }
    if (TakeKey(message)) return;
    TranslateMessage(&message);
    DispatchMessageW(&message);
  }

 private:
  std::optional<int> quit_;
};

}  // namespace

void EventPump::RunUntil(const std::function<bool()>& done) {
  Turn turn;
  MSG message;
  while (!done()) {
    if (GetMessageW(&message, nullptr, 0, 0) == -1) {
      RaiseRunTimeError(RunTimeError::kInternalError);
    }
    turn.Run(message);
  }
}

bool EventPump::IsDue() const { return PaintIsDue(last_pending_); }

void EventPump::RunPending() {
  if (!IsDue()) return;
  const auto start = std::chrono::steady_clock::now();
  Turn turn;
  MSG message;
  while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
    turn.Run(message);
    if (std::chrono::steady_clock::now() - start >= kLongestTurn) break;
  }
  last_pending_ = std::chrono::steady_clock::now();
}

QuitKept::QuitKept() {
  MSG message;
  if (PeekMessageW(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE)) {
    quit_ = static_cast<int>(message.wParam);
  }
}

QuitKept::~QuitKept() {
  if (quit_) PostQuitMessage(*quit_);
}

}  // namespace quarvel::platform::win32
