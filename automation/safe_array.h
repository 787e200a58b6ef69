// Owns one SAFEARRAY, and holds the numbers of a caller's array in place while they are used.
#pragma once

#include <cstdint>
#include <span>
#include <utility>

#include <windows.h>
#include <oleauto.h>

namespace quarvel::automation {

class SafeArrayHolder {
 public:
  SafeArrayHolder() = default;
  explicit SafeArrayHolder(SAFEARRAY* owned) : array_(owned) {}
  SafeArrayHolder(SafeArrayHolder&& other) noexcept
      : array_(std::exchange(other.array_, nullptr)) {}
  SafeArrayHolder& operator=(SafeArrayHolder&& other) noexcept {
    std::swap(array_, other.array_);
    return *this;
  }
  SafeArrayHolder(const SafeArrayHolder&) = delete;
  SafeArrayHolder& operator=(const SafeArrayHolder&) = delete;
  ~SafeArrayHolder() {
    if (array_ != nullptr) SafeArrayDestroy(array_);
  }

  SAFEARRAY* get() const { return array_; }
  // Where a call that takes an array by address finds it.
  SAFEARRAY** address() { return &array_; }

 private:
  SAFEARRAY* array_ = nullptr;
};

// The doubles of an array of one dimension, locked: a host that runs in the meantime can neither
// resize nor free it. An array that has no dimensions yet (null) has no doubles.
class LockedDoubles {
 public:
  // Raises 13 for any other array, and for one that cannot be locked.
  explicit LockedDoubles(SAFEARRAY* array);
  LockedDoubles(const LockedDoubles&) = delete;
  LockedDoubles& operator=(const LockedDoubles&) = delete;
  ~LockedDoubles();

  std::span<double> values() const { return values_; }
  // The array's own number of the first of them.
  std::int32_t lower_bound() const { return lower_bound_; }

 private:
  SAFEARRAY* locked_ = nullptr;
  std::span<double> values_;
  std::int32_t lower_bound_ = 0;
};

}  // namespace quarvel::automation
