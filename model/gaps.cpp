#include "model/gaps.h"

namespace quarvel::model {

void Gaps::Open(std::int32_t stored, Entries entries) {
  left_.MarkAll(stored);
  open_ = true;
  entries_ = entries;
  gone_ = 0;
  first_gone_ = 0;
  last_ = {};
}

void Gaps::Close() noexcept { *this = Gaps(); }

std::int32_t Gaps::FindPosition(std::int32_t number) const {
  if (number < 1 || number > stored() - gone_) return number < 1 ? number : number + gone_;
  const bool is_next = number == last_.number + 1 && IsLeft(last_.position + 1);
  last_ = {number, is_next ? last_.position + 1 : left_.PositionOf(number)};
  return last_.position;
}

std::int32_t Gaps::FindNumber(std::int32_t position) const {
  if (position < 1) return position;
  if (position > stored()) return position - gone_;
  const std::int32_t left = left_.CountUpTo(position);
  return left_.Has(position) ? left : left + 1;
}

void Gaps::Note(std::int32_t position) noexcept {
  left_.Unmark(position);
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

void Gaps::MakeRoom() { left_.MakeRoom(); }

void Gaps::Append() { left_.Append(true); }

void Gaps::TakeBackAppend() noexcept {
  if (!left_.Has(stored())) --gone_;
  left_.RemoveLast();
  if (first_gone_ > stored()) first_gone_ = 0;
  if (last_.position > stored()) last_ = {};
}

}  // namespace quarvel::model
