#include "text/edit_distance.h"

#include <algorithm>
#include <array>
#include <utility>

#include "text/upper_case.h"

namespace quarvel::text {
namespace {

// Of the table of distances between beginnings of both words only a band along the diagonal can lie
// within the limit. Three rows of it are kept; position d of a row stands at column row + d - limit.
constexpr std::size_t kHighestLimit = 7;
using Band = std::array<std::size_t, 2 * kHighestLimit + 3>;

class BandedTable {
 public:
  BandedTable(std::string_view a, std::string_view b, std::size_t limit)
      : a_(a), b_(b), limit_(limit), too_many_(limit + 1) {
    now_.fill(too_many_);
    before_ = last_ = now_;
  }

  std::size_t Distance() {
    for (std::size_t row = 0; row <= a_.size(); ++row) {
      last_ = std::exchange(before_, now_);
      if (FillRow(row) > limit_) return too_many_;
    }
    return std::min(now_[b_.size() + limit_ - a_.size() + 1], too_many_);
  }

 private:
  // Gives the least of the row.
  std::size_t FillRow(std::size_t row) {
    std::size_t least = too_many_;
    now_.fill(too_many_);
    for (std::size_t d = 0; d <= 2 * limit_; ++d) {
      if (row + d < limit_ || row + d - limit_ > b_.size()) continue;
      now_[d + 1] = Cell(row, row + d - limit_, d + 1);
      least = std::min(least, now_[d + 1]);
    }
    return least;
  }

  std::size_t Cell(std::size_t row, std::size_t column, std::size_t d) const {
    if (row == 0) return column;
    if (column == 0) return row;
    const bool is_same = a_[row - 1] == b_[column - 1];
    std::size_t best = before_[d] + (is_same ? 0 : 1);
    best = std::min({best, before_[d + 1] + 1, now_[d - 1] + 1});
    const bool is_swap =
        row > 1 && column > 1 && a_[row - 1] == b_[column - 2] && a_[row - 2] == b_[column - 1];
    return is_swap ? std::min(best, last_[d] + 1) : best;
  }

  std::string_view a_;
  std::string_view b_;
  std::size_t limit_;
  std::size_t too_many_;
  Band now_;
  Band before_;
  Band last_;
};

// A shorter one begins too much.
constexpr std::size_t kLeastStart = 2;

std::string Folded(std::string_view word) {
  std::string folded(word);
  std::transform(folded.begin(), folded.end(), folded.begin(), UpperCaseAscii);
  return folded;
}

}  // namespace

std::size_t EditDistance(std::string_view a, std::string_view b, std::size_t limit) {
  limit = std::min(limit, kHighestLimit);
  const std::size_t apart = a.size() > b.size() ? a.size() - b.size() : b.size() - a.size();
  if (apart > limit) return limit + 1;
  return BandedTable(a, b, limit).Distance();
}

NearestWords::NearestWords(std::string_view wanted)
    : wanted_(Folded(wanted)), limit_(std::clamp<std::size_t>(wanted.size() / 3, 1, 3)) {}

void NearestWords::Offer(std::string_view word) {
  const std::string folded = Folded(word);
  const bool may_be_start = wanted_.size() >= kLeastStart && longer_.size() < kMost;
  if (may_be_start && folded.starts_with(wanted_)) longer_.emplace_back(word);
  const std::size_t distance = EditDistance(wanted_, folded, limit_);
  // A word of which nothing is left is no mistyped one.
  if (distance > limit_ || distance >= std::max(wanted_.size(), word.size())) return;
  if (distance < limit_) words_.clear();
  limit_ = distance;
  if (words_.size() < kMost) words_.emplace_back(word);
}

std::string DidYouMean(const std::vector<std::string>& words) {
  if (words.empty()) return "";
  std::string text = "; did you mean ";
  for (std::size_t i = 0; i < words.size(); ++i) {
    if (i > 0) text += i + 1 == words.size() ? " or " : ", ";
    text += words[i];
  }
  return text + '?';
}

}  // namespace quarvel::text
