// The wide dialect: what files hold that the sections (sections.h) would refuse or lose. It stands before
// them, line by line: plain lines go on untouched, after the cheapest check; of the others it uses up
// what the sections have no place for, and gives them the rest as words that they know. What it makes
// of each is told (A3..), and so is what it passes over (W4..) or refuses (E12.).
//
//   columns    Words stand between blanks or in fixed columns (fixed_fields.h). The first line of ROWS
//              that makes sense in one way only decides for ROWS, the first behind it for the rest of the
//              file; until then words stand between blanks.
//              A line with a tab, and a marker, decides nothing and is taken by its blanks and tabs.
//   comments   lines that begin with "*"; with blanks before it where the line makes no other sense;
//              from a word, or the field 3 or 5, that begins with "$"
//   headers    OBJSENSE and OBJNAME with their word on the same line or the next, OBJSENSEMAX,
//              OBJSENSEMIN; LAZYCONS and USERCUTS, as more ROWS; any other that is not known begins a
//              section that is passed over. Small letters are told.
//   order      headers that stand there again, or in another order: header_order.h
//   data       wide_data.h
//
// The full rules stand in docs/dialect.md. The plain way, where no line is quicker than another, is
// tests/support/naive_wide_reader.h, which gives the same: tests/mps/wide_agreement_test.cpp.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "mps/file_facts.h"
#include "mps/file_problem.h"
#include "mps/fixed_fields.h"
#include "mps/given_values.h"
#include "mps/header_order.h"
#include "mps/line_source.h"
#include "mps/model_sink.h"
#include "mps/name_spellings.h"
#include "mps/section.h"
#include "mps/wide_data.h"
#include "mps/wide_headers.h"
#include "mps/wide_options.h"
#include "mps/wide_report.h"
#include "mps/wide_words.h"

namespace quarvel::mps {

class WideDialect {
 public:
  enum class Verdict : std::uint8_t {
    kLine,     // the sections use it
    kData,     // the sections use it as a data line, whatever it begins with
    kUsed,     // it is used up; its tokens are what it said
    kNothing,  // it is passed over, or no data line
  };

  // All but the options must outlive this. `hear` is called while a line is looked at, or in Finish.
  // Lines are of a source that watches tabs.
  WideDialect(WideOptions options, ModelSink& sink, FileFacts& facts, GivenValues& values,
              NameSpellings& spellings, const HearProblem& hear);
  WideDialect(const WideDialect&) = delete;
  WideDialect& operator=(const WideDialect&) = delete;

  // Looks at the line, which stands in that section of the sections, before they do.
  Verdict Look(SourceLine& line, Section section) {
    if (line.is_simple() && IsPlain(line, section)) [[likely]]
      return Verdict::kLine;
    return LookCloser(line, section);
  }
  // A line of COLUMNS that Look gives back as kLine, and that begins with a blank. Sometimes false for such a
  // line.
  bool IsPlainColumnLine(const SourceLine& line) const {
    return line.is_simple() && passes_on_ && HasPlainPairs(line);
  }
  // A line behind ENDATA; true when it was text, which is told.
  bool IsTextBehindEnd(SourceLine& line) const;
  // No line comes any more, with ENDATA or without: makes the facts, and gives rows what waited.
  void Finish();

 private:
  // The section of its own that the lines stand in.
  enum class Own : std::uint8_t { kNone, kSense, kObjectiveName, kPassedOver };

