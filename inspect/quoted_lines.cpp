#include "inspect/quoted_lines.h"

#include <utility>

#include "mps/line_reader.h"
#include "mps/line_texts.h"
#include "platform/automation_error.h"

namespace quarvel::inspect {

std::map<std::int64_t, std::string> QuotedLines(
    const std::function<std::unique_ptr<platform::ByteSource>()>& open,
    const std::set<std::int64_t>& numbers) {
  std::map<std::int64_t, std::string> quoted;
  auto wanted = numbers.upper_bound(0);
  if (wanted == numbers.end()) return quoted;
  try {
    std::unique_ptr<platform::ByteSource> bytes = open();
    if (bytes == nullptr) return quoted;
    mps::LineReader lines(std::move(bytes));
    mps::Line line;
    for (std::int64_t number = 1; wanted != numbers.end() && lines.Next(line); ++number) {
      if (number != *wanted) continue;
      if (!line.too_long) quoted[number] = mps::ShownOf(line.view());
      ++wanted;
    }
  } catch (const AutomationError&) {
    return quoted;
  }
  return quoted;
}

}  // namespace quarvel::inspect
