#include "model/gaps.h"

namespace quarvel::model {

void Gaps::Open(std::int32_t stored) {
  std::vector<std::int32_t> left(static_cast<std::size_t>(stored) + 1);
  for (std::size_t i = 1; i < left.size(); ++i) left[i] = static_cast<std::int32_t>(RangeOf(i));
  std::vector<bool> is_gone(static_cast<std::size_t>(stored));
  left_.swap(left);
  is_gone_.swap(is_gone);
  gone_ = 0;
  first_gone_ = 0;
  last_ = {};
}

void Gaps::Close() {
  left_ = std::vector<std::int32_t>();
  is_gone_ = std::vector<bool>();
  gone_ = 0;
  first_gone_ = 0;
  last_ = {};
}

std::int32_t Gaps::FindPosition(std::int32_t number) const {
  if (number < 1 || number > stored() - gone_) return number < 1 ? number : number + gone_;
  const bool is_next = number == last_.number + 1 && IsLeft(last_.position + 1);
  last_ = {number, is_next ? last_.position + 1 : SearchPosition(number)};
  return last_.position;
}

// The first position up to which as many are left.
std::int32_t Gaps::SearchPosition(std::int32_t number) const {
  std::size_t before = 0;
  for (std::size_t range = std::bit_floor(left_.size() - 1); range > 0; range /= 2) {
    const std::size_t end = before + range;
    if (end >= left_.size() || left_[end] >= number) continue;
    before = end;
    number -= left_[end];
  }
  return static_cast<std::int32_t>(before) + 1;
}

std::int32_t Gaps::FindNumber(std::int32_t position) const {
  if (position < 1) return position;
  if (position > stored()) return position - gone_;
  std::int32_t number = 0;
  for (auto i = static_cast<std::size_t>(position); i > 0; i -= RangeOf(i)) number += left_[i];
  return number;
}

void Gaps::Note(std::int32_t position) noexcept {
  is_gone_[Offset(position)] = true;
  for (auto i = static_cast<std::size_t>(position); i < left_.size(); i += RangeOf(i)) --left_[i];
  ++gone_;
  if (first_gone_ == 0 || position < first_gone_) first_gone_ = position;
  MoveLast(position);
}

// Only one position further is looked at: behind many that are gone it is better searched.
void Gaps::MoveLast(std::int32_t gone_position) noexcept {
  if (gone_position > last_.position) return;
  if (gone_position < last_.position) {
    --last_.number;
  } else if (IsLeft(last_.position + 1)) {
    ++last_.position;
  } else {
    last_ = {};
  }
}

void Gaps::MakeRoom() {
  if (left_.size() == left_.capacity()) left_.reserve(2 * left_.size());
  if (is_gone_.size() == is_gone_.capacity()) is_gone_.reserve(2 * is_gone_.size() + 1);
}

void Gaps::Append() {
  const std::size_t place = left_.size();
  std::int32_t left = 1;
  for (std::size_t part = 1; part < RangeOf(place); part *= 2) left += left_[place - part];
  left_.push_back(left);
  try {
    is_gone_.push_back(false);
  } catch (...) {
    left_.pop_back();
    throw;
  }
}

void Gaps::TakeBackAppend() noexcept {
  if (is_gone_.back()) --gone_;
  is_gone_.pop_back();
  left_.pop_back();
  if (first_gone_ > stored()) first_gone_ = 0;
  if (last_.position > stored()) last_ = {};
}

}  // namespace quarvel::model
