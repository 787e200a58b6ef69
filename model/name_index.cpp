#include "model/name_index.h"

#include <utility>

#include "platform/large_pages.h"

namespace quarvel {

void NameIndex::Clear() {
  slots_ = {};
  mask_ = 0;
  size_ = 0;
  has_duplicates_ = false;
  stale_ = false;
}

void NameIndex::Reserve(std::size_t count) {
  std::size_t capacity = slots_.empty() ? 64 : slots_.size();
  while (count * 4 > capacity * 3) capacity *= 2;
  if (capacity == slots_.size()) return;
  std::vector<Slot> slots;
  slots.reserve(capacity);
  platform::PreferLargePages(slots.data(), capacity * sizeof(Slot));
  slots.resize(capacity);
  const std::vector<Slot> old = std::exchange(slots_, std::move(slots));
  mask_ = capacity - 1;
  for (const Slot& slot : old) {
    if (slot.number == 0) continue;
    std::size_t i = Home(slot);
    while (slots_[i].number != 0) i = (i + 1) & mask_;
    slots_[i] = slot;
  }
}

// Linear probing without markers of deleted entries: later entries of the run move back.
void NameIndex::CloseGap(std::size_t gap) {
  for (std::size_t i = (gap + 1) & mask_; slots_[i].number != 0; i = (i + 1) & mask_) {
    const std::size_t home = Home(slots_[i]);
    const bool may_move = ((i - home) & mask_) >= ((i - gap) & mask_);
    if (!may_move) continue;
    slots_[gap] = slots_[i];
    gap = i;
  }
  slots_[gap] = Slot{};
}

}  // namespace quarvel
