#include <cstdint>

#include <sys/mman.h>

#include "platform/large_pages.h"

namespace quarvel::platform {

#if defined(MADV_HUGEPAGE)

void PreferLargePages(void* begin, std::size_t size) noexcept {
  constexpr std::size_t kLargePage = std::size_t{1} << 21;
  if (size < 2 * kLargePage) return;
  // The system wants a page's border; bytes in front of the first one stay as they are.
  constexpr std::size_t kPage = 4096;
  const std::size_t skipped = (kPage - reinterpret_cast<std::uintptr_t>(begin) % kPage) % kPage;
  madvise(static_cast<char*>(begin) + skipped, size - skipped, MADV_HUGEPAGE);
}

#else

void PreferLargePages(void*, std::size_t) noexcept {}

#endif

}  // namespace quarvel::platform
