// Finds rows or columns by name as a scan for the first match would, in constant time.
//
// Open addressing, 16 bytes a slot, at most three quarters full. A name of up to 12 bytes stands in
// its slot, so that a lookup touches one cache line and never the record; a longer one is
// represented by its hash and compared with the record's name. The index does not own names:
// `name_of(number)` gives them.
#pragma once

#include <cstdint>
#include <cstring>
#include <string_view>
#include <vector>

namespace quarvel {

class NameIndex {
 public:
  // The number stored for `name`, 0 when there is none.
  template <class NameOf>
  std::int32_t Find(std::string_view name, const NameOf& name_of) const {
    if (slots_.empty()) return 0;
    const Key key = MakeKey(name);
    for (std::size_t i = Home(key);; i = (i + 1) & mask_) {
      const Slot& slot = slots_[i];
      if (slot.number == 0) return 0;
      if (Matches(slot, key, name, name_of)) return slot.number;
    }
  }

  // Has the processor fetch what a look-up of that name will touch first.
  void Prefetch(std::string_view name) const {
#if defined(__GNUC__)
    if (!slots_.empty()) __builtin_prefetch(&slots_[Home(MakeKey(name))]);
#else
    static_cast<void>(name);
#endif
  }

  // Adds a name unless it is there already (the first number of a name stays).
  template <class NameOf>
  void Add(std::string_view name, std::int32_t number, const NameOf& name_of) {
    if ((size_ + 1) * 4 > slots_.size() * 3) Reserve(size_ + 1);
    const Key key = MakeKey(name);
    std::size_t i = Home(key);
    for (; slots_[i].number != 0; i = (i + 1) & mask_) {
      if (Matches(slots_[i], key, name, name_of)) {
        has_duplicates_ = true;
        return;
      }
    }
    slots_[i] = {key.low, key.high, number};
    ++size_;
  }

  // Takes out the entry of `name` and `number`. Call while the record still has that name.
  template <class NameOf>
  void Remove(std::string_view name, std::int32_t number, const NameOf& name_of) {
    if (has_duplicates_) stale_ = true;  // another record of that name would become the first
    if (stale_ || slots_.empty()) return;
    const Key key = MakeKey(name);
    for (std::size_t i = Home(key); slots_[i].number != 0; i = (i + 1) & mask_) {
      if (slots_[i].number != number || !Matches(slots_[i], key, name, name_of)) continue;
      CloseGap(i);
      --size_;
      return;
    }
  }

  // Numbers have moved: the next use must rebuild.
  void MarkStale() { stale_ = true; }
  bool stale() const { return stale_; }

  // Builds the index anew for numbers 1..count.
  template <class NameOf>
  void Rebuild(std::int32_t count, const NameOf& name_of) {
    Clear();
    Reserve(static_cast<std::size_t>(count));
    for (std::int32_t number = 1; number <= count; ++number) {
      Add(name_of(number), number, name_of);
    }
  }

  void Clear();

 private:
  struct Key {
    std::uint64_t low;
    std::uint32_t high;
  };
  struct Slot {
    std::uint64_t low = 0;
    std::uint32_t high = 0;
    std::int32_t number = 0;  // 0: free
  };
  static constexpr std::size_t kInline = 12;
  static constexpr std::uint32_t kLong = 0xFFFFFFFFu;  // no UTF-8 text ends in these bytes

  static Key MakeKey(std::string_view name) {
    // A name that ends in a NUL would look like a shorter one in its padded slot.
    if (name.size() > kInline || (!name.empty() && name.back() == '\0'))
      return {LongHash(name), kLong};
    return ShortKey(name.data(), name.size());
  }
  template <class Word>
  static Word Load(const char* p) {
    Word word;
    std::memcpy(&word, p, sizeof word);
    return word;
  }
  // Up to 12 bytes, padded with zeros. Overlapping loads from both ends: copying a length that is
  // known only now to a buffer and loading that back stalls the processor for longer than all the
  // rest of a lookup.
  static Key ShortKey(const char* p, std::size_t size) {
    if (size > 8)
      return {Load<std::uint64_t>(p), Load<std::uint32_t>(p + size - 4) >> (8 * (12 - size))};
    if (size == 8) return {Load<std::uint64_t>(p), 0};
    if (size >= 4) {
      const std::uint64_t tail = Load<std::uint32_t>(p + size - 4) >> (8 * (8 - size) % 32);
      return {Load<std::uint32_t>(p) | (size == 4 ? 0 : tail << 32), 0};
    }
    std::uint64_t low = 0;
    for (std::size_t i = 0; i < size; ++i) {
      low |= std::uint64_t{static_cast<unsigned char>(p[i])} << (8 * i);
    }
    return {low, 0};
  }
  static std::uint64_t LongHash(std::string_view name);
  static std::uint64_t Mix(const Key& key) {
    std::uint64_t hash = (key.low ^ 0x9E3779B97F4A7C15ull) * 0xD6E8FEB86659FD93ull;
    hash = ((hash ^ (hash >> 32)) + key.high) * 0x9E3779B97F4A7C15ull;
    return hash ^ (hash >> 32);
  }
  std::size_t Home(const Key& key) const { return static_cast<std::size_t>(Mix(key)) & mask_; }

  template <class NameOf>
  static bool Matches(const Slot& slot, const Key& key, std::string_view name,
                      const NameOf& name_of) {
    if (slot.low != key.low || slot.high != key.high) return false;
    return key.high != kLong || std::string_view(name_of(slot.number)) == name;
  }

  void CloseGap(std::size_t gap);
  // Makes room for `count` entries in all.
  void Reserve(std::size_t count);

  std::vector<Slot> slots_;
  std::size_t mask_ = 0;
  std::size_t size_ = 0;
  bool has_duplicates_ = false;
  bool stale_ = false;
};

}  // namespace quarvel
