#include "tests/support/model_builder.h"

#include <stdexcept>
#include <string>
#include <utility>

namespace quarvel {
namespace {

// A record is added under a name that no other has; it may be given one that another has.
constexpr std::string_view kNameForNow = "name for now";

template <class Type>
Type TypeOfLetter(char letter, Type (*find)(std::string_view)) {
  if (letter == ModelBuilder::kNoType) return Type::kNone;
  const Type type = find(std::string_view(&letter, 1));
  if (type == Type::kNone) throw std::invalid_argument("no type has that letter");
  return type;
}

}  // namespace

ModelBuilder::ModelBuilder(LPModel& model) : store_(model.store()) {
  const model::ModelData& stored = store_.data();
  if (stored.Rows.size() == stored.NumberOfRows &&
      stored.Columns.size() == stored.NumberOfColumns) {
    return;
  }
  ChangeFields(model, [](model::ModelData& data) {
    data.Rows.Resize(data.NumberOfRows);
    data.Columns.Resize(data.NumberOfColumns);
  });
}

ModelBuilder& ModelBuilder::Name(std::string_view name) {
  store_.settings().ModelName = name;
  return *this;
}

ModelBuilder& ModelBuilder::Description(std::string_view description) {
  store_.settings().ModelDescription = description;
  return *this;
}

ModelBuilder& ModelBuilder::Location(std::string_view path) {
  store_.settings().FileLocation = path;
  return *this;
}

ModelBuilder& ModelBuilder::Row(std::string_view name, char type, double right_hand_side) {
  switch (type) {
    case 'N':
      return RowWithin(name, type, -model::BoundLimit, model::BoundLimit);
    case 'G':
      return RowWithin(name, type, right_hand_side, model::BoundLimit);
    case 'L':
      return RowWithin(name, type, -model::BoundLimit, right_hand_side);
    case 'E':
      return RowWithin(name, type, right_hand_side, right_hand_side);
    default:
      throw std::invalid_argument("a right-hand side gives no limits to type " +
                                  std::string(1, type));
  }
}

ModelBuilder& ModelBuilder::RowWithin(std::string_view name, char type, double lower,
                                      double upper) {
  const bool is_taken = store_.FindRow(name) != 0;
  const std::string_view first_name = is_taken ? kNameForNow : name;
  const std::int32_t r = store_.AddRow(model::NameKey::Of(first_name), first_name);
  if (is_taken) store_.RenameRow(r, name);
  store_.RowBounds(r) = {lower, upper};
  store_.SetRowType(r, TypeOfLetter(type, model::RowTypeOf));
  return *this;
}

ModelBuilder& ModelBuilder::Column(std::string_view name, double lower, double upper, char type) {
  const bool is_taken = store_.FindColumn(name) != 0;
  const std::string_view first_name = is_taken ? kNameForNow : name;
  const std::int32_t c = store_.AddColumn(model::NameKey::Of(first_name), first_name);
  if (is_taken) store_.RenameColumn(c, name);
  store_.ColumnBounds(c) = {lower, upper};
  store_.SetColumnType(c, TypeOfLetter(type, model::ColumnTypeOf));
  return *this;
}

ModelBuilder& ModelBuilder::Element(std::string_view column, std::string_view row, double value) {
  const std::int32_t r = store_.FindRow(row);
  const std::int32_t c = store_.FindColumn(column);
  if (r == 0) throw std::invalid_argument("no row " + std::string(row));
  if (c == 0) throw std::invalid_argument("no column " + std::string(column));
  store_.AddElement(r, c, value);
  return *this;
}

}  // namespace quarvel
