// What data lines of the wide dialect say beyond the sections, or otherwise than they would use it: the
// objective and its constant, sets, ranges by sign, bounds that make a column integer.
//
//   sets       the first name of RHS, of RANGES and of BOUNDS counts; lines of others are passed over,
//              lines without a name belong to the first
//   objective  free_rows.h
//   RANGES     ranged_rows.h
//   values     those that are given again, or too small: given_values.h
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "mps/file_facts.h"
#include "mps/free_rows.h"
#include "mps/given_values.h"
#include "mps/model_sink.h"
#include "mps/name_spellings.h"
#include "mps/ranged_rows.h"
#include "mps/wide_options.h"
#include "mps/wide_report.h"
#include "mps/wide_words.h"

namespace quarvel::mps {

class WideData {
 public:
  // All must outlive this.
  WideData(const WideOptions& options, ModelSink& sink, FileFacts& facts, GivenValues& values,
           NameSpellings& spellings, const HearProblem& hear)
      : options_(options),
        sink_(sink),
        facts_(facts),
        values_(values),
        spellings_(spellings),
        hear_(hear),
        free_rows_(options, sink, facts, hear),
        ranged_rows_(sink, hear) {}

  // A line of that many words says nothing that the sections do not use as it is. Cheap, and
  // sometimes false for such a line.
  template <std::size_t kCount>
  bool IsPlainRhs(const SourceLine& line) const {
    bool has_comment = false;
    for (std::size_t word = 2; word <= kCount; ++word) has_comment |= line[word][0] == '$';
    return !has_comment && line[1] == rhs_.first && !ranged_rows_.any() &&
           free_rows_.IsNone(line[2]) && (kCount == 3 || free_rows_.IsNone(line[4]));
  }
  bool IsPlainBound(const SourceLine& line) const {
    if (line[2] != bounds_.first || line[1].size() != 2 || line[3][0] == '$') return false;
    if (MayBeLimit(line[4])) return false;
    const char first = line[1][0];
    const char second = line[1][1];
    const bool upper = first == 'U' && second == 'P';
    if (!upper && !(first == 'L' && second == 'O') && !(first == 'F' && second == 'X'))
      return false;
    const std::size_t sign = !upper && line[4][0] == '-' && line[4].size() > 1;
    return line[4][sign] >= '.' && line[4][sign] <= '9';
  }

  // Uses the words of a data line up, or leaves them to the sections: false.
  bool Use(const SourceLine& line, const TokenList& words, Section section, bool fits);

  void BeginRhs() { ranged_rows_.BeginRhs(); }
  // The file names the objective, on that line.
  void NameObjective(const SourceLine& line, std::string_view name) {
    free_rows_.NameObjective(line, name);
  }
  // No line comes any more.
  void Finish() { free_rows_.Finish(); }

 private:
  struct Set {
    std::string first;
    std::string other;  // the last that was passed over
  };

  // 1E+10 takes eleven digits, or an exponent.
  static bool MayBeLimit(std::string_view number) {
    return number.size() > 10 || number.find_first_of("ED") != std::string_view::npos;
  }
  bool UseMarker(const SourceLine& line, const TokenList& words);
  bool UseRhs(const SourceLine& line, const TokenList& words);
  bool UseRanges(const SourceLine& line, const TokenList& words);
  // Whether the sections would lose something of a line of RHS.
  bool IsOwnRhs(const TokenList& words) const;
  bool UseBound(const SourceLine& line, const TokenList& words);
  void UseWideBound(const SourceLine& line, const TokenList& words, WideBound bound);
  // False when the line has no number for it.
  bool SetBound(const SourceLine& line, const TokenList& words, double& bound) const;
  void UseSemiContinuous(const SourceLine& line, const TokenList& words, model::Bounds& column);
  void RefuseBound(const SourceLine& line, const TokenList& words);
  void UseInfinity(const SourceLine& line, const TokenList& words);
  bool FreesLower(const SourceLine& line, const TokenList& words);
  void TellLimit(const SourceLine& line, const TokenList& words) const;
  bool IsOfFirst(Set& set, std::string& fact, const SourceLine& line, std::string_view name);
  // 0 after a problem, which is told.
  std::int32_t ReadPair(const SourceLine& line, const TokenList& words, std::size_t first,
                        double& value) const;
  void Tell(FileProblemCode code, const SourceLine& line, std::string_view part,
            std::string item = {}, std::string made = {}) const {
    TellOf(hear_, code, line, part, std::move(item), std::move(made));
  }

  const WideOptions& options_;
  ModelSink& sink_;
  FileFacts& facts_;
  GivenValues& values_;
  NameSpellings& spellings_;
  const HearProblem& hear_;
  FreeRows free_rows_;
  RangedRows ranged_rows_;
  Set rhs_, ranges_, bounds_;
};

}  // namespace quarvel::mps
