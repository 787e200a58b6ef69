// The array type of the model: numbered 1..size, every access checked. A number outside it is the
// run-time failure 9 (subscript out of range), in release builds too, so that no model, however its
// lists were made inconsistent, takes a host down. An array of size 0 is an absent one.
#pragma once

#include <cstddef>
#include <cstdint>
#include <limits>
#include <memory>
#include <utility>
#include <vector>

#include "platform/automation_error.h"
#include "platform/large_pages.h"

namespace quarvel::model {

[[noreturn]] inline void RaiseSubscriptOutOfRange() {
  RaiseRunTimeError(RunTimeError::kSubscriptOutOfRange);
}

// How many of anything a model may count: one less than a number can say, so that the counter of a
// loop over all of them does not wrap behind the last.
inline constexpr std::int32_t kMostCounted = std::numeric_limits<std::int32_t>::max() - 1;

// Call before one more is counted: raises 6 (overflow) when there may be no more.
inline void CheckOneMore(std::int32_t count) {
  if (count >= kMostCounted) [[unlikely]]
    RaiseRunTimeError(RunTimeError::kOverflow);
}

template <class T, class Store = std::vector<T, platform::TableAllocator<T>>>
class OneBased {
 public:
  std::int32_t size() const { return static_cast<std::int32_t>(store_.size()); }
  bool empty() const { return store_.size() == 0; }

  T& operator[](std::int32_t number) { return store_.data()[Offset(number)]; }
  const T& operator[](std::int32_t number) const { return store_.data()[Offset(number)]; }
  T& last() { return (*this)[size()]; }
  const T& last() const { return (*this)[size()]; }

  void Append(T value) { store_.push_back(std::move(value)); }
  // Appends a fresh entry.
  T& AppendFresh() { return store_.emplace_back(); }
  // True when appending moves all entries to a larger room.
  bool IsFull() const { return store_.size() == store_.capacity(); }
  // Makes room for one entry more, so that the next Append cannot fail.
  void MakeRoom() { store_.MakeRoom(); }
  // Makes room for so many entries in all; nothing when there is as much already.
  void Reserve(std::int32_t size) {
    if (size <= 0 || static_cast<std::size_t>(size) <= store_.capacity()) return;
    store_.reserve(static_cast<std::size_t>(size));
  }
  // Drops entry `number`; every later entry moves down one place.
  void Remove(std::int32_t number) {
    const std::size_t offset = Offset(number);
    store_.erase(store_.begin() + static_cast<std::ptrdiff_t>(offset));
  }
  // Grows with fresh entries or drops the last ones, keeping the rest.
  void Resize(std::int32_t size) { store_.resize(static_cast<std::size_t>(size < 0 ? 0 : size)); }
  // Absent again; its memory is given back.
  void Release() { store_ = Store(); }

  auto begin() { return store_.begin(); }
  auto end() { return store_.end(); }
  auto begin() const { return store_.begin(); }
  auto end() const { return store_.end(); }

  Store& store() { return store_; }
  const Store& store() const { return store_; }

 private:
  std::size_t Offset(std::int32_t number) const {
    // One comparison covers both ends: numbers below 1 wrap to huge offsets. Bytes are compared,
    // because the number of entries takes a division.
    const auto offset = static_cast<std::uint64_t>(static_cast<std::uint32_t>(number) - 1u);
    const auto bytes = reinterpret_cast<const char*>(std::to_address(store_.end())) -
                       reinterpret_cast<const char*>(store_.data());
    if (offset * sizeof(T) >= static_cast<std::uint64_t>(bytes)) RaiseSubscriptOutOfRange();
    return static_cast<std::size_t>(offset);
  }

  Store store_;
};

}  // namespace quarvel::model
