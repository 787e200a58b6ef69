#include "tests/support/naive_simplify.h"

#include <cmath>
#include <stdexcept>

#include "model/stored_model.h"
#include "platform/automation_error.h"
#include "platform/box.h"
#include "text/picture.h"

namespace quarvel::testing {

using platform::MsgBoxResult;

void NaiveSimplifier::Run() {
  total_ = std::int64_t{3} * model_.NumberOfRows + model_.NumberOfColumns;
  caption_ = "Progress: Simplifying MPS Model";
  location_ = model_.FileLocation;
  transcript.push_back("show frmProgress");
  try {
    RunPasses();
  } catch (...) {
    model_.LogFileNumber = 0;
    transcript.push_back("close frmProgress");
    throw;
  }
  transcript.push_back("close frmProgress");
}

void NaiveSimplifier::RunPasses() {
  model_.LogFileNumber = 1;
  log_kept = true;
  ConvertRows();
  if (!stopped_) RemoveEmpty();
  model_.LogFileNumber = 0;
  TellOutcome();
}

void NaiveSimplifier::ConvertRows() {
  if (counter_ % 2 == 1) counter_ -= 1;
  const std::int32_t limit = model_.NumberOfRows;
  std::int32_t i = 1;
  while (i <= limit) {
    if (Step(2, 100, "Progress:  Simplifying MPS Model (")) return;
    if (i > model_.NumberOfRows) return;
    if (!ConvertRow(i)) return;
    if (i == model_.NumberOfRows) return;
    i += 1;
  }
}

NaiveRecord& NaiveSimplifier::At(std::vector<NaiveRecord>& records, std::int32_t number) {
  if (number < 1 || static_cast<std::size_t>(number) > records.size()) {
    RaiseRunTimeError(RunTimeError::kSubscriptOutOfRange);
  }
  return records[static_cast<std::size_t>(number - 1)];
}

NaiveRecord& NaiveSimplifier::Row(std::int32_t i) { return At(model_.Rows, i); }

NaiveRecord& NaiveSimplifier::ColumnOfRow(std::int32_t i) {
  return At(model_.Columns, Row(i).Elements.at(0).Index);
}

double NaiveSimplifier::Divide(double bound, double coefficient) {
  if (coefficient == 0) RaiseRunTimeError(RunTimeError::kDivisionByZero);
  if (std::isinf(bound / coefficient)) RaiseRunTimeError(RunTimeError::kOverflow);
  return bound / coefficient;
}

bool NaiveSimplifier::ConvertRow(std::int32_t& i) {
  if (Row(i).ElementCount() != 1) return true;
  const std::string type = Row(i).Type;
  if (type == "E") return ConvertEquality(i);
  if (type == "R") return ConvertRange(i);
  if (type == "G" || type == "L") ConvertInequality(i);
  return true;
}

void NaiveSimplifier::ConvertInequality(std::int32_t& i) {
  const double a = Row(i).Elements.at(0).Value;
  double& lower = ColumnOfRow(i).LowerBound;
  double& upper = ColumnOfRow(i).UpperBound;
  if (std::string(Row(i).Type) == "G") {
    const double new_lower = Divide(Row(i).LowerBound, a);
    if (new_lower < lower) return;
    lower = new_lower;
  } else {
    const double new_upper = Divide(Row(i).UpperBound, a);
    if (new_upper > upper) return;
    upper = new_upper;
  }
  Convert(i, "Converted row " + std::string(Row(i).Name) + " into variable bound");
}

bool NaiveSimplifier::ConvertEquality(std::int32_t& i) {
  const double a = Row(i).Elements.at(0).Value;
  double& lower = ColumnOfRow(i).LowerBound;
  double& upper = ColumnOfRow(i).UpperBound;
  const double new_lower = Divide(Row(i).LowerBound, a);
  const double new_upper = Divide(Row(i).UpperBound, a);
  if (!(new_upper <= upper && new_lower >= lower)) return AskEquality(i, new_lower, new_upper);
  lower = new_lower;
  upper = new_upper;
  Convert(i, "Converted row " + std::string(Row(i).Name) + " into variable bound");
  return true;
}

bool NaiveSimplifier::ConvertRange(std::int32_t& i) {
  const double a = Row(i).Elements.at(0).Value;
  double& lower = ColumnOfRow(i).LowerBound;
  double& upper = ColumnOfRow(i).UpperBound;
  const double new_lower = Divide(Row(i).LowerBound, a);
  const double new_upper = Divide(Row(i).UpperBound, a);
  if (new_lower <= lower && new_upper >= upper) return AskRange(i, new_lower, new_upper);
  const std::string range = "Range " + std::string(Row(i).Name);
  if (new_lower >= lower && new_upper <= upper) {
    lower = new_lower;
    upper = new_upper;
    Convert(i, range + " had both bounds converted to column bounds");
  } else if (new_lower > lower) {
    upper = new_upper;
    Convert(i, range + " had upper bound converted to column bound");
  } else {
    lower = new_lower;
    Convert(i, range + " had lower bound converted to column bound");
  }
  return true;
}

bool NaiveSimplifier::AskEquality(std::int32_t& i, double lower, double upper) {
  std::string name = Row(i).Name;
  const std::int32_t count = model_.NumberOfRows;
  const MsgBoxResult answer =
      Ask("The equality " + name + " violates variable bounds.\r\n" +
              "If you want to remove the equality, click Yes\r\n" +
              "If you want to reset the variable bounds to this equality, click No\r\n" +
              "Click cancel to stop fixing this model",
          "Equality violates bounds");
  if (answer == MsgBoxResult::kCancel) {
    Log("Model fixing aborted on equality " + name);
    return false;
  }
  const bool is_the_same =
      i <= model_.NumberOfRows && (model_.NumberOfRows == count || Row(i).Name == name);
  if (is_the_same) name = Row(i).Name;
  if (!is_the_same) {
    i -= 1;
  } else if (answer == MsgBoxResult::kYes) {
    Log("Removed equality:  " + name);
    Delete(i);
  } else {
    if (Row(i).ElementCount() > 0) {
      ColumnOfRow(i).LowerBound = lower;
      ColumnOfRow(i).UpperBound = upper;
    }
    Convert(i, "Converted row " + name + " into variable bound");
  }
  return true;
}

bool NaiveSimplifier::AskRange(std::int32_t& i, double lower, double upper) {
  std::string name = Row(i).Name;
  const std::int32_t count = model_.NumberOfRows;
  const MsgBoxResult answer = Ask("The range for row " + name + " violates bounds.\r\n" +
                                      "To remove the row, click Yes\r\n" +
                                      "To reset the column bounds to this range, click No\r\n" +
                                      "Click Cancel to stop fixing this model",
                                  "Range Violates Bounds");
  if (answer == MsgBoxResult::kCancel) {
    Log("Model fixing aborted on ranged row " + name);
    changed_ = true;
    return false;
  }
  const bool is_the_same =
      i <= model_.NumberOfRows && (model_.NumberOfRows == count || Row(i).Name == name);
  if (is_the_same) name = Row(i).Name;
  if (!is_the_same) {
    i -= 1;
  } else if (answer == MsgBoxResult::kYes) {
    Log("Removed range:  " + name);
    changed_ = true;
    Delete(i);
  } else {
    if (Row(i).ElementCount() > 0) {
      ColumnOfRow(i).LowerBound = lower;
      ColumnOfRow(i).UpperBound = upper;
    }
    Convert(i, "Converted row " + name + " into collumn bounds");
  }
  return true;
}

void NaiveSimplifier::Convert(std::int32_t& i, const std::string& line) {
  Log(line);
  changed_ = true;
  Delete(i);
}

void NaiveSimplifier::Delete(std::int32_t& i) {
  model_.RemoveRow(i);
  i -= 1;
}

void NaiveSimplifier::RemoveEmpty() {
  const std::string caption = "Progress:  Simplifying MPS Model(";
  std::int32_t limit = model_.NumberOfColumns;
  for (std::int32_t j = 1; j <= limit; ++j) {
    if (Step(1, 200, caption)) return;
    if (j > model_.NumberOfColumns) break;
    const NaiveRecord& column = At(model_.Columns, j);
    if (column.ElementCount() == 0) {
      Log("Removed empty column:  " + column.Name);
      changed_ = true;
      model_.RemoveColumn(j);
      j -= 1;
    }
    if (j == model_.NumberOfColumns) break;
  }
  limit = model_.NumberOfRows;
  for (std::int32_t i = 1; i <= limit; ++i) {
    if (Step(1, 200, caption)) return;
    if (i > model_.NumberOfRows) return;
    if (Row(i).ElementCount() == 0) {
      Log("Removed empty row:  " + Row(i).Type + " " + Row(i).Name);
      changed_ = true;
      Delete(i);
    }
    if (i == model_.NumberOfRows) return;
  }
}

void NaiveSimplifier::TellOutcome() {
  if (!changed_) {
    transcript.push_back("box 0 [Quarvel] No simplifications were made.");
    log_kept = false;
    return;
  }
  transcript.push_back(
      "box 4 [Quarvel] Model had simplifications.  Do you wish to see the log file?  If not, it "
      "can be "
      "viewed later in the same directory as the MPS file.");
  if (!user_.sees_log) return;
  transcript.push_back("editor " + log_name_);
  if (user_.editor_starts) return;
  transcript.push_back(
      "box 0 [Quarvel] Error loading log file in notepad.  The log file can be found at " +
      location_.substr(0, location_.size() - 4) + ".log");
}

bool NaiveSimplifier::Step(std::int64_t steps, std::int64_t interval, const std::string& caption) {
  counter_ += steps;
  if (counter_ % interval != 0) return false;
  transcript.push_back("frmProgress.barProgress value: " + std::to_string(counter_));
  const double ratio = static_cast<double>(counter_) / static_cast<double>(total_);
  const std::string text = caption + text::PercentText(ratio) + ")";
  if (text != caption_) transcript.push_back("caption frmProgress: " + text);
  caption_ = text;
  transcript.push_back("events");
  events_ += 1;
  Moment();
  if (events_ == user_.stops_at_event) {
    transcript.push_back("box 4 [Confirm] Are you sure you wish to stop?");
    transcript.push_back("frmProgress.cmdStop caption: Stopping...");
    stopped_ = true;
  }
  return stopped_;
}

void NaiveSimplifier::Log(const std::string& line) {
  if (model_.LogFileNumber != 0) model_.log.push_back(line);
}

MsgBoxResult NaiveSimplifier::Ask(const std::string& text, const std::string& title) {
  transcript.push_back("box 51 [" + title + "] " + text);
  Moment();
  if (user_.answers.empty()) throw std::logic_error("no answer left");
  const MsgBoxResult answer = user_.answers.front();
  user_.answers.pop_front();
  return answer;
}

void NaiveSimplifier::Moment() {
  moments_ += 1;
  const std::size_t before = model_.boxes.size();
  if (user_.calls_back) user_.calls_back(moments_);
  for (std::size_t i = before; i < model_.boxes.size(); ++i) {
    transcript.push_back("box 0 [Quarvel] " + model_.boxes[i]);
  }
}

namespace {

std::string Number(double value) {
  char buffer[40];
  std::snprintf(buffer, sizeof buffer, "%.17g", value);
  return buffer;
}

std::string TypeOf(const NaiveRecord& record) { return record.Type; }
template <class Record>
std::string TypeOf(const Record& record) {
  return model::TypeText(record.Type);
}

template <class Records>
void DumpRecords(std::string& out, const std::string& what, const Records& records) {
  for (const auto& record : records) {
    out += what + " " + record.Name + " " + TypeOf(record) + " " + Number(record.LowerBound) + " " +
           Number(record.UpperBound);
    for (const auto& entry : record.Elements) {
      out += " " + std::to_string(entry.Index) + ":" + Number(entry.Value);
    }
    out += "\n";
  }
}

template <class Numbers>
void DumpNumbers(std::string& out, const std::string& what, const Numbers& numbers) {
  out += what;
  for (const std::int32_t number : numbers) out += " " + std::to_string(number);
  out += "\n";
}

// Both models name their fields alike.
template <class Model>
std::string DumpModel(const Model& model) {
  std::string out = model.ModelName + "|" + model.ModelDescription + "|" + model.FileLocation +
                    "|" + model.strMPSFile + "\n";
  const std::vector<std::int32_t> counts = {model.NumberOfRows,
                                            model.NumberOfColumns,
                                            model.NumberOfElements,
                                            model.NumberOfBindingRows,
                                            model.NumberOfNonBindingRows,
                                            model.LogFileNumber,
                                            model.LongNameWarningShown ? 1 : 0,
                                            model.DefaultToPlusMinusInfinity ? 1 : 0};
  DumpNumbers(out, "counts", counts);
  DumpRecords(out, "row", model.Rows);
  DumpRecords(out, "column", model.Columns);
  DumpNumbers(out, "binding", model.BindingRows);
  DumpNumbers(out, "free", model.NonBindingRows);
  return out;
}

void SetType(model::RowRecord& row, const std::string& letter) {
  row.Type = model::RowTypeOf(letter);
}
void SetType(model::ColumnRecord& column, const std::string& letter) {
  column.Type = model::ColumnTypeOf(letter);
}

template <class Record>
Record ToRecord(const NaiveRecord& naive) {
  Record record;
  record.Name = naive.Name;
  SetType(record, naive.Type);
  record.LowerBound = naive.LowerBound;
  record.UpperBound = naive.UpperBound;
  for (const NaiveEntry& entry : naive.Elements) record.Elements.Append({entry.Index, entry.Value});
  return record;
}

}  // namespace

std::string Dump(const NaiveModel& model) { return DumpModel(model); }
std::string Dump(const model::ModelData& data) { return DumpModel(data); }

void Fill(model::ModelData& data, const NaiveModel& model) {
  data.ModelName = model.ModelName;
  data.ModelDescription = model.ModelDescription;
  data.FileLocation = model.FileLocation;
  for (const NaiveRecord& row : model.Rows) data.Rows.Append(ToRecord<model::RowRecord>(row));
  for (const NaiveRecord& column : model.Columns) {
    data.Columns.Append(ToRecord<model::ColumnRecord>(column));
  }
  data.NumberOfRows = model.NumberOfRows;
  data.NumberOfColumns = model.NumberOfColumns;
  data.NumberOfElements = model.NumberOfElements;
  model::RebuildRowIndexes(data);
}

}  // namespace quarvel::testing
