// The set-up program's helper: register.exe machine|user [/u] FILE registers the component FILE, or takes
// its registration out, for the whole machine or for one user alone. One for each kind of processes. The
// component's own entry points do it; they write to the machine where they may, else to the user, so the
// place that is not meant is replaced for them by one where nothing lasts. The exit status is 0 when it
// was done.

#include <cwchar>
#include <string>

#include <windows.h>
#include <shellapi.h>

namespace {

constexpr wchar_t kNowhere[] = L"Software\\Quarvel set-up";
constexpr wchar_t kProgIdKey[] = L"Software\\Classes\\Quarvel.LPModel";

constexpr int kBadCommandLine = 2;
constexpr int kNoPlace = 3;
constexpr int kNoComponent = 4;
constexpr int kNotDone = 5;

// Calls an entry point of the file; false when it is not there or fails.
bool Call(HMODULE component, const char* entry_point) {
  using Function = HRESULT(STDMETHODCALLTYPE*)();
  const FARPROC found = GetProcAddress(component, entry_point);
  if (found == nullptr) return false;
  return reinterpret_cast<Function>(reinterpret_cast<void*>(found))() == S_OK;
}

// While it lives, `place` is for this process an empty key in which no lasting key can be made.
class ClosedPlace {
 public:
  explicit ClosedPlace(HKEY place) : place_(place) {
    closed_ = RegCreateKeyExW(HKEY_CURRENT_USER, kNowhere, 0, nullptr, REG_OPTION_VOLATILE,
                              KEY_ALL_ACCESS, nullptr, &nowhere_, nullptr) == ERROR_SUCCESS &&
              RegOverridePredefKey(place_, nowhere_) == ERROR_SUCCESS;
  }
  ClosedPlace(const ClosedPlace&) = delete;
  ClosedPlace& operator=(const ClosedPlace&) = delete;
  ~ClosedPlace() {
    if (closed_) RegOverridePredefKey(place_, nullptr);
    if (nowhere_ == nullptr) return;
    RegCloseKey(nowhere_);
    RegDeleteTreeW(HKEY_CURRENT_USER, kNowhere);
  }

  bool closed() const { return closed_; }

 private:
  HKEY place_;
  HKEY nowhere_ = nullptr;
  bool closed_ = false;
};

bool IsRegisteredIn(HKEY place) {
  HKEY key = nullptr;
  if (RegOpenKeyExW(place, kProgIdKey, 0, KEY_READ, &key) != ERROR_SUCCESS) return false;
  RegCloseKey(key);
  return true;
}

int Run(HKEY place, HKEY other_place, bool taking_out, const wchar_t* file) {
  const HMODULE component = LoadLibraryExW(file, nullptr, LOAD_WITH_ALTERED_SEARCH_PATH);
  if (component == nullptr) return kNoComponent;
  const ClosedPlace other(other_place);
  if (!other.closed()) return kNoPlace;
  const bool done = Call(component, taking_out ? "DllUnregisterServer" : "DllRegisterServer");
  return done && (taking_out || IsRegisteredIn(place)) ? 0 : kNotDone;
}

}  // namespace

int main() {
  int count = 0;
  wchar_t** const words = CommandLineToArgvW(GetCommandLineW(), &count);
  if (words == nullptr || count < 3) return kBadCommandLine;
  const std::wstring place = words[1];
  const bool taking_out = std::wcscmp(words[2], L"/u") == 0;
  if ((place != L"machine" && place != L"user") || count != (taking_out ? 4 : 3)) {
    return kBadCommandLine;
  }
  const bool for_machine = place == L"machine";
  return Run(for_machine ? HKEY_LOCAL_MACHINE : HKEY_CURRENT_USER,
             for_machine ? HKEY_CURRENT_USER : HKEY_LOCAL_MACHINE, taking_out, words[count - 1]);
}
