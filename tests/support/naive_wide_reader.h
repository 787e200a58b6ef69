// What a read in the wide dialect must do, as plainly as it can be said: written from docs/dialect.md, the
// whole text in memory, every line and word a string of its own, no line quicker than another.
// Compared with mps::ReadFile by wide_comparison.h.
#pragma once

#include <cstdint>
#include <map>
#include <set>
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

  // The bytes are of an encoding that is not read; nothing else is said then.
  bool is_refused = false;
  mps::FileFacts facts;
  std::vector<NaiveProblem> problems;

 private:
  // What lines stand in beside the sections.
  enum class Own { kNone, kSense, kObjectiveName, kPassedOver };
  // Of an N row, in ROWS or in RHS.
  struct Mention {
    std::int64_t line;
    std::string row;
    bool is_rhs;
    double value;
  };

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
  void CheckHeader();
  void CheckHeaderOrder(const std::string& what);
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
  void CheckOrder(const std::string& name, std::int32_t column);
  void CheckSize(const std::string& number, double value);
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
  void TellObjectiveName();
  void TellMentions();
  void Check();
  void Tell(const std::string& id) { problems.emplace_back(id, line_number_); }
  void Tell(const std::string& id, std::int64_t line) { problems.emplace_back(id, line); }

  const mps::ReadOptions options_;
  const std::string asked_objective_;
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
  std::map<std::string, std::string> spellings_;  // of columns, in the last line of each
  std::vector<std::string> free_rows_;
  std::string named_objective_;
  std::int64_t naming_line_ = 0;
  std::vector<Mention> mentions_;
  std::map<std::int32_t, double> right_hand_sides_;
  std::map<std::int32_t, double> ranges_;
  bool has_told_ranges_first_ = false;
  bool has_rhs_ = false;
  std::set<std::string> given_;
  std::set<std::string> headers_;
  std::int64_t sense_line_ = 0;
  std::set<std::string> ordered_columns_;
  std::string last_column_;
  bool is_behind_marker_ = false;
  std::int64_t open_marker_line_ = 0;
  std::string other_rhs_, other_ranges_, other_bounds_;
};

}  // namespace quarvel::testing
