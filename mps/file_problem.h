// What there is to say about a file that is read, as data: each problem with a code that never changes,
// its place, what was read there and what would be accepted.
//
//   E1..  of a line, E2.. of the model as a whole, E9.. of the file itself: errors
//   A3..  what is read in spite of the plain dialect, and as what: adapted
//   W4..  of a line, W5.. of the model: passed over, or legal and risky
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "mps/read_problem.h"
#include "platform/automation_error.h"

namespace quarvel::mps {

enum class ProblemWeight : std::uint8_t { kError, kAdapted, kWarning };

// Those of the reader first, in the order of ReadProblemCode but for kEmptyItems.
enum class FileProblemCode : std::uint8_t {
  kLineTooLong,
  kRowTokens,
  kRowType,
  kRowTwice,
  kTokens,
  kColumnsBeforeRows,
  kRhsBeforeRows,
  kRangesBeforeRows,
  kNotNumeric,
  kNoSuchRow,
  kBoundsBeforeColumns,
  kBoundCode,
  kBoundWithoutValue,
  kNoSuchColumn,
  kNoRows,
  kNoColumns,
  kNoElements,
  kColumnBoundsReversed,
  kRowBoundsReversed,
  kFailure,

  kMissingEndata,
  kEmptyRow,
  kEmptyColumn,
  kPairTwice,
  kRowTypeLost,
  kBeyondLimit,
  kIntegerWithoutUpper,
  kLongNames,
  kRowScale,
  kColumnScale,
  kModelScale,
  kParallelRows,
  kParallelColumns,
  kNotKept,

  // of the wide dialect
  kNotLinear,
  kUnknownSection,
  kBetweenFields,
  kNoSuchObjective,
  kFixedColumns,
  kComment,
  kTab,
  kEndComment,
  kNamelessSet,
  kIntegerBound,
  kObjectiveSense,
  kObjectiveName,
  kObjectiveConstant,
  kRangeBySign,
  kHeaderText,
  kNegativeUpperFrees,
  kInfiniteValue,
  kRangesFirst,
  kMoreRows,
  kSecondSet,
  kTextBehindEnd,
  kNegativeUpper,
  kFurtherFreeRow,
  kSemiContinuous,
  kFreeRowRhs,
  kRangeOfFreeRow,
  kBeforeRows,
  kMarker,
  kBehindFields,
  kSenseUnknown,
  kAtLimit,
  kOtherLetters,
  kGivenAgain,
  kTooSmall,
  kHeaderAgain,
  kSectionOrder,
  kColumnAgain,
  kMarkerWithin,
  kMarkerPair,
  kObjectiveUnnamed,
  kSmallHeader,
  kZeroCoefficient,
  kLimitTooLarge,

  // of lint
  kSetRenamed,
};

struct FileProblemTraits {
  FileProblemCode code;
  std::string_view id;        // "E110"
  std::string_view name;      // "no-such-row"
  std::string_view words;     // what is so, the start of a sentence about the line or the item
  std::string_view expected;  // what would be accepted; empty where that goes without saying

  ProblemWeight weight() const;
};

const FileProblemTraits& TraitsOf(FileProblemCode code);
// All of them, in the order of the codes.
std::span<const FileProblemTraits> FileProblemTable();
// Of that id or name; null when there is none.
const FileProblemTraits* FindFileProblem(std::string_view id_or_name);

FileProblemCode CodeOf(ReadProblemCode code);

struct FileProblem {
  FileProblemCode code;
  std::int64_t line = 0;         // counted from 1; 0 for a problem of no line
  std::int32_t column = 0;       // where in the line, in characters from 1; 0: the whole line
  std::int32_t length = 0;       // of what is meant there, in characters
  std::string text = {};         // the line, as far as it is shown
  std::int32_t text_column = 1;  // where in the line `text` begins
  std::string item = {};         // the name of the row or column that it is about
  std::string read = {};         // what was read there
  std::string made = {};         // what it was read as, or what becomes of it
  std::vector<std::int64_t> lines = {};  // others that have to do with it
  std::optional<AutomationError> failure = {};
};

// In a sentence a name, and what is made of it, has so many characters at most (text/shortened_text.h).
inline constexpr std::size_t kLongestNameShown = 100;
inline constexpr std::size_t kLongestMadeShown = 400;

// The problem as one sentence without its place: "no row of this name: PROTIEN".
std::string SentenceOf(const FileProblem& problem);

// How many there are of each code, and the first few of each: its size has a bound, whatever a file
// holds.
class FileProblems {
 public:
  static constexpr std::size_t kUsuallyKept = 20;

  explicit FileProblems(std::size_t kept_of_each = kUsuallyKept) : kept_of_each_(kept_of_each) {}

  // Keeps `problem` when it is among the first of its code.
  void Add(FileProblem problem);
  bool WillKeep(FileProblemCode code) const { return CountOf(code) < Count(kept_of_each_); }

  // In the order in which they came.
  const std::vector<FileProblem>& kept() const { return kept_; }
  std::vector<FileProblem>& kept() { return kept_; }
  std::int64_t CountOf(FileProblemCode code) const {
    return counts_[static_cast<std::size_t>(code)];
  }
  std::int64_t CountOf(ProblemWeight weight) const;
  bool HasErrors() const { return CountOf(ProblemWeight::kError) != 0; }

 private:
  static constexpr std::size_t kMostCodes = 256;
  static std::int64_t Count(std::size_t size) {
    constexpr auto kMost = static_cast<std::size_t>(INT64_MAX);
    return static_cast<std::int64_t>(size < kMost ? size : kMost);
  }

  std::size_t kept_of_each_;
  std::vector<FileProblem> kept_;
  std::array<std::int64_t, kMostCodes> counts_{};
};

}  // namespace quarvel::mps
