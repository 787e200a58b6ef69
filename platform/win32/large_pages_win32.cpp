#include "platform/large_pages.h"

namespace quarvel::platform {

// Large pages are a privilege here, which no host of the component can be expected to have.
void PreferLargePages(void*, std::size_t) noexcept {}

}  // namespace quarvel::platform