  // Of a line that is split and has no tab: nothing is to be done, by blanks and, while that is not
  // decided, by fields. Sometimes false for such a line.
  bool IsPlain(const SourceLine& line, Section section) const {
    if (!passes_on_) return false;
    const std::size_t count = line.token_count();
    switch (section) {
      case Section::kColumns:
        return HasPlainPairs(line);
      case Section::kRows:
        return count == 2 && StandsPlain<1, 2>(line) &&
               (line[1] == "E" || line[1] == "G" || line[1] == "L");
      case Section::kRhs:
        if (count == 3) return StandsPlain<2, 3>(line) && data_.IsPlainRhs<3>(line);
        return count == 5 && StandsPlain<2, 5>(line) && data_.IsPlainRhs<5>(line);
      case Section::kBounds:
        return count == 4 && StandsPlain<1, 4>(line) && data_.IsPlainBound(line);
      default:
        return false;
    }
  }
  // Of a line of COLUMNS.
  [[gnu::always_inline]] bool HasPlainPairs(const SourceLine& line) const {
    const std::size_t count = line.token_count();
    if (count == 3) [[likely]]
      return StandsPlain<2, 3>(line) && !IsSpecial(line[2]);
    return count == 5 && StandsPlain<2, 5>(line) && !IsSpecial(line[2]) && line[4][0] != '$';
  }
  // Words are told apart by blanks, or they are the same by fields from `kFirst` on; and the line begins
  // no header or comment.
  template <std::size_t kFirst, std::size_t kCount>
  bool StandsPlain(const SourceLine& line) const {
    const bool stands = columns_ == FileColumns::kFree
                            ? line.text()[0] == ' '
                            : AreInOwnFields<kFirst, kCount>(line.inside());
    return stands && line[1][0] != '*';
  }
  // It may begin as a marker does, with an apostrophe, or as a comment, with a dollar sign: one comparison
  // knows both, and % and &.
  static bool IsSpecial(std::string_view word) { return (word[0] & ~3) == '$'; }
  static bool HasTab(std::string_view text) { return text.find('\t') != std::string_view::npos; }

  Verdict LookCloser(SourceLine& line, Section section);
  bool IsDataInFirstColumn(const TokenList& words, Section section) const;
  Verdict UseOwn(const SourceLine& line, const TokenList& words);
  Verdict UseHeader(SourceLine& line, const TokenList& words, Section section);
  // What there is to say of a known header as such.
  void TellHeader(const SourceLine& line, std::string_view word, WideHeader header);
  // Of OBJSENSE or OBJNAME.
  void EnterWord(const SourceLine& line, const TokenList& words, WideHeader header);
  Verdict UsePlainHeader(SourceLine& line, const TokenList& words);
  Verdict UseName(const SourceLine& line, const TokenList& words);
  Verdict UseMoreRows(SourceLine& line, const TokenList& words);
  void UseWord(const SourceLine& line, const TokenList& words, std::size_t place);
  // About what stands behind so many words of a header.
  void TellRest(const SourceLine& line, const TokenList& words, std::size_t used) const;
  void UseSense(const SourceLine& line, std::string_view word, ObjectiveSense sense);
  void PassOver(FileProblemCode code, const SourceLine& line, std::string_view word);
  void LeaveOwn();
  Verdict UseData(SourceLine& line, const TokenList& words, Section section);
  Verdict UseFitting(SourceLine& line, const TokenList& words, const FreeWords& fitting,
                     Section section);
  Verdict UseOdd(SourceLine& line, const TokenList& words, Section section);
  Verdict UseWords(SourceLine& line, const TokenList& words, bool changed, Section section,
                   bool fits);
  Verdict UseFixed(SourceLine& line, const TokenList& words, Section section);
  void Decide(const SourceLine& line, const TokenList& words, Section section, bool fits_free);
  void Enter(Own own) {
    own_ = own;
    Settle();
  }
  void Settle() { passes_on_ = own_ == Own::kNone && columns_ != FileColumns::kFixed; }
  Verdict Comment(const SourceLine& line);
  void Tell(FileProblemCode code, const SourceLine& line, std::string_view part,
            std::string item = {}, std::string made = {}) const {
    TellOf(hear_, code, line, part, std::move(item), std::move(made));
  }

  const WideOptions options_;
  ModelSink& sink_;
  FileFacts& facts_;
  const GivenValues& values_;
  const HearProblem& hear_;
  WordSense sense_;
  WideData data_;
  HeaderOrder headers_;
  FileColumns said_columns_;  // by the options, or by the file's NAME
  FileColumns columns_;
  Own own_ = Own::kNone;
  bool passes_on_ = true;  // plain lines go on at all
  bool has_data_in_first_column_ = false;
  FileProblem own_header_{};  // of the section of its own, to be told when that ends without a word
  std::int64_t passed_lines_ = 0;
  FileProblem sense_told_{};  // to be told at the end, as the last one counts
};

}  // namespace quarvel::mps
