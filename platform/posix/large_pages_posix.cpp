#include <new>

#include <sys/mman.h>

#include "platform/large_pages.h"

namespace quarvel::platform {
namespace {

#if defined(MADV_HUGEPAGE)
constexpr std::size_t kLargePage = std::size_t{1} << 21;
// A last page that is hardly used counts as a whole one.
constexpr std::size_t kBig = 2 * kLargePage;
#endif

std::align_val_t Alignment(std::size_t size) {
#if defined(MADV_HUGEPAGE)
  if (size >= kBig) return std::align_val_t{kLargePage};
#endif
  static_cast<void>(size);
  return std::align_val_t{kTableAlignment};
}

}  // namespace

void* AllocateTable(std::size_t size) {
  void* const begin = ::operator new(size, Alignment(size));
#if defined(MADV_HUGEPAGE)
  if (size >= kBig) madvise(begin, size, MADV_HUGEPAGE);
#endif
  return begin;
}

void FreeTable(void* begin, std::size_t size) noexcept {
  ::operator delete(begin, Alignment(size));
}

}  // namespace quarvel::platform
