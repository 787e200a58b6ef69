#include "mps/line_texts.h"

#include <algorithm>
#include <cstdint>
#include <functional>
#include <string_view>
#include <utility>
#include <vector>

#include "mps/line_reader.h"
#include "platform/automation_error.h"
#include "text/encoding.h"

namespace quarvel::mps {
namespace {

bool IsTrail(char byte) { return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U; }

std::vector<FileProblem*> InOrderOfLines(FileProblems& problems) {
  std::vector<FileProblem*> shown;
  for (FileProblem& problem : problems.kept()) {
    if (problem.line > 0) shown.push_back(&problem);
  }
  std::stable_sort(shown.begin(), shown.end(),
                   [](const FileProblem* a, const FileProblem* b) { return a->line < b->line; });
  return shown;
}

// Where that many characters end, or the end.
std::size_t OffsetOf(std::string_view line, std::int32_t characters) {
  std::size_t offset = 0;
  for (; characters > 0 && offset < line.size(); --characters) {
    ++offset;
    while (offset < line.size() && IsTrail(line[offset])) ++offset;
  }
  return offset;
}

void ShowPlace(const Line& line, FileProblem& problem) {
  if (line.too_long) return;
  const std::string_view whole = line.view();
  ShowPart(whole, problem);
  if (problem.column == 0 || problem.length == 0) return;
  const std::size_t begin = OffsetOf(whole, problem.column - 1);
  const std::size_t end = OffsetOf(whole, problem.column - 1 + problem.length);
  problem.read = ShownOf(whole.substr(begin, end - begin));
}

void ReadLines(LineReader& reader, const std::vector<FileProblem*>& shown) {
  Line line;
  std::int64_t number = 0;
  auto next = shown.begin();
  while (next != shown.end() && reader.Next(line)) {
    ++number;
    for (; next != shown.end() && (*next)->line == number; ++next) ShowPlace(line, **next);
  }
}

}  // namespace

std::string_view ShownOf(std::string_view line) {
  constexpr std::size_t kMost = 400;
  if (line.size() <= kMost) return line;
  std::size_t size = kMost;
  while (size > 0 && IsTrail(line[size])) --size;
  return line.substr(0, size);
}

void ShowPart(std::string_view line, FileProblem& problem) {
  constexpr std::int32_t kBefore = 200;
  problem.text_column = 1;
  if (problem.column > kBefore) {
    problem.text_column = problem.column - kBefore / 2;
    line.remove_prefix(OffsetOf(line, problem.text_column - 1));
  }
  problem.text = ShownOf(line);
}

void ShowPlace(const SourceLine& line, std::string_view part, FileProblem& problem) {
  if (line.too_long()) return;
  if (!line.is_split()) return ShowPart(line.text(), problem);
  const std::string_view whole = line.split_text();
  const std::less_equal<const char*> no_later;
  if (!no_later(whole.data(), part.data()) ||
      !no_later(part.data() + part.size(), whole.data() + whole.size()) || part.empty()) {
    return ShowPart(line.text(), problem);
  }
  const auto begin = static_cast<std::size_t>(part.data() - whole.data());
  problem.column = static_cast<std::int32_t>(text::CharacterCount(whole.substr(0, begin))) + 1;
  problem.length = static_cast<std::int32_t>(text::CharacterCount(part));
  problem.read = ShownOf(part);
  ShowPart(line.text(), problem);
}

void LineTexts::BeginPass() {
  ++passes_;
  number_ = 0;
  reader_.reset();
  std::unique_ptr<platform::ByteSource> bytes = open_();
  if (bytes != nullptr) reader_ = std::make_unique<LineReader>(std::move(bytes));
}

void LineTexts::Show(FileProblem& problem) {
  if (problem.line <= 0) return;
  const bool is_behind = problem.line < number_;
  if (is_behind && passes_ == kMostPasses) return;
  try {
    if (passes_ == 0 || is_behind) BeginPass();
    while (reader_ != nullptr && number_ < problem.line) {
      if (reader_->Next(line_)) {
        ++number_;
      } else {
        reader_.reset();
      }
    }
  } catch (const AutomationError&) {
    reader_.reset();
  }
  if (reader_ != nullptr) ShowPlace(line_, problem);
}

void ShowLines(const OpenBytes& open, FileProblems& problems) {
  const std::vector<FileProblem*> shown = InOrderOfLines(problems);
  if (shown.empty()) return;
  try {
    std::unique_ptr<platform::ByteSource> bytes = open();
    if (bytes == nullptr) return;
    LineReader reader(std::move(bytes));
    ReadLines(reader, shown);
  } catch (const AutomationError&) {
    return;
  }
}

}  // namespace quarvel::mps
