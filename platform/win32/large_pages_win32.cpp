#include <new>

#include "platform/large_pages.h"

namespace quarvel::platform {

// Large pages are a privilege here, which no host of the component can be expected to have.
void* AllocateTable(std::size_t size) {
  return ::operator new (size, std::align_val_t{kTableAlignment});
}

void FreeTable(void* begin, std::size_t) noexcept {
  ::operator delete (begin, std::align_val_t{kTableAlignment});
}

}  // namespace quarvel::platform
