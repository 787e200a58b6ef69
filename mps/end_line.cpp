#include "mps/end_line.h"

#include <algorithm>

#include "text/upper_case.h"

namespace quarvel::mps {
namespace {

// A line whose first word is ENDATA, in any case.
bool EndsModel(std::string_view line) {
  constexpr std::string_view kEnd = "ENDATA";
  line.remove_prefix(std::min(line.find_first_not_of(' '), line.size()));
  if (line.size() < kEnd.size()) return false;
  for (std::size_t i = 0; i < kEnd.size(); ++i) {
    if (text::UpperCaseAscii(line[i]) != kEnd[i]) return false;
  }
  return line.size() == kEnd.size() || line[kEnd.size()] == ' ';
}

}  // namespace

bool HasEndLine(std::string_view lines) {
  while (!lines.empty()) {
    const std::size_t end = lines.find_first_of("\r\n");
    if (EndsModel(lines.substr(0, end))) return true;
    lines.remove_prefix(end == lines.npos ? lines.size() : end + 1);
  }
  return false;
}

}  // namespace quarvel::mps
