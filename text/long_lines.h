// Lines of any length for boxes of toolkits that lay out a paragraph as a whole: the time for one
// of a million terms is seconds or, where it grows with the square of the length, hours.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace quarvel::text {

// A text (UTF-16) whose long lines are broken into paragraphs, and the way back for what is copied
// out of it. Lines of up to 4,000 units stay whole; longer ones are broken behind blanks, about
// every 500 units, never inside a character.
class LongLines {
 public:
  // `line_end` is what ends a line in `text`, and what the breaks are made of.
  LongLines(std::u16string_view text, std::u16string_view line_end);

  const std::u16string& broken() const { return broken_; }
  // The units from `begin` to `end` (excluded) of broken(), without the breaks. Positions behind
  // the end are taken for the end.
  std::u16string Between(std::size_t begin, std::size_t end) const;

 private:
  void Add(std::u16string_view line);

  std::u16string line_end_;
  std::u16string broken_;
  std::vector<std::size_t> breaks_;  // where in broken_ each begins, ascending
};

}  // namespace quarvel::text
