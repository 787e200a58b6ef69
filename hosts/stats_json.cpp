// The numbers of a model for programs. Members come and go with a note in docs/stats.md alone.

#include <algorithm>
#include <array>

#include "hosts/printing.h"
#include "hosts/stats_report.h"
#include "text/numbers.h"

namespace quarvel::hosts {
namespace {

using inspect::ModelStats;
using inspect::NumberSizes;
using inspect::RecordFamily;
using inspect::RecordLengths;
using inspect::ValueRange;

void AppendCount(std::string& json, std::string_view key, std::int64_t count) {
  AppendJsonObject(json, key, text::IntegerText(count));
}

template <Bound::Side kSide>
std::string BoundJson(double bound) {
  std::string json;
  AppendJson(json, Bound{kSide, bound});
  return json;
}

// --- rows and columns by kind ---

std::string RowTypesJson(const ModelStats& stats) {
  std::string json = "{";
  for (const model::RowTypeTraits& type : model::kRowTypes) {
    if (!type.letter.empty()) {
      AppendCount(json, type.letter, stats.row_types[static_cast<std::size_t>(type.type)]);
    }
  }
  return json + '}';
}

constexpr std::array<std::string_view, inspect::kBoundShapes> kShapeKeys = {
    "nonNegative", "lowerOnly", "upperOnly", "zeroOne", "boxed", "fixed", "free", "crossed"};

std::string ColumnTypesJson(const ModelStats& stats) {
  std::string json = "{";
  for (const model::ColumnTypeTraits& type : model::kColumnTypes) {
    if (type.letter.empty()) continue;
    const auto& shapes = stats.column_types[static_cast<std::size_t>(type.type)];
    std::string counts = "{";
    for (std::size_t i = 0; i < shapes.size(); ++i) AppendCount(counts, kShapeKeys[i], shapes[i]);
    AppendJsonObject(json, type.word, counts + '}');
  }
  return json + '}';
}

// --- numbers and lengths ---

std::string PlaceJson(const model::ModelStore& store, const inspect::PlacedNumber& number) {
  if (number.row == 0 && number.column == 0) return "null";
  std::string json = "{";
  AppendJsonMember(json, "value", number.value);
  if (number.row != 0) AppendJsonMember(json, "row", store.Row(number.row).Name);
  if (number.column != 0) AppendJsonMember(json, "column", store.Column(number.column).Name);
  return json + '}';
}

std::string SizesJson(const model::ModelStore& store, const NumberSizes& sizes) {
  std::string json = "{";
  AppendCount(json, "count", sizes.count());
  AppendCount(json, "zeros", sizes.zeros());
  AppendJsonObject(json, "smallest", PlaceJson(store, sizes.smallest()));
  AppendJsonObject(json, "largest", PlaceJson(store, sizes.largest()));
  std::string histogram = "[";
  for (const NumberSizes::Bucket& bucket : sizes.Histogram()) {
    if (histogram.size() > 1) histogram += ',';
    histogram += '{';
    AppendCount(histogram, "decade", bucket.decade);
    AppendCount(histogram, "count", bucket.count);
    histogram += '}';
  }
  AppendJsonObject(json, "histogram", histogram + ']');
  return json + '}';
}

template <class Record>
std::string LengthsJson(const RecordLengths& lengths, const Record& record) {
  std::string json = "{";
  const auto add = [&](std::string_view key, std::int32_t number) {
    if (number == 0) return AppendJsonObject(json, key, "null");
    std::string place = "{";
    AppendCount(place, "elements", record(number).ElementCount());
    AppendJsonMember(place, "name", record(number).Name);
    AppendJsonObject(json, key, place + '}');
  };
  add("shortest", lengths.shortest);
  add("longest", lengths.longest);
  AppendJsonMember(json, "mean", lengths.mean);
  AppendJsonMember(json, "median", lengths.median);
  AppendCount(json, "empty", lengths.empty);
  return json + '}';
}

std::string ForecastJson(const StatsReport& report) {
  const simplify::Forecast& forecast = report.forecast;
  std::string json = "{";
  AppendCount(json, "convertedRows", forecast.converted_rows);
  AppendCount(json, "askedRows", forecast.asked_rows);
  AppendCount(json, "emptyColumns", forecast.empty_columns);
  AppendCount(json, "emptyRows", forecast.empty_rows);
  std::string failing = "null";
  if (forecast.failing_row != 0) {
    failing.clear();
    AppendJson(failing, report.model.store().Row(forecast.failing_row).Name);
  }
  AppendJsonObject(json, "failingRow", failing);
  return json + '}';
}

// --- families of names ---

std::string RangeJson(const ValueRange& range, std::string (*number)(double)) {
  if (range.is_empty) return "null";
  std::string json = "{";
  AppendJsonObject(json, "from", number(range.from));
  AppendJsonObject(json, "to", number(range.to));
  return json + '}';
}

std::string NumberJson(double number) {
  std::string json;
  AppendJson(json, number);
  return json;
}

template <class Record, class Types>
std::string FamilyJson(const RecordFamily& family, const Record& record, const Types& types) {
  std::string json = "\n{";
  AppendJsonMember(json, "pattern", family.pattern);
  AppendCount(json, "count", family.count);
  AppendJsonMember(json, "first", record(family.first).Name);
  std::string counts = "{";
  for (const auto& type : types) {
    const std::int32_t count = family.types[static_cast<std::size_t>(type.type)];
    if (count != 0 && !type.letter.empty()) AppendCount(counts, type.letter, count);
  }
  AppendJsonObject(json, "types", counts + '}');
  AppendJsonObject(json, "lower", RangeJson(family.lower, BoundJson<Bound::Side::kLower>));
  AppendJsonObject(json, "upper", RangeJson(family.upper, BoundJson<Bound::Side::kUpper>));
  AppendCount(json, "elements", family.elements.count);
  AppendJsonObject(json, "coefficients", RangeJson(family.elements.values, NumberJson));
  AppendJsonObject(json, "sizes", RangeJson(family.elements.sizes, NumberJson));
  return json + '}';
}

template <class Record, class Types>
void AppendFamilies(std::string& json, std::string_view key,
                    const std::vector<RecordFamily>& families, std::int64_t most,
                    const Record& record, const Types& types) {
  const auto all = static_cast<std::int64_t>(families.size());
  std::string listed = "[";
  for (std::int64_t i = 0; i < std::min(most, all); ++i) {
    if (i > 0) listed += ',';
    listed += FamilyJson(families[static_cast<std::size_t>(i)], record, types);
  }
  std::string object = "{";
  AppendCount(object, "count", all);
  AppendJsonObject(object, "listed", listed + ']');
  AppendJsonObject(json, key, object + '}');
}

std::string WholeJson(const StatsReport& report) {
  const ModelStats& stats = report.stats;
  std::string json = "{";
  AppendJsonMember(json, "name", report.model.ModelName());
  AppendJsonMember(json, "file", report.file);
  AppendCount(json, "rows", stats.rows);
  AppendCount(json, "columns", stats.columns);
  AppendCount(json, "elements", stats.elements);
  AppendJsonMember(json, "density", stats.density);
  AppendJsonObject(json, "rowTypes", RowTypesJson(stats));
  AppendJsonObject(json, "columnTypes", ColumnTypesJson(stats));
  return json;
}

}  // namespace

std::string StatsJson(const StatsReport& report) {
  const ModelStats& stats = report.stats;
  const model::ModelStore& store = report.model.store();
  const auto row = [&store](std::int32_t r) -> const model::ModelRecord& { return store.Row(r); };
  const auto column = [&store](std::int32_t c) -> const model::ModelRecord& {
    return store.Column(c);
  };
  std::string json = WholeJson(report);
  AppendJsonObject(json, "coefficients", SizesJson(store, stats.coefficients));
  AppendJsonObject(json, "objective", SizesJson(store, stats.objective));
  AppendJsonObject(json, "rightHandSides", SizesJson(store, stats.right_hand_sides));
  AppendJsonObject(json, "bounds", SizesJson(store, stats.bounds));
  AppendJsonObject(json, "rowLengths", LengthsJson(stats.row_lengths, row));
  AppendJsonObject(json, "columnLengths", LengthsJson(stats.column_lengths, column));
  AppendCount(json, "duplicates", stats.duplicates);
  AppendJsonObject(json, "firstDuplicate", PlaceJson(store, stats.first_duplicate));
  AppendJsonObject(json, "simplification", ForecastJson(report));
  AppendFamilies(json, "rowFamilies", stats.row_families, report.most_families, row,
                 model::kRowTypes);
  AppendFamilies(json, "columnFamilies", stats.column_families, report.most_families, column,
                 model::kColumnTypes);
  return json + "}\n";
}

}  // namespace quarvel::hosts
