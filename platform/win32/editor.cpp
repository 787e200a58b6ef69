#include "platform/win32/editor.h"

#include "platform/win32/system_path.h"

namespace quarvel::platform::win32 {
namespace {

// With the zero at its end.
constexpr std::size_t kLongestCommandLine = 32767;

std::wstring SystemFolder() {
  std::wstring folder(MAX_PATH, L'\0');
  for (;;) {
    const UINT count = GetSystemDirectoryW(folder.data(), static_cast<UINT>(folder.size()));
    const bool fits = count < folder.size();
    folder.resize(count);
    if (fits) return folder;
  }
}

std::wstring InQuotes(const std::wstring& text) { return L'"' + text + L'"'; }

}  // namespace

std::optional<EditorCommand> EditorOf(const std::string& path) {
  const std::wstring folder = SystemFolder();
  const std::wstring file = SystemPath(path);
  if (folder.empty() || file.find_first_of(std::wstring_view(L"\"\0", 2)) != std::wstring::npos) {
    return std::nullopt;
  }
  const std::wstring program = folder + L"\\notepad.exe";
  EditorCommand command = {program, InQuotes(program) + L' ' + InQuotes(file), folder};
  if (command.line.size() >= kLongestCommandLine) return std::nullopt;
  return command;
}

bool StartEditor(const std::string& path) {
  std::optional<EditorCommand> command = EditorOf(path);
  if (!command) return false;
  STARTUPINFOW start = {};
  start.cb = sizeof(start);
  start.dwFlags = STARTF_USESHOWWINDOW;
  start.wShowWindow = SW_SHOWNORMAL;
  PROCESS_INFORMATION process = {};
  if (!CreateProcessW(command->program.c_str(), command->line.data(), nullptr, nullptr, FALSE, 0,
                      nullptr, command->folder.c_str(), &start, &process)) {
    return false;
  }
  AllowSetForegroundWindow(process.dwProcessId);
  CloseHandle(process.hThread);
  CloseHandle(process.hProcess);
  return true;
}

}  // namespace quarvel::platform::win32
