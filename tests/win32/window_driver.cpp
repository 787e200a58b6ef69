#include "tests/win32/window_driver.h"

#include <algorithm>
#include <array>
#include <stdexcept>

#include "platform/win32/automation_name.h"
#include "platform/win32/wide_text.h"

namespace quarvel::platform::win32 {
namespace {

constexpr ULONGLONG kPatienceMs = 20000;
constexpr DWORD kTurnMs = 10;
constexpr UINT kAnswerMs = 20000;
constexpr int kBoxText = 0xFFFF;

std::wstring FolderOfThisProgram() {
  std::array<wchar_t, 32768> path;
  const DWORD length = GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size()));
  const std::wstring whole(path.data(), length);
  return whole.substr(0, whole.rfind(L'\\') + 1);
}

std::string NameOf(HWND window) {
  std::array<wchar_t, 256> text;
  const auto atom = reinterpret_cast<UINT_PTR>(GetPropW(window, kNameProperty));
  if (atom == 0) return "";
  const UINT length = GlobalGetAtomNameW(static_cast<ATOM>(atom), text.data(), 256);
  return ToUtf8({text.data(), length});
}

std::wstring ClassOf(HWND window) {
  std::array<wchar_t, 256> name;
  const int length = GetClassNameW(window, name.data(), 256);
  return {name.data(), static_cast<std::size_t>(length)};
}

bool IsUsable(HWND window) { return IsWindowVisible(window) && IsWindowEnabled(window); }

BOOL CALLBACK NoteWindow(HWND window, LPARAM list) {
  reinterpret_cast<std::vector<HWND>*>(list)->push_back(window);
  return TRUE;
}

std::vector<HWND> TopWindows() {
  std::vector<HWND> windows;
  EnumWindows(NoteWindow, reinterpret_cast<LPARAM>(&windows));
  return windows;
}

std::vector<HWND> ChildWindows(HWND window) {
  std::vector<HWND> windows;
  EnumChildWindows(window, NoteWindow, reinterpret_cast<LPARAM>(&windows));
  return windows;
}

// Room in the memory of the other program, for messages that Windows does not carry over.
class RemoteRoom {
 public:
  RemoteRoom(HANDLE process, SIZE_T size)
      : process_(process),
        place_(static_cast<char*>(
            VirtualAllocEx(process, nullptr, size, MEM_COMMIT | MEM_RESERVE, PAGE_READWRITE))) {
    if (place_ == nullptr) throw std::runtime_error("no memory in the other program");
  }
  ~RemoteRoom() { VirtualFreeEx(process_, place_, 0, MEM_RELEASE); }
  RemoteRoom(const RemoteRoom&) = delete;
  RemoteRoom& operator=(const RemoteRoom&) = delete;

  char* place() const { return place_; }
  template <typename Value>
  void Put(const Value& value) const {
    WriteProcessMemory(process_, place_, &value, sizeof(value), nullptr);
  }
  std::wstring Text(std::size_t offset, std::size_t length) const {
    std::wstring text(length, L'\0');
    ReadProcessMemory(process_, place_ + offset, text.data(), length * sizeof(wchar_t), nullptr);
    return text;
  }

 private:
  HANDLE process_;
  char* place_;
};

}  // namespace

WindowDriver::WindowDriver(const std::string& program, const std::vector<std::string>& words) {
  std::wstring command = L'"' + FolderOfThisProgram() + ToWide(program) + L'"';
  for (const std::string& word : words) command += L" \"" + ToWide(word) + L'"';
  STARTUPINFOW start = {};
  start.cb = sizeof(start);
  if (!CreateProcessW(nullptr, command.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &start,
                      &process_)) {
    throw std::runtime_error(program + " does not start");
  }
}

WindowDriver::~WindowDriver() {
  TerminateProcess(process_.hProcess, 99);
  CloseHandle(process_.hThread);
  CloseHandle(process_.hProcess);
}

HWND WindowDriver::Find(const std::function<bool(HWND)>& wanted) const {
  for (HWND window : TopWindows()) {
    DWORD process = 0;
    GetWindowThreadProcessId(window, &process);
    if (process == process_.dwProcessId && IsUsable(window) && wanted(window)) return window;
  }
  return nullptr;
}

