// The calls on open files, in the place of the C library's. Both names of those that have one for
// large files, and the checked ones that a fortified build calls.
#include <cstdarg>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/sendfile.h>
#include <sys/uio.h>
#include <sys/xattr.h>
#include <unistd.h>

#include "tests/faults/preload/through.h"

namespace quarvel::faults {
namespace {

constexpr int kChanging = O_WRONLY | O_RDWR | O_CREAT | O_TRUNC;

int Open(int folder, const char* path, int flags, mode_t mode) {
  const bool follows = (flags & O_NOFOLLOW) == 0;
  const Call call = {.kind = "open",
                     .path = RealPath(folder, path, follows),
                     .changes = (flags & kChanging) != 0,
                     .needs_room = (flags & O_CREAT) != 0,
                     .number = flags};
  return Through(call, [&] {
    return Real<int(int, const char*, int, ...)>("openat")(folder, path, flags, mode);
  });
}

bool IsForWriting(int descriptor) { return (fcntl(descriptor, F_GETFL) & O_ACCMODE) != O_RDONLY; }

Call OnFile(std::string_view kind, int descriptor) {
  const int code = errno;
  Call call = {.kind = kind, .path = PathOf(descriptor), .descriptor = descriptor};
  errno = code;
  return call;
}

Call Writing(int descriptor, const void* bytes) {
  Call call = OnFile("write", descriptor);
  call.needs_room = true;
  call.bytes = bytes;
  if (Counts(call)) call.number = lseek(descriptor, 0, SEEK_CUR);
  return call;
}

Call Reading(std::string_view kind, int descriptor) {
  Call call = OnFile(kind, descriptor);
  call.changes = false;
  return call;
}

int Truncate(int descriptor, off_t size) {
  Call call = OnFile("truncate", descriptor);
  call.number = size;
  return Through(call, [&] { return Real<int(int, off_t)>("ftruncate")(descriptor, size); });
}

ssize_t WriteAt(int descriptor, const void* bytes, size_t count, off_t place) {
  Call call = Writing(descriptor, bytes);
  call.number = place;
  return ThroughTransfer(call, count, [&](size_t part) {
    return Real<ssize_t(int, const void*, size_t, off_t)>("pwrite")(descriptor, bytes, part, place);
  });
}

}  // namespace
}  // namespace quarvel::faults

namespace faults = quarvel::faults;
using faults::Real;
using faults::Through;
using faults::ThroughTransfer;

