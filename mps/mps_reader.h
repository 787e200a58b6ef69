// Reads an MPS file into a model.
//
// The dialect. Lines are split at spaces only and upper-cased; a line whose first character is not
// a space may be a section header: NAME, ROWS, COLUMNS, RHS, RANGES, BOUNDS, ENDATA. Everything
// else is a data line:
//
//   before ROWS  "*" lines make up the description, anything else is passed over
//   NAME         [name]; the line is then also a data line of the section it stands in
//   ROWS         type name                        type E, G, L or N
//   COLUMNS      column row value [row value]     a column may be taken up again later
//                name 'MARKER' 'INTORG'           columns from here on are integer
//                name 'MARKER' 'INTEND'           columns from here on are continuous
//   RHS          set row value [row value]        the set's name is ignored, every set is applied
//   RANGES       set row value [row value]        after RHS: a range takes the bounds as they are
//   BOUNDS       code set column [value]          LO UP FX need the value; FR MI PL ignore one
//   ENDATA       ends the file; so does its end
//
// Numbers are those of text::ParseNumber. A zero coefficient adds no element. Right-hand sides: E
// both bounds, L upper (lower becomes absent), G lower, N nothing. A range R moves one bound of a
// row:
//
//   G  upper = lower + |R|     E, R > 0   upper = lower + R
//   L  lower = upper - |R|     E, R <= 0  lower = lower - R  (reversed bounds, reported at the end)
//   N  nothing
//
// Bounds: LO and UP set that bound and nothing else, FX both, FR none, MI no lower, PL no upper.
//
// Every problem is put to the user as a question with its line; No ends the read and keeps what was
// read, Yes passes over the offending line or item: a failed check of a line its rest, a failed
// check of a pair that pair, a failed check at the end that check.
//
// Cost: one pass over the bytes; names are looked up in constant time.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

#include "model/lp_model.h"
#include "model/model_view.h"
#include "mps/batch_names.h"
#include "mps/line_batch.h"
#include "mps/line_reader.h"
#include "mps/section.h"
#include "mps/tokens.h"
#include "platform/box.h"

namespace quarvel {

class frmProgress;

inline constexpr std::string_view kReadingCaption = "Progress: Reading MPS File";
// Asked with Yes and No wherever a simplification is offered.
inline constexpr std::string_view kSimplifyQuestion =
    "Do you want to simplify the model?\r\nThis will remove empty rows and columns, and will "
    "convert any rows with just one element into equivalent column bounds";

class MpsReader {
 public:
  // `window`: the progress window this read reports to and takes Stop from; null for none.
  MpsReader(LPModel& model, frmProgress* window);

  // Reads model.strMPSFile(). Raises nothing that the file causes; the outcome is ReadMPSFileErr.
  void Run();

 private:
  enum class State { kReading, kDone, kStopped, kFailed, kLeftOpen };

  template <class Step>
  void Guarded(const Step& step);
  void Reset();
  void Open();
  void Begin();
  void ReadLines();
  // Counts the line that comes next; false when the read ends at its progress point.
  bool CountLine(std::size_t characters);
  void ReportProgress();
  // Uses the lines of a batch; false when the next line is one for ReadAnyLine.
  bool ReadPlainLines();
  void ReadAnyLine();
  void UseLine(bool may_be_header);
  bool UseHeader();
  void AddDescription();

  void UseRow();
  void UseColumn();
  void UseRhs();
  void UseRange();
  void UseBound();

  // One pair of a line: its row's number and value, or row 0 after a question answered Yes.
  struct Pair {
    std::int32_t row = 0;
    double value = 0;
  };
  Pair ReadPair(std::size_t first_token);
  std::string_view token(std::size_t number) const { return (*tokens_)[number]; }
  std::int32_t FindRowOf(std::size_t token_number) const;
  std::int32_t FindColumnOf(std::size_t token_number) const;
  NameKey KeyOf(std::size_t token_number) const;
  bool CheckPairLine(std::string_view section_words);
  void ReportPairLine(std::string_view section_words);
  std::int32_t ColumnOfLine();
  std::int32_t FindOrAppendColumn();
  std::int32_t ExpectedCount(std::int32_t count, std::size_t bytes_each) const;
  // About so many bytes of the file are done; line ends of one byte are taken for granted.
  std::uint64_t BytesRead() const {
    return characters_read_ + static_cast<std::uint64_t>(line_number_);
  }
  void AppendRow(RowType type);
  std::int32_t AppendColumn();
  void AppendElement(std::int32_t row, std::int32_t column, double value);
  void ApplyRhs(std::int32_t row, double value);
  void ApplyRange(std::int32_t row, double range);

  // Asks whether to go on in spite of a problem; No ends the read (state_).
  void Problem(platform::Box problem);
  // A problem of the model.
  void ModelProblem(std::string statement, std::string item = {});
  // A problem of the line at hand, which the statement names.
  void LineProblem(std::string_view words);
  void ProblemNamingLine(std::string statement);
  void AfterCallback();

  // The model with nothing put off, for looking at.
  const ModelData& Settled() const { return std::as_const(model_).data(); }
  void CheckModel();
  void CheckColumns(bool& empty_items);
  void CheckRows(bool& empty_items);
  bool AcceptsEmpty(std::string_view what, const std::string& name);
  void DeriveRowTypes();
  void Finish(ViewPause& pause);
  void OfferToSimplify();
  void RefreshView(ViewPause& pause);
  void EndAsStopped();
  void EndAsFailed();
  void CloseWindow();

  LPModel& model_;
  ModelData& data_;
  frmProgress* window_;
  std::unique_ptr<LineReader> lines_;
  std::uint64_t file_size_ = 0;
  State state_ = State::kReading;
  Section section_ = Section::kStart;
  ColumnType CurrentColumnType = ColumnType::kContinuous;
  Line line_;
  Tokens line_tokens_;
  LineBatch batch_;
  BatchNames batch_names_;
  std::size_t batch_used_ = 0;  // lines of the batch that are done
  // Of the line at hand.
  const TokenList* tokens_ = nullptr;
  const LineNames* names_ = nullptr;
  std::int64_t line_number_ = 0;
  std::uint64_t characters_read_ = 0;
  std::uint64_t section_start_ = 0;    // BytesRead when the section began
  std::int32_t last_column_ = 0;       // the column of the last data line of COLUMNS
  std::int64_t last_column_line_ = 0;  // its number; 0 when an event may have changed the column
};

}  // namespace quarvel
