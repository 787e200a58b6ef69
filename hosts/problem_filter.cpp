#include "hosts/problem_filter.h"

#include <string>
#include <string_view>
#include <vector>

#include "hosts/streams.h"
#include "text/edit_distance.h"
#include "text/upper_case.h"

namespace quarvel::hosts {
namespace {

using Codes = std::bitset<256>;

Codes CodesOf(std::string_view option, const std::string& word) {
  const std::string id = text::UpperCase(word);
  Codes codes;
  for (const mps::FileProblemTraits& traits : mps::FileProblemTable()) {
    if (traits.id.starts_with(id) || traits.name == word) {
      codes.set(static_cast<std::size_t>(traits.code));
    }
  }
  if (codes.any()) return codes;
  text::NearestWords nearest(word);
  for (const mps::FileProblemTraits& traits : mps::FileProblemTable()) nearest.Offer(traits.name);
  const std::string likely = text::DidYouMean(nearest.words());
  throw CommandError(kUsage, std::string(option) + ": there is no problem " + word +
                                 (likely.empty() ? "; docs/problems.md lists them" : likely));
}

Codes CodesOf(std::string_view option, const std::vector<std::string>& words) {
  Codes codes;
  for (const std::string& word : words) codes |= CodesOf(option, word);
  return codes;
}

}  // namespace

ProblemFilter::ProblemFilter(const Arguments& arguments) {
  taken_.set();
  if (!arguments.only.empty()) taken_ = CodesOf("--only", arguments.only);
  taken_ &= ~CodesOf("--ignore", arguments.ignore);
}

}  // namespace quarvel::hosts
