// Large pages behind big tables.
//
// Memory is had from the system page by page, and a table that is looked into at random makes the
// processor look up one page after another. With pages of 2 MB instead of 4 KB both cost less. This
// is a wish only: without large pages everything works the same.
#pragma once

#include <cstddef>

namespace quarvel::platform {

// Asks for large pages behind those bytes, as far as they have not been written to yet. Contents
// stay as they are. Does nothing for less than a few such pages.
void PreferLargePages(void* begin, std::size_t size) noexcept;

}  // namespace quarvel::platform
