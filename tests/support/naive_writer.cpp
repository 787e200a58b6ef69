#include "tests/support/naive_writer.h"

#include <cstddef>

#include "text/encoding.h"
#include "text/numbers.h"
#include "text/picture.h"

namespace quarvel::testing {
namespace {

using text::Picture;
using text::PictureText;

bool IsShortName(const std::string& name) { return text::CharacterCount(name) <= 8; }
bool IsShortValue(const std::string& value) { return value.size() <= 12; }

std::string Padded(const std::string& name) {
  return name + std::string(10 - text::CharacterCount(name), ' ');
}
std::string RightAligned(const std::string& value) {
  return std::string(12 - value.size(), ' ') + value;
}

class Writer {
 public:
  explicit Writer(const NaiveModel& model) : model_(model) {}

  NaiveFile Write() {
    if (!model_.ModelName.empty()) Line("NAME          " + model_.ModelName);
    if (!model_.ModelDescription.empty()) WriteDescription();
    if (model_.NumberOfRows >= 1) WriteRows();
    if (model_.NumberOfColumns >= 1) WriteColumns();
    if (model_.NumberOfRows >= 1) WriteRightHandSides();
    WriteRanges();
    if (model_.NumberOfColumns >= 1) WriteBounds();
    Line("ENDATA");
    return file_;
  }

 private:
  void Line(const std::string& text) { file_.text += text + "\r\n"; }
  void NotStandard() { file_.standard = false; }

  void WriteDescription() {
    std::string rest = model_.ModelDescription;
    for (;;) {
      const std::size_t end = rest.find("\r\n");
      Line("* " + rest.substr(0, end));
      if (end == std::string::npos) return;
      rest = rest.substr(end + 2);
      // Only line ends and blanks are left.
      if (rest.find_first_not_of(" \r\n") == std::string::npos) return;
    }
  }

  void WriteRows() {
    Line("ROWS");
    for (const NaiveRecord& row : model_.Rows) {
      if (row.Elements.empty()) continue;
      Line(" " + (row.Type == "R" ? "G" : row.Type) + "  " + row.Name);
    }
  }

  void WriteColumns() {
    Line("COLUMNS");
    bool has_integers = false;
    for (const NaiveRecord& column : model_.Columns) {
      if (column.Type == "I") has_integers = true;
      if (column.Type != "I") WriteElements(column);
    }
    if (!has_integers) return;
    Line("    INT       'MARKER'                 'INTORG'");
    for (const NaiveRecord& column : model_.Columns) {
      if (column.Type == "I") WriteElements(column);
    }
    Line("    INTEND    'MARKER'                 'INTEND'");
  }

  void WriteElements(const NaiveRecord& column) {
    for (const NaiveEntry& entry : column.Elements) {
      const std::string& row = model_.Rows.at(static_cast<std::size_t>(entry.Index - 1)).Name;
      const std::string value = PictureText(entry.Value, Picture::kElement);
      if (IsShortName(column.Name) && IsShortName(row) && IsShortValue(value)) {
        Line("    " + Padded(column.Name) + Padded(row) + RightAligned(value));
      } else {
        Line("    " + column.Name + "  " + row + "  " + value);
        NotStandard();
      }
    }
  }

  std::string RowPrefix(const std::string& set, const NaiveRecord& row) {
    if (IsShortName(row.Name)) return set + Padded(row.Name);
    NotStandard();
    return set + row.Name + "  ";
  }

  void RowValue(const std::string& prefix, double number) {
    const std::string value = PictureText(number, Picture::kElement);
    if (IsShortValue(value)) return Line(prefix + RightAligned(value));
    Line(prefix + "  " + value);
    NotStandard();
  }

  void WriteRightHandSides() {
    Line("RHS");
    for (const NaiveRecord& row : model_.Rows) {
      const std::string prefix = RowPrefix("    RHS       ", row);
      const std::string& type = row.Type;
      if ((type == "E" || type == "G" || type == "R") && row.LowerBound != 0) {
        RowValue(prefix, row.LowerBound);
      } else if (type == "L" && row.UpperBound != 0) {
        RowValue(prefix, row.UpperBound);
      }
    }
  }

  void WriteRanges() {
    bool has_header = false;
    for (const NaiveRecord& row : model_.Rows) {
      if (row.Type != "R") continue;
      if (!has_header) Line("RANGES");
      has_header = true;
      RowValue(RowPrefix("    RANGE     ", row), row.UpperBound - row.LowerBound);
    }
  }

  void WriteBounds() {
    Line("BOUNDS");
    for (const NaiveRecord& column : model_.Columns) {
      WriteLower(column);
      WriteUpper(column);
    }
  }

  void WriteLower(const NaiveRecord& column) {
    const double lower = column.LowerBound;
    const std::string value = PictureText(lower, Picture::kBound);
    const bool due = lower != 0 && lower != column.UpperBound && lower != -1e10;
    if (IsShortName(column.Name) && IsShortValue(value)) {
      if (due) Line(" LO BOUND     " + Padded(column.Name) + RightAligned(value));
    } else {
      if (due) Line(" LO BOUND     " + column.Name + "  " + text::GeneralText(lower));
      NotStandard();
    }
  }

  void WriteUpper(const NaiveRecord& column) {
    const double upper = column.UpperBound;
    const double lower = column.LowerBound;
    const std::string value = PictureText(upper, Picture::kBound);
    const bool is_short = IsShortName(column.Name) && IsShortValue(value);
    const std::string code = upper == lower ? "FX" : "UP";
    if (upper != lower && lower == -1e10 && upper == 1e10) {
      Line(" FR BOUND     " + column.Name);
      NotStandard();
    } else if (upper != lower && upper == 1e10) {
      return;
    } else if (is_short) {
      Line(" " + code + " BOUND     " + Padded(column.Name) + RightAligned(value));
    } else if (code == "FX") {
      Line(" FX BOUND     " + column.Name + "  " + text::GeneralText(upper));
    } else {
      Line(" UP BOUND     " + column.Name + "  " + PictureText(upper, Picture::kWideBound));
    }
  }

  const NaiveModel& model_;
  NaiveFile file_;
};

}  // namespace

NaiveFile WriteNaively(const NaiveModel& model) { return Writer(model).Write(); }

}  // namespace quarvel::testing
