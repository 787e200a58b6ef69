#include "text/long_lines.h"

#include <algorithm>

namespace quarvel::text {
namespace {

constexpr std::size_t kLongestWhole = 4000;
constexpr std::size_t kParagraph = 500;

bool IsFirstOfTwo(char16_t unit) { return unit >= 0xD800 && unit <= 0xDBFF; }

std::size_t ParagraphLength(std::u16string_view line) {
  if (line.size() <= kParagraph) return line.size();
  const std::size_t blank = line.substr(0, kParagraph).rfind(u' ');
  if (blank != std::u16string_view::npos) return blank + 1;
  return IsFirstOfTwo(line[kParagraph - 1]) ? kParagraph - 1 : kParagraph;
}

}  // namespace

LongLines::LongLines(std::u16string_view text, std::u16string_view line_end) : line_end_(line_end) {
  broken_.reserve(text.size() + text.size() / kParagraph * line_end.size() * 2);
  for (std::size_t end = text.find(line_end); end != std::u16string_view::npos;
       end = text.find(line_end)) {
    Add(text.substr(0, end));
    broken_ += line_end;
    text.remove_prefix(end + line_end.size());
  }
  Add(text);
}

void LongLines::Add(std::u16string_view line) {
  if (line.size() > kLongestWhole) {
    while (line.size() > kParagraph) {
      const std::size_t length = ParagraphLength(line);
      broken_ += line.substr(0, length);
      breaks_.push_back(broken_.size());
      broken_ += line_end_;
      line.remove_prefix(length);
    }
  }
  broken_ += line;
}

std::u16string LongLines::Between(std::size_t begin, std::size_t end) const {
  end = std::min(end, broken_.size());
  std::u16string text;
  // A break that ends behind `begin` is the first to be left out, perhaps in part.
  auto next = std::partition_point(breaks_.begin(), breaks_.end(), [&](std::size_t position) {
    return position + line_end_.size() <= begin;
  });
  while (begin < end) {
    const std::size_t stop = next == breaks_.end() ? end : std::min(*next, end);
    if (begin < stop) text.append(broken_, begin, stop - begin);
    begin = next == breaks_.end() ? end : *next++ + line_end_.size();
  }
  return text;
}

}  // namespace quarvel::text
