#ifndef _WIN32

#include <array>
#include <cstddef>
#include <string_view>

#include <sys/mman.h>
#include <sys/resource.h>
#include <unistd.h>

#include "hosts/stack_room.h"

namespace quarvel::hosts {
namespace {

constexpr std::size_t kRoom = std::size_t{512} << 10;
constexpr std::size_t kPage = 4096;

// A stack keeps what it has grown to. From its top downwards, as it grows.
[[gnu::noinline]] void TouchStack() {
  std::array<volatile char, kRoom> room;
  for (std::size_t at = kRoom; at > kPage; at -= kPage) room[at - 1] = 0;
}

// Where the stack itself may not be as large, it does not grow into the limit of address space either.
bool MayStackGrow() {
  rlimit limit = {};
  return getrlimit(RLIMIT_STACK, &limit) == 0 && limit.rlim_cur >= 2 * kRoom;
}

}  // namespace

bool ClaimStack() {
  if (!MayStackGrow()) return true;
  void* const probe =
      mmap(nullptr, kRoom, PROT_NONE, MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0);
  if (probe == MAP_FAILED) return false;
  munmap(probe, kRoom);
  TouchStack();
  return true;
}

void EndWithoutStack(int status) {
  constexpr std::string_view kText = "quarvel: Out of memory\n";
  [[maybe_unused]] const auto written = write(STDERR_FILENO, kText.data(), kText.size());
  _exit(status);
}

}  // namespace quarvel::hosts

#endif
