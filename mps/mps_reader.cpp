#include "mps/mps_reader.h"

#include <array>
#include <cmath>
#include <string>

#include "mps/frm_progress.h"
#include "platform/desktop.h"
#include "text/numbers.h"
#include "text/picture.h"
#include "text/upper_case.h"

namespace quarvel {
namespace {

constexpr std::int64_t kLinesBetweenEvents = 100;

const LineNames kNoNames;

std::string_view TrimSpaces(std::string_view text) {
  const std::size_t first = text.find_first_not_of(' ');
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

}  // namespace

MpsReader::MpsReader(LPModel& model, frmProgress* window)
    : model_(model), data_(model.raw_data()), window_(window) {}

void MpsReader::Run() {
  ViewPause pause(model_);
  Reset();
  Guarded(
      [this] { Open(); });  // answered Yes, a file that cannot be opened is read as an empty one
  if (state_ == State::kReading) Begin();
  while (state_ == State::kReading) Guarded([this] { ReadLines(); });
  lines_.reset();  // the file is free from here on, whatever the questions at the end lead to
  if (state_ == State::kDone) Guarded([this] { CheckModel(); });
  if (state_ == State::kDone) Guarded([&] { Finish(pause); });
  if (state_ == State::kStopped) EndAsStopped();
  if (state_ == State::kFailed) EndAsFailed();
}

// Any failure is one question more: of the file, of memory, of a model that a host changed
// meanwhile.
template <class Step>
void MpsReader::Guarded(const Step& step) {
  try {
    step();
  } catch (...) {
    const AutomationError error = CurrentError();
    Problem({.kind = platform::BoxKind::kReadProblem,
             .statement = error.description(),
             .question = {},
             .failure = error.run_time_error()});
  }
}

// Exactly this much of the old model goes at the start; its file location and settings stay.
void MpsReader::Reset() {
  data_.ReadMPSFileErr = -1;
  ReleaseRowsAndColumns(data_);
  data_.NumberOfBindingRows = 0;
  data_.NumberOfNonBindingRows = 0;
  data_.BindingRows.Release();
  data_.NonBindingRows.Release();
  data_.row_lists_pending = true;
}

void MpsReader::Open() {
  lines_ = std::make_unique<LineReader>(platform::InputFile(data_.strMPSFile));
  file_size_ = lines_->file_size();
}

void MpsReader::Begin() {
  if (window_ != nullptr) {
    window_->set_caption(kReadingCaption);
    window_->bar.set_range(0, static_cast<float>(file_size_));
  }
  data_.ModelName.clear();
  data_.ModelDescription.clear();
}

// Before ROWS lines are texts; batches would upper-case them.
void MpsReader::ReadLines() {
  if (section_ == Section::kStart || !ReadPlainLines()) ReadAnyLine();
}

bool MpsReader::ReadPlainLines() {
  if (batch_used_ == batch_.size()) {
    batch_used_ = 0;
    batch_.Fill(*lines_);
    batch_names_.Announce(batch_, section_, data_);
    if (batch_.size() == 0) return false;
  }
  while (batch_used_ < batch_.size() && state_ == State::kReading) {
    const PlainLine& line = batch_[batch_used_];
    tokens_ = &line.tokens;
    names_ = &batch_names_[batch_used_];
    ++batch_used_;  // done with, also when using it raises
    if (CountLine(line.size) && line.size > 0) UseLine(line.text[0] != ' ');
  }
  return true;
}

void MpsReader::ReadAnyLine() {
  if (!lines_ || !lines_->Next(line_)) {
    state_ = State::kDone;
    return;
  }
  if (!CountLine(line_.characters)) return;
  if (line_.too_long) {
    LineProblem("MPS file read error: a line is longer than " +
                text::IntegerText(static_cast<std::int64_t>(LineReader::kLongestLine)) + " bytes");
    return;
  }
  if (line_.size == 0) return;
  if (section_ == Section::kStart && line_.text[0] == '*') {
    AddDescription();
    return;
  }
  const bool may_be_header = line_.text[0] != ' ';
  line_tokens_.Split(line_);
  tokens_ = &line_tokens_;
  names_ = &kNoNames;
  UseLine(may_be_header);
}

bool MpsReader::CountLine(std::size_t characters) {
  ++line_number_;
  characters_read_ += characters;
  if (line_number_ % kLinesBetweenEvents == 0) ReportProgress();
  return state_ == State::kReading;
}

void MpsReader::ReportProgress() {
  if (window_ != nullptr) {
    window_->bar.set_value(static_cast<float>(characters_read_));
    const double ratio =
        file_size_ == 0 ? 0
                        : static_cast<double>(characters_read_) / static_cast<double>(file_size_);
    window_->set_caption("Progress:  Reading MPS File (" + text::PercentText(ratio) + ")");
  }
  model_.desktop().DoEvents();
  AfterCallback();
  if (window_ != nullptr && window_->StopRequested) state_ = State::kStopped;
}

void MpsReader::AddDescription() {
  std::string& description = data_.ModelDescription;
  if (!description.empty()) description += "\r\n";
  description += TrimSpaces(line_.view().substr(1));
}

void MpsReader::UseLine(bool may_be_header) {
  if (may_be_header && UseHeader()) return;
  switch (section_) {
    case Section::kStart:
      break;
    case Section::kRows:
      UseRow();
      break;
    case Section::kColumns:
      UseColumn();
      break;
    case Section::kRhs:
      UseRhs();
      break;
    case Section::kRanges:
      UseRange();
      break;
    case Section::kBounds:
      UseBound();
      break;
  }
}

// True when the line is used up.
bool MpsReader::UseHeader() {
  struct Header {
    std::string_view keyword;
    Section section;
  };
  static constexpr std::array<Header, 5> kHeaders = {{{"ROWS", Section::kRows},
                                                      {"COLUMNS", Section::kColumns},
                                                      {"RHS", Section::kRhs},
                                                      {"RANGES", Section::kRanges},
                                                      {"BOUNDS", Section::kBounds}}};
  const std::string_view keyword = token(1);
  for (const Header& header : kHeaders) {
    if (keyword != header.keyword) continue;
    section_ = header.section;
    section_start_ = BytesRead();
    return true;
  }
  if (keyword == "ENDATA") {
    state_ = State::kDone;
    return true;
  }
  // A NAME line goes on as a data line of its section, which before ROWS means nothing.
  if (keyword == "NAME" && tokens_->count() > 1) data_.ModelName = token(2);
  return false;
}

void MpsReader::Problem(platform::Box problem) {
  problem.question = "Would you like to continue reading this MPS file?";
  problem.style = platform::MsgBoxStyle::kYesNo;
  problem.title = "Error.  Continue Reading MPS File?";
  const platform::MsgBoxResult answer = model_.desktop().MsgBox(problem);
  AfterCallback();
  if (answer != platform::MsgBoxResult::kYes) state_ = State::kFailed;
}

// A host that was called back may have deleted something; the reader goes on with numbers that are
// true.
void MpsReader::AfterCallback() {
  last_column_line_ = 0;
  if (!data_.removals.empty()) Settle(data_);
}

void MpsReader::ModelProblem(std::string statement, std::string item) {
  Problem({.kind = platform::BoxKind::kReadProblem,
           .statement = std::move(statement),
           .question = {},
           .item = std::move(item)});
}

void MpsReader::LineProblem(std::string_view words) {
  ProblemNamingLine(std::string(words) + " (line " + text::IntegerText(line_number_) + ")");
}

void MpsReader::ProblemNamingLine(std::string statement) {
  Problem({.kind = platform::BoxKind::kReadProblem,
           .statement = std::move(statement),
           .question = {},
           .line = line_number_});
}

void MpsReader::CheckModel() {
  Settle(data_);
  if (data_.NumberOfRows < 1) ModelProblem("Quarvel.dll error: no rows");
  if (state_ == State::kDone && data_.NumberOfColumns < 1) {
    ModelProblem("Quarvel.dll error: no columns");
  }
  if (state_ == State::kDone && data_.NumberOfElements < 1) {
    ModelProblem("Quarvel.dll error: no elements");
  }
  bool empty_items = false;
  if (state_ == State::kDone) CheckColumns(empty_items);
  if (state_ == State::kDone) CheckRows(empty_items);
  if (state_ == State::kDone && empty_items) {
    Problem(
        {.kind = platform::BoxKind::kEmptyItem,
         .statement = "Quarvel.dll error: rows or columns with no elements, as noted in warnings.",
         .question = {}});
  }
}

// Each box may let a host change the model, so the record is looked up anew after it.
void MpsReader::CheckColumns(bool& empty_items) {
  for (std::int32_t c = 1; c <= Settled().NumberOfColumns; ++c) {
    const ColumnRecord& column = data_.Columns[c];
    const bool is_empty = column.ElementCount() == 0;
    const std::string name = is_empty || column.LowerBound > column.UpperBound ? column.Name : "";
    if (column.LowerBound > column.UpperBound) {
      ModelProblem("Quarvel.dll error: bounds reversed on variable " + name, name);
      if (state_ != State::kDone) return;
    }
    if (!is_empty) continue;
    if (!AcceptsEmpty("column ", name)) return;
    empty_items = true;
  }
}

void MpsReader::CheckRows(bool& empty_items) {
  for (std::int32_t r = 1; r <= Settled().NumberOfRows; ++r) {
    const RowRecord& row = data_.Rows[r];
    const bool is_empty = row.ElementCount() == 0;
    const std::string name = is_empty || row.LowerBound > row.UpperBound ? row.Name : "";
    if (row.LowerBound > row.UpperBound) {
      ModelProblem("Quarvel.dll error: bounds reversed on row " + name, name);
      if (state_ != State::kDone) return;
    }
    if (!is_empty) continue;
    if (!AcceptsEmpty("row ", name)) return;
    empty_items = true;
  }
}

// No ends the read, and alone of all endings leaves the progress window on the screen.
bool MpsReader::AcceptsEmpty(std::string_view what, const std::string& name) {
  const platform::MsgBoxResult answer =
      model_.desktop().MsgBox({.kind = platform::BoxKind::kEmptyItem,
                               .statement = "Warning: no elements for " + std::string(what) + name,
                               .question = "Continue reading MPS file?",
                               .style = platform::MsgBoxStyle::kYesNoExclamation,
                               .title = "LPModel: reading MPS file...",
                               .item = name});
  if (answer == platform::MsgBoxResult::kYes) return true;
  data_.ReadMPSFileErr = 0;
  model_.desktop().SetMousePointer(platform::MousePointer::kDefault);
  state_ = State::kLeftOpen;
  return false;
}

void MpsReader::DeriveRowTypes() {
  for (std::int32_t r = 1; r <= Settled().NumberOfRows; ++r) {
    RowRecord& row = data_.Rows[r];
    row.Type = RowTypeOf(row.LowerBound, row.UpperBound);
  }
}

void MpsReader::Finish(ViewPause& pause) {
  DeriveRowTypes();
  RebuildRowIndexes(data_);
  CloseWindow();
  Guarded([this] { OfferToSimplify(); });
  if (state_ == State::kDone) Guarded([&] { RefreshView(pause); });
  if (state_ == State::kDone) {
    model_.desktop().SetMousePointer(platform::MousePointer::kDefault);
  }
}

void MpsReader::OfferToSimplify() {
  const platform::MsgBoxResult answer =
      model_.desktop().MsgBox(Question(platform::BoxKind::kOfferToSimplify, kSimplifyQuestion));
  if (answer == platform::MsgBoxResult::kYes) model_.SimplifyMPSModel();
}

// A host may have set the flag without a window.
void MpsReader::RefreshView(ViewPause& pause) {
  pause.End();
  ModelView* view = OpenView(model_);
  if (model_.frmViewEquationsIsShowing() && view != nullptr) view->RefreshForm();
}

void MpsReader::EndAsStopped() {
  data_.ReadMPSFileErr = 0;
  model_.ClearModel();
  CloseWindow();
}

void MpsReader::EndAsFailed() {
  data_.ReadMPSFileErr = 0;
  model_.desktop().SetMousePointer(platform::MousePointer::kDefault);
  CloseWindow();
}

void MpsReader::CloseWindow() {
  if (window_ != nullptr) window_->Finish();
}

}  // namespace quarvel
