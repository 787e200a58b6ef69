// Marks at positions 1..size. The k-th marked position, and how many are marked up to a position,
// are found in the time of a logarithm, and so is a mark changed: how many are marked of each of
// nested ranges of positions is kept in a tree (Fenwick's), which needs one number a position.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace quarvel::model {

class CountedMarks {
 public:
  std::int32_t size() const { return static_cast<std::int32_t>(marked_.size()); }
  // How many are marked.
  std::int32_t count() const { return count_; }
  bool Has(std::int32_t position) const { return marked_[Offset(position)]; }

  // Positions 1..size, all marked. What there was stays when memory runs out.
  void MarkAll(std::int32_t size);
  // No positions; their memory is given back.
  void Clear() noexcept;

  void Mark(std::int32_t position) noexcept;
  void Unmark(std::int32_t position) noexcept;

  // How many are marked of positions 1..position, which is one of them.
  std::int32_t CountUpTo(std::int32_t position) const;
  // Where the k-th mark is, 1 <= k <= count().
  std::int32_t PositionOf(std::int32_t k) const;

  // One more position, at the end. What there was stays when memory runs out.
  void Append(bool marked);
  // The next Append cannot fail.
  void MakeRoom() {
    if (marked_.size() == marked_.capacity() || sums_.size() + 1 >= sums_.capacity()) Grow();
  }
  void RemoveLast() noexcept;

 private:
  static std::size_t Offset(std::int32_t position) {
    return static_cast<std::size_t>(position - 1);
  }
  // How many positions the sum at that place covers.
  static std::size_t RangeOf(std::size_t place) { return place & (~place + 1); }
  void Add(std::int32_t position, std::int32_t change) noexcept;
  void Grow();

  // sums_[i]: how many are marked of the RangeOf(i) positions up to i. sums_[0] is not used.
  std::vector<std::int32_t> sums_;
  std::vector<bool> marked_;
  std::int32_t count_ = 0;
};

}  // namespace quarvel::model
