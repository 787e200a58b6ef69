#include "platform/console/console_text.h"

#include <algorithm>

#include "text/visible_text.h"

namespace quarvel::platform::console {
namespace {

char AsciiLower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

}  // namespace

std::string AsLines(std::string_view text) {
  std::string lines = text::VisibleText(text, text::LineEnds::kKept);
  if (!lines.ends_with('\n')) lines += '\n';
  return lines;
}

std::string BoxLines(const Box& box) { return AsLines(WithNameOnOneLine(box.text(), box.item)); }

std::string WithNameOnOneLine(std::string_view words, std::string_view name) {
  std::string line(words);
  if (name.find_first_of("\r\n") == std::string_view::npos) return line;
  const std::string shown = text::VisibleText(name);
  for (std::size_t at = line.find(name); at != std::string::npos;
       at = line.find(name, at + shown.size())) {
    line.replace(at, name.size(), shown);
  }
  return line;
}

std::string PlainCaption(std::string_view caption) {
  std::string plain;
  for (std::size_t i = 0; i < caption.size(); ++i) {
    if (caption[i] == '&' && ++i == caption.size()) break;
    plain += caption[i];
  }
  return plain;
}

std::string_view Trimmed(std::string_view text) {
  constexpr std::string_view kBlanks = " \t\r\n";
  const std::size_t first = text.find_first_not_of(kBlanks);
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

bool SameWord(std::string_view a, std::string_view b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                    [](char x, char y) { return AsciiLower(x) == AsciiLower(y); });
}

}  // namespace quarvel::platform::console
