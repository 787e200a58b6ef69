// What MPS readers in use make different models of: one table of such things with what each reader does.
// docs/dialects.md tells how what the others do was found out.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

namespace quarvel::inspect {

enum class DialectPoint : std::uint8_t {
  kObjectiveSense,
  kSecondFreeRow,
  kIntegerWithoutBounds,
  kIntegerWithLowerOnly,
  kPairTwice,
  kObjectiveConstant,
  kSetWithoutName,
  kSecondRhsSet,
  kSecondRangesSet,
  kSecondBoundsSet,
  kRangeOfFreeRow,
  kNegativeUpper,
  kSemiContinuous,
  kLargeNumber,
  kMissingEndata,
  kGivenAgain,
  kRangeAgain,
  kHeaderAgain,
  kSectionOrder,
  kColumnAgain,
  kSmallHeader,
  kOtherLetters,
  kMissingName,
  kMissingRhs,
  kSemiInteger,
  kInfiniteBound,
  kInfiniteRange,
  kDExponent,
  kSmallCode,
  kSmallMarker,
  kFirstColumn,
  kTab,
  kEmptyLine,
  kByteOrderMark,
  kCrLineEnd,
  kBlankComment,
  kEndComment,
  kMoreRows,
  kObjectiveName,
  kNameWithBlanks,
  kLikeFixedColumns,
  kFractionalBound,
};

// A reader that is in use, and what it makes of something.
struct ReaderReading {
  std::string_view reader;
  std::string_view reading;
};
inline constexpr std::size_t kReaders = 4;

struct DialectTraits {
  DialectPoint point;
  std::string_view id;     // never changes
  std::string_view words;  // what stands in the file
  std::array<ReaderReading, kReaders> readings;
};

// In the order of the points.
std::span<const DialectTraits> DialectTable();
const DialectTraits& TraitsOf(DialectPoint point);

}  // namespace quarvel::inspect
