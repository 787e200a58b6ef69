#include "model/counted_marks.h"

#include <bit>

namespace quarvel::model {

void CountedMarks::MarkAll(std::int32_t size) {
  std::vector<std::int32_t> sums(static_cast<std::size_t>(size) + 1);
  for (std::size_t i = 1; i < sums.size(); ++i) sums[i] = static_cast<std::int32_t>(RangeOf(i));
  std::vector<bool> marked(static_cast<std::size_t>(size), true);
  sums_.swap(sums);
  marked_.swap(marked);
  count_ = size;
}

void CountedMarks::Clear() noexcept {
  sums_ = std::vector<std::int32_t>();
  marked_ = std::vector<bool>();
  count_ = 0;
}

void CountedMarks::Mark(std::int32_t position) noexcept {
  if (!Has(position)) Add(position, 1);
}

void CountedMarks::Unmark(std::int32_t position) noexcept {
  if (Has(position)) Add(position, -1);
}

void CountedMarks::Add(std::int32_t position, std::int32_t change) noexcept {
  marked_[Offset(position)] = change > 0;
  count_ += change;
  for (auto i = static_cast<std::size_t>(position); i < sums_.size(); i += RangeOf(i)) {
    sums_[i] += change;
  }
}

std::int32_t CountedMarks::CountUpTo(std::int32_t position) const {
  std::int32_t count = 0;
  for (auto i = static_cast<std::size_t>(position); i > 0; i -= RangeOf(i)) count += sums_[i];
  return count;
}

// The first position up to which as many are marked.
std::int32_t CountedMarks::PositionOf(std::int32_t k) const {
  std::size_t before = 0;
  for (std::size_t range = std::bit_floor(sums_.size() - 1); range > 0; range /= 2) {
    const std::size_t end = before + range;
    if (end >= sums_.size() || sums_[end] >= k) continue;
    before = end;
    k -= sums_[end];
  }
  return static_cast<std::int32_t>(before) + 1;
}

void CountedMarks::Grow() {
  const std::size_t room = 2 * marked_.size() + 16;
  sums_.reserve(room + 1);
  marked_.reserve(room);
}

void CountedMarks::Append(bool marked) {
  MakeRoom();
  if (sums_.empty()) sums_.push_back(0);
  const std::size_t place = sums_.size();
  std::int32_t sum = marked ? 1 : 0;
  for (std::size_t part = 1; part < RangeOf(place); part *= 2) sum += sums_[place - part];
  sums_.push_back(sum);
  marked_.push_back(marked);
  if (marked) ++count_;
}

void CountedMarks::RemoveLast() noexcept {
  if (marked_.back()) --count_;
  sums_.pop_back();
  marked_.pop_back();
}

}  // namespace quarvel::model
