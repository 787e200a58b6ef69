// Which rows and columns a file names in small letters here and in capitals there (W414): the reader takes
// them for one. Letters of ASCII alone count, and names alone that end in the first 63 bytes of their line.
//
// Memory: 8 bytes for each row and each column, from the first name on that is spelled in an unusual way.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

#include "mps/wide_report.h"

namespace quarvel::mps {

// What W414 says that the names are.
inline constexpr std::string_view kOneRow = "one row";
inline constexpr std::string_view kOneColumn = "one column";

class NameSpellings {
 public:
  // `hear` must outlive this.
  explicit NameSpellings(const HearProblem& hear) : hear_(hear) {}

  // The line adds that row. How the first one is spelled is taken for the usual way: letters all capital, or
  // all small. Names that are all spelled that way cost a look at their line.
  void AddRow(const SourceLine& line, std::string_view name, std::int32_t row) {
    if (row == 1) {
      small_is_usual_ = line.SmallLettersOf(name) != 0;
      looks_closer_ = small_is_usual_ || has_unusual_;
    }
    UseRow(line, name, row, true);
  }
  // The line names a row or column of that number, which `name`, of its split_text(), is; `is_new`: no line
  // has before. Tells when the last one that did spelled it otherwise. Call for each such line, in their
  // order.
  void UseRow(const SourceLine& line, std::string_view name, std::int32_t row,
              bool is_new = false) {
    if (Wants(line)) [[unlikely]]
      Compare(rows_, line, name, row, is_new, kOneRow);
  }
  void UseColumn(const SourceLine& line, std::string_view name, std::int32_t column,
                 bool is_new = false) {
    if (Wants(line)) [[unlikely]]
      Compare(columns_, line, name, column, is_new, kOneColumn);
  }
  // Whether these calls do anything: not for the lines before the first unusual letter.
  bool Wants(const SourceLine& line) const {
    if (looks_closer_) return has_unusual_ || UnusualLetters(line) != 0;
    return line.small_letters() != 0;
  }

 private:
  // By number, the bits of the unusual letters of the name; short by those behind its end, which had none.
  using Spellings = std::vector<std::uint64_t>;

  std::uint64_t UnusualLetters(const SourceLine& line) const {
    return small_is_usual_ ? line.CapitalLetters() : line.small_letters();
  }
  void Compare(Spellings& last, const SourceLine& line, std::string_view name, std::int32_t number,
               bool is_new, std::string_view made);

  const HearProblem& hear_;
  bool small_is_usual_ = false;
  bool has_unusual_ = false;   // some name had such letters
  bool looks_closer_ = false;  // one of the two
  Spellings rows_;
  Spellings columns_;
};

}  // namespace quarvel::mps
