// Splitting a line into upper-case tokens.
#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "mps/line_reader.h"

namespace quarvel {

// Maximal runs of characters other than the space character (code 32), in order; tabs and every
// other character are token text. A line of spaces only gives none. The case is left alone.
std::vector<std::string_view> SplitLine(std::string_view line);

// The tokens of one line as the reader uses them: all counted, the first few kept, in upper case.
// Numbered from 1. They point into the line (or into this object for text beyond ASCII) and are
// valid as long as it is.
class Tokens {
 public:
  // No kind of line needs more than this many.
  static constexpr std::size_t kKept = 6;

  // Upper-cases the line in place when it is ASCII.
  void Split(Line& line);

  std::size_t count() const { return count_; }
  std::string_view operator[](std::size_t number) const { return kept_[number - 1]; }

 private:
  void SplitUpperCase(char* text, std::size_t size);
  void Keep(const char* begin, const char* end) {
    if (count_ < kKept) kept_[count_] = {begin, static_cast<std::size_t>(end - begin)};
    ++count_;
  }

  std::array<std::string_view, kKept> kept_;
  std::size_t count_ = 0;
  std::string upper_case_;
};

}  // namespace quarvel
