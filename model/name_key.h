// What stands for a name in a NameIndex: the name itself when it has up to 12 bytes, otherwise 64
// bits of a hash. Within a process it depends on the name alone, so a reader can make the keys of
// many lines at once.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

#include "model/name_hash.h"

namespace quarvel::model {

struct NameKey {
  std::uint64_t low = 0;
  std::uint32_t high = 0;
  std::uint32_t hash = 0;  // where the name belongs in a table

  static constexpr std::size_t kInline = 12;
  static constexpr std::uint32_t kLong = 0xFFFFFFFFu;  // no UTF-8 text ends in these bytes
  // So many bytes may be read from the start of a name that OfPadded takes.
  static constexpr std::size_t kReadable = 12;

  // True for keys that only a comparison of the names themselves can tell apart.
  bool is_long() const { return high == kLong; }
  bool Equals(std::uint64_t other_low, std::uint32_t other_high) const {
    return low == other_low && high == other_high;
  }

  static NameKey Of(std::string_view name);
  // The same for a name behind whose start kReadable bytes may be read, whatever its length:
  // copying a length that is known only now to a buffer and loading that back stalls the processor
  // for longer than all the rest of a lookup. Of is the plain way: tests/model/name_key_test.cpp.
  static NameKey OfPadded(std::string_view name) {
    return IsShort(name) ? OfShort(name.data(), name.size()) : OfLong(name);
  }
  // Whether two such names are the same, as == says too: tests/model/name_key_test.cpp.
  static bool AreSamePadded(std::string_view name, std::string_view other) {
    if (name.size() != other.size()) return false;
    if (name.size() > kInline) return name == other;
    const Words a = Words::At(name.data());
    const Words b = Words::At(other.data());
    const Mask& mask = kMasks[name.size()];
    return (((a.low ^ b.low) & mask.low) | ((a.high ^ b.high) & mask.high)) == 0;
  }

  static NameKey OfParts(std::uint64_t low, std::uint32_t high) {
    return {low, high, NameHash::OfProcess().Place(low, high)};
  }

 private:
  // A name that ends in a NUL would look like a shorter one in its padded slot.
  static bool IsShort(std::string_view name) {
    return name.size() <= kInline && (name.empty() || name.back() != '\0');
  }
  static NameKey OfLong(std::string_view name);
  static NameKey OfShort(const char* p, std::size_t size) {
    const Words words = Words::At(p);
    const Mask& mask = kMasks[size];
    return OfParts(words.low & mask.low, words.high & mask.high);
  }

  template <class Number>
  static Number Load(const char* p) {
    Number number;
    std::memcpy(&number, p, sizeof number);
    return number;
  }
  struct Words {
    static Words At(const char* p) {
      return {Load<std::uint64_t>(p), Load<std::uint32_t>(p + sizeof(std::uint64_t))};
    }
    std::uint64_t low;
    std::uint32_t high;
  };
  static Words WordsOf(std::string_view name);

  // What belongs to a name of that many bytes. Looked up, because lengths that vary would mislead
  // the processor's guesses.
  struct Mask {
    std::uint64_t low;
    std::uint32_t high;
  };
  static constexpr std::array<Mask, kInline + 1> kMasks = [] {
    std::array<Mask, kInline + 1> masks{};
    for (std::size_t size = 0; size <= kInline; ++size) {
      for (std::size_t i = 0; i < size; ++i) {
        if (i < 8) {
          masks[size].low |= std::uint64_t{0xFF} << (8 * i);
        } else {
          masks[size].high |= std::uint32_t{0xFF} << (8 * (i - 8));
        }
      }
    }
    return masks;
  }();
};

}  // namespace quarvel::model
