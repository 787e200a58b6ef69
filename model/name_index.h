// Finds rows or columns by name as a scan for the first match would, in constant time.
//
// Open addressing, 16 bytes a slot, at most three quarters full. A name of up to 12 bytes stands in
// its slot, so that a lookup touches one cache line and never the record; a longer one is
// represented by its hash and compared with the record's name. The index does not own names:
// `name_of(number)` gives them.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

#include "model/name_key.h"
#include "text/prefetch.h"

namespace quarvel {

class NameIndex {
 public:
  // The number stored for `name`, 0 when there is none.
  template <class NameOf>
  std::int32_t Find(std::string_view name, const NameOf& name_of) const {
    return Find(NameKey::Of(name), name, name_of);
  }
  // The same when the name's key is known already.
  template <class NameOf>
  std::int32_t Find(const NameKey& key, std::string_view name, const NameOf& name_of) const {
    if (size_ == 0) return 0;
    if (key.is_long()) return FindLong(key, name, name_of);
    for (std::size_t i = Home(key);; i = (i + 1) & mask_) {
      const Slot& slot = slots_[i];
      if (slot.number == 0 || key.Equals(slot.low, slot.high)) return slot.number;
    }
  }

  // Has the processor fetch what a look-up of that key will touch first.
  void Prefetch(const NameKey& key) const {
    if (!slots_.empty()) text::Prefetch(&slots_[Home(key)]);
  }
  // The number whose name a look-up of that key will compare first; 0 when there is none.
  std::int32_t Candidate(const NameKey& key) const {
    if (size_ == 0) return 0;
    for (std::size_t i = Home(key);; i = (i + 1) & mask_) {
      const Slot& slot = slots_[i];
      if (slot.number == 0 || key.Equals(slot.low, slot.high)) return slot.number;
    }
  }

  // Adds a name unless it is there already (the first number of a name stays).
  template <class NameOf>
  void Add(std::string_view name, std::int32_t number, const NameOf& name_of) {
    Add(NameKey::Of(name), name, number, name_of);
  }
  template <class NameOf>
  void Add(const NameKey& key, std::string_view name, std::int32_t number, const NameOf& name_of) {
    if ((size_ + 1) * 4 > slots_.size() * 3) Reserve(size_ + 1);
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
    const NameKey key = NameKey::Of(name);
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
  // Makes room for `count` entries in all.
  void Reserve(std::size_t count);

 private:
  struct Slot {
    std::uint64_t low = 0;
    std::uint32_t high = 0;
    std::int32_t number = 0;  // 0: free
  };
  std::size_t Home(const NameKey& key) const { return key.hash & mask_; }
  std::size_t Home(const Slot& slot) const { return Home(NameKey::OfParts(slot.low, slot.high)); }

  template <class NameOf>
  std::int32_t FindLong(const NameKey& key, std::string_view name, const NameOf& name_of) const {
    for (std::size_t i = Home(key);; i = (i + 1) & mask_) {
      const Slot& slot = slots_[i];
      if (slot.number == 0 || Matches(slot, key, name, name_of)) return slot.number;
    }
  }
  template <class NameOf>
  static bool Matches(const Slot& slot, const NameKey& key, std::string_view name,
                      const NameOf& name_of) {
    if (!key.Equals(slot.low, slot.high)) return false;
    return !key.is_long() || std::string_view(name_of(slot.number)) == name;
  }

  void CloseGap(std::size_t gap);

  std::vector<Slot> slots_;
  std::size_t mask_ = 0;
  std::size_t size_ = 0;
  bool has_duplicates_ = false;
  bool stale_ = false;
};

}  // namespace quarvel
