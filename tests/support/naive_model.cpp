#include "tests/support/naive_model.h"

#include <algorithm>
#include <cstddef>

#include "platform/automation_error.h"
#include "text/encoding.h"

namespace quarvel::testing {
namespace {

// Entry `number` of a list numbered from 1.
template <class List>
auto& At(List& list, std::int64_t number) {
  if (number < 1 || number > static_cast<std::int64_t>(list.size())) {
    RaiseRunTimeError(RunTimeError::kSubscriptOutOfRange);
  }
  return list[static_cast<std::size_t>(number - 1)];
}

template <class List>
void DropAt(List& list, std::int32_t number) {
  list.erase(list.begin() + (number - 1));
}

bool HasName(const std::vector<NaiveRecord>& records, std::int32_t count, const std::string& name) {
  for (std::int32_t i = 1; i <= count; ++i) {
    if (At(records, i).Name == name) return true;
  }
  return false;
}

bool HasSpace(const std::string& name) { return name.find(' ') != std::string::npos; }

bool DropFirst(std::vector<NaiveEntry>& list, std::int32_t number) {
  for (std::size_t k = 0; k < list.size(); ++k) {
    if (list[k].Index == number) {
      list.erase(list.begin() + static_cast<std::ptrdiff_t>(k));
      return true;
    }
  }
  return false;
}

void LowerAbove(std::vector<NaiveEntry>& list, std::int32_t number) {
  for (NaiveEntry& entry : list) {
    if (entry.Index > number) entry.Index -= 1;
  }
}

NaiveRecord Placeholder(const std::string& name, const std::string& type) {
  return {.Name = name, .Type = type, .LowerBound = 0, .UpperBound = 1e10, .Elements = {}};
}

}  // namespace

void NaiveModel::MakeNewModel() {
  ClearModel();
  Columns.push_back(Placeholder("COL1", "R"));
  Rows.push_back(Placeholder("ROW1", "L"));
}

void NaiveModel::ClearModel() {
  ModelName = ModelDescription = FileLocation = strMPSFile = "";
  NumberOfColumns = NumberOfRows = NumberOfElements = 0;
  Columns.clear();
  Rows.clear();
  LogFileNumber = 0;
}

void NaiveModel::RebuildRowIndexes() {
  NumberOfBindingRows = NumberOfNonBindingRows = 0;
  BindingRows.clear();
  NonBindingRows.clear();
  for (std::int32_t i = 1; i <= NumberOfRows; ++i) {
    if (At(Rows, i).Type != "N") {
      NumberOfBindingRows += 1;
      BindingRows.push_back(i);
    } else {
      NumberOfNonBindingRows += 1;
      NonBindingRows.push_back(i);
    }
  }
}

bool NaiveModel::RefusesColumn(std::int32_t j, const std::string& operation) {
  const std::int64_t n = std::int64_t{j} + 1;
  if (n >= 1 && n <= NumberOfColumns) return false;
  Box("Invalid Column number when attempting to " + operation + "()");
  return true;
}

bool NaiveModel::RefusesRow(std::int32_t i, const std::string& operation) {
  const std::int64_t n = std::int64_t{i} + 1;
  if (n >= 1 && n <= NumberOfRows) return false;
  Box("Invalid Row number when attempting to " + operation + "()");
  return true;
}

void NaiveModel::SetColUpperBound(std::int32_t j, const model::Variant& value) {
  if (!RefusesColumn(j, "SetColUpperBound")) At(Columns, j + 1).UpperBound = value.ToDouble();
}

void NaiveModel::SetColLowerBound(std::int32_t j, const model::Variant& value) {
  if (!RefusesColumn(j, "SetColLowerBound")) At(Columns, j + 1).LowerBound = value.ToDouble();
}

void NaiveModel::SetColName(std::int32_t col, const model::Variant& value) {
  if (RefusesColumn(col, "SetColName")) return;
  const std::string name = value.ToText();
  if (HasSpace(name)) return Box("Spaces are not allowed in column names");
  if (name == "") return Box("Invalid Name");
  if (HasName(Columns, NumberOfColumns, name)) return Box("That name is already in use");
  At(Columns, col + 1).Name = name;
}

void NaiveModel::SetColType(std::int32_t j, const model::Variant& value) {
  if (RefusesColumn(j, "SetColType")) return;
  const std::string type = value.ToText();
  if (type != "R" && type != "I") return Box("Invalid Column Type");
  At(Columns, j + 1).Type = type;
}

void NaiveModel::SetModelDescription(const model::Variant& value) {
  ModelDescription = value.ToText();
}

void NaiveModel::SetModelName(const model::Variant& value) { ModelName = value.ToText(); }

void NaiveModel::SetRowName(std::int32_t row, const model::Variant& value) {
  if (RefusesRow(row, "SetRowName")) return;
  const std::string name = value.ToText();
  if (HasSpace(name)) return Box("Spaces are not allowed in row names");
  if (name == "") return Box("Invalid Name");
  if (HasName(Rows, NumberOfRows, name)) return Box("That name is already in use");
  At(Rows, row + 1).Name = name;
}

void NaiveModel::SetRowElementValue(std::int32_t row, std::int32_t rowele,
                                    const model::Variant& value) {
  if (RefusesRow(row, "SetRowElementValue")) return;
  const std::int32_t r = row + 1;
  const std::int64_t k = std::int64_t{rowele} + 1;
  if (k < 1 || k > At(Rows, r).ElementCount()) {
    return Box("Invalid Element number when attempting to SetRowElementValue()");
  }
  NaiveEntry& entry = At(At(Rows, r).Elements, k);
  entry.Value = value.ToDouble();
  for (NaiveEntry& other : At(Columns, entry.Index).Elements) {
    if (other.Index == r) {
      other.Value = entry.Value;
      return;
    }
  }
}

void NaiveModel::SetRowType(std::int32_t i, const model::Variant& value) {
  const std::string old_type = At(Rows, std::int64_t{i} + 1).Type;
  if (RefusesRow(i, "SetRowType")) return;
  const std::string type = value.ToText();
  if (type != "E" && type != "R" && type != "L" && type != "G" && type != "N") {
    return Box("Invalid Row Type");
  }
  At(Rows, i + 1).Type = type;
  if (old_type != "") {
    if ((type == "N" && old_type != "N") || (type != "N" && old_type == "N")) RebuildRowIndexes();
  } else if (type == "N") {
    NumberOfNonBindingRows += 1;
    NonBindingRows.push_back(NumberOfRows);
  } else {
    NumberOfBindingRows += 1;
    BindingRows.push_back(NumberOfRows);
  }
}

void NaiveModel::SetRowLowerBound(std::int32_t i, const model::Variant& value) {
  if (!RefusesRow(i, "SetRowLowerBound")) At(Rows, i + 1).LowerBound = value.ToDouble();
}

void NaiveModel::SetRowUpperBound(std::int32_t i, const model::Variant& value) {
  if (!RefusesRow(i, "SetRowUpperBound")) At(Rows, i + 1).UpperBound = value.ToDouble();
}

void NaiveModel::AddElement(std::int32_t row, std::int32_t col, double val) {
  const std::int64_t r = std::int64_t{row} + 1;
  const std::int64_t c = std::int64_t{col} + 1;
  if (r < 1 || r > NumberOfRows || c < 1 || c > NumberOfColumns) {
    return Box("Invalid row or column given when attempting to AddElement()");
  }
  At(Rows, r).Elements.push_back({col + 1, val});
  At(Columns, c).Elements.push_back({row + 1, val});
  NumberOfElements += 1;
}

void NaiveModel::WarnOfLongName(const std::string& name) {
  if (text::CharacterCount(name) <= 8 || LongNameWarningShown) return;
  Box("The name you entered had more than 8 characters.  In a standard MPS file, names can be no "
      "longer than 8 "
      "characters.  If you wish your model to be standard, please reset the name to have 8 or "
      "fewer characters");
  LongNameWarningShown = true;
}

std::int16_t NaiveModel::AddRow(const std::string& RowName) {
  if (HasSpace(RowName)) {
    Box("Row not added:  spaces are not allowed in row names");
    return 0;
  }
  if (RowName == "") {
    Box("Row not added:  empty name given");
    return 0;
  }
  if (HasName(Rows, NumberOfRows, RowName)) {
    Box("Row not added:  that name is already in use");
    return 0;
  }
  NumberOfRows += 1;
  Rows.resize(static_cast<std::size_t>(NumberOfRows));
  At(Rows, NumberOfRows).Name = RowName;
  WarnOfLongName(RowName);
  return -1;
}

std::int16_t NaiveModel::AddColumn(const std::string& ColName) {
  if (HasSpace(ColName)) {
    Box("Column not added:  spaces are not allowed in column names");
    return 0;
  }
  if (ColName == "") {
    Box("Column not added:  empty name given");
    return 0;
  }
  if (HasName(Columns, NumberOfColumns, ColName)) {
    Box("Column not added:  that name is already in use");
    return 0;
  }
  NumberOfColumns += 1;
  Columns.resize(static_cast<std::size_t>(NumberOfColumns));
  NaiveRecord& column = At(Columns, NumberOfColumns);
  column.Name = ColName;
  column.UpperBound = 1e10;
  column.Type = "R";
  WarnOfLongName(ColName);
  return -1;
}

std::int16_t NaiveModel::DeleteRow(std::int32_t row) {
  const std::int64_t r = std::int64_t{row} + 1;
  if (NumberOfRows == 1) {
    Box("Cannot remove the only row.\r\nRename it instead of removing it and creating a new one.");
  } else if (r >= 1 && r <= NumberOfRows) {
    RemoveRow(row + 1);
  }
  return -1;
}

std::int16_t NaiveModel::DeleteColumn(std::int32_t col) {
  const std::int64_t c = std::int64_t{col} + 1;
  if (NumberOfColumns == 1) {
    Box("Cannot remove the only column.\r\n"
        "Rename it instead of removing it and creating a new one.");
  } else if (c >= 1 && c <= NumberOfColumns) {
    RemoveColumn(col + 1);
  }
  return -1;
}

std::int16_t NaiveModel::DeleteElement(std::int32_t row, std::int32_t ele) {
  const std::int64_t r = std::int64_t{row} + 1;
  const std::int64_t k = std::int64_t{ele} + 1;
  if (r < 1 || r > NumberOfRows) return 0;
  if (At(Rows, r).ElementCount() == 1 && k == 1) {
    RemoveRow(row + 1);
  } else {
    // The greatest element number is as far outside every list as 0 is.
    RemoveElement(row + 1, k > INT32_MAX ? 0 : static_cast<std::int32_t>(k));
  }
  return -1;
}

void NaiveModel::RemoveRow(std::int32_t r) {
  DropAt(Rows, r);
  NumberOfRows -= 1;
  for (std::int32_t c = 1; c <= NumberOfColumns; ++c) {
    if (DropFirst(At(Columns, c).Elements, r)) NumberOfElements -= 1;
  }
  for (std::int32_t c = 1; c <= NumberOfColumns; ++c) LowerAbove(At(Columns, c).Elements, r);
  RebuildRowIndexes();
}

void NaiveModel::RemoveColumn(std::int32_t c) {
  DropAt(Columns, c);
  NumberOfColumns -= 1;
  std::vector<std::int32_t> emptied;
  for (std::int32_t r = 1; r <= NumberOfRows; ++r) {
    if (!DropFirst(At(Rows, r).Elements, c)) continue;
    NumberOfElements -= 1;
    if (At(Rows, r).Elements.empty()) emptied.push_back(r);
  }
  for (std::int32_t r = 1; r <= NumberOfRows; ++r) LowerAbove(At(Rows, r).Elements, c);
  for (std::size_t i = 0; i < emptied.size(); ++i) {
    const NaiveRecord& row = At(Rows, emptied[i]);
    if (LogFileNumber != 0) log.push_back("Removed empty row:  " + row.Type + " " + row.Name);
    RemoveRow(emptied[i]);
    for (std::size_t later = i + 1; later < emptied.size(); ++later) emptied[later] -= 1;
  }
}

void NaiveModel::RemoveElement(std::int32_t r, std::int32_t k) {
  const std::int32_t c = At(At(Rows, r).Elements, k).Index;
  if (At(Rows, r).ElementCount() == 1) {
    RemoveRow(r);
    return;
  }
  DropFirst(At(Columns, c).Elements, r);
  DropAt(At(Rows, r).Elements, k);
  NumberOfElements -= 1;
}

}  // namespace quarvel::testing
