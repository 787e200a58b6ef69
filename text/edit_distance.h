// How far a word is from another, for those who mistyped one.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace quarvel::text {

// How many bytes must be put in, left out, replaced, or change places with the next one to get from
// one to the other; limit + 1 when that is more than `limit`. Cost: length times limit.
std::size_t EditDistance(std::string_view a, std::string_view b, std::size_t limit);

// The words that come nearest to one, among those that are offered: in either case, and where none is near,
// those that begin with it.
class NearestWords {
 public:
  // How far a word may be depends on the length: one step in a short one, three in a long one.
  explicit NearestWords(std::string_view wanted);

  // Keeps the first few of those that are equally near.
  void Offer(std::string_view word);
  const std::vector<std::string>& words() const { return words_.empty() ? longer_ : words_; }

 private:
  static constexpr std::size_t kMost = 3;

  std::string wanted_;  // in upper case
  std::size_t limit_;
  std::vector<std::string> words_;
  std::vector<std::string> longer_;
};

// "; did you mean A, B or C?"; empty without words.
std::string DidYouMean(const std::vector<std::string>& words);

}  // namespace quarvel::text
