#include "mps/read_problem.h"

#include <array>
#include <cstddef>
#include <string_view>

#include "mps/line_reader.h"
#include "text/numbers.h"

namespace quarvel::mps {
namespace {

// What follows the words. Hosts have come to know each of them.
enum class Tail { kNothing, kLine, kLineInBrackets, kBareLineInBrackets, kItem, kFailure };

struct ProblemWords {
  ReadProblemCode code;
  std::string_view words;
  Tail tail;
};

static_assert(LineReader::kLongestLine == 1048576, "the words say so");

using enum ReadProblemCode;
constexpr std::array<ProblemWords, 21> kProblems = {{
    {kLineTooLong, "MPS file read error: a line is longer than 1048576 bytes",
     Tail::kLineInBrackets},
    {kRowTokens, "MPS file read error: insufficent tokens in line ", Tail::kLine},
    {kRowType, "MPS file read error: improper row type", Tail::kLineInBrackets},
    {kRowTwice, "MPS file read error: row name appears for a second time",
     Tail::kBareLineInBrackets},
    {kTokens, "MPS file read error: improper number of tokens", Tail::kLineInBrackets},
    {kColumnsBeforeRows, "MPS file read error: no rows yet, but reading columns",
     Tail::kLineInBrackets},
    {kRhsBeforeRows, "MPS file read error: no rows yet, but reading RHSs", Tail::kLineInBrackets},
    {kRangesBeforeRows, "MPS file read error: no rows yet, but reading ranges",
     Tail::kLineInBrackets},
    {kNotNumeric, "MPS file read error: needs numeric value", Tail::kLineInBrackets},
    {kNoSuchRow, "MPS file read error: no match for row name", Tail::kLineInBrackets},
    {kBoundsBeforeColumns, "MPS file read error: no variables yet, but reading bounds",
     Tail::kLineInBrackets},
    {kBoundCode, "MPS file read error: improper bounds code", Tail::kLineInBrackets},
    {kBoundWithoutValue, "MPS file error: too few tokens", Tail::kLineInBrackets},
    {kNoSuchColumn, "MPS file read error: no match for variable name", Tail::kLineInBrackets},
    {kNoRows, "Quarvel.dll error: no rows", Tail::kNothing},
    {kNoColumns, "Quarvel.dll error: no columns", Tail::kNothing},
    {kNoElements, "Quarvel.dll error: no elements", Tail::kNothing},
    {kColumnBoundsReversed, "Quarvel.dll error: bounds reversed on variable ", Tail::kItem},
    {kRowBoundsReversed, "Quarvel.dll error: bounds reversed on row ", Tail::kItem},
    {kEmptyItems, "Quarvel.dll error: rows or columns with no elements, as noted in warnings.",
     Tail::kNothing},
    {kFailure, "", Tail::kFailure},
}};

// A code is the place of its line.
constexpr bool IsInOrder() {
  for (std::size_t i = 0; i < kProblems.size(); ++i) {
    if (static_cast<std::size_t>(kProblems[i].code) != i) return false;
  }
  return true;
}
static_assert(IsInOrder());

std::string TailOf(const ReadProblem& problem, Tail tail) {
  const std::string line = text::IntegerText(problem.line);
  switch (tail) {
    case Tail::kNothing:
      return {};
    case Tail::kLine:
      return line;
    case Tail::kLineInBrackets:
      return " (line " + line + ")";
    case Tail::kBareLineInBrackets:
      return " (" + line + ")";
    case Tail::kItem:
      return problem.item;
    case Tail::kFailure:
      return problem.failure ? problem.failure->description() : std::string();
  }
  return {};
}

}  // namespace

std::string TextOf(const ReadProblem& problem) {
  const ProblemWords& known = kProblems[static_cast<std::size_t>(problem.code)];
  return std::string(known.words) + TailOf(problem, known.tail);
}

}  // namespace quarvel::mps
