#include "viewer/named_record.h"

#include "model/model_interface.h"

namespace quarvel::viewer {

NamedRecord NamedRecord::Of(const model::ModelQueries& model, const model::RecordKind& kind,
                            std::int32_t number) {
  return {&kind, number, (model.*kind.name)(number)};
}

bool NamedRecord::IsIn(const model::ModelQueries& model) const {
  return HasRecord(model, *kind, number) && (model.*kind->name)(number) == name;
}

std::optional<std::int32_t> PlaceInRow(const model::ModelQueries& model, std::int32_t row,
                                       std::int32_t column) {
  const std::int32_t count = model.RowNumberElements(row);
  for (std::int32_t k = 0; k < count; ++k) {
    if (model.RowElementCol(row, k) == column) return k;
  }
  return std::nullopt;
}

std::optional<NamedElement> NamedElement::At(const model::ModelQueries& model,
                                             const model::RecordKind& kind, std::int32_t number,
                                             std::int32_t line) {
  if (line < 0 || line >= (model.*kind.elements)(number)) return std::nullopt;
  const NamedRecord record = NamedRecord::Of(model, kind, number);
  const NamedRecord other =
      NamedRecord::Of(model, kind.other, (model.*kind.element_at)(number, line));
  if (&kind == &model::kRowKind) return NamedElement{record, other, line};
  const auto place = PlaceInRow(model, other.number, number);
  if (!place) return std::nullopt;
  return NamedElement{other, record, *place};
}

bool NamedElement::IsIn(const model::ModelQueries& model) const {
  return row.IsIn(model) && column.IsIn(model) && place < model.RowNumberElements(row.number) &&
         model.RowElementCol(row.number, place) == column.number;
}

std::string NoneSelectedText(const model::RecordKind& kind) {
  return "No " + std::string(kind.title) + " Selected";
}

}  // namespace quarvel::viewer
