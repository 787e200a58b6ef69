// Points in the files of solvers: the values of columns, by name or by number, as the solver wrote them.
//
// What kind of file it is shows in its first lines, never in its name:
//
//   a NAME VALUE or NAME=VALUE on each line    passed over: empty lines, "#" comments, "=obj=" lines
//   glpsol -o, --output                        a report, 6 digits of each value
//   glpsol -w, --write                         no names: columns by number
//   lp_solve, from -S2 on                      6 digits; the last of several solutions counts
//   cbc, solution FILE                         8 digits; with rows too (printingOptions all), the
//                                              columns are the last block
//   HiGHS, styles raw and sparse raw           primal values of the columns
//   HiGHS, style pretty                        a report, 6 digits
//
// HiGHS writes glpsol's two kinds too. What these files say of rows, duals and bases is passed over.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "platform/byte_source.h"

namespace quarvel::inspect {

enum class SolutionKind : std::uint8_t {
  kPairs,
  kGlpsolReport,
  kGlpsolRaw,
  kLpSolve,
  kCbc,
  kHighs,
  kHighsReport,
};

struct SolutionKindTraits {
  SolutionKind kind;
  std::string_view id;     // in JSON
  std::string_view words;  // "a report of glpsol"
  int digits;              // that each value is rounded to; 0: as many as it takes
};

// clang-format off
inline constexpr std::array<SolutionKindTraits, 7> kSolutionKinds = {{
    {SolutionKind::kPairs,        "pairs",         "names and values",             0},
    {SolutionKind::kGlpsolReport, "glpsol-report", "a report of glpsol",           6},
    {SolutionKind::kGlpsolRaw,    "glpsol-raw",    "a solution written by glpsol", 0},
    {SolutionKind::kLpSolve,      "lp_solve",      "the output of lp_solve",       6},
    {SolutionKind::kCbc,          "cbc",           "a solution written by cbc",    8},
    {SolutionKind::kHighs,        "highs",         "a solution written by HiGHS",  0},
    {SolutionKind::kHighsReport,  "highs-report",  "a report of HiGHS",            6},
}};
// clang-format on

constexpr const SolutionKindTraits& TraitsOf(SolutionKind kind) {
  return kSolutionKinds[static_cast<std::size_t>(kind)];
}

// One value of the file. The name is that of the column, as it stands there; where the file has no
// names it is empty, and `number` is the column's, from 1.
struct SolutionValue {
  std::int64_t line = 0;
  std::string_view name = {};
  std::int64_t number = 0;
  double value = 0;
};

// Takes the values. May raise what it likes, which ends the reading.
class SolutionUser {
 public:
  virtual ~SolutionUser() = default;
  // The values of a solution follow; what was taken of another one before is void.
  virtual void Begin(SolutionKind kind) = 0;
  virtual void Take(const SolutionValue& value) = 0;
};

struct SolutionFile {
  struct Complaint {
    std::int64_t line = 0;  // 0 for the file as a whole
    std::string text;
  };

  SolutionKind kind = SolutionKind::kPairs;
  std::int64_t columns = -1;  // how many there are, where the file says it; else -1
  std::optional<Complaint>
      complaint;  // where the file is not what it seems; nothing is read behind it
};

// Reads the bytes once, from their start to their end. Raises what reading raises.
SolutionFile ReadSolutionFile(std::unique_ptr<platform::ByteSource> bytes, SolutionUser& user);

}  // namespace quarvel::inspect