std::string WindowDriver::WindowsThere() const {
  std::string all;
  Find([&](HWND window) {
    all += "\n  [" + Text(window) + "] " + NameOf(window) + ' ' + BoxText(window);
    return false;
  });
  return all.empty() ? "\n  no window" : all;
}

void WindowDriver::Until(std::string_view what, const std::function<bool()>& condition) const {
  const ULONGLONG start = GetTickCount64();
  while (!condition()) {
    if (GetTickCount64() - start > kPatienceMs) {
      throw std::runtime_error("in vain: " + std::string(what) + "; there is" + WindowsThere());
    }
    Sleep(kTurnMs);
  }
}

HWND WindowDriver::Form(std::string_view name) const {
  HWND found = nullptr;
  Until(name, [&] {
    found = Find([name](HWND window) { return NameOf(window) == name; });
    return found != nullptr;
  });
  return found;
}

bool WindowDriver::HasForm(std::string_view name) const {
  return Find([name](HWND window) { return NameOf(window) == name; }) != nullptr;
}

HWND WindowDriver::Box(std::string_view title) const {
  HWND found = nullptr;
  Until(title, [&] {
    found =
        Find([&](HWND window) { return ClassOf(window) == L"#32770" && Text(window) == title; });
    return found != nullptr;
  });
  return found;
}

HWND WindowDriver::Control(HWND form, std::string_view name) const {
  for (HWND child : ChildWindows(form)) {
    if (NameOf(child) == name) return child;
  }
  throw std::runtime_error("no control " + std::string(name));
}

LRESULT WindowDriver::Send(HWND window, UINT message, WPARAM w, LPARAM l) const {
  DWORD_PTR result = 0;
  if (!SendMessageTimeoutW(window, message, w, l, SMTO_NORMAL, kAnswerMs, &result)) {
    // It may go away while it is asked.
    if (!IsWindow(window)) return 0;
    throw std::runtime_error("a window does not answer");
  }
  return static_cast<LRESULT>(result);
}

std::string WindowDriver::Text(HWND window) const {
  const auto length = static_cast<std::size_t>(Send(window, WM_GETTEXTLENGTH));
  std::wstring text(length + 1, L'\0');
  text.resize(static_cast<std::size_t>(
      Send(window, WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()))));
  return ToUtf8(text);
}

void WindowDriver::Press(HWND form, std::string_view button) const {
  PostMessageW(Control(form, button), BM_CLICK, 0, 0);
}

void WindowDriver::Enter(HWND form, std::string_view text_box, std::string_view text) const {
  const HWND box = Control(form, text_box);
  Send(box, EM_SETSEL, 0, -1);
  const std::wstring wide = ToWide(text);
  Send(box, EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(wide.c_str()));
}

void WindowDriver::Choose(HWND form, std::string_view combo_box, int index) const {
  const HWND box = Control(form, combo_box);
  Send(box, CB_SETCURSEL, static_cast<WPARAM>(index));
  const auto id = static_cast<WPARAM>(GetDlgCtrlID(box));
  Send(form, WM_COMMAND, MAKEWPARAM(id, CBN_SELCHANGE), reinterpret_cast<LPARAM>(box));
}

void WindowDriver::Turn(HWND form, std::string_view tab_strip, int page) const {
  Send(Control(form, tab_strip), TCM_SETCURFOCUS, static_cast<WPARAM>(page));
}

void WindowDriver::Key(HWND window, WPARAM key) const {
  PostMessageW(window, WM_KEYDOWN, key, 1);
  PostMessageW(window, WM_KEYUP, key, static_cast<LPARAM>(0xC0000001));
}

void WindowDriver::Command(HWND form, int command) const {
  PostMessageW(form, WM_COMMAND, static_cast<WPARAM>(command), 0);
}

void WindowDriver::Close(HWND form) const { PostMessageW(form, WM_CLOSE, 0, 0); }

