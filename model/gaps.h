// Which stored records of one kind are removed already while what stood behind them has not moved
// up yet.
//
// A record is **stored** at a position, from 1 on; its number counts only those before it that are
// left. One goes to the other in the time of a logarithm, whatever has been removed in whichever
// order: how many are left of each of nested ranges of positions is kept in a tree (Fenwick's),
// which needs one number a position and no memory when a record is removed. What was found last, and
// what comes next, is found at once.
//
// Positions behind the last one stand for records that are not there yet: all of them are left.
#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <vector>

namespace quarvel::model {

class Gaps {
 public:
  // A position that is always gone, of what an entry that was taken out of its list names.
  static constexpr std::int32_t kNowhere = std::numeric_limits<std::int32_t>::min();

  // Whether positions and numbers are told apart. All that follows is for open gaps but where it
  // says otherwise.
  bool open() const { return !left_.empty(); }
  // Begins with `stored` positions, none of which is gone.
  void Open(std::int32_t stored);
  void Close();

  std::int32_t stored() const { return static_cast<std::int32_t>(is_gone_.size()); }
  std::int32_t gone() const { return gone_; }
  // The first that is gone; 0 when none is.
  std::int32_t first_gone() const { return first_gone_; }
  bool IsGone(std::int32_t position) const {
    return position == kNowhere ||
           (position >= 1 && position <= stored() && is_gone_[Offset(position)]);
  }

  // The position of what is left as that number. The number itself while gaps are closed.
  std::int32_t PositionOf(std::int32_t number) const {
    if (!open()) return number;
    return number == last_.number ? last_.position : FindPosition(number);
  }
  // The number of what is left at that position. The position itself while gaps are closed.
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
  static std::size_t Offset(std::int32_t position) {
    return static_cast<std::size_t>(position - 1);
  }
  // How many positions the entry at that place counts.
  static std::size_t RangeOf(std::size_t place) { return place & (~place + 1); }
  std::int32_t FindPosition(std::int32_t number) const;
  std::int32_t SearchPosition(std::int32_t number) const;
  bool IsLeft(std::int32_t position) const {
    return position <= stored() && !is_gone_[Offset(position)];
  }
  void MoveLast(std::int32_t gone_position) noexcept;
  std::int32_t FindNumber(std::int32_t position) const;

  // left_[i]: how many are left of the RangeOf(i) positions up to i. left_[0] is not used.
  std::vector<std::int32_t> left_;
  std::vector<bool> is_gone_;
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
