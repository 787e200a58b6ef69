#include "mps/file_problem.h"

#include <algorithm>
#include <utility>

#include "text/shortened_text.h"

namespace quarvel::mps {
namespace {

using enum FileProblemCode;

constexpr FileProblemTraits kTable[] = {
    {kLineTooLong, "E101", "line-too-long", "a line too long to be read", "at most 1048576 bytes"},
    {kRowTokens, "E102", "row-tokens", "a line of ROWS that is not two words", "type name"},
    {kRowType, "E103", "row-type", "no type of a row", "E, G, L or N"},
    {kRowTwice, "E104", "row-twice", "a row of this name stands above",
     "a name that no row has yet"},
    {kTokens, "E105", "tokens", "a wrong number of words",
     "name, row and value, or two pairs; in BOUNDS code, set, column and value"},
    {kColumnsBeforeRows, "E106", "columns-before-rows", "COLUMNS before any row",
     "the section ROWS above"},
    {kRhsBeforeRows, "E107", "rhs-before-rows", "RHS before any row", "the section ROWS above"},
    {kRangesBeforeRows, "E108", "ranges-before-rows", "RANGES before any row",
     "the section ROWS above"},
    {kNotNumeric, "E109", "not-numeric", "not a number", "a number such as 12, -0.5 or 1e-6"},
    {kNoSuchRow, "E110", "no-such-row", "no row of this name", "a name of the section ROWS"},
    {kBoundsBeforeColumns, "E111", "bounds-before-columns", "BOUNDS before any column",
     "the section COLUMNS above"},
    {kBoundCode, "E112", "bound-code", "no code of a bound",
     "LO, UP, FX, FR, MI or PL; in the wide dialect also BV, LI, UI, SC or SI"},
    {kBoundWithoutValue, "E113", "bound-without-value", "a bound without its value",
     "code, set, column and value"},
    {kNoSuchColumn, "E114", "no-such-column", "no column of this name",
     "a name of the section COLUMNS"},
    {kNoRows, "E201", "no-rows", "the model has no rows", "a section ROWS with a line"},
    {kNoColumns, "E202", "no-columns", "the model has no columns", "a section COLUMNS with a line"},
    {kNoElements, "E203", "no-elements", "the model has no coefficients",
     "a coefficient other than 0"},
    {kColumnBoundsReversed, "E204", "column-bounds-reversed",
     "the lower bound of the column is above the upper", "lower <= upper"},
    {kRowBoundsReversed, "E205", "row-bounds-reversed",
     "the lower limit of the row is above the upper", "lower <= upper"},
    {kFailure, "E901", "failure", "the file cannot be read", ""},
    {kMissingEndata, "W401", "missing-endata", "no ENDATA line: the file may be cut off", "ENDATA"},
    {kEmptyRow, "W501", "empty-row", "the row has no coefficients", ""},
    {kEmptyColumn, "W502", "empty-column", "the column has no coefficients", ""},
    {kPairTwice, "W503", "pair-twice", "the column has two coefficients in one row", ""},
    {kRowTypeLost, "W504", "row-type-lost", "the row's limit counts as none", "less than 1E+10"},
    {kBeyondLimit, "W505", "beyond-limit", "a bound or limit of 1E+10 or more in size",
     "-1E+10 to 1E+10, these for none"},
    {kIntegerWithoutUpper, "W507", "integer-without-upper", "the integer column has no upper bound",
     "a line of BOUNDS that says it"},
    {kLongNames, "W508", "long-names", "names of more than 8 characters", ""},
    {kRowScale, "W510", "row-scale", "sizes in the row are over 1E+9 apart", ""},
    {kColumnScale, "W511", "column-scale", "sizes in the column are over 1E+9 apart", ""},
    {kModelScale, "W512", "model-scale", "sizes in the model are over 1E+9 apart", ""},
    {kParallelRows, "W513", "parallel-rows", "the row is a multiple of another", ""},
    {kParallelColumns, "W514", "parallel-columns", "the column is a multiple of another", ""},
    {kNotKept, "W515", "not-kept", "the fixed layout does not keep this", ""},

    {kNotLinear, "E120", "not-linear", "what no linear model holds", "sections of a linear model"},
    {kUnknownSection, "E121", "unknown-section", "a section that is not known",
     "NAME, ROWS, COLUMNS, RHS, RANGES, BOUNDS, ENDATA, OBJSENSE or OBJNAME"},
    {kBetweenFields, "E122", "between-fields", "text between the fields of fixed columns",
     "text in columns 2-3, 5-12, 15-22, 25-36, 40-47 and 50-61"},
    {kNoSuchObjective, "E123", "no-such-objective", "no N row of this name",
     "the name of a row of type N"},
    {kFixedColumns, "A301", "fixed-columns", "a line that makes sense by fixed columns only", ""},
    {kComment, "A302", "comment", "a comment", ""},
    {kTab, "A303", "tab", "tabs between words", ""},
    {kEndComment, "A304", "end-comment", "a comment at the end of a line", ""},
    {kNamelessSet, "A305", "nameless-set", "a line without the name of its set", ""},
    {kIntegerBound, "A306", "integer-bound", "a bound that makes a column integer", ""},
    {kObjectiveSense, "A307", "objective-sense", "the sense of the objective", ""},
    {kObjectiveName, "A308", "objective-name", "the name of the objective", ""},
    {kObjectiveConstant, "A309", "objective-constant", "a right-hand side of the objective", ""},
    {kRangeBySign, "A310", "range-by-sign", "a negative range of an E row", ""},
    {kHeaderText, "A311", "header-text", "text behind a header", ""},
    {kNegativeUpperFrees, "A312", "negative-upper-frees",
     "a negative upper bound where the lower is 0", ""},
    {kInfiniteValue, "A313", "infinite-value", "an infinite bound", ""},
    {kRangesFirst, "A314", "ranges-first", "ranges before the right-hand sides", ""},
    {kMoreRows, "A315", "more-rows", "a section of rows of a special kind", ""},
    {kSecondSet, "W402", "second-set", "a second set", "one set in a file"},
    {kTextBehindEnd, "W403", "text-behind-end", "text behind ENDATA", ""},
    {kNegativeUpper, "W404", "negative-upper", "a negative upper bound where the lower is 0",
     "a lower bound of its own, before this line"},
    {kFurtherFreeRow, "W405", "further-free-row", "an N row that is not the objective", ""},
    {kSemiContinuous, "W406", "semi-continuous", "a semi-continuous column", ""},
    {kFreeRowRhs, "W407", "free-row-rhs", "a right-hand side of an N row that is not the objective",
     ""},
    {kRangeOfFreeRow, "W408", "range-of-free-row", "a range of an N row", ""},
    {kBeforeRows, "W409", "before-rows", "a line before ROWS is passed over",
     "comments, NAME, OBJSENSE or OBJNAME"},
    {kMarker, "W410", "marker", "a marker that is not known", "'INTORG' or 'INTEND'"},
    {kBehindFields, "W411", "behind-fields", "text behind the fields of fixed columns",
     "nothing behind column 61"},
    {kSenseUnknown, "W412", "sense-unknown", "no sense of an objective", "MAX or MIN"},
    {kAtLimit, "W413", "at-limit", "a bound of 1E+10 counts as none", "less than 1E+10"},
    {kOtherLetters, "W414", "other-letters",
     "a name that stands above in other letters, small or capital",
     "one spelling; or names that differ in capitals too"},
    {kGivenAgain, "W415", "given-again", "a value that a line above has given", "each value once"},
    {kTooSmall, "W416", "too-small", "a number too small for a double",
     "0, or 2.5E-324 or more in size"},
    {kHeaderAgain, "W417", "header-again", "a header that stands above already",
     "each header once"},
    {kSectionOrder, "W418", "section-order", "a section behind one that should follow it",
     "ROWS, COLUMNS, RHS, RANGES, BOUNDS"},
    {kColumnAgain, "W419", "column-again", "a column taken up again behind another",
     "all lines of a column together"},
    {kMarkerWithin, "W420", "marker-within", "a marker between lines of one column",
     "markers between columns"},
    {kMarkerPair, "W421", "marker-pair", "a marker without its counterpart",
     "'INTORG' and 'INTEND' in turns"},
    {kObjectiveUnnamed, "W422", "objective-unnamed", "no name of an objective",
     "the name of a row of type N"},
    {kSmallHeader, "A317", "small-header", "a header in small letters", ""},
    {kZeroCoefficient, "W423", "zero-coefficient", "a coefficient of 0",
     "a number other than 0, or no pair"},
    {kLimitTooLarge, "A318", "limit-too-large", "a limit that is too large for a number", ""},

    {kSetRenamed, "A316", "set-renamed", "a name that the fixed layout does not keep", ""},
};

// A code is the place of its line.
constexpr bool IsInOrder() {
  for (std::size_t i = 0; i < std::size(kTable); ++i) {
    if (static_cast<std::size_t>(kTable[i].code) != i) return false;
  }
  return true;
}
static_assert(IsInOrder());

constexpr auto kEmptyItems = static_cast<std::size_t>(ReadProblemCode::kEmptyItems);
static_assert(static_cast<std::size_t>(ReadProblemCode::kRowBoundsReversed) ==
              static_cast<std::size_t>(kRowBoundsReversed));
static_assert(static_cast<std::size_t>(ReadProblemCode::kFailure) == kEmptyItems + 1 &&
              static_cast<std::size_t>(kFailure) == kEmptyItems);

}  // namespace

ProblemWeight FileProblemTraits::weight() const {
  if (id.starts_with('E')) return ProblemWeight::kError;
  return id.starts_with('A') ? ProblemWeight::kAdapted : ProblemWeight::kWarning;
}

const FileProblemTraits& TraitsOf(FileProblemCode code) {
  return kTable[static_cast<std::size_t>(code)];
}

std::span<const FileProblemTraits> FileProblemTable() { return kTable; }

const FileProblemTraits* FindFileProblem(std::string_view id_or_name) {
  const auto* const found =
      std::find_if(std::begin(kTable), std::end(kTable), [&](const FileProblemTraits& traits) {
        return traits.id == id_or_name || traits.name == id_or_name;
      });
  return found == std::end(kTable) ? nullptr : found;
}

// Empty records are problems of their own here.
FileProblemCode CodeOf(ReadProblemCode code) {
  if (code == ReadProblemCode::kEmptyItems) return kEmptyRow;
  if (code == ReadProblemCode::kFailure) return FileProblemCode::kFailure;
  return static_cast<FileProblemCode>(code);
}

std::string SentenceOf(const FileProblem& problem) {
  std::string sentence(TraitsOf(problem.code).words);
  const std::string& named = problem.item.empty() ? problem.read : problem.item;
  // The item of a failure is the file, which stands before each of its problems.
  if (!named.empty() && problem.code != FileProblemCode::kFailure) {
    sentence.append(": ").append(text::Shortened(named, kLongestNameShown));
  }
  if (problem.failure) sentence.append(": ").append(problem.failure->description());
  if (!problem.made.empty())
    sentence.append("; ").append(text::Shortened(problem.made, kLongestMadeShown));
  return sentence;
}

void FileProblems::Add(FileProblem problem) {
  const bool keeps = WillKeep(problem.code);
  ++counts_[static_cast<std::size_t>(problem.code)];
  if (keeps) kept_.push_back(std::move(problem));
}

std::int64_t FileProblems::CountOf(ProblemWeight weight) const {
  std::int64_t count = 0;
  for (const FileProblemTraits& traits : kTable) {
    if (traits.weight() == weight) count += CountOf(traits.code);
  }
  return count;
}

}  // namespace quarvel::mps
