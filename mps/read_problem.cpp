#include "mps/read_problem.h"

#include <array>
#include <cstddef>

#include "mps/line_reader.h"
#include "text/numbers.h"

namespace quarvel::mps {
namespace {

// What follows the words. Hosts have come to know each of them.
enum class Tail { kNothing, kLine, kLineInBrackets, kBareLineInBrackets, kItem, kFailure };

struct ProblemWords {
  ReadProblemCode code;
  std::string_view name;
  std::string_view words;
  Tail tail;
};

static_assert(LineReader::kLongestLine == 1048576, "the words say so");

using enum ReadProblemCode;
constexpr std::array<ProblemWords, 21> kProblems = {{
    {kLineTooLong, "line-too-long", "MPS file read error: a line is longer than 1048576 bytes",
     Tail::kLineInBrackets},
    {kRowTokens, "row-tokens", "MPS file read error: insufficent tokens in line ", Tail::kLine},
    {kRowType, "row-type", "MPS file read error: improper row type", Tail::kLineInBrackets},
    {kRowTwice, "row-twice", "MPS file read error: row name appears for a second time",
     Tail::kBareLineInBrackets},
    {kTokens, "tokens", "MPS file read error: improper number of tokens", Tail::kLineInBrackets},
    {kColumnsBeforeRows, "columns-before-rows",
     "MPS file read error: no rows yet, but reading columns", Tail::kLineInBrackets},
    {kRhsBeforeRows, "rhs-before-rows", "MPS file read error: no rows yet, but reading RHSs",
     Tail::kLineInBrackets},
    {kRangesBeforeRows, "ranges-before-rows",
     "MPS file read error: no rows yet, but reading ranges", Tail::kLineInBrackets},
    {kNotNumeric, "not-numeric", "MPS file read error: needs numeric value", Tail::kLineInBrackets},
    {kNoSuchRow, "no-such-row", "MPS file read error: no match for row name",
     Tail::kLineInBrackets},
    {kBoundsBeforeColumns, "bounds-before-columns",
     "MPS file read error: no variables yet, but reading bounds", Tail::kLineInBrackets},
    {kBoundCode, "bound-code", "MPS file read error: improper bounds code", Tail::kLineInBrackets},
    {kBoundWithoutValue, "bound-without-value", "MPS file error: too few tokens",
     Tail::kLineInBrackets},
    {kNoSuchColumn, "no-such-column", "MPS file read error: no match for variable name",
     Tail::kLineInBrackets},
    {kNoRows, "no-rows", "Quarvel.dll error: no rows", Tail::kNothing},
    {kNoColumns, "no-columns", "Quarvel.dll error: no columns", Tail::kNothing},
    {kNoElements, "no-elements", "Quarvel.dll error: no elements", Tail::kNothing},
    {kColumnBoundsReversed, "column-bounds-reversed",
     "Quarvel.dll error: bounds reversed on variable ", Tail::kItem},
    {kRowBoundsReversed, "row-bounds-reversed", "Quarvel.dll error: bounds reversed on row ",
     Tail::kItem},
    {kEmptyItems, "empty-items",
     "Quarvel.dll error: rows or columns with no elements, as noted in warnings.", Tail::kNothing},
    {kFailure, "failure", "", Tail::kFailure},
}};

// A code is the place of its line.
constexpr bool IsInOrder() {
  for (std::size_t i = 0; i < kProblems.size(); ++i) {
    if (static_cast<std::size_t>(kProblems[i].code) != i) return false;
  }
  return true;
}
static_assert(IsInOrder());

const ProblemWords& WordsOf(ReadProblemCode code) {
  return kProblems[static_cast<std::size_t>(code)];
}

std::string TailOf(const ReadProblem& problem, Tail tail) {
  std::string line = text::IntegerText(problem.line);
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

std::string_view NameOf(ReadProblemCode code) { return WordsOf(code).name; }

std::string TextOf(const ReadProblem& problem) {
  const ProblemWords& known = WordsOf(problem.code);
  return std::string(known.words) + TailOf(problem, known.tail);
}

}  // namespace quarvel::mps
