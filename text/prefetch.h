// A hint to the processor: bytes that will be read soon. Work on many unrelated places of memory
// waits for one after the other unless they are asked for ahead.
#pragma once

#include <cstddef>

namespace quarvel::text {

// Asks for the cache line at `place`. Never fails, wherever that points.
inline void Prefetch(const void* place) { __builtin_prefetch(place); }

// The same for so many bytes, which may stand across the border of two cache lines.
inline void Prefetch(const void* place, std::size_t size) {
  Prefetch(place);
  Prefetch(static_cast<const char*>(place) + size - 1);
}

}  // namespace quarvel::text
