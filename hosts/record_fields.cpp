#include "hosts/record_fields.h"

#include <algorithm>

#include "hosts/printing.h"
#include "hosts/streams.h"
#include "text/edit_distance.h"
#include "text/numbers.h"
#include "text/visible_text.h"

namespace quarvel::hosts {
namespace {

using Listed = ListedModel;

constexpr std::size_t kBoundWidth = 15;
constexpr std::size_t kCountWidth = 8;

// clang-format off
constexpr RecordField kFields[] = {
    // key, heading, json, of_rows, of_columns, is_left, width
    {"index", "Index", "index", true, true, false, 5,
     [](const Listed&, std::int32_t i) -> FieldValue { return i; }},
    {"name", "Name", "name", true, true, true, 0,
     [](const Listed& l, std::int32_t i) -> FieldValue { return (l.model.*l.kind.name)(i); }},
    {"type", "Type", "type", true, true, true, 4,
     [](const Listed& l, std::int32_t i) -> FieldValue { return (l.model.*l.kind.type)(i); }},
    {"lower", "Lower", "lowerBound", true, true, false, kBoundWidth,
     [](const Listed& l, std::int32_t i) -> FieldValue { return AsLower((l.model.*l.kind.lower)(i)); }},
    {"upper", "Upper", "upperBound", true, true, false, kBoundWidth,
     [](const Listed& l, std::int32_t i) -> FieldValue { return AsUpper((l.model.*l.kind.upper)(i)); }},
    {"elements", "Elements", "elements", true, true, false, kCountWidth,
     [](const Listed& l, std::int32_t i) -> FieldValue { return (l.model.*l.kind.elements)(i); }},
    {"objective", "Objective", "objective", false, true, false, kBoundWidth,
     [](const Listed& l, std::int32_t i) -> FieldValue { return l.ObjectiveCoefficient(i); }},
    {"equation", "Equation", "equation", true, false, true, 0,
     [](const Listed& l, std::int32_t i) -> FieldValue { return l.model.RowEquation(i); }},
};
// clang-format on

constexpr std::string_view kUsual[] = {"index", "name", "type", "lower", "upper", "elements"};
constexpr std::string_view kUsualEquations[] = {"index", "name", "equation"};

std::int32_t ObjectiveOf(const LPModel& model, std::string_view name) {
  const std::int32_t number = name.empty() ? 0 : model::kRowKind.find(model.store(), name);
  if (number != 0) return model::Public(number);
  return model.NumberOfNonBindingRows() == 0 ? -1 : model.NonBindingRowIndex(0);
}

const RecordField* FindField(const model::RecordKind& kind, std::string_view key) {
  const auto* const found = std::find_if(
      std::begin(kFields), std::end(kFields),
      [&kind, key](const RecordField& field) { return field.IsOf(kind) && field.key == key; });
  return found == std::end(kFields) ? nullptr : found;
}

void AppendCsvText(std::string& csv, std::string_view text) {
  if (text.find_first_of(",\"\r\n") == std::string_view::npos) {
    csv += text;
    return;
  }
  csv += '"';
  for (const char c : text) csv.append(c == '"' ? 2 : 1, c);
  csv += '"';
}

}  // namespace

ListedModel::ListedModel(const LPModel& model_given, const model::RecordKind& kind_given,
                         std::string_view objective)
    : model(model_given), kind(kind_given), objective_(ObjectiveOf(model, objective)) {}

double ListedModel::ObjectiveCoefficient(std::int32_t column) const {
  if (objective_ < 0) return 0;
  if (coefficients_.empty()) {
    coefficients_.resize(static_cast<std::size_t>(model.NumberOfColumns()));
    const std::int32_t terms = model.RowNumberElements(objective_);
    for (std::int32_t k = 0; k < terms; ++k) {
      const auto at = static_cast<std::size_t>(model.RowElementCol(objective_, k));
      coefficients_[at] += model.RowElementValue(objective_, k);
    }
  }
  return coefficients_[static_cast<std::size_t>(column)];
}

RecordFields UsualFields(const model::RecordKind& kind, bool equations) {
  RecordFields fields;
  const std::span<const std::string_view> keys =
      equations ? std::span<const std::string_view>(kUsualEquations) : kUsual;
  for (const std::string_view key : keys) fields.push_back(FindField(kind, key));
  return fields;
}

RecordFields FieldsOf(const model::RecordKind& kind, std::string_view keys,
                      std::string_view option) {
  RecordFields fields;
  while (true) {
    const std::size_t comma = keys.find(',');
    const std::string_view key = keys.substr(0, comma);
    const RecordField* const field = FindField(kind, key);
    if (field == nullptr) {
      text::NearestWords nearest(key);
      for (const RecordField& known : kFields) {
        if (known.IsOf(kind)) nearest.Offer(known.key);
      }
      std::string complaint(option);
      complaint.append(" takes ").append(FieldKeys(kind)).append(", not \"").append(key);
      throw CommandError(kUsage, complaint + '"' + text::DidYouMean(nearest.words()));
    }
    if (std::find(fields.begin(), fields.end(), field) != fields.end()) {
      throw CommandError(kUsage,
                         std::string(option).append(" names ").append(key).append(" twice"));
    }
    fields.push_back(field);
    if (comma == std::string_view::npos) return fields;
    keys.remove_prefix(comma + 1);
  }
}

std::string FieldKeys(const model::RecordKind& kind) {
  std::string keys;
  for (const RecordField& field : kFields) {
    if (!field.IsOf(kind)) continue;
    if (!keys.empty()) keys += ", ";
    keys += field.key;
  }
  return keys;
}

bool IsName(const RecordField& field) { return field.key == "name"; }

bool IsEquation(const RecordField& field) { return field.key == "equation"; }

std::string ShownText(const FieldValue& value) {
  if (const auto* const count = std::get_if<std::int32_t>(&value)) return text::IntegerText(*count);
  if (const auto* const number = std::get_if<double>(&value)) return text::GeneralText(*number);
  if (const auto* const bound = std::get_if<Bound>(&value)) return BoundText(*bound);
  return text::VisibleText(std::get<std::string>(value));
}

void AppendCsv(std::string& csv, const FieldValue& value) {
  if (const auto* const number = std::get_if<double>(&value)) {
    csv += text::RoundTripText(*number);
  } else if (const auto* const bound = std::get_if<Bound>(&value)) {
    csv += ExactBoundText(*bound);
  } else if (const auto* const words = std::get_if<std::string>(&value)) {
    AppendCsvText(csv, *words);
  } else {
    csv += text::IntegerText(std::get<std::int32_t>(value));
  }
}

void AppendJsonField(std::string& json, const RecordField& field, const FieldValue& value) {
  if (const auto* const bound = std::get_if<Bound>(&value)) {
    AppendJsonMember(json, field.json, *bound);
  } else if (const auto* const number = std::get_if<double>(&value)) {
    AppendJsonMember(json, field.json, *number);
  } else if (const auto* const words = std::get_if<std::string>(&value)) {
    AppendJsonMember(json, field.json, std::string_view(*words));
  } else {
    AppendJsonMember(json, field.json, std::get<std::int32_t>(value));
  }
}

}  // namespace quarvel::hosts
