#include "mps/given_values.h"

#include <algorithm>

namespace quarvel::mps {

void GivenValues::TellBounds(const SourceLine& line, std::string_view word, const BoundLines& last,
                             BoundsGiven given) const {
  std::vector<std::int64_t> lines;
  if (given.lower && last.lower != 0) lines.push_back(last.lower);
  if (given.upper && last.upper != 0) lines.push_back(last.upper);
  std::sort(lines.begin(), lines.end());
  lines.erase(std::unique(lines.begin(), lines.end()), lines.end());
  Tell(line, word, std::move(lines));
}

void GivenValues::Tell(const SourceLine& line, std::string_view word,
                       std::vector<std::int64_t> lines) const {
  FileProblem problem =
      ProblemOf(FileProblemCode::kGivenAgain, line, word, std::string(word), "the last one counts");
  problem.lines = std::move(lines);
  hear_(std::move(problem));
}

// A zero has no other digit before its exponent.
bool GivenValues::CheckZero(const SourceLine& line, std::string_view word) const {
  const std::string_view digits = word.substr(0, word.find_first_of("EDed"));
  if (digits.find_first_of("123456789") == std::string_view::npos) return false;
  TellOf(hear_, FileProblemCode::kTooSmall, line, word, {}, "taken as 0");
  return true;
}

}  // namespace quarvel::mps
