#include "model/name_index.h"

#include <algorithm>
#include <utility>

namespace quarvel::model {

void NameIndex::Clear() { *this = NameIndex(); }

// Three quarters of the slots may be taken.
void NameIndex::Grow(std::size_t count) {
  constexpr std::size_t kFewestBuckets = 16;
  constexpr std::size_t kMostInBucket = Bucket::kSlots / 4 * 3;
  const std::size_t needed = (count + kMostInBucket - 1) / kMostInBucket;
  const std::size_t buckets = std::max({kFewestBuckets, 2 * bucket_count_, needed});
  const auto old = std::exchange(buckets_, decltype(buckets_)(buckets));
  bucket_count_ = buckets;
  most_ = buckets * kMostInBucket;
  for (const Bucket& bucket : old) {
    for (std::size_t place = 0; place < Bucket::kSlots; ++place) {
      const Slot slot = bucket.Get(place);
      if (slot.number == 0) break;
      Bucket& to = BucketWithRoom(Home(slot));
      to.Set(to.Count(), slot);
    }
  }
}

std::size_t NameIndex::CountDetours() const {
  std::size_t detours = 0;
  for (std::size_t i = 0; i < buckets_.size(); ++i) {
    for (std::size_t place = 0; place < Bucket::kSlots; ++place) {
      const Slot slot = buckets_[i].Get(place);
      if (slot.number != 0) detours += Distance(Home(slot), i);
    }
  }
  return detours;
}

NameIndex::Bucket& NameIndex::BucketWithRoom(std::size_t bucket) {
  while (buckets_[bucket].IsFull()) bucket = Next(bucket);
  return buckets_[bucket];
}

void NameIndex::Remove(std::string_view name, std::int32_t number) {
  if (has_duplicates_) stale_ = true;  // another record of that name would become the first
  if (stale_ || buckets_.empty()) return;
  const NameKey key = NameKey::Of(name);
  for (std::size_t i = Home(key);; i = Next(i)) {
    for (std::size_t place = 0; place < Bucket::kSlots; ++place) {
      const Slot slot = buckets_[i].Get(place);
      if (slot.number == 0) return;
      if (slot.number != number || !key.Equals(slot.low, slot.high)) continue;
      CloseGap(i, place);
      --size_;
      return;
    }
  }
}

// The last name of the bucket fills the gap. A bucket that was full may have sent names on; the first
// of them that may stand here comes back, which leaves a gap where it was.
void NameIndex::CloseGap(std::size_t bucket, std::size_t place) {
  for (;;) {
    Bucket& here = buckets_[bucket];
    const bool was_full = here.IsFull();
    std::size_t last = place;
    while (last + 1 < Bucket::kSlots && here.numbers[last + 1] != 0) ++last;
    here.Set(place, here.Get(last));
    here.Set(last, Slot{});
    if (!was_full) return;
    const Place sent_on = FindSentOn(bucket);
    if (sent_on.bucket == bucket) return;
    here.Set(last, buckets_[sent_on.bucket].Get(sent_on.slot));
    bucket = sent_on.bucket;
    place = sent_on.slot;
  }
}

// The first name behind that bucket that may stand in it; a place of the bucket itself when there is
// none.
NameIndex::Place NameIndex::FindSentOn(std::size_t bucket) const {
  for (std::size_t i = Next(bucket); i != bucket; i = Next(i)) {
    for (std::size_t k = 0; k < Bucket::kSlots; ++k) {
      const Slot slot = buckets_[i].Get(k);
      if (slot.number == 0) return {bucket, 0};  // no name was sent on from here
      if (Distance(Home(slot), i) >= Distance(bucket, i)) return {i, k};
    }
  }
  return {bucket, 0};
}

}  // namespace quarvel::model
