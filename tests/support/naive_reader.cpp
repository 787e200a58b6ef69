#include "tests/support/naive_reader.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <optional>
#include <utility>

#include "text/encoding.h"
#include "text/numbers.h"
#include "text/picture.h"
#include "text/upper_case.h"

namespace quarvel::testing {
namespace {

using platform::MsgBoxResult;
using platform::MsgBoxStyle;
using platform::ShownBox;

constexpr std::size_t kLongestLine = 1048576;
const std::string kRead = "MPS file read error: ";
const std::string kCheck = "Quarvel.dll error: ";

struct Problem {
  std::string description;
};
struct StopConfirmed {};
struct ProblemRefused {};
struct WarningRefused {};

std::string Utf8(std::string_view bytes) {
  return text::IsValidUtf8(bytes) ? std::string(bytes) : text::Windows1252ToUtf8(bytes);
}

std::string Trim(const std::string& text) {
  std::size_t from = 0;
  std::size_t to = text.size();
  while (from < to && text[from] == ' ') ++from;
  while (to > from && text[to - 1] == ' ') --to;
  return text.substr(from, to - from);
}

std::vector<std::string> UpperCaseTokens(const std::string& line) {
  std::vector<std::string> tokens;
  std::string token;
  for (const char c : line + " ") {
    if (c != ' ') {
      token += c;
    } else if (!token.empty()) {
      tokens.push_back(text::UpperCase(token));
      token.clear();
    }
  }
  return tokens;
}

// 0 when there is none.
std::int32_t NumberOf(const std::map<std::string, std::int32_t>& numbers, const std::string& name) {
  const auto found = numbers.find(name);
  return found == numbers.end() ? 0 : found->second;
}

NaiveRecord& At(std::vector<NaiveRecord>& records, std::int32_t number) {
  return records.at(static_cast<std::size_t>(number - 1));
}

void ApplyRhs(NaiveRecord& row, double value) {
  if (row.Type == "E") {
    row.LowerBound = value;
    row.UpperBound = value;
  } else if (row.Type == "L") {
    row.UpperBound = value;
    row.LowerBound = -1e10;
  } else if (row.Type == "G") {
    row.LowerBound = value;
  }
}

void ApplyRange(NaiveRecord& row, double range) {
  if (row.Type == "G") {
    row.UpperBound = row.LowerBound + std::fabs(range);
  } else if (row.Type == "L") {
    row.LowerBound = row.UpperBound - std::fabs(range);
  } else if (row.Type == "E" && range > 0) {
    row.UpperBound = row.LowerBound + range;
  } else if (row.Type == "E") {
    row.LowerBound = row.LowerBound - range;
  }
}

void ApplyBound(NaiveRecord& column, const std::string& code, double value) {
  if (code == "LO" || code == "FX") column.LowerBound = value;
  if (code == "UP" || code == "FX") column.UpperBound = value;
  if (code == "MI" || code == "FR") column.LowerBound = -1e10;
  if (code == "PL" || code == "FR") column.UpperBound = 1e10;
}

std::string TypeFromBounds(const NaiveRecord& row) {
  const int limits = (row.LowerBound > -1e10 ? 1 : 0) + (row.UpperBound < 1e10 ? 2 : 0);
  if (limits == 3) return row.LowerBound == row.UpperBound ? "E" : "R";
  return limits == 0 ? "N" : limits == 1 ? "G" : "L";
}

}  // namespace

std::vector<NaiveLine> SplitIntoLines(std::string_view bytes) {
  if (bytes.starts_with("\xEF\xBB\xBF")) bytes.remove_prefix(3);
  std::vector<NaiveLine> lines;
  while (!bytes.empty()) {
    const std::size_t length = std::min(bytes.find_first_of("\r\n"), bytes.size());
    const bool too_long = length > kLongestLine;
    lines.push_back({Utf8(bytes.substr(0, length)), too_long});
    bytes.remove_prefix(length);
    if (bytes.starts_with("\r\n")) {
      bytes.remove_prefix(2);
    } else if (!bytes.empty()) {
      bytes.remove_prefix(1);
    }
  }
  return lines;
}

MsgBoxResult NaiveReader::Ask(const std::string& text, MsgBoxStyle style,
                              const std::string& title) {
  boxes.push_back({text, style, title});
  return answer_(boxes.back());
}

void NaiveReader::Read(std::string_view bytes) {
  Start();
  try {
    ReadLines(bytes);
    CheckAndFinish();
  } catch (const StopConfirmed&) {
    ReadMPSFileErr = 0;
    model_.ClearModel();
  } catch (const ProblemRefused&) {
    ReadMPSFileErr = 0;
  } catch (const WarningRefused&) {
    ReadMPSFileErr = 0;
    window_left_open = true;
  }
}

void NaiveReader::Start() {
  ReadMPSFileErr = -1;
  model_.NumberOfRows = 0;
  model_.NumberOfColumns = 0;
  model_.NumberOfElements = 0;
  model_.NumberOfBindingRows = 0;
  model_.NumberOfNonBindingRows = 0;
  model_.Rows.clear();
  model_.Columns.clear();
  model_.BindingRows.clear();
  model_.NonBindingRows.clear();
  model_.ModelName.clear();
  model_.ModelDescription.clear();
}

void NaiveReader::ReadLines(std::string_view bytes) {
  for (const NaiveLine& line : SplitIntoLines(bytes)) {
    ++line_number_;
    characters_read_ += static_cast<std::int64_t>(text::CharacterCount(line.text));
    if (line_number_ % 100 == 0) TellProgress(bytes.size());
    bool goes_on = true;
    Guard([&] { goes_on = UseLine(line); });
    if (!goes_on) return;
  }
}

void NaiveReader::TellProgress(std::size_t file_length) {
  const double read = static_cast<double>(characters_read_) / static_cast<double>(file_length);
  captions.push_back("Progress:  Reading MPS File (" + text::PercentText(read) + ")");
  if (stopped_at && stopped_at(line_number_ / 100)) throw StopConfirmed();
}

bool NaiveReader::UseLine(const NaiveLine& line) {
  if (line.too_long) throw Problem{kRead + "a line is longer than 1048576 bytes " + InLine()};
  if (line.text.empty()) return true;
  if (line.text[0] == '*' && section_ == Section::kStart) {
    if (!model_.ModelDescription.empty()) model_.ModelDescription += "\r\n";
    model_.ModelDescription += Trim(line.text.substr(1));
    return true;
  }
  const Tokens tokens = UpperCaseTokens(line.text);
  if (!tokens.empty() && line.text[0] != ' ') {
    if (tokens[0] == "ENDATA") return false;
    if (UseHeader(line.text, tokens)) return true;
  }
  UseData(tokens);
  return true;
}

bool NaiveReader::UseHeader(const std::string& line, const Tokens& tokens) {
  if (text::UpperCaseAscii(line[0]) != tokens[0][0]) return false;
  if (tokens[0] == "NAME") {
    if (tokens.size() > 1) model_.ModelName = tokens[1];
    return false;
  }
  const std::pair<std::string, Section> headers[] = {{"ROWS", Section::kRows},
                                                     {"COLUMNS", Section::kColumns},
                                                     {"RHS", Section::kRhs},
                                                     {"RANGES", Section::kRanges},
                                                     {"BOUNDS", Section::kBounds}};
  for (const auto& [keyword, section] : headers) {
    if (tokens[0] != keyword) continue;
    section_ = section;
    return true;
  }
  return false;
}

void NaiveReader::UseData(const Tokens& tokens) {
  switch (section_) {
    case Section::kStart:
      return;
    case Section::kRows:
      return UseRow(tokens);
    case Section::kColumns:
      return UseColumn(tokens);
    case Section::kRhs:
      return UseRowValues(tokens, "RHSs", ApplyRhs);
    case Section::kRanges:
      return UseRowValues(tokens, "ranges", ApplyRange);
    case Section::kBounds:
      return UseBound(tokens);
  }
}

void NaiveReader::UseRow(const Tokens& tokens) {
  const std::string number = std::to_string(line_number_);
  if (tokens.size() != 2) throw Problem{kRead + "insufficent tokens in line " + number};
  const std::string& type = tokens[0];
  if (type != "E" && type != "G" && type != "L" && type != "N") {
    throw Problem{kRead + "improper row type " + InLine()};
  }
  if (NumberOf(row_numbers_, tokens[1]) != 0) {
    throw Problem{kRead + "row name appears for a second time (" + number + ")"};
  }
  AddRow(tokens[1], type);
}

void NaiveReader::AddRow(const std::string& name, const std::string& type) {
  NaiveRecord row;
  row.Name = name;
  row.Type = type;
  row.LowerBound = type == "L" || type == "N" ? -1e10 : 0;
  row.UpperBound = type == "G" || type == "N" ? 1e10 : 0;
  model_.Rows.push_back(row);
  row_numbers_[name] = ++model_.NumberOfRows;
}

void NaiveReader::AddColumn(const std::string& name) {
  NaiveRecord column;
  column.Name = name;
  column.Type = CurrentColumnType;
  column.LowerBound = model_.DefaultToPlusMinusInfinity ? -1e10 : 0;
  column.UpperBound = 1e10;
  model_.Columns.push_back(column);
  column_numbers_[name] = ++model_.NumberOfColumns;
}

void NaiveReader::UseColumn(const Tokens& tokens) {
  RequireTokens(tokens.size() == 3 || tokens.size() == 5);
  if (model_.NumberOfRows < 1) {
    throw Problem{kRead + "no rows yet, but reading columns " + InLine()};
  }
  std::int32_t column = NumberOf(column_numbers_, tokens[0]);
  if (column == 0 && tokens[1] == "'MARKER'") {
    if (tokens[2] == "'INTORG'") CurrentColumnType = "I";
    if (tokens[2] == "'INTEND'") CurrentColumnType = "R";
    return;
  }
  if (column == 0) {
    AddColumn(tokens[0]);
    column = model_.NumberOfColumns;
  }
  for (std::size_t i = 1; i + 1 < tokens.size(); i += 2) {
    Guard([&] {
      const double value = Number(tokens[i + 1]);
      const std::int32_t row = RowNumber(tokens[i]);
      if (value == 0) return;
      ++model_.NumberOfElements;
      At(model_.Columns, column).Elements.push_back({row, value});
      At(model_.Rows, row).Elements.push_back({column, value});
    });
  }
}

void NaiveReader::UseRowValues(const Tokens& tokens, const std::string& what,
                               const std::function<void(NaiveRecord&, double)>& apply) {
  RequireTokens(tokens.size() == 3 || tokens.size() == 5);
  if (model_.NumberOfRows < 1) {
    throw Problem{kRead + "no rows yet, but reading " + what + " " + InLine()};
  }
  for (std::size_t i = 1; i + 1 < tokens.size(); i += 2) {
    Guard([&] {
      const double value = Number(tokens[i + 1]);
      apply(At(model_.Rows, RowNumber(tokens[i])), value);
    });
  }
}

void NaiveReader::UseBound(const Tokens& tokens) {
  if (model_.NumberOfColumns < 1) {
    throw Problem{kRead + "no variables yet, but reading bounds " + InLine()};
  }
  RequireTokens(tokens.size() >= 3);
  const std::string& code = tokens[0];
  const bool needs_value = code == "LO" || code == "UP" || code == "FX";
  if (!needs_value && code != "FR" && code != "MI" && code != "PL") {
    throw Problem{kRead + "improper bounds code " + InLine()};
  }
  double value = 0;
  if (needs_value) {
    if (tokens.size() != 4) throw Problem{"MPS file error: too few tokens " + InLine()};
    value = Number(tokens[3]);
  }
  const std::int32_t column = NumberOf(column_numbers_, tokens[2]);
  if (column == 0) throw Problem{kRead + "no match for variable name " + InLine()};
  ApplyBound(At(model_.Columns, column), code, value);
}

void NaiveReader::CheckAndFinish() {
  Guard([&] {
    if (model_.NumberOfRows < 1) throw Problem{kCheck + "no rows"};
  });
  Guard([&] {
    if (model_.NumberOfColumns < 1) throw Problem{kCheck + "no columns"};
  });
  Guard([&] {
    if (model_.NumberOfElements < 1) throw Problem{kCheck + "no elements"};
  });
  for (const NaiveRecord& column : model_.Columns) CheckItem(column, "variable ", "column ");
  for (const NaiveRecord& row : model_.Rows) CheckItem(row, "row ", "row ");
  Guard([&] {
    if (!empty_items_accepted_) return;
    throw Problem{kCheck + "rows or columns with no elements, as noted in warnings."};
  });
  for (NaiveRecord& row : model_.Rows) row.Type = TypeFromBounds(row);
  model_.RebuildRowIndexes();
  Ask("Do you want to simplify the model?\r\nThis will remove empty rows and columns, and will "
      "convert any rows with just one element into equivalent column bounds",
      MsgBoxStyle::kYesNo, "Quarvel");
}

void NaiveReader::CheckItem(const NaiveRecord& record, const std::string& what,
                            const std::string& kind) {
  Guard([&] {
    if (record.LowerBound > record.UpperBound) {
      throw Problem{kCheck + "bounds reversed on " + what + record.Name};
    }
  });
  if (record.ElementCount() > 0) return;
  const std::string text =
      "Warning: no elements for " + kind + record.Name + "\r\nContinue reading MPS file?";
  if (Ask(text, MsgBoxStyle::kYesNoExclamation, "LPModel: reading MPS file...") ==
      MsgBoxResult::kNo) {
    throw WarningRefused();
  }
  empty_items_accepted_ = true;
}

void NaiveReader::RequireTokens(bool right) const {
  if (!right) throw Problem{kRead + "improper number of tokens " + InLine()};
}

std::int32_t NaiveReader::RowNumber(const std::string& name) const {
  const std::int32_t number = NumberOf(row_numbers_, name);
  if (number == 0) throw Problem{kRead + "no match for row name " + InLine()};
  return number;
}

double NaiveReader::Number(const std::string& token) const {
  const std::optional<double> value = text::ParseNumber(token);
  if (!value) throw Problem{kRead + "needs numeric value " + InLine()};
  return *value;
}

std::string NaiveReader::InLine() const { return "(line " + std::to_string(line_number_) + ")"; }

void NaiveReader::Guard(const std::function<void()>& step) {
  try {
    step();
  } catch (const Problem& problem) {
    const std::string text =
        problem.description + "\r\nWould you like to continue reading this MPS file?";
    if (Ask(text, MsgBoxStyle::kYesNo, "Error.  Continue Reading MPS File?") == MsgBoxResult::kNo) {
      throw ProblemRefused();
    }
  }
}

}  // namespace quarvel::testing
