// What MPS readers in use make different models of: one table of such things with what each reader does,
// and a read that finds them in a file. docs/dialects.md tells how what the others do was found out.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "model/model_store.h"
#include "mps/read_file.h"

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

struct DialectFinding {
  DialectPoint point;
  std::int64_t count = 0;
  std::vector<std::int64_t> lines = {};  // the first of them, ascending
};

struct DialectFindings {
  mps::FileRead read;
  std::vector<DialectFinding> found;  // in the order of the table, each with at least one line
};

// Reads the file into the store and finds what readers disagree about; nothing when the file cannot be
// read. Keeps the first `kept` lines of each point. The callbacks of `options` are called too, but for
// on_line.
//
// Cost: a read, a look at each line, and 16 bytes for each column and 4 for each row.
DialectFindings FindDialects(const std::string& path, const mps::ReadOptions& options,
                             model::ModelStore& store, std::size_t kept = 5);

}  // namespace quarvel::inspect
