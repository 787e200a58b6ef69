#include "platform/win32/win32_desktop.h"

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "platform/automation_error.h"
#include "platform/box.h"
#include "platform/form.h"
#include "platform/input_box.h"
#include "platform/win32/clipboard.h"
#include "platform/win32/editor.h"
#include "platform/win32/event_pump.h"
#include "platform/win32/file_dialogs.h"
#include "platform/win32/fitted_words.h"
#include "platform/win32/form_window.h"
#include "platform/win32/thread_windows.h"
#include "platform/win32/wide_text.h"
#include "platform/window_peer.h"

namespace quarvel::platform {
namespace win32 {
namespace {

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
  bool OpenInEditor(const std::string& path) override { return StartEditor(path); }
  std::unique_ptr<FormPeer> Draw(Form& form, bool modal) override;
  void PumpUntilClosed(const Showing& showing) override;

 private:
  using FormWindows = std::vector<std::shared_ptr<FormWindow>>;
  // The windows may go while something is done with them.
  FormWindows Windows() const { return state_->windows; }
  void Flush();
  bool IsLost(const Form& form) const;

  std::shared_ptr<DrawerState> state_;
  EventPump pump_;
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
  if (!pump_.IsDue()) return;
  Flush();
  pump_.RunPending();
}

void Win32Desktop::SetMousePointer(MousePointer pointer) {
  state_->pointer = pointer;
  ShowPointer(pointer);
}

std::unique_ptr<FormPeer> Win32Desktop::Draw(Form& form, bool modal) {
  Flush();
  auto window = std::make_shared<FormWindow>(state_, form);
  auto peer = std::make_unique<WindowPeer<FormWindow>>(window);
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
  pump_.RunUntil([this, &showing] {
    if (showing.closed) return true;
    Flush();
    // Whoever destroyed the window of a form that still shows leaves nothing to wait for.
    if (IsLost(*showing.form)) RaiseRunTimeError(RunTimeError::kInternalError);
    return false;
  });
}

}  // namespace
}  // namespace win32

std::unique_ptr<Desktop> MakeWin32Desktop(HINSTANCE module) {
  return std::make_unique<win32::Win32Desktop>(module);
}

}  // namespace quarvel::platform
