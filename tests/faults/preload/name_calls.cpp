// The calls on names of files, in the place of the C library's.
#include <cstdio>

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "tests/faults/preload/through.h"

namespace quarvel::faults {
namespace {

Call OnName(std::string_view kind, int folder, const char* path) {
  return {.kind = kind, .path = RealPath(folder, path, false)};
}

Call Asking(std::string_view kind, int folder, const char* path, bool follows) {
  return {.kind = kind, .path = RealPath(folder, path, follows), .changes = false};
}

Call OnTwo(std::string_view kind, int folder, const char* path, int new_folder, const char* other) {
  return {.kind = kind,
          .path = RealPath(folder, path, false),
          .new_path = RealPath(new_folder, other, false)};
}

template <typename Status>
int Ask(const char* function, const char* path, Status* status, bool follows) {
  return Through(Asking("stat", AT_FDCWD, path, follows),
                 [&] { return Real<int(const char*, Status*)>(function)(path, status); });
}

template <typename Status>
int AskFile(const char* function, int descriptor, Status* status) {
  const int code = errno;
  Call call = {
      .kind = "stat", .path = PathOf(descriptor), .descriptor = descriptor, .changes = false};
  errno = code;
  return Through(call, [&] { return Real<int(int, Status*)>(function)(descriptor, status); });
}

template <typename Status>
int AskAt(const char* function, int folder, const char* path, Status* status, int flags) {
  const bool follows = (flags & AT_SYMLINK_NOFOLLOW) == 0;
  return Through(Asking("stat", folder, path, follows), [&] {
    return Real<int(int, const char*, Status*, int)>(function)(folder, path, status, flags);
  });
}

int Rename(int folder, const char* path, int new_folder, const char* other, unsigned flags) {
  Call call = OnTwo("rename", folder, path, new_folder, other);
  call.number = flags;
  return Through(call, [&] {
    return Real<int(int, const char*, int, const char*, unsigned)>("renameat2")(
        folder, path, new_folder, other, flags);
  });
}

int Unlink(int folder, const char* path, int flags) {
  return Through(OnName("unlink", folder, path),
                 [&] { return Real<int(int, const char*, int)>("unlinkat")(folder, path, flags); });
}

int Link(int folder, const char* path, int new_folder, const char* other, int flags) {
  Call call = OnTwo("link", folder, path, new_folder, other);
  call.needs_room = true;
  return Through(call, [&] {
    return Real<int(int, const char*, int, const char*, int)>("linkat")(folder, path, new_folder,
                                                                        other, flags);
  });
}

int MakeFolder(int folder, const char* path, mode_t mode) {
  Call call = OnName("mkdir", folder, path);
  call.needs_room = true;
  return Through(
      call, [&] { return Real<int(int, const char*, mode_t)>("mkdirat")(folder, path, mode); });
}

Call OfFolder(std::string_view kind, DIR* folder) {
  const int code = errno;
  Call call = {.kind = kind, .path = PathOf(dirfd(folder)), .changes = false};
  errno = code;
  return call;
}

}  // namespace
}  // namespace quarvel::faults

namespace faults = quarvel::faults;
using faults::Real;
using faults::Through;

