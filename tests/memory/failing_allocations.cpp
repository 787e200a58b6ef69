#include "tests/memory/failing_allocations.h"

#include <algorithm>
#include <cstddef>
#include <cstdlib>
#include <limits>
#include <new>
#include <utility>

#ifdef _WIN32
#include <malloc.h>
#endif

namespace quarvel::testing {
namespace {

constexpr std::int64_t kNever = std::numeric_limits<std::int64_t>::max();

// Set before anything allocates.
constinit bool armed = false;
constinit bool happened_now = false;
constinit std::int64_t left = kNever;  // allocations before the one that fails
constinit Shortage lasts = Shortage::kOnce;
constinit std::int64_t failed_in_all = 0;

bool Fails() {
  if (!armed) return false;
  if (left > 1) {
    --left;
    return false;
  }
  if (lasts == Shortage::kOnce) armed = false;
  happened_now = true;
  ++failed_in_all;
  return true;
}

void* Allocate(std::size_t size) noexcept {
  return Fails() ? nullptr : std::malloc(std::max<std::size_t>(size, 1));
}

void* AllocateAligned(std::size_t size, std::align_val_t alignment) noexcept {
  if (Fails()) return nullptr;
  const auto boundary = static_cast<std::size_t>(alignment);
  const std::size_t rounded = (std::max<std::size_t>(size, 1) + boundary - 1) / boundary * boundary;
#ifdef _WIN32
  return _aligned_malloc(rounded, boundary);
#else
  return std::aligned_alloc(boundary, rounded);
#endif
}

void FreeAligned(void* begin) noexcept {
#ifdef _WIN32
  _aligned_free(begin);
#else
  std::free(begin);
#endif
}

void* OrThrow(void* begin) {
  if (begin == nullptr) throw std::bad_alloc();
  return begin;
}

}  // namespace

FailingAllocation::FailingAllocation(std::int64_t n, Shortage shortage) {
  left = n;
  lasts = shortage;
  happened_now = false;
  armed = true;
}

FailingAllocation::~FailingAllocation() {
  armed = false;
  left = kNever;
}

bool FailingAllocation::happened() const { return happened_now; }

EnoughMemory::EnoughMemory() : armed_before_(std::exchange(armed, false)) {}

EnoughMemory::~EnoughMemory() { armed = armed_before_; }

bool AllocationFails() { return Fails(); }

std::int64_t FailedAllocations() { return failed_in_all; }

}  // namespace quarvel::testing

using quarvel::testing::Allocate;
using quarvel::testing::AllocateAligned;
using quarvel::testing::FreeAligned;
using quarvel::testing::OrThrow;

// The program's own, for every kind of new and delete.
void* operator new(std::size_t size) { return OrThrow(Allocate(size)); }
void* operator new[](std::size_t size) { return OrThrow(Allocate(size)); }
void* operator new(std::size_t size, const std::nothrow_t&) noexcept { return Allocate(size); }
void* operator new[](std::size_t size, const std::nothrow_t&) noexcept { return Allocate(size); }
void* operator new(std::size_t size, std::align_val_t alignment) {
  return OrThrow(AllocateAligned(size, alignment));
}
void* operator new[](std::size_t size, std::align_val_t alignment) {
  return OrThrow(AllocateAligned(size, alignment));
}

void operator delete(void* begin) noexcept { std::free(begin); }
void operator delete[](void* begin) noexcept { std::free(begin); }
void operator delete(void* begin, std::size_t) noexcept { std::free(begin); }
void operator delete[](void* begin, std::size_t) noexcept { std::free(begin); }
void operator delete(void* begin, const std::nothrow_t&) noexcept { std::free(begin); }
void operator delete[](void* begin, const std::nothrow_t&) noexcept { std::free(begin); }
void operator delete(void* begin, std::align_val_t) noexcept { FreeAligned(begin); }
void operator delete[](void* begin, std::align_val_t) noexcept { FreeAligned(begin); }
void operator delete(void* begin, std::size_t, std::align_val_t) noexcept { FreeAligned(begin); }
void operator delete[](void* begin, std::size_t, std::align_val_t) noexcept { FreeAligned(begin); }
