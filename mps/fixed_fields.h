// The fields of a line of fixed columns: 2-3, 5-12, 15-22, 25-36, 40-47 and 50-61, counted in characters
// from 1. A field may hold blanks within; those around it do not count. Fields are numbered from 1.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <utility>

namespace quarvel::mps {

inline constexpr std::size_t kFieldCount = 6;

struct FieldPlace {
  std::size_t first;  // columns
  std::size_t last;
};
// That of no field comes first.
inline constexpr std::array<FieldPlace, kFieldCount + 1> kFieldPlaces = {
    {{1, 0}, {2, 3}, {5, 12}, {15, 22}, {25, 36}, {40, 47}, {50, 61}}};

constexpr std::uint64_t FieldBits(std::size_t field) {
  const auto [first, last] = kFieldPlaces[field];
  return ((std::uint64_t{1} << last) - 1) & ~((std::uint64_t{1} << (first - 1)) - 1);
}

template <std::size_t kField>
inline constexpr std::uint64_t kFieldBits = FieldBits(kField);

// Of a line of at most 63 bytes with `inside` as its bytes that are not spaces: so many words as fields,
// one in each from `kFirst` on, are the same words by spaces and by fields. Every line is asked, so that
// nothing is left to be made of the places when the program runs.
template <std::size_t kFirst, std::size_t kCount>
constexpr bool AreInOwnFields(std::uint64_t inside) {
  return [inside]<std::size_t... kField>(std::index_sequence<kField...>) {
    constexpr std::uint64_t kAll = (kFieldBits<kFirst + kField> | ...);
    return (inside & ~kAll) == 0 && (((inside & kFieldBits<kFirst + kField>) != 0) && ...);
  }
  (std::make_index_sequence<kCount>());
}

class FixedFields {
 public:
  // A dollar sign that begins field 3 or 5 begins a comment: nothing from there on counts.
  explicit FixedFields(std::string_view text);

  std::string_view operator[](std::size_t field) const { return fields_[field]; }
  // The first text that stands before or between the fields; empty when there is none.
  std::string_view between() const { return between_; }
  // What stands behind the last field.
  std::string_view behind() const { return behind_; }
  // The word that begins in the last field, or before it, and ends behind it; empty when there is none.
  std::string_view across() const { return across_; }

 private:
  std::array<std::string_view, kFieldCount + 1> fields_{};
  std::string_view between_;
  std::string_view behind_;
  std::string_view across_;
};

}  // namespace quarvel::mps
