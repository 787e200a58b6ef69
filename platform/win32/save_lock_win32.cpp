// A named mutex for each file: an open handle of the file would keep its name from being taken.
#include <string>

#include "platform/automation_error.h"
#include "platform/file_watch.h"
#include "platform/save_lock.h"
#include "platform/system_file.h"
#include "platform/win32/system_path.h"

namespace quarvel::platform {

SaveLock::SaveLock(const std::string& path, const FileStamp& stamp) {
  const std::wstring name = L"Global\\Quarvel-save-" + std::to_wstring(stamp.volume) + L'-' +
                            std::to_wstring(stamp.number);
  if (IsRefused(FileCall::kLock, path)) return;
  const HANDLE mutex = CreateMutexW(nullptr, FALSE, name.c_str());
  // One of another user.
  if (mutex == nullptr) return;
  const DWORD answer = WaitForSingleObject(mutex, kLongestWait);
  if (answer == WAIT_OBJECT_0 || answer == WAIT_ABANDONED) {
    handle_ = reinterpret_cast<std::intptr_t>(mutex);
    return;
  }
  CloseHandle(mutex);
  if (answer == WAIT_TIMEOUT) RaiseRunTimeError(RunTimeError::kPermissionDenied, kLockedByOthers);
}

SaveLock::~SaveLock() {
  if (handle_ == kNone) return;
  ReleaseMutex(ToHandle(handle_));
  CloseHandle(ToHandle(handle_));
}

}  // namespace quarvel::platform
