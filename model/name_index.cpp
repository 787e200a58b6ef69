#include "model/name_index.h"

#include <utility>

namespace quarvel {

void NameIndex::Clear() { *this = NameIndex(); }

// Three quarters of the slots may be taken.
void NameIndex::Grow(std::size_t count) {
  constexpr std::size_t kFewestLines = 16;
  std::size_t capacity = lines_.empty() ? kFewestLines : 2 * lines_.size();
  while (count > capacity * Line::kSlots / 4 * 3) capacity *= 2;
  const auto old = std::exchange(lines_, decltype(lines_)(capacity));
  mask_ = capacity - 1;
  most_ = capacity * Line::kSlots / 4 * 3;
  for (const Line& line : old) {
    for (const Slot& slot : line.entries) {
      if (slot.number != 0) FreeSlot(Home(slot)) = slot;
    }
  }
}

NameIndex::Slot& NameIndex::FreeSlot(std::size_t line) {
  while (lines_[line].IsFull()) line = (line + 1) & mask_;
  Slot* slot = lines_[line].entries.data();
  while (slot->number != 0) ++slot;
  return *slot;
}

void NameIndex::Remove(std::string_view name, std::int32_t number) {
  if (has_duplicates_) stale_ = true;  // another record of that name would become the first
  if (stale_ || lines_.empty()) return;
  const NameKey key = NameKey::Of(name);
  for (std::size_t i = Home(key);; i = (i + 1) & mask_) {
    for (std::size_t place = 0; place < Line::kSlots; ++place) {
      const Slot& slot = lines_[i].entries[place];
      if (slot.number == 0) return;
      if (slot.number != number || !key.Equals(slot.low, slot.high)) continue;
      CloseGap(i, place);
      --size_;
      return;
    }
  }
}

// The last name of the line fills the gap. A line that was full may have sent names on; the first
// of them that may stand here comes back, which leaves a gap where it was.
void NameIndex::CloseGap(std::size_t line, std::size_t place) {
  for (;;) {
    std::array<Slot, Line::kSlots>& entries = lines_[line].entries;
    const bool was_full = lines_[line].IsFull();
    std::size_t last = place;
    while (last + 1 < Line::kSlots && entries[last + 1].number != 0) ++last;
    entries[place] = entries[last];
    entries[last] = Slot{};
    if (!was_full) return;
    const Place sent_on = FindSentOn(line);
    if (sent_on.line == line) return;
    entries[last] = lines_[sent_on.line].entries[sent_on.slot];
    line = sent_on.line;
    place = sent_on.slot;
  }
}

// The first name behind that line that may stand in it; a place of the line itself when there is
// none.
NameIndex::Place NameIndex::FindSentOn(std::size_t line) const {
  for (std::size_t i = (line + 1) & mask_; i != line; i = (i + 1) & mask_) {
    for (std::size_t k = 0; k < Line::kSlots; ++k) {
      const Slot& slot = lines_[i].entries[k];
      if (slot.number == 0) return {line, 0};  // no name was sent on from here
      if (((i - Home(slot)) & mask_) >= ((i - line) & mask_)) return {i, k};
    }
  }
  return {line, 0};
}

}  // namespace quarvel
