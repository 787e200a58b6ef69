#include "mps/header_order.h"

#include <algorithm>
#include <string>
#include <utility>

namespace quarvel::mps {

void HeaderOrder::Use(const SourceLine& line, std::string_view word, WideHeader header) {
  const Place place = PlaceOf(word, header);
  if (place == kNone) return;
  const std::int64_t last = std::exchange(lines_[place], line.number());
  const std::int64_t later = LineOfLater(place);
  if (last == 0 && later == 0) return;
  FileProblem problem =
      ProblemOf(last != 0 ? FileProblemCode::kHeaderAgain : FileProblemCode::kSectionOrder, line,
                word, std::string(word), MadeOf(place));
  problem.lines = {last != 0 ? last : later};
  hear_(std::move(problem));
}

// A header without a word of its kind changes nothing of what the others said.
const char* HeaderOrder::MadeOf(Place place) {
  if (place < kName) return "its lines are read as ever";
  return place == kSense ? "the last sense counts" : "the last name counts";
}

HeaderOrder::Place HeaderOrder::PlaceOf(std::string_view word, WideHeader header) {
  static constexpr std::array<std::string_view, kName> kSections = {"ROWS", "COLUMNS", "RHS",
                                                                    "RANGES", "BOUNDS"};
  switch (header) {
    case WideHeader::kName:
      return kName;
    case WideHeader::kSense:
    case WideHeader::kMaximize:
    case WideHeader::kMinimize:
      return kSense;
    case WideHeader::kObjectiveName:
      return kObjective;
    case WideHeader::kPlain: {
      const auto* const found = std::find(kSections.begin(), kSections.end(), word);
      return found == kSections.end() ? kNone : static_cast<Place>(found - kSections.begin());
    }
    default:
      return kNone;
  }
}

std::int64_t HeaderOrder::LineOfLater(Place place) const {
  std::int64_t line = 0;
  for (std::size_t later = place + 1; later < kName; ++later) {
    if (lines_[later] != 0 && (line == 0 || lines_[later] < line)) line = lines_[later];
  }
  return line;
}

}  // namespace quarvel::mps
