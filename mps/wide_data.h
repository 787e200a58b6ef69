// What data lines of the wide dialect say beyond the sections, or otherwise than they would use it: the
// objective and its constant, sets, ranges by sign, bounds that make a column integer.
//
//   sets       the first name of RHS, of RANGES and of BOUNDS counts; lines of others are passed over,
//              lines without a name belong to the first
//   objective  the row that the options name, else the file, else the first N row; minus its
//              right-hand side is added to it
//   RANGES     of an E row: from rhs + R to rhs when R < 0, else from rhs to rhs + R; of a G or L row by
//              |R|. Before RHS they wait for the end.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "mps/file_facts.h"
#include "mps/model_sink.h"
#include "mps/wide_options.h"
#include "mps/wide_report.h"
#include "mps/wide_words.h"

namespace quarvel::mps {

class WideData {
 public:
  // All must outlive this.
  WideData(const WideOptions& options, ModelSink& sink, FileFacts& facts, const HearProblem& hear)
      : options_(options), sink_(sink), facts_(facts), hear_(hear) {}

  // A line of that many words says nothing that the sections do not use as it is. Cheap, and
  // sometimes false for such a line.
  template <std::size_t kCount>
  bool IsPlainRhs(const SourceLine& line) const {
    bool has_comment = false;
    for (std::size_t word = 2; word <= kCount; ++word) has_comment |= line[word][0] == '$';
    return !has_comment && line[1] == rhs_.first && free_rows_.size() <= 1 && !IsFreeRow(line[2]) &&
           (kCount == 3 || !IsFreeRow(line[4]));
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

  void BeginRhs() { has_rhs_ = true; }
  // The file names the objective, on that line.
  void NameObjective(const SourceLine& line, std::string_view name);
  // No line comes any more.
  void Finish();

 private:
  struct Set {
    std::string first;
    std::string other;  // the last that was passed over
  };

  bool IsFreeRow(std::string_view name) const {
    return !free_rows_.empty() && name == free_rows_.front();
  }
  // 1E+10 takes eleven digits, or an exponent.
  static bool MayBeLimit(std::string_view number) {
    return number.size() > 10 || number.find_first_of("ED") != std::string_view::npos;
  }
  bool IsObjective(std::string_view row) const;
  void NoteRow(const SourceLine& line, std::string_view name);
  bool UseMarker(const SourceLine& line, const TokenList& words);
  bool UseRhs(const SourceLine& line, const TokenList& words);
  bool UseRanges(const SourceLine& line, const TokenList& words);
  void UseRhsOfFreeRow(const SourceLine& line, std::string_view word, std::int32_t row,
                       double value);
  void UseRange(const SourceLine& line, std::string_view word, std::int32_t row, double range);
  void ApplyRange(std::int32_t row, double range);
  bool UseBound(const SourceLine& line, const TokenList& words);
  void UseWideBound(const SourceLine& line, const TokenList& words, WideBound bound);
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
  const HearProblem& hear_;
  Set rhs_, ranges_, bounds_;
  std::vector<std::string> free_rows_;
  std::string named_objective_;  // by the file
  std::int64_t naming_line_ = 0;
  std::vector<std::pair<std::int32_t, double>> free_rhs_;
  std::vector<std::pair<std::int32_t, double>> waiting_ranges_;
  bool has_rhs_ = false;
};

}  // namespace quarvel::mps
