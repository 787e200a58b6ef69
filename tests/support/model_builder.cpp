#include "tests/support/model_builder.h"

#include <stdexcept>
#include <string>
#include <utility>

namespace quarvel {
namespace {

template <class Type>
Type TypeOfLetter(char letter, Type (*find)(std::string_view)) {
  if (letter == ModelBuilder::kNoType) return Type::kNone;
  const Type type = find(std::string_view(&letter, 1));
  if (type == Type::kNone) throw std::invalid_argument("no type has that letter");
  return type;
}

}  // namespace

ModelBuilder::ModelBuilder(LPModel& model) : model_(model) {
  ModelData& data = model_.data();
  data.Rows.Resize(data.NumberOfRows);
  data.Columns.Resize(data.NumberOfColumns);
}

ModelBuilder& ModelBuilder::Name(std::string_view name) {
  model_.data().ModelName = name;
  return *this;
}

ModelBuilder& ModelBuilder::Description(std::string_view description) {
  model_.data().ModelDescription = description;
  return *this;
}

ModelBuilder& ModelBuilder::Location(std::string_view path) {
  model_.data().FileLocation = path;
  return *this;
}

ModelBuilder& ModelBuilder::Row(std::string_view name, char type, double right_hand_side) {
  switch (type) {
    case 'N':
      return RowWithin(name, type, -BoundLimit, BoundLimit);
    case 'G':
      return RowWithin(name, type, right_hand_side, BoundLimit);
    case 'L':
      return RowWithin(name, type, -BoundLimit, right_hand_side);
    case 'E':
      return RowWithin(name, type, right_hand_side, right_hand_side);
    default:
      throw std::invalid_argument("a right-hand side gives no limits to type " +
                                  std::string(1, type));
  }
}

ModelBuilder& ModelBuilder::RowWithin(std::string_view name, char type, double lower,
                                      double upper) {
  ModelData& data = model_.data();
  RowRecord row;
  row.Name = name;
  row.Type = TypeOfLetter(type, RowTypeOf);
  row.LowerBound = lower;
  row.UpperBound = upper;
  data.Rows.Append(std::move(row));
  const std::int32_t number = ++data.NumberOfRows;
  data.row_names.MarkStale();
  if (type == 'N') {
    ++data.NumberOfNonBindingRows;
    data.NonBindingRows.Append(number);
  } else {
    ++data.NumberOfBindingRows;
    data.BindingRows.Append(number);
  }
  return *this;
}

ModelBuilder& ModelBuilder::Column(std::string_view name, double lower, double upper, char type) {
  ModelData& data = model_.data();
  ColumnRecord column;
  column.Name = name;
  column.Type = TypeOfLetter(type, ColumnTypeOf);
  column.LowerBound = lower;
  column.UpperBound = upper;
  data.Columns.Append(std::move(column));
  ++data.NumberOfColumns;
  data.column_names.MarkStale();
  return *this;
}

ModelBuilder& ModelBuilder::Element(std::string_view column, std::string_view row, double value) {
  ModelData& data = model_.data();
  const std::int32_t r = FindRow(data, row);
  const std::int32_t c = FindColumn(data, column);
  if (r == 0) throw std::invalid_argument("no row " + std::string(row));
  if (c == 0) throw std::invalid_argument("no column " + std::string(column));
  data.Rows[r].Elements.Append({c, value});
  data.Columns[c].Elements.Append({r, value});
  ++data.NumberOfElements;
  return *this;
}

}  // namespace quarvel
