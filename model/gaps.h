// Which stored records of one kind are removed already while what stood behind them has not moved
// up yet.
//
// A record is **stored** at a position, from 1 on; its number counts only those before it that are
// left. One goes to the other in the time of a logarithm, whatever has been removed in whichever
// order, with one number a position and no memory when a record is removed. What was found last, and
// what comes next, is found at once.
//
// Positions behind the last one stand for records that are not there yet: all of them are left.
#pragma once

#include <cstdint>
#include <limits>

#include "model/counted_marks.h"

namespace quarvel::model {

class Gaps {
 public:
  // A position that is always gone, of what an entry that was taken out of its list names.
  static constexpr std::int32_t kNowhere = std::numeric_limits<std::int32_t>::min();

  // What becomes of an entry of a list that names a position when that is removed: it is gone too, or
  // it names what comes next from then on.
  enum class Entries : std::uint8_t { kGo, kMoveOn };

  // Whether positions and numbers are told apart. All that follows is for open gaps but where it
  // says otherwise.
  bool open() const { return open_; }
  // Begins with `stored` positions, none of which is gone.
  void Open(std::int32_t stored, Entries entries = Entries::kGo);
  void Close() noexcept;

  std::int32_t stored() const { return left_.size(); }
  std::int32_t gone() const { return gone_; }
  // The first that is gone; 0 when none is.
  std::int32_t first_gone() const { return first_gone_; }
  bool IsGone(std::int32_t position) const {
    return position == kNowhere || (position >= 1 && position <= stored() && !left_.Has(position));
  }
  // Whether an entry that names that position is gone. False while gaps are closed.
  bool IsDead(std::int32_t entry) const {
    return entries_ == Entries::kGo ? IsGone(entry) : entry == kNowhere;
  }

  // The position of what is left as that number. The number itself while gaps are closed.
  std::int32_t PositionOf(std::int32_t number) const {
    if (!open()) return number;
    return number == last_.number ? last_.position : FindPosition(number);
  }
  // The number of what is left at that position, or of what comes next when that is gone. The position
  // itself while gaps are closed.
  std::int32_t NumberOf(std::int32_t position) const {
    return open() ? FindNumber(position) : position;
  }

  // The record at that position, which is left, is removed.
  void Note(std::int32_t position) noexcept;
  // One more position, at the end. What was there stays as it was when memory runs out.
  void Append();
  // The next Append cannot fail.
  void MakeRoom();
  // That was not so. Only for the last position.
  void TakeBackAppend() noexcept;

 private:
  std::int32_t FindPosition(std::int32_t number) const;
  std::int32_t FindNumber(std::int32_t position) const;
  bool IsLeft(std::int32_t position) const { return position <= stored() && left_.Has(position); }
  void MoveLast(std::int32_t gone_position) noexcept;

  CountedMarks left_;
  bool open_ = false;
  Entries entries_ = Entries::kGo;
  std::int32_t gone_ = 0;
  std::int32_t first_gone_ = 0;
  // What was found last: a loop asks for one record many times, then for the next. 0: nothing.
  struct Found {
    std::int32_t number = 0;
    std::int32_t position = 0;
  };
  mutable Found last_;
};

}  // namespace quarvel::model
