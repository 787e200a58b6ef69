// A user of another program's windows: starts `quarvel.exe` and works its windows from this process
// by the messages that real input becomes. Whatever does not come in time is a std::runtime_error
// that tells which windows there were; a program that still runs when its driver goes is ended.
#pragma once

#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "platform/win32/win32.h"

namespace quarvel::platform::win32 {

class WindowDriver {
 public:
  // The program beside this one, with these words after its name.
  WindowDriver(const std::string& program, const std::vector<std::string>& words);
  ~WindowDriver();
  WindowDriver(const WindowDriver&) = delete;
  WindowDriver& operator=(const WindowDriver&) = delete;

  // Waits for a form by its name, or for a box by its title, that can be used.
  HWND Form(std::string_view name) const;
  HWND Box(std::string_view title) const;
  bool HasForm(std::string_view name) const;
  // Waits until the condition holds; `what` is told when it never does.
  void Until(std::string_view what, const std::function<bool()>& condition) const;

  // --- forms and their controls ---
  HWND Control(HWND form, std::string_view name) const;
  std::string Text(HWND window) const;
  void Press(HWND form, std::string_view button) const;
  void Enter(HWND form, std::string_view text_box, std::string_view text) const;
  void Choose(HWND form, std::string_view combo_box, int index) const;
  void Turn(HWND form, std::string_view tab_strip, int page) const;
  void Key(HWND window, WPARAM key) const;
  // A menu item, by the command that its place in the form gives it.
  void Command(HWND form, int command) const;
  void Close(HWND form) const;

  // --- grids ---
  int Lines(HWND grid) const;
  int SelectedLine(HWND grid) const;
  void SelectLine(HWND grid, int line) const;
  std::string Cell(HWND grid, int line, int column) const;

  // --- boxes of the system ---
  std::string BoxText(HWND box) const;
  // Waits for the box, gives its text and presses the button of that number.
  std::string Answer(std::string_view title, int button) const;
  // The same for the program's own box for one line of text.
  std::string AnswerInput(std::string_view text) const;
  // Enters a path in the file dialog of that title and presses OK.
  void AnswerFile(std::string_view title, std::string_view path) const;

  // Gives the program messages that it finds all at once, whatever else the machine does meanwhile:
  // it stands still while `post` runs, so that only PostMessage may be called there.
  void AtOnce(const std::function<void()>& post) const;

  // Waits for the end of the program; its exit status.
  DWORD Wait() const;

 private:
  LRESULT Send(HWND window, UINT message, WPARAM w = 0, LPARAM l = 0) const;
  HWND Find(const std::function<bool(HWND)>& wanted) const;
  std::string WindowsThere() const;

  PROCESS_INFORMATION process_ = {};
};

// A window of another program that holds the name of one of its own ("Notepad"); closed. Waits for
// it.
void CloseForeignWindow(const std::wstring& window_class);

}  // namespace quarvel::platform::win32
