#include "platform/win32/message_loop.h"

#include "platform/automation_error.h"
#include "platform/win32/form_keyboard.h"

namespace quarvel::platform::win32 {

MessageLoop::~MessageLoop() {
  if (quit_) PostQuitMessage(*quit_);
}

void MessageLoop::Run(const MSG& message) {
  if (message.message == WM_QUIT) {
    quit_ = static_cast<int>(message.wParam);
    return;
  }
  if (TakeKey(message)) return;
  TranslateMessage(&message);
  DispatchMessageW(&message);
}

bool MessageLoop::RunPending() {
  MSG message;
  if (!PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) return false;
  Run(message);
  return true;
}

void MessageLoop::RunNext() {
  MSG message;
  if (GetMessageW(&message, nullptr, 0, 0) == -1) RaiseRunTimeError(RunTimeError::kInternalError);
  Run(message);
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
