// What a read in the wide dialect must do, as plainly as it can be said: written from docs/dialect.md, the
// whole text in memory, every line and word a string of its own, no line quicker than another.
// Compared with mps::ReadFile by wide_comparison.h.
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "mps/file_facts.h"
#include "mps/read_file.h"
#include "tests/support/naive_model.h"
#include "tests/support/naive_reader.h"
#include "tests/support/naive_wide_words.h"

namespace quarvel::testing {

// The id of its code and its line, 0 for a problem of no line.
using NaiveProblem = std::pair<std::string, std::int64_t>;

class NaiveWideReader {
 public:
  // Uses of the options what belongs to the dialect. `model` is a new one.
  NaiveWideReader(const mps::ReadOptions& options, NaiveModel& model);

  void Read(std::string_view bytes);

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
  void CheckSpelling(const std::string& name);
  void UseRhs(const NaiveWords& words);
  void UseRanges(const NaiveWords& words);
  void UseBound(const NaiveWords& words);
  bool RefusesBound(const NaiveWords& words);
  void ApplyBound(const NaiveWords& words);
  void ApplyIntegerBound(NaiveRecord& column, const NaiveWords& words, bool has_value,
                         double value);
  void ApplyRhs(std::int32_t row, double value);
  void ApplyRange(std::int32_t row, double range);
  // Row 0 after a problem.
  std::pair<std::int32_t, double> ReadPair(const NaiveWords& words, std::size_t place);
  bool IsOfFirstSet(const std::string& name, std::string& first, std::string& other);
  bool IsObjective(const std::string& row) const;
  NaiveRecord& Row(std::int32_t number);

  void Finish();
  void Check();
  void Tell(const std::string& id) { problems.emplace_back(id, line_number_); }
  void Tell(const std::string& id, std::int64_t line) { problems.emplace_back(id, line); }

  const mps::ReadOptions options_;
  const std::string asked_objective_;
  NaiveModel& model_;
  NaiveNames names_;

  NaiveSection section_ = NaiveSection::kStart;
  Own own_ = Own::kNone;
  std::string passed_over_id_;
  std::int64_t passed_over_line_ = 0;
  mps::FileColumns said_columns_;
  mps::FileColumns columns_;
  bool has_data_in_first_column_ = false;
  bool has_ended_ = false;
  std::int64_t line_number_ = 0;
  std::string raw_;   // the line at hand
  std::string text_;  // the same in upper case
  NaiveWords words_;

  std::string column_type_ = "R";
  std::map<std::string, std::string> spellings_;  // of columns, in the last line of each
  std::vector<std::string> free_rows_;
  std::string named_objective_;
  std::int64_t naming_line_ = 0;
  std::vector<std::pair<std::string, double>> free_rhs_;
  std::vector<std::pair<std::int32_t, double>> waiting_ranges_;
  bool has_rhs_ = false;
  std::string other_rhs_, other_ranges_, other_bounds_;
};

}  // namespace quarvel::testing