extern "C" {

int open(const char* path, int flags, ...) {
  va_list arguments;
  va_start(arguments, flags);
  const mode_t mode = (flags & (O_CREAT | O_TMPFILE)) != 0 ? va_arg(arguments, mode_t) : 0;
  va_end(arguments);
  return faults::Open(AT_FDCWD, path, flags, mode);
}

int openat(int folder, const char* path, int flags, ...) {
  va_list arguments;
  va_start(arguments, flags);
  const mode_t mode = (flags & (O_CREAT | O_TMPFILE)) != 0 ? va_arg(arguments, mode_t) : 0;
  va_end(arguments);
  return faults::Open(folder, path, flags, mode);
}

int open64(const char* path, int flags, ...) __attribute__((alias("open")));
int openat64(int folder, const char* path, int flags, ...) __attribute__((alias("openat")));

int __open_2(const char* path, int flags) { return faults::Open(AT_FDCWD, path, flags, 0); }
int __open64_2(const char* path, int flags) { return faults::Open(AT_FDCWD, path, flags, 0); }
int __openat_2(int folder, const char* path, int flags) {
  return faults::Open(folder, path, flags, 0);
}
int __openat64_2(int folder, const char* path, int flags) {
  return faults::Open(folder, path, flags, 0);
}

int creat(const char* path, mode_t mode) {
  return faults::Open(AT_FDCWD, path, O_CREAT | O_WRONLY | O_TRUNC, mode);
}
int creat64(const char* path, mode_t mode) __attribute__((alias("creat")));

int close(int descriptor) {
  faults::Call call = faults::OnFile("close", descriptor);
  call.changes = faults::IsForWriting(descriptor);
  return Through(call, [&] { return Real<int(int)>("close")(descriptor); });
}

ssize_t write(int descriptor, const void* bytes, size_t count) {
  return ThroughTransfer(faults::Writing(descriptor, bytes), count, [&](size_t part) {
    return Real<ssize_t(int, const void*, size_t)>("write")(descriptor, bytes, part);
  });
}

ssize_t pwrite(int descriptor, const void* bytes, size_t count, off_t place) {
  return faults::WriteAt(descriptor, bytes, count, place);
}
ssize_t pwrite64(int descriptor, const void* bytes, size_t count, off_t place) {
  return faults::WriteAt(descriptor, bytes, count, place);
}

// Piece by piece, so that each is a write like any other.
ssize_t writev(int descriptor, const iovec* pieces, int count) {
  ssize_t total = 0;
  for (int i = 0; i < count; ++i) {
    const ssize_t written = write(descriptor, pieces[i].iov_base, pieces[i].iov_len);
    if (written < 0) return total > 0 ? total : written;
    total += written;
    if (static_cast<size_t>(written) < pieces[i].iov_len) break;
  }
  return total;
}

ssize_t read(int descriptor, void* bytes, size_t count) {
  return ThroughTransfer(faults::Reading("read", descriptor), count, [&](size_t part) {
    return Real<ssize_t(int, void*, size_t)>("read")(descriptor, bytes, part);
  });
}

ssize_t pread(int descriptor, void* bytes, size_t count, off_t place) {
  return ThroughTransfer(faults::Reading("read", descriptor), count, [&](size_t part) {
    return Real<ssize_t(int, void*, size_t, off_t)>("pread")(descriptor, bytes, part, place);
  });
}
ssize_t pread64(int descriptor, void* bytes, size_t count, off_t place)
    __attribute__((alias("pread")));

ssize_t __read_chk(int descriptor, void* bytes, size_t count, size_t) {
  return read(descriptor, bytes, count);
}
ssize_t __pread_chk(int descriptor, void* bytes, size_t count, off_t place, size_t) {
  return pread(descriptor, bytes, count, place);
}
ssize_t __pread64_chk(int descriptor, void* bytes, size_t count, off_t place, size_t)
    __attribute__((alias("__pread_chk")));

// Counted and told of, but not made: no test loses power, and it would take most of their time.
int fsync(int descriptor) {
  const faults::Call call = faults::OnFile("sync", descriptor);
  if (!faults::Counts(call)) return Real<int(int)>("fsync")(descriptor);
  return Through(call, [] { return 0; });
}
int fdatasync(int descriptor) { return fsync(descriptor); }

int ftruncate(int descriptor, off_t size) noexcept { return faults::Truncate(descriptor, size); }
int ftruncate64(int descriptor, off_t size) noexcept { return faults::Truncate(descriptor, size); }

int fallocate(int descriptor, int mode, off_t place, off_t size) {
  faults::Call call = faults::OnFile("allocate", descriptor);
  call.needs_room = true;
  call.number = mode;
  return Through(call, [&] {
    return Real<int(int, int, off_t, off_t)>("fallocate")(descriptor, mode, place, size);
  });
}
int fallocate64(int descriptor, int mode, off_t place, off_t size)
    __attribute__((alias("fallocate")));

ssize_t sendfile(int to, int from, off_t* place, size_t count) noexcept {
  faults::Call call = faults::OnFile("copy", to);
  call.needs_room = true;
  return ThroughTransfer(call, count, [&](size_t part) {
    return Real<ssize_t(int, int, off_t*, size_t)>("sendfile")(to, from, place, part);
  });
}
ssize_t copy_file_range(int from, off64_t* from_place, int to, off64_t* to_place, size_t count,
                        unsigned flags) {
  faults::Call call = faults::OnFile("copy", to);
  call.needs_room = true;
  return ThroughTransfer(call, count, [&](size_t part) {
    return Real<ssize_t(int, off64_t*, int, off64_t*, size_t, unsigned)>("copy_file_range")(
        from, from_place, to, to_place, part, flags);
  });
}

int fchmod(int descriptor, mode_t mode) noexcept {
  faults::Call call = faults::OnFile("chmod", descriptor);
  call.number = static_cast<std::int64_t>(mode);
  return Through(call, [&] { return Real<int(int, mode_t)>("fchmod")(descriptor, mode); });
}
int fchown(int descriptor, uid_t owner, gid_t group) noexcept {
  return Through(faults::OnFile("chown", descriptor),
                 [&] { return Real<int(int, uid_t, gid_t)>("fchown")(descriptor, owner, group); });
}
int futimens(int descriptor, const timespec* times) noexcept {
  return Through(faults::OnFile("times", descriptor),
                 [&] { return Real<int(int, const timespec*)>("futimens")(descriptor, times); });
}
int flock(int descriptor, int operation) noexcept {
  faults::Call call = faults::Reading("lock", descriptor);
  call.number = operation;
  return Through(call, [&] { return Real<int(int, int)>("flock")(descriptor, operation); });
}
// Of its kinds only the locks of open files are told of and refused.
int fcntl(int descriptor, int command, ...) {
  va_list rest;
  va_start(rest, command);
  void* const argument = va_arg(rest, void*);
  va_end(rest);
  const auto make = [&] {
    return Real<int(int, int, ...)>("fcntl")(descriptor, command, argument);
  };
  if (command != F_OFD_SETLK) return make();
  faults::Call call = faults::Reading("lock", descriptor);
  call.number = LOCK_EX;
  return Through(call, make);
}
int fcntl64(int descriptor, int command, ...) __attribute__((alias("fcntl")));

int fsetxattr(int descriptor, const char* name, const void* value, size_t size,
              int flags) noexcept {
  faults::Call call = faults::OnFile("attribute", descriptor);
  call.needs_room = true;
  return Through(call, [&] {
    return Real<int(int, const char*, const void*, size_t, int)>("fsetxattr")(descriptor, name,
                                                                              value, size, flags);
  });
}
int fremovexattr(int descriptor, const char* name) noexcept {
  return Through(faults::OnFile("attribute", descriptor),
                 [&] { return Real<int(int, const char*)>("fremovexattr")(descriptor, name); });
}
ssize_t flistxattr(int descriptor, char* names, size_t size) noexcept {
  return Through(faults::Reading("attribute", descriptor), [&] {
    return Real<ssize_t(int, char*, size_t)>("flistxattr")(descriptor, names, size);
  });
}
ssize_t fgetxattr(int descriptor, const char* name, void* value, size_t size) noexcept {
  return Through(faults::Reading("attribute", descriptor), [&] {
    return Real<ssize_t(int, const char*, void*, size_t)>("fgetxattr")(descriptor, name, value,
                                                                       size);
  });
}

}  // extern "C"
