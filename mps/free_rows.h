// The N rows of a file: which of them is the objective, what is added to it, and what there is to say of
// the others. The options name the objective, else the last OBJNAME does, else the first N row is it.
//
// A file may name its objective anywhere, so all this is told at the end, but for the names that a later
// OBJNAME overrides (A308): A308 or E123 for the name,
// W405 for each other N row, A309 for the right-hand side of the objective, the last one of several, W407
// for those of the others.
//
// Memory: 40 bytes for each N row and each right-hand side of one; the lines of the first thousand too.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "mps/file_facts.h"
#include "mps/model_sink.h"
#include "mps/wide_options.h"
#include "mps/wide_report.h"

namespace quarvel::mps {

class FreeRows {
 public:
  // All must outlive this.
  FreeRows(const WideOptions& options, ModelSink& sink, FileFacts& facts, const HearProblem& hear)
      : options_(options), sink_(sink), facts_(facts), hear_(hear) {}

  // There is none but maybe the first, and that has another name.
  bool IsNone(std::string_view name) const { return count_ <= 1 && name != first_; }

  // A line of ROWS whose row, of that name, is the next that the sink gets.
  void Note(const SourceLine& line, std::string_view name);
  // A line gives an N row, whose name in there is `word`, a right-hand side.
  void NoteRhs(const SourceLine& line, std::string_view word, std::int32_t row, double value);
  // The file names the objective.
  void NameObjective(const SourceLine& line, std::string_view name);
  // No line comes any more.
  void Finish();

 private:
  // A place where an N row is named.
  struct Mention {
    std::int64_t line;
    std::int32_t column;
    std::int32_t length;
    std::int32_t row;
    bool is_rhs;
    double value;
  };
  static constexpr std::size_t kMostShown = 1000;

  void Keep(const SourceLine& line, std::string_view word, std::int32_t row, bool is_rhs,
            double value);
  // The row that is asked for, or else the first N row; 0 when there is none.
  std::int32_t FindObjective();
  void TellName(bool is_found);
  void TellMention(std::size_t place, std::int32_t objective, bool counts);

  const WideOptions& options_;
  ModelSink& sink_;
  FileFacts& facts_;
  const HearProblem& hear_;
  std::string first_;
  std::size_t count_ = 0;
  std::string named_;     // by the file
  FileProblem naming_{};  // the place of that
  std::vector<Mention> mentions_;
  std::vector<FileProblem> shown_;  // the places of the first of them, with their lines
};

}  // namespace quarvel::mps
