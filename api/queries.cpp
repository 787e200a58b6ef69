// Queries by number and by name.

#include "api/parts.h"
#include "api/row_types.h"
#include "model/equation.h"

namespace quarvel {
namespace {

using api::Translated;

std::int32_t RowNumber(const ModelParts& parts, std::int32_t row) {
  return model::CheckRow(row, parts.store.NumberOfRows());
}

std::int32_t ColumnNumber(const ModelParts& parts, std::int32_t column) {
  return model::CheckColumn(column, parts.store.NumberOfColumns());
}

std::optional<std::int32_t> PublicNumber(std::int32_t number) {
  if (number == 0) return std::nullopt;
  return model::Public(number);
}

Bounds PublicBounds(const model::Bounds& bounds) { return {bounds.LowerBound, bounds.UpperBound}; }

Element PublicElement(const model::ElementEntry& entry) {
  return {model::Public(entry.Index), entry.Value};
}

std::vector<Element> PublicElements(const model::ElementList& list) {
  std::vector<Element> elements;
  elements.reserve(static_cast<std::size_t>(list.size()));
  for (const model::ElementEntry& entry : list) elements.push_back(PublicElement(entry));
  return elements;
}

}  // namespace

std::optional<std::int32_t> Model::FindRow(std::string_view name) const {
  return Translated([&] { return PublicNumber(parts_->store.FindRow(name)); });
}

std::string Model::NameOfRow(std::int32_t row) const {
  return Translated(
      [&] { return std::string(parts_->store.looks().NameOfRow(RowNumber(*parts_, row))); });
}

RowType Model::TypeOfRow(std::int32_t row) const {
  return Translated(
      [&] { return api::PublicType(parts_->store.looks().TypeOfRow(RowNumber(*parts_, row))); });
}

Bounds Model::BoundsOfRow(std::int32_t row) const {
  return Translated(
      [&] { return PublicBounds(parts_->store.looks().BoundsOfRow(RowNumber(*parts_, row))); });
}

std::int32_t Model::ElementsInRow(std::int32_t row) const {
  return Translated([&] { return parts_->store.ElementsInRow(RowNumber(*parts_, row)); });
}

Element Model::RowElement(std::int32_t row, std::int32_t k) const {
  return Translated([&] {
    const std::int32_t r = RowNumber(*parts_, row);
    const std::int32_t count = parts_->store.ElementsInRow(r);
    return PublicElement(parts_->store.looks().RowElement(r, model::CheckRowElement(k, count)));
  });
}

std::optional<std::int32_t> Model::FindColumn(std::string_view name) const {
  return Translated([&] { return PublicNumber(parts_->store.FindColumn(name)); });
}

std::string Model::NameOfColumn(std::int32_t column) const {
  return Translated([&] {
    return std::string(parts_->store.looks().NameOfColumn(ColumnNumber(*parts_, column)));
  });
}

ColumnType Model::TypeOfColumn(std::int32_t column) const {
  return Translated([&] {
    return api::PublicType(parts_->store.looks().TypeOfColumn(ColumnNumber(*parts_, column)));
  });
}

Bounds Model::BoundsOfColumn(std::int32_t column) const {
  return Translated([&] {
    return PublicBounds(parts_->store.looks().BoundsOfColumn(ColumnNumber(*parts_, column)));
  });
}

std::int32_t Model::ElementsInColumn(std::int32_t column) const {
  return Translated(
      [&] { return parts_->store.looks().ElementsInColumn(ColumnNumber(*parts_, column)); });
}

Element Model::ColumnElement(std::int32_t column, std::int32_t k) const {
  return Translated([&] {
    const model::RecordLooks looks = parts_->store.looks();
    const std::int32_t c = ColumnNumber(*parts_, column);
    const std::int32_t number = model::CheckColumnElement(k, looks.ElementsInColumn(c));
    return PublicElement(looks.ColumnElement(c, number));
  });
}

double Model::Coefficient(std::int32_t row, std::int32_t column) const {
  return Translated([&] {
    return parts_->store.looks().ElementValue(RowNumber(*parts_, row),
                                              ColumnNumber(*parts_, column));
  });
}

std::vector<Element> ElementsOfRow(const Model& model, std::int32_t row) {
  const ModelParts& parts = ModelAccess::Of(model);
  return Translated(
      [&] { return PublicElements(parts.store.Row(RowNumber(parts, row)).Elements); });
}

std::vector<Element> ElementsOfColumn(const Model& model, std::int32_t column) {
  const ModelParts& parts = ModelAccess::Of(model);
  return Translated(
      [&] { return PublicElements(parts.store.Column(ColumnNumber(parts, column)).Elements); });
}

std::string EquationOfRow(const Model& model, std::int32_t row) {
  const ModelParts& parts = ModelAccess::Of(model);
  return Translated([&] {
    const std::int32_t r = RowNumber(parts, row);
    const model::ModelData& data = parts.store.data();
    const model::RowRecord& record = data.Rows[r];
    if (record.ElementCount() == 0) return model::EmptyRowText(record);
    std::string text = model::EquationStart(record);
    for (const model::ElementEntry& entry : record.Elements) model::AppendTerm(text, data, entry);
    return text + model::EquationEnd(record);
  });
}

double ActivityOfRow(const Model& model, std::int32_t row, std::span<const double> point) {
  const ModelParts& parts = ModelAccess::Of(model);
  return Translated([&] {
    const model::RowRecord& record = parts.store.Row(RowNumber(parts, row));
    if (point.size() < static_cast<std::size_t>(parts.store.NumberOfColumns())) {
      throw Error(ErrorCode::kIndex, "The point has fewer values than there are columns");
    }
    double activity = 0;
    for (const model::ElementEntry& entry : record.Elements) {
      activity += entry.Value * point[static_cast<std::size_t>(model::Public(entry.Index))];
    }
    return activity;
  });
}

}  // namespace quarvel
