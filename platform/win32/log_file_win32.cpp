#include <string>
#include <utility>

#include "platform/automation_error.h"
#include "platform/log_file.h"
#include "platform/system_file.h"
#include "platform/win32/system_path.h"

namespace quarvel::platform {
namespace {

[[noreturn]] void Refuse(std::string_view why) {
  throw AutomationError(static_cast<std::int32_t>(RunTimeError::kPathFileAccessError), "",
                        std::string(why));
}

// What links go by, whether they lead to a file, a folder or another volume.
constexpr DWORD kNameSurrogate = 0x20000000;

// An open log, as long as it is not handed on. A link is opened itself, not what it leads to.
class OpenFile {
 public:
  OpenFile(const std::string& path, DWORD access, DWORD creation)
      : handle_(CreateFileW(SystemPath(path).c_str(), access, FILE_SHARE_READ, nullptr, creation,
                            FILE_ATTRIBUTE_NORMAL | FILE_FLAG_OPEN_REPARSE_POINT, nullptr)) {
    if (handle_ == INVALID_HANDLE_VALUE) RaiseSystemError(path);
  }
  ~OpenFile() {
    if (handle_ != INVALID_HANDLE_VALUE) CloseHandle(handle_);
  }
  OpenFile(const OpenFile&) = delete;
  OpenFile& operator=(const OpenFile&) = delete;

  HANDLE handle() const { return handle_; }
  SystemFile Release() {
    const HANDLE handle = std::exchange(handle_, INVALID_HANDLE_VALUE);
    return SystemFile::Own(reinterpret_cast<std::intptr_t>(handle));
  }

 private:
  HANDLE handle_;
};

BY_HANDLE_FILE_INFORMATION InformationOf(HANDLE handle) {
  BY_HANDLE_FILE_INFORMATION info = {};
  if (GetFileType(handle) != FILE_TYPE_DISK) Refuse(kNoPlainFile);
  if (GetFileInformationByHandle(handle, &info) == 0) RaiseSystemError({});
  return info;
}

// Other reparse points hold a file's contents elsewhere (in a cloud, say): they are files.
bool IsLink(HANDLE handle) {
  FILE_ATTRIBUTE_TAG_INFO tag = {};
  return GetFileInformationByHandleEx(handle, FileAttributeTagInfo, &tag, sizeof(tag)) == 0 ||
         (tag.ReparseTag & kNameSurrogate) != 0;
}

bool BeginsWith(HANDLE handle, std::string_view start) {
  std::string found(start.size(), '\0');
  DWORD count = 0;
  if (start.empty()) return true;
  if (ReadFile(handle, found.data(), static_cast<DWORD>(found.size()), &count, nullptr) == 0) {
    RaiseSystemError({});
  }
  return count == start.size() && found == start;
}

SystemFile Emptied(OpenFile& file) {
  if (SetFilePointer(file.handle(), 0, nullptr, FILE_BEGIN) != 0) RaiseSystemError({});
  if (SetEndOfFile(file.handle()) == 0) RaiseSystemError({});
  return file.Release();
}

}  // namespace

OutputFile OpenLog(const LogPlace& place) {
  CheckFileName(place.path);
  const DWORD access = GENERIC_WRITE | (place.replaces.empty() ? 0 : GENERIC_READ);
  {
    OpenFile file(place.path, access, OPEN_ALWAYS);
    const BY_HANDLE_FILE_INFORMATION info = InformationOf(file.handle());
    const bool reparses = (info.dwFileAttributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0;
    if (reparses && IsLink(file.handle())) Refuse(kNoPlainFile);
    const bool is_empty = info.nFileSizeLow == 0 && info.nFileSizeHigh == 0;
    if (!is_empty && !BeginsWith(file.handle(), place.replaces)) Refuse(kNoLog);
    if (!reparses && info.nNumberOfLinks == 1) return OutputFile(Emptied(file));
  }
  RemoveFile(place.path);
  OpenFile file(place.path, access, CREATE_NEW);
  return OutputFile(file.Release());
}

}  // namespace quarvel::platform
