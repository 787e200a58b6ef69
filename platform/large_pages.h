// Memory for big tables, on large pages where the system has them.
//
// Memory is had from the system page by page, and a table that is looked into at random makes the
// processor look up one page after another. With pages of 2 MB instead of 4 KB both cost less. This
// is a wish only: without large pages everything works the same.
#pragma once

#include <cstddef>
#include <limits>
#include <memory>
#include <new>
#include <type_traits>

namespace quarvel::platform {

// Memory as operator new gives it, aligned for every type up to a cache line. Raises
// std::bad_alloc.
void* AllocateTable(std::size_t size);
// `size` as it was asked for.
void FreeTable(void* begin, std::size_t size) noexcept;

inline constexpr std::size_t kTableAlignment = 64;

// The allocator of arrays that may become big. Large pages are asked for before anything is
// written, so that they are also behind what a growing array moves.
template <class T>
struct TableAllocator {
  using value_type = T;
  static_assert(alignof(T) <= kTableAlignment);

  TableAllocator() = default;
  template <class U>
  TableAllocator(const TableAllocator<U>&) {}  // NOLINT(google-explicit-constructor)

  T* allocate(std::size_t count) { return static_cast<T*>(AllocateTable(count * sizeof(T))); }
  void deallocate(T* begin, std::size_t count) noexcept { FreeTable(begin, count * sizeof(T)); }
  bool operator==(const TableAllocator&) const = default;
};

// An array that is written front to back, not initialised.
struct TableDeleter {
  std::size_t size = 0;
  void operator()(void* begin) const noexcept { FreeTable(begin, size); }
};
template <class T>
using Table = std::unique_ptr<T[], TableDeleter>;

template <class T>
Table<T> MakeTable(std::size_t count) {
  static_assert(std::is_trivially_destructible_v<T> && alignof(T) <= kTableAlignment);
  if (count > std::numeric_limits<std::size_t>::max() / sizeof(T)) throw std::bad_alloc();
  const std::size_t size = count * sizeof(T);
  auto* const begin = static_cast<T*>(AllocateTable(size));
  return Table<T>(new (begin) T[count], TableDeleter{size});
}

}  // namespace quarvel::platform