extern "C" {

int rename(const char* path, const char* other) noexcept {
  return faults::Rename(AT_FDCWD, path, AT_FDCWD, other, 0);
}
int renameat(int folder, const char* path, int new_folder, const char* other) noexcept {
  return faults::Rename(folder, path, new_folder, other, 0);
}
int renameat2(int folder, const char* path, int new_folder, const char* other,
              unsigned flags) noexcept {
  return faults::Rename(folder, path, new_folder, other, flags);
}

int unlink(const char* path) noexcept { return faults::Unlink(AT_FDCWD, path, 0); }
int unlinkat(int folder, const char* path, int flags) noexcept {
  return faults::Unlink(folder, path, flags);
}
int remove(const char* path) noexcept { return faults::Unlink(AT_FDCWD, path, 0); }

int link(const char* path, const char* other) noexcept {
  return faults::Link(AT_FDCWD, path, AT_FDCWD, other, 0);
}
int linkat(int folder, const char* path, int new_folder, const char* other, int flags) noexcept {
  return faults::Link(folder, path, new_folder, other, flags);
}
int symlink(const char* target, const char* path) noexcept {
  faults::Call call = faults::OnName("symlink", AT_FDCWD, path);
  call.needs_room = true;
  return Through(call,
                 [&] { return Real<int(const char*, const char*)>("symlink")(target, path); });
}

int mkdir(const char* path, mode_t mode) noexcept {
  return faults::MakeFolder(AT_FDCWD, path, mode);
}
int mkdirat(int folder, const char* path, mode_t mode) noexcept {
  return faults::MakeFolder(folder, path, mode);
}

int truncate(const char* path, off_t size) noexcept {
  faults::Call call = faults::Asking("truncate", AT_FDCWD, path, true);
  call.changes = true;
  call.number = size;
  return Through(call, [&] { return Real<int(const char*, off_t)>("truncate")(path, size); });
}
int truncate64(const char* path, off_t size) noexcept __attribute__((alias("truncate")));

int chmod(const char* path, mode_t mode) noexcept {
  return Through(faults::OnName("chmod", AT_FDCWD, path),
                 [&] { return Real<int(const char*, mode_t)>("chmod")(path, mode); });
}
int fchmodat(int folder, const char* path, mode_t mode, int flags) noexcept {
  return Through(faults::OnName("chmod", folder, path), [&] {
    return Real<int(int, const char*, mode_t, int)>("fchmodat")(folder, path, mode, flags);
  });
}
int chown(const char* path, uid_t owner, gid_t group) noexcept {
  return Through(faults::OnName("chown", AT_FDCWD, path),
                 [&] { return Real<int(const char*, uid_t, gid_t)>("chown")(path, owner, group); });
}

int stat(const char* path, struct stat* status) noexcept {
  return faults::Ask("stat", path, status, true);
}
int stat64(const char* path, struct stat64* status) noexcept {
  return faults::Ask("stat64", path, status, true);
}
int lstat(const char* path, struct stat* status) noexcept {
  return faults::Ask("lstat", path, status, false);
}
int lstat64(const char* path, struct stat64* status) noexcept {
  return faults::Ask("lstat64", path, status, false);
}
int fstat(int descriptor, struct stat* status) noexcept {
  return faults::AskFile("fstat", descriptor, status);
}
int fstat64(int descriptor, struct stat64* status) noexcept {
  return faults::AskFile("fstat64", descriptor, status);
}
int fstatat(int folder, const char* path, struct stat* status, int flags) noexcept {
  return faults::AskAt("fstatat", folder, path, status, flags);
}
int fstatat64(int folder, const char* path, struct stat64* status, int flags) noexcept {
  return faults::AskAt("fstatat64", folder, path, status, flags);
}
int statx(int folder, const char* path, int flags, unsigned mask, struct statx* status) noexcept {
  return Through(faults::Asking("stat", folder, path, (flags & AT_SYMLINK_NOFOLLOW) == 0), [&] {
    return Real<int(int, const char*, int, unsigned, struct statx*)>("statx")(folder, path, flags,
                                                                              mask, status);
  });
}
int access(const char* path, int mode) noexcept {
  return Through(faults::Asking("stat", AT_FDCWD, path, true),
                 [&] { return Real<int(const char*, int)>("access")(path, mode); });
}
int faccessat(int folder, const char* path, int mode, int flags) noexcept {
  return Through(faults::Asking("stat", folder, path, true), [&] {
    return Real<int(int, const char*, int, int)>("faccessat")(folder, path, mode, flags);
  });
}
int euidaccess(const char* path, int mode) noexcept {
  return Through(faults::Asking("stat", AT_FDCWD, path, true),
                 [&] { return Real<int(const char*, int)>("euidaccess")(path, mode); });
}
ssize_t readlink(const char* path, char* target, size_t size) noexcept {
  return Through(faults::Asking("stat", AT_FDCWD, path, false), [&] {
    return Real<ssize_t(const char*, char*, size_t)>("readlink")(path, target, size);
  });
}
DIR* opendir(const char* path) {
  return Through(faults::Asking("list", AT_FDCWD, path, true),
                 [&] { return Real<DIR*(const char*)>("opendir")(path); });
}

dirent* readdir(DIR* folder) {
  return Through(faults::OfFolder("list", folder),
                 [&] { return Real<dirent*(DIR*)>("readdir")(folder); });
}
dirent64* readdir64(DIR* folder) {
  return Through(faults::OfFolder("list", folder),
                 [&] { return Real<dirent64*(DIR*)>("readdir64")(folder); });
}

}  // extern "C"
