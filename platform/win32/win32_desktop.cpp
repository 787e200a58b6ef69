#include "platform/win32/win32_desktop.h"

#include <algorithm>
#include <chrono>
#include <string>
#include <utility>
#include <vector>

#include "platform/automation_error.h"
#include "platform/box.h"
#include "platform/form.h"
#include "platform/input_box.h"
#include "platform/win32/clipboard.h"
#include "platform/win32/file_dialogs.h"
#include "platform/win32/fitted_text.h"
#include "platform/win32/form_window.h"
#include "platform/win32/message_loop.h"
#include "platform/win32/pace.h"
#include "platform/win32/thread_windows.h"
#include "platform/win32/wide_text.h"

namespace quarvel::platform {
namespace win32 {
namespace {

// Longer than that no call lets events run, so that a busy host cannot stop the work.
constexpr std::chrono::milliseconds kLongestTurn{200};

class Win32Peer : public FormPeer {
 public:
  explicit Win32Peer(std::shared_ptr<FormWindow> window) : window_(std::move(window)) {}
  ~Win32Peer() override { window_->Retire(); }
  Win32Peer(const Win32Peer&) = delete;
  Win32Peer& operator=(const Win32Peer&) = delete;

  void CaptionChanged() override { window_->CaptionChanged(); }
  void ControlChanged(const Control& control, Change change) override {
    window_->ControlChanged(control, change);
  }
  void BringToFront() override { window_->BringToFront(); }

 private:
  std::shared_ptr<FormWindow> window_;
};

class Win32Desktop : public Desktop {
 public:
  explicit Win32Desktop(HINSTANCE module) : state_(std::make_shared<DrawerState>(module)) {}
  ~Win32Desktop() override;
  Win32Desktop(const Win32Desktop&) = delete;
  Win32Desktop& operator=(const Win32Desktop&) = delete;

  MsgBoxResult MsgBox(const Box& box) override;
  std::string InputBox(std::string_view prompt, std::string_view title,
                       std::string_view default_text) override;
  std::string ShowFileDialog(const FileDialog& dialog) override;
  void DoEvents() override;
  void CopyToClipboard(std::string_view text) override { SetClipboardText(text); }
  void Beep() override { MessageBeep(MB_OK); }
  void SetMousePointer(MousePointer pointer) override;
  bool OpenInEditor(const std::string& path) override;
  std::unique_ptr<FormPeer> Draw(Form& form, bool modal) override;
  void PumpUntilClosed(const Showing& showing) override;

 private:
  using FormWindows = std::vector<std::shared_ptr<FormWindow>>;
  // The windows may go while something is done with them.
  FormWindows Windows() const { return state_->windows; }
  void Flush();
  bool IsLost(const Form& form) const;

  std::shared_ptr<DrawerState> state_;
  std::chrono::steady_clock::time_point last_turn_{};
};

Win32Desktop::~Win32Desktop() {
  for (const auto& window : Windows()) window->Destroy();
}

void Win32Desktop::Flush() {
  for (const auto& window : Windows()) window->Flush();
}

MsgBoxResult Win32Desktop::MsgBox(const Box& box) {
  Flush();
  const HWND owner = OwnerWindow();
  const UINT foreground = owner == nullptr ? MB_SETFOREGROUND : 0;
  const DisabledWindows others(DisabledWindows::Which::kAll, owner);
  const QuitKept quit;
  int answer = 0;
  {
    const ActivationContext::Use use(state_->common_controls);
    answer = MessageBoxW(owner, ToWide(box.text()).c_str(), ToWide(box.title).c_str(),
                         static_cast<UINT>(box.style) | foreground);
  }
  const bool cancelled = answer == IDCANCEL || answer == 0;
  return cancelled ? box.look().when_closed : static_cast<MsgBoxResult>(answer);
}

std::string Win32Desktop::InputBox(std::string_view prompt, std::string_view title,
                                   std::string_view default_text) {
  return AskLine(*this, WordsOnScreenOf(OwnerWindow()), prompt, title, default_text);
}

std::string Win32Desktop::ShowFileDialog(const FileDialog& dialog) {
  Flush();
  const HWND owner = OwnerWindow();
  const DisabledWindows others(DisabledWindows::Which::kAll, owner);
  const QuitKept quit;
  const ActivationContext::Use use(state_->common_controls);
  return ChooseFile(dialog, owner);
}

void Win32Desktop::DoEvents() {
  if (!PaintIsDue(last_turn_)) return;
  Flush();
  const auto start = std::chrono::steady_clock::now();
  MessageLoop loop;
  while (loop.RunPending() && std::chrono::steady_clock::now() - start < kLongestTurn) continue;
  last_turn_ = std::chrono::steady_clock::now();
}

void Win32Desktop::SetMousePointer(MousePointer pointer) {
  state_->pointer = pointer;
  ShowPointer(pointer);
}

bool Win32Desktop::OpenInEditor(const std::string& path) {
  std::wstring command = L"notepad \"" + ToWide(path) + L"\"";
  STARTUPINFOW start = {};
  start.cb = sizeof(start);
  start.dwFlags = STARTF_USESHOWWINDOW;
  start.wShowWindow = SW_SHOWNORMAL;
  PROCESS_INFORMATION process = {};
  if (!CreateProcessW(nullptr, command.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &start,
                      &process)) {
    return false;
  }
  AllowSetForegroundWindow(process.dwProcessId);
  CloseHandle(process.hThread);
  CloseHandle(process.hProcess);
  return true;
}

std::unique_ptr<FormPeer> Win32Desktop::Draw(Form& form, bool modal) {
  Flush();
  auto window = std::make_shared<FormWindow>(state_, form);
  auto peer = std::make_unique<Win32Peer>(window);
  state_->windows.push_back(window);
  try {
    window->Open(modal);
  } catch (...) {
    window->Destroy();
    throw;
  }
  return peer;
}

bool Win32Desktop::IsLost(const Form& form) const {
  const auto& windows = state_->windows;
  return std::none_of(windows.begin(), windows.end(), [&form](const auto& window) {
    return window->alive() && &window->form() == &form;
  });
}

void Win32Desktop::PumpUntilClosed(const Showing& showing) {
  MessageLoop loop;
  while (!showing.closed) {
    Flush();
    // Whoever destroyed the window of a form that still shows leaves nothing to wait for.
    if (IsLost(*showing.form)) RaiseRunTimeError(RunTimeError::kInternalError);
    loop.RunNext();
  }
}

}  // namespace
}  // namespace win32

std::unique_ptr<Desktop> MakeWin32Desktop(HINSTANCE module) {
  return std::make_unique<win32::Win32Desktop>(module);
}

}  // namespace quarvel::platform
