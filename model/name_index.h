// Finds rows or columns by name as a scan for the first match would, in constant time.
//
// Open addressing, 16 bytes a slot, four slots to a cache line. A name stands in the bucket it
// belongs to, or, when that is full, in the next bucket that is not; the slots of a bucket are taken
// from the first on. So nearly every lookup touches one bucket, and there compares all four slots at
// once (text/word_triples.h): where in a bucket a name stands cannot be guessed. A name of up to
// 12 bytes stands in its slot, so that a lookup never touches the record; a longer one is
// represented by its hash and compared with the record's name. The index does not own names:
// `name_of(number)` gives them.
//
// Where a name belongs is secret to the process (model/name_hash.h), so no choice of names makes
// look-ups walk further than they do for any others.
#pragma once

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

#include "model/name_key.h"
#include "platform/large_pages.h"
#include "text/prefetch.h"
#include "text/word_triples.h"

namespace quarvel::model {

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
    return key.is_long() ? FindLong(key, name, name_of) : Candidate(key);
  }

  // Has the processor fetch what a look-up of that key will touch first.
  void Prefetch(const NameKey& key) const {
    if (!buckets_.empty()) text::Prefetch(&buckets_[Home(key)]);
  }
  // A number of that key, 0 when there is none. Long names may share a key.
  std::int32_t Candidate(const NameKey& key) const {
    if (buckets_.empty()) return 0;
    for (std::size_t i = Home(key);; i = Next(i)) {
      const std::int32_t number = buckets_[i].NumberOf(key);
      if (number != 0 || !buckets_[i].IsFull()) return number;
    }
  }

  // Adds a name unless it is there already (the first number of a name stays).
  template <class NameOf>
  void Add(std::string_view name, std::int32_t number, const NameOf& name_of) {
    Add(NameKey::Of(name), name, number, name_of);
  }
  template <class NameOf>
  void Add(const NameKey& key, std::string_view name, std::int32_t number, const NameOf& name_of) {
    if (Find(key, name, name_of) != 0) {
      has_duplicates_ = true;
      return;
    }
    AddNew(key, number);
  }
  // The same for a name that is known not to be there.
  void AddNew(const NameKey& key, std::int32_t number) {
    MakeRoom();
    Bucket& bucket = BucketWithRoom(Home(key));
    bucket.Set(bucket.Count(), {key.low, key.high, number});
    ++size_;
  }

  // Takes out the entry of `name` and `number`. Call while the record still has that name.
  void Remove(std::string_view name, std::int32_t number);

  // Numbers have moved: the next use must rebuild.
  void MarkStale() { stale_ = true; }
  bool stale() const { return stale_; }
  // A name was added that another number had already.
  bool has_duplicates() const { return has_duplicates_; }
  // Each name that was added is there once.
  bool IsDistinct() const { return !stale_ && !has_duplicates_; }

  // Builds the index anew for numbers 1..count.
  template <class NameOf>
  void Rebuild(std::int32_t count, const NameOf& name_of) {
    Clear();
    stale_ = true;  // as long as it is not made
    Reserve(static_cast<std::size_t>(count));
    for (std::int32_t number = 1; number <= count; ++number) {
      Add(name_of(number), number, name_of);
    }
    stale_ = false;
  }

  // How many buckets look-ups of all names visit beside the first; for tests of the cost. A pass.
  std::size_t CountDetours() const;

  void Clear();
  // Makes room for one entry more, so that the next Add cannot fail.
  void MakeRoom() { Reserve(size_ + 1); }
  // Makes room for `count` entries in all.
  void Reserve(std::size_t count) {
    if (count > most_) Grow(count);
  }

 private:
  struct Slot {
    std::uint64_t low = 0;
    std::uint32_t high = 0;
    std::int32_t number = 0;  // 0: free
  };
  struct alignas(64) Bucket {
    static constexpr std::size_t kSlots = text::WordTriples::kCount;

    Slot Get(std::size_t place) const {
      return {keys.FirstTwo(place), keys.Third(place), numbers[place]};
    }
    void Set(std::size_t place, const Slot& slot) {
      keys.Set(place, slot.low, slot.high);
      numbers[place] = slot.number;
    }
    bool IsFull() const { return numbers.back() != 0; }
    // Of a bucket that is not full: how many slots are taken.
    std::size_t Count() const {
      std::size_t count = 0;
      while (numbers[count] != 0) ++count;
      return count;
    }
    // A free slot is one of the key of an empty name.
    unsigned Same(const NameKey& key) const { return text::FindTriple(keys, key.low, key.high); }
    // 0 when there is none of that key, as a free slot says too.
    std::int32_t NumberOf(const NameKey& key) const {
      const unsigned same = Same(key);
      return same == 0 ? 0 : numbers[static_cast<std::size_t>(std::countr_zero(same))];
    }

    text::WordTriples keys;
    std::array<std::int32_t, kSlots> numbers{};
  };

  struct Place {
    std::size_t bucket;
    std::size_t slot;
  };

  // There may be any number of buckets: a hash is taken as a part of 2^32.
  std::size_t Home(const NameKey& key) const {
    return static_cast<std::size_t>((std::uint64_t{key.hash} * bucket_count_) >> 32);
  }
  std::size_t Home(const Slot& slot) const { return Home(NameKey::OfParts(slot.low, slot.high)); }
  // Behind the last comes the first.
  std::size_t Next(std::size_t bucket) const {
    return bucket + 1 == bucket_count_ ? 0 : bucket + 1;
  }
  std::size_t Distance(std::size_t from, std::size_t to) const {
    return to >= from ? to - from : to + bucket_count_ - from;
  }

  template <class NameOf>
  std::int32_t FindLong(const NameKey& key, std::string_view name, const NameOf& name_of) const {
    if (buckets_.empty()) return 0;
    for (std::size_t i = Home(key);; i = Next(i)) {
      for (unsigned same = buckets_[i].Same(key); same != 0; same &= same - 1) {
        const auto place = static_cast<std::size_t>(std::countr_zero(same));
        const std::int32_t number = buckets_[i].numbers[place];
        if (std::string_view(name_of(number)) == name) return number;
      }
      if (!buckets_[i].IsFull()) return 0;
    }
  }

  void Grow(std::size_t count);
  // The first from that bucket on.
  Bucket& BucketWithRoom(std::size_t bucket);
  void CloseGap(std::size_t bucket, std::size_t place);
  Place FindSentOn(std::size_t bucket) const;

  std::vector<Bucket, platform::TableAllocator<Bucket>> buckets_;
  std::size_t bucket_count_ = 0;
  std::size_t size_ = 0;
  std::size_t most_ = 0;  // entries that there is room for
  bool has_duplicates_ = false;
  bool stale_ = false;
};

}  // namespace quarvel::model
