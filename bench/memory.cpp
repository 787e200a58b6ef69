#include "bench/memory.h"

#include <algorithm>
#include <cstddef>

#include <sys/mman.h>
#include <unistd.h>

namespace quarvel::bench {

void WarmMemory(std::size_t bytes) {
  const long pages = sysconf(_SC_AVPHYS_PAGES);
  const long page_size = sysconf(_SC_PAGESIZE);
  if (pages <= 0 || page_size <= 0) return;
  const auto page = static_cast<std::size_t>(page_size);
  const std::size_t size = std::min(bytes, static_cast<std::size_t>(pages) / 2 * page);
  void* const begin =
      mmap(nullptr, size, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
  if (begin == MAP_FAILED) return;
  madvise(begin, size, MADV_HUGEPAGE);
  auto* const memory = static_cast<volatile char*>(begin);
  for (std::size_t at = 0; at < size; at += page) memory[at] = 1;
  munmap(begin, size);
}

void LetMemoryCool() {
  constexpr unsigned kSeconds = 5;
  sleep(kSeconds);
}

}  // namespace quarvel::bench
