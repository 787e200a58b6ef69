// The order of a file's headers: one that stands there again (W417), and a section behind one that should
// follow it (W418).
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "mps/wide_headers.h"
#include "mps/wide_report.h"

namespace quarvel::mps {

class HeaderOrder {
 public:
  // `hear` must outlive this.
  explicit HeaderOrder(const HearProblem& hear) : hear_(hear) {}

  // The line is a header of that kind, with that word.
  void Use(const SourceLine& line, std::string_view word, WideHeader header);

 private:
  // In their order, then those that have none.
  enum Place : std::size_t {
    kRows,
    kColumns,
    kRhs,
    kRanges,
    kBounds,
    kName,
    kSense,
    kObjective,
    kNone
  };

  // What becomes of a header that stands there again.
  static const char* MadeOf(Place place);
  static Place PlaceOf(std::string_view word, WideHeader header);
  // The line of the first section that should stand behind that one and does not; 0 for none.
  std::int64_t LineOfLater(Place place) const;

  const HearProblem& hear_;
  std::array<std::int64_t, kNone> lines_{};  // of the last such header
};

}  // namespace quarvel::mps
