#include "model/list_places.h"

namespace quarvel::model {

ListPlaces::ListPlaces(const ElementList& list, const Gaps& others) {
  places_.Open(0);
  next_.push_back(0);
  for (std::int32_t place = 1; place <= list.size(); ++place) {
    Append(list[place].Index);
    if (others.IsGone(list[place].Index)) Remove(place, list[place].Index);
  }
}

std::int32_t ListPlaces::First(std::int32_t position) const {
  const auto found = ends_.find(position);
  return found == ends_.end() ? 0 : found->second.first;
}

void ListPlaces::Remove(std::int32_t place, std::int32_t position) noexcept {
  places_.Note(place);
  const auto found = ends_.find(position);
  Ends& ends = found->second;
  if (ends.first == ends.last) {
    ends_.erase(found);
    return;
  }
  if (ends.first == place) {
    ends.first = Next(place);
    return;
  }
  std::int32_t before = ends.first;
  while (Next(before) != place) before = Next(before);
  Next(before) = Next(place);
  if (ends.last == place) ends.last = before;
}

void ListPlaces::Append(std::int32_t position) {
  const auto place = static_cast<std::int32_t>(next_.size());
  next_.push_back(0);
  try {
    places_.Append();
  } catch (...) {
    next_.pop_back();
    throw;
  }
  try {
    const auto [found, is_new] = ends_.try_emplace(position, Ends{place, place});
    if (is_new) return;
    Next(found->second.last) = place;
    found->second.last = place;
  } catch (...) {
    next_.pop_back();
    places_.TakeBackAppend();
    throw;
  }
}

void ListPlaces::TakeBackAppend(std::int32_t position) noexcept {
  Remove(static_cast<std::int32_t>(next_.size()) - 1, position);
  next_.pop_back();
  places_.TakeBackAppend();
}

// Making them costs as much as some walks, and every walk is as long as the list.
ListPlaces* LongLists::Find(std::int32_t position, const ElementList& list, const Gaps& others) {
  constexpr std::int32_t kLong = 64;
  constexpr int kWalks = 16;
  if (list.size() <= kLong) return Known(position);
  Walked& walked = lists_[position];
  if (walked.places == nullptr && ++walked.times > kWalks) {
    walked.places = std::make_unique<ListPlaces>(list, others);
  }
  return walked.places.get();
}

ListPlaces* LongLists::Known(std::int32_t position) const {
  if (lists_.empty()) return nullptr;
  const auto found = lists_.find(position);
  return found == lists_.end() ? nullptr : found->second.places.get();
}

std::int32_t PlaceOfKth(std::int32_t k, const ElementList& list, const Gaps& others,
                        const ListPlaces* places) {
  if (places != nullptr) return places->PlaceOf(k);
  std::int32_t place = 0;
  while (k > 0 && place < list.size()) {
    if (!others.IsGone(list[++place].Index)) --k;
  }
  return k == 0 ? place : 0;
}

}  // namespace quarvel::model
