#include "tests/automation/host_process.h"

#include <algorithm>
#include <set>
#include <stdexcept>

#include "text/encoding.h"

namespace quarvel::automation {
namespace {

constexpr int kBoxTextId = 0xFFFF;
constexpr UINT kAnswerTime = 2000;  // milliseconds that a window may take to answer a question

std::string Utf8Text(const std::wstring& text) {
  return text::Utf16ToUtf8(std::u16string(text.begin(), text.end()));
}

std::string ClassOf(HWND window) {
  std::wstring name(256, L'\0');
  name.resize(
      static_cast<std::size_t>(GetClassNameW(window, name.data(), static_cast<int>(name.size()))));
  return Utf8Text(name);
}

struct Search {
  DWORD process;
  std::vector<SeenWindow> found;
};

BOOL CALLBACK AddWindow(HWND window, LPARAM parameter) {
  auto& search = *reinterpret_cast<Search*>(parameter);
  DWORD process = 0;
  GetWindowThreadProcessId(window, &process);
  if (process != search.process || !IsWindowVisible(window)) return TRUE;
  SeenWindow seen = {window, ClassOf(window), ControlText(window), ""};
  const HWND text = GetDlgItem(window, kBoxTextId);
  if (text != nullptr) seen.text = ControlText(text);
  search.found.push_back(std::move(seen));
  return TRUE;
}

// Whether the window goes, or makes way for another, within five seconds.
bool Reacts(HWND window) {
  for (int i = 0; i < 500; ++i, Sleep(10)) {
    if (!IsWindow(window) || !IsWindowEnabled(window)) return true;
  }
  return false;
}

// Where a file dialog takes the name: an edit, or one inside a combo box inside another.
HWND NameEdit(HWND dialog) {
  constexpr int kCombo = 0x47C;
  constexpr int kEdit = 0x480;
  const HWND plain = GetDlgItem(dialog, kEdit);
  if (plain != nullptr) return plain;
  return GetDlgItem(GetDlgItem(GetDlgItem(dialog, kCombo), kCombo), kCombo);
}

HANDLE OutputFile(const std::wstring& path) {
  SECURITY_ATTRIBUTES inherited = {sizeof(inherited), nullptr, TRUE};
  const HANDLE file = CreateFileW(path.c_str(), GENERIC_WRITE, FILE_SHARE_READ, &inherited,
                                  CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
  if (file == INVALID_HANDLE_VALUE) throw std::runtime_error("no file for the output");
  return file;
}

}  // namespace

std::string ControlText(HWND control) {
  std::wstring text(4096, L'\0');
  DWORD_PTR length = 0;
  if (SendMessageTimeoutW(control, WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()),
                          SMTO_ABORTIFHUNG, kAnswerTime, &length) == 0) {
    return "";
  }
  text.resize(length);
  return Utf8Text(text);
}

HostProcess::HostProcess(std::wstring command, const std::wstring& output)
    : output_(OutputFile(output)) {
  STARTUPINFOW start = {};
  start.cb = sizeof(start);
  start.dwFlags = STARTF_USESTDHANDLES;
  start.hStdOutput = output_;
  start.hStdError = output_;
  if (!CreateProcessW(nullptr, command.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr, &start,
                      &process_)) {
    CloseHandle(output_);
    throw std::runtime_error("cannot start " + Utf8Text(command));
  }
}

HostProcess::~HostProcess() {
  if (IsRunning()) {
    TerminateProcess(process_.hProcess, 3);
    WaitForSingleObject(process_.hProcess, kAnswerTime);
  }
  CloseHandle(process_.hThread);
  CloseHandle(process_.hProcess);
  CloseHandle(output_);
}

bool HostProcess::IsRunning() const {
  return WaitForSingleObject(process_.hProcess, 0) == WAIT_TIMEOUT;
}

DWORD HostProcess::ExitCode() const {
  DWORD code = 0;
  GetExitCodeProcess(process_.hProcess, &code);
  return code;
}

std::vector<SeenWindow> HostProcess::Windows() const {
  Search search = {process_.dwProcessId, {}};
  EnumWindows(AddWindow, reinterpret_cast<LPARAM>(&search));
  return search.found;
}

bool HostProcess::Attend(const std::function<bool(const SeenWindow&)>& user, int seconds) const {
  const ULONGLONG end = GetTickCount64() + static_cast<ULONGLONG>(seconds) * 1000;
  std::set<HWND> left_alone;
  for (; IsRunning(); Sleep(10)) {
    if (GetTickCount64() > end) return false;
    const auto windows = Windows();
    const auto top = std::find_if(windows.begin(), windows.end(), [&](const SeenWindow& window) {
      return IsWindowEnabled(window.handle) && !window.title.empty() &&
             !left_alone.contains(window.handle);
    });
    if (top == windows.end()) continue;
    if (!user(*top)) {
      left_alone.insert(top->handle);
    } else if (!Reacts(top->handle)) {
      return false;
    }
  }
  return true;
}

bool IsBox(const SeenWindow& window) {
  return window.window_class == "#32770" && GetDlgItem(window.handle, kBoxTextId) != nullptr &&
         !window.text.empty();
}

void PressButton(HWND window, int button) {
  PostMessageW(GetDlgItem(window, button), BM_CLICK, 0, 0);
}

void ChooseFile(HWND dialog, const std::wstring& path) {
  SendMessageTimeoutW(NameEdit(dialog), WM_SETTEXT, 0, reinterpret_cast<LPARAM>(path.c_str()),
                      SMTO_ABORTIFHUNG, kAnswerTime, nullptr);
  PressButton(dialog, IDOK);
}

}  // namespace quarvel::automation
