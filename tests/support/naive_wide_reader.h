// What a read in the wide dialect must do, as plainly as it can be said: written from docs/dialect.md, the
// whole text in memory, every line and word a string of its own, no line quicker than another.
// Compared with mps::ReadFile by wide_comparison.h.
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "mps/file_facts.h"
#include "mps/read_file.h"
#include "tests/support/naive_model.h"
#include "tests/support/naive_reader.h"
#include "tests/support/naive_wide_headers.h"
#include "tests/support/naive_wide_objective.h"
#include "tests/support/naive_wide_words.h"

namespace quarvel::testing {

using NaiveProblem = NaiveObjective::Problem;

class NaiveWideReader {
 public:
  // Uses of the options what belongs to the dialect. `model` is a new one.
  NaiveWideReader(const mps::ReadOptions& options, NaiveModel& model);

  void Read(std::string_view bytes);

  // The bytes are of an encoding that is not read; nothing else is said then.
  bool is_refused = false;
  mps::FileFacts facts;
  std::vector<NaiveProblem> problems;

 private:
  // What lines stand in beside the sections.
  enum class Own { kNone, kSense, kObjectiveName, kPassedOver };

  void UseLine(const NaiveLine& line);
  bool IsDataInFirstColumn() const;

  // --- headers ---
  void UseHeader();
  bool UsePlainHeader();
  bool UseObjectiveHeader();
  void UseName();
  void PassOver(const std::string& id);
  void EndOwn();
  void UseOwnWord(std::size_t place);
  void UseSense(const std::string& word);
  void TellRest(std::size_t used);

  // --- data lines ---
  void UseDataLine();
  void Decide();
  void UseByBlanks(bool has_tab);
  void UseByFields();
  void UseWords(const NaiveWords& words);
  void UseRow(const NaiveWords& words);
  void UseColumn(const NaiveWords& words);
  void UseMarker(const std::string& what);
  void AddColumn(const std::string& name);
  // Of the name that is that word, from 0.
  void CheckSpelling(const std::string& kind, const NaiveWords& words, std::size_t place);
  void CheckOrder(const std::string& name, std::int32_t column);
  // A value of that name is given.
  void NoteGiven(const std::string& what);
  void NoteBounds(const NaiveWords& words, bool has_value);
  void UseRhs(const NaiveWords& words);
  void UseRanges(const NaiveWords& words);
  void UseBound(const NaiveWords& words);
  bool RefusesBound(const NaiveWords& words);
  void ApplyBound(const NaiveWords& words);
  void ApplyIntegerBound(NaiveRecord& column, const NaiveWords& words, bool has_value,
                         double value);
  void ApplyRhs(std::int32_t row, double value);
  void ApplyRange(std::int32_t row);
  // Row 0 after a problem.
  std::pair<std::int32_t, double> ReadPair(const NaiveWords& words, std::size_t place);
  bool IsOfFirstSet(const std::string& name, std::string& first, std::string& other);
  NaiveRecord& Row(std::int32_t number);

  void Finish();
  void Check();
  // Of the line at hand, unless it says another.
  void Tell(const std::string& id, std::optional<std::int64_t> line = {}) {
    problems.emplace_back(id, line.value_or(line_number_));
  }

  const mps::ReadOptions options_;
  NaiveModel& model_;
  NaiveNames names_;

  NaiveSection section_ = NaiveSection::kStart;
  Own own_ = Own::kNone;
  std::string own_id_;  // of what is told where the section ends
  std::int64_t own_line_ = 0;
  mps::FileColumns said_columns_;
  mps::FileColumns columns_;
  bool has_data_in_first_column_ = false;
  bool has_ended_ = false;
  std::int64_t line_number_ = 0;
  std::string raw_;   // the line at hand
  std::string text_;  // the same in upper case
  NaiveWords words_;

  std::string column_type_ = "R";
  std::map<std::string, std::string> spellings_;  // of rows and columns, in the last line of each
  NaiveObjective objective_;
  std::map<std::int32_t, double> right_hand_sides_;
  std::map<std::int32_t, double> ranges_;
  bool has_told_ranges_first_ = false;
  bool has_rhs_ = false;
  std::set<std::string> given_;
  NaiveHeaders headers_;
  std::int64_t sense_line_ = 0;
  std::set<std::string> ordered_columns_;
  std::string last_column_;
  bool is_behind_marker_ = false;
  std::int64_t open_marker_line_ = 0;
  std::string other_rhs_, other_ranges_, other_bounds_;
};

}  // namespace quarvel::testing
