// A host program in a process of its own, and a user at its windows: this process.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include <windows.h>

namespace quarvel::automation {

// A visible window with its title and, for a box, its text.
struct SeenWindow {
  HWND handle;
  std::string window_class;
  std::string title;
  std::string text;
};

class HostProcess {
 public:
  // Starts `command` with its output going to the file `output` (both in the system's own form).
  // Throws std::runtime_error when it cannot be started.
  HostProcess(std::wstring command, const std::wstring& output);
  // Ends the process if it still runs.
  ~HostProcess();
  HostProcess(const HostProcess&) = delete;
  HostProcess& operator=(const HostProcess&) = delete;

  bool IsRunning() const;
  DWORD ExitCode() const;
  // The visible top-level windows of the process, the topmost first.
  std::vector<SeenWindow> Windows() const;

  // Shows `user` the topmost window that takes input, whenever it is a new one, until the process
  // ends. `user` does something to it and gives true when that closes it or opens another, false
  // when it is to stay.
  // False when all that takes longer than `seconds`.
  bool Attend(const std::function<bool(const SeenWindow&)>& user, int seconds) const;

 private:
  HANDLE output_;
  PROCESS_INFORMATION process_ = {};
};

// Whether the window is a box of the system.
bool IsBox(const SeenWindow& window);

// Presses the button of that number (IDOK, IDYES ...) of a box.
void PressButton(HWND window, int button);

// Types a file's name into a file dialog and presses its button.
void ChooseFile(HWND dialog, const std::wstring& path);

// The text of a control of any process.
std::string ControlText(HWND control);

}  // namespace quarvel::automation
