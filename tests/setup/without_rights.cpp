// without_rights.exe COMMAND...: runs a command line as a user without an administrator's rights, and ends with its
// status. The user of Wine is always an administrator; what programs ask is the token, and in that of the command the
// administrators' group counts no more.
#include <cstdio>
#include <cwchar>
#include <string>

#include <windows.h>

namespace {

constexpr int kCannot = 100;

int Cannot(const char* what) {
  std::printf("%s: error %lu\n", what, GetLastError());
  return kCannot;
}

// What follows this program's own name, as it was written.
std::wstring Command() {
  const std::wstring line = GetCommandLineW();
  const size_t end = line.starts_with(L'"') ? line.find(L'"', 1) + 1 : line.find(L' ');
  const size_t start = end < line.size() ? line.find_first_not_of(L' ', end) : std::wstring::npos;
  return start == std::wstring::npos ? std::wstring() : line.substr(start);
}

HANDLE TokenWithoutRights() {
  HANDLE own = nullptr;
  HANDLE restricted = nullptr;
  unsigned char administrators[SECURITY_MAX_SID_SIZE];
  DWORD size = sizeof administrators;
  if (!OpenProcessToken(GetCurrentProcess(), TOKEN_ALL_ACCESS, &own) ||
      !CreateWellKnownSid(WinBuiltinAdministratorsSid, nullptr, administrators, &size)) {
    return nullptr;
  }
  SID_AND_ATTRIBUTES group = {administrators, 0};
  CreateRestrictedToken(own, 0, 1, &group, 0, nullptr, 0, nullptr, &restricted);
  CloseHandle(own);
  return restricted;
}

}  // namespace

int main() {
  const HANDLE token = TokenWithoutRights();
  if (token == nullptr) return Cannot("no token without rights");
  std::wstring command = Command();
  STARTUPINFOW startup = {};
  startup.cb = sizeof startup;
  PROCESS_INFORMATION process = {};
  if (!CreateProcessAsUserW(token, nullptr, command.data(), nullptr, nullptr, FALSE, 0, nullptr,
                            nullptr, &startup, &process)) {
    return Cannot("the command cannot be run");
  }
  DWORD status = kCannot;
  WaitForSingleObject(process.hProcess, INFINITE);
  GetExitCodeProcess(process.hProcess, &status);
  return static_cast<int>(status);
}
