#include "model/name_index.h"

#include <utility>

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
  const std::vector<Slot> old = std::exchange(slots_, std::vector<Slot>(capacity));
  mask_ = capacity - 1;
  for (const Slot& slot : old) {
    if (slot.number == 0) continue;
    std::size_t i = Home({slot.low, slot.high});
    while (slots_[i].number != 0) i = (i + 1) & mask_;
    slots_[i] = slot;
  }
}

// Linear probing without markers of deleted entries: later entries of the run move back.
void NameIndex::CloseGap(std::size_t gap) {
  for (std::size_t i = (gap + 1) & mask_; slots_[i].number != 0; i = (i + 1) & mask_) {
    const std::size_t home = Home({slots_[i].low, slots_[i].high});
    const bool may_move = ((i - home) & mask_) >= ((i - gap) & mask_);
    if (!may_move) continue;
    slots_[gap] = slots_[i];
    gap = i;
  }
  slots_[gap] = Slot{};
}

std::uint64_t NameIndex::LongHash(std::string_view name) {
  std::uint64_t hash = 0x2545F4914F6CDD1Dull ^ name.size();
  const auto fold = [&hash](std::uint64_t word) {
    hash = (hash ^ word) * 0x9E3779B97F4A7C15ull;
    hash ^= hash >> 32;
  };
  while (name.size() >= 8) {
    std::uint64_t word;
    std::memcpy(&word, name.data(), sizeof word);
    fold(word);
    name.remove_prefix(8);
  }
  std::uint64_t tail = 0;
  std::memcpy(&tail, name.data(), name.size());
  fold(tail);
  return hash;
}

}  // namespace quarvel
