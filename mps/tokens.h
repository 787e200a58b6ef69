// Splitting a line into upper-case tokens.
#pragma once

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "mps/line_reader.h"

namespace quarvel::mps {

// Maximal runs of characters other than the space character (code 32), in order; tabs and every
// other character are token text. A line of spaces only gives none. The case is left alone.
std::vector<std::string_view> SplitLine(std::string_view line);

// The tokens of one line as the reader uses them: all counted, the first few kept, in upper case.
// Numbered from 1. They point into the line and are valid as long as it is.
class TokenList {
 public:
  // No kind of line needs more than this many.
  static constexpr std::size_t kKept = 6;

  std::size_t count() const { return count_; }
  std::string_view operator[](std::size_t number) const { return kept_[number - 1]; }

  // The tokens of a text of up to 63 bytes; the bits of `inside` are those that are not spaces. A
  // token begins or ends wherever the kind of the byte changes.
  void Split(const char* text, std::uint64_t inside) {
    const std::uint64_t edges = inside ^ (inside << 1);
    if (!SplitInThree(text, edges)) SplitAtEdges(text, edges);
  }

  void Clear() { count_ = 0; }
  void Keep(const char* begin, const char* end) {
    if (count_ < kKept) kept_[count_] = {begin, static_cast<std::size_t>(end - begin)};
    ++count_;
  }

 private:
  static std::uint64_t WithoutFirst(std::uint64_t bits) { return bits & (bits - 1); }
  // Of bits that there are.
  static std::size_t FirstOf(std::uint64_t bits) {
    return static_cast<std::size_t>(__builtin_ctzll(bits));
  }

  // Most lines have three tokens: these without a loop. False when there are more or fewer.
  bool SplitInThree(const char* text, std::uint64_t edges) {
    const std::uint64_t end1 = WithoutFirst(edges);
    const std::uint64_t begin2 = WithoutFirst(end1);
    const std::uint64_t end2 = WithoutFirst(begin2);
    const std::uint64_t begin3 = WithoutFirst(end2);
    const std::uint64_t end3 = WithoutFirst(begin3);
    if (end3 == 0 || WithoutFirst(end3) != 0) return false;
    kept_[0] = {text + FirstOf(edges), FirstOf(end1) - FirstOf(edges)};
    kept_[1] = {text + FirstOf(begin2), FirstOf(end2) - FirstOf(begin2)};
    kept_[2] = {text + FirstOf(begin3), FirstOf(end3) - FirstOf(begin3)};
    count_ = 3;
    return true;
  }
  void SplitAtEdges(const char* text, std::uint64_t edges) {
    std::size_t count = 0;
    for (; edges != 0; ++count) {
      const std::size_t begin = FirstOf(edges);
      edges = WithoutFirst(edges);
      const std::size_t end = FirstOf(edges);
      edges = WithoutFirst(edges);
      if (count < kKept) kept_[count] = {text + begin, end - begin};
    }
    count_ = count;
  }

  std::array<std::string_view, kKept> kept_;
  std::size_t count_ = 0;
};

// Takes any line apart.
class Tokens : public TokenList {
 public:
  // Upper-cases the line in place when it is ASCII; otherwise the tokens point into this object.
  void Split(Line& line);
  // The line in upper case, of which the tokens are parts; there are as many readable bytes behind it
  // as behind a line.
  std::string_view text() const { return text_; }

 private:
  void SplitUpperCase(char* text, std::size_t size);

  std::string upper_case_;
  std::string_view text_;
};

}  // namespace quarvel::mps