int WindowDriver::Lines(HWND grid) const { return static_cast<int>(Send(grid, LVM_GETITEMCOUNT)); }

int WindowDriver::SelectedLine(HWND grid) const {
  return static_cast<int>(Send(grid, LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LVNI_SELECTED));
}

void WindowDriver::SelectLine(HWND grid, int line) const {
  const RemoteRoom room(process_.hProcess, sizeof(LVITEMW));
  LVITEMW item = {};
  item.state = LVIS_SELECTED | LVIS_FOCUSED;
  item.stateMask = item.state;
  room.Put(item);
  Send(grid, LVM_SETITEMSTATE, static_cast<WPARAM>(line), reinterpret_cast<LPARAM>(room.place()));
}

std::string WindowDriver::Cell(HWND grid, int line, int column) const {
  constexpr std::size_t kLongest = 256;
  const RemoteRoom room(process_.hProcess, sizeof(LVITEMW) + kLongest * sizeof(wchar_t));
  LVITEMW item = {};
  item.iSubItem = column;
  item.pszText = reinterpret_cast<wchar_t*>(room.place() + sizeof(LVITEMW));
  item.cchTextMax = static_cast<int>(kLongest);
  room.Put(item);
  const LRESULT length = Send(grid, LVM_GETITEMTEXTW, static_cast<WPARAM>(line),
                              reinterpret_cast<LPARAM>(room.place()));
  return ToUtf8(room.Text(sizeof(LVITEMW), static_cast<std::size_t>(length)));
}

std::string WindowDriver::BoxText(HWND box) const {
  const HWND words = GetDlgItem(box, kBoxText);
  return words == nullptr ? "" : Text(words);
}

std::string WindowDriver::Answer(std::string_view title, int button) const {
  const HWND box = Box(title);
  std::string text = BoxText(box);
  PostMessageW(box, WM_COMMAND, static_cast<WPARAM>(button), 0);
  Until("the end of a box", [box] { return !IsWindow(box); });
  return text;
}

std::string WindowDriver::AnswerInput(std::string_view text) const {
  const HWND box = Form("frmInputBox");
  std::string prompt = Text(Control(box, "lblPrompt"));
  Enter(box, "txtInput", text);
  Press(box, "cmdOK");
  Until("the end of an input box", [box] { return !IsWindow(box) || !IsWindowVisible(box); });
  return prompt;
}

void WindowDriver::AnswerFile(std::string_view title, std::string_view path) const {
  constexpr int kNames[] = {0x480, 0x47C};
  const HWND box = Box(title);
  std::wstring wide = ToWide(path);
  std::replace(wide.begin(), wide.end(), L'/', L'\\');
  for (const int id : kNames) {
    const HWND words = GetDlgItem(box, id);
    if (words == nullptr) continue;
    Send(words, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(wide.c_str()));
    PostMessageW(box, WM_COMMAND, IDOK, 0);
    return;
  }
  throw std::runtime_error("a file dialog without a box for the name");
}

void WindowDriver::AtOnce(const std::function<void()>& post) const {
  if (SuspendThread(process_.hThread) == static_cast<DWORD>(-1)) {
    throw std::runtime_error("the program cannot be held");
  }
  post();
  ResumeThread(process_.hThread);
}

DWORD WindowDriver::Wait() const {
  if (WaitForSingleObject(process_.hProcess, static_cast<DWORD>(kPatienceMs)) != WAIT_OBJECT_0) {
    throw std::runtime_error("the program does not end; there is" + WindowsThere());
  }
  DWORD status = 0;
  GetExitCodeProcess(process_.hProcess, &status);
  return status;
}

void CloseForeignWindow(const std::wstring& window_class) {
  const ULONGLONG start = GetTickCount64();
  HWND window = nullptr;
  while ((window = FindWindowW(window_class.c_str(), nullptr)) == nullptr) {
    if (GetTickCount64() - start > kPatienceMs) {
      throw std::runtime_error("in vain: a window of " + ToUtf8(window_class));
    }
    Sleep(kTurnMs);
  }
  PostMessageW(window, WM_CLOSE, 0, 0);
}

}  // namespace quarvel::platform::win32
