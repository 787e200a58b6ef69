// The numbers of a model for people.

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <set>

#include "hosts/printing.h"
#include "hosts/session.h"
#include "hosts/stats_report.h"
#include "hosts/text_table.h"
#include "text/numbers.h"
#include "text/visible_text.h"

namespace quarvel::hosts {
namespace {

using inspect::BoundShape;
using inspect::ModelStats;
using inspect::NumberSizes;
using inspect::RecordFamily;
using inspect::RecordLengths;
using inspect::ValueRange;
using enum TextTable::Align;

constexpr std::string_view kIndent = "  ";

// Six digits are enough to look at.
std::string ShortText(double value) {
  std::array<char, 32> digits;
  const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), value,
                                 std::chars_format::general, 6);
  std::string text(digits.data(), end.ptr);
  std::replace(text.begin(), text.end(), 'e', 'E');
  return text;
}

std::string ShortBound(double bound) {
  return std::abs(bound) == model::BoundLimit ? BoundText(bound) : ShortText(bound);
}

std::string CountText(std::int64_t count) { return count == 0 ? "" : text::IntegerText(count); }

// --- the model as a whole ---

void AppendFact(std::string& text, std::string_view what, const std::string& fact) {
  constexpr std::size_t kWidth = 18;
  if (fact.empty()) return;
  AppendLeft(text, what, kWidth);
  text += text::VisibleText(fact) + '\n';
}

std::string ForecastText(const StatsReport& report) {
  const simplify::Forecast& forecast = report.forecast;
  if (forecast.none()) return "nothing to take";
  std::string text;
  const auto add = [&text](std::int32_t count, std::string_view noun, std::string_view fate) {
    if (count == 0) return;
    if (!text.empty()) text += ", ";
    text += Counted(count, noun).append(fate);
  };
  add(forecast.converted_rows, "row", " into bounds");
  add(forecast.asked_rows, "row", " to be asked about");
  add(forecast.empty_columns, "empty column", " out");
  add(forecast.empty_rows, "empty row", " out");
  if (forecast.failing_row != 0) {
    if (!text.empty()) text += ", ";
    text += "then it fails at row " + report.model.store().Row(forecast.failing_row).Name;
  }
  return text;
}

std::string DuplicatesText(const StatsReport& report) {
  const ModelStats& stats = report.stats;
  if (stats.duplicates == 0) return "";
  const model::ModelStore& store = report.model.store();
  return Counted(stats.duplicates, "element") + ", first at row " +
         store.Row(stats.first_duplicate.row).Name + ", column " +
         store.Column(stats.first_duplicate.column).Name;
}

std::string HeadText(const StatsReport& report) {
  std::string text;
  AppendFact(text, "Name", report.model.ModelName());
  AppendFact(text, "File", report.model.FileLocation());
  AppendFact(text, "Size", SizeText(report.model));
  AppendFact(text, "Density", ShortText(100 * report.stats.density) + " %");
  AppendFact(text, "Given twice", DuplicatesText(report));
  AppendFact(text, "Simplification", ForecastText(report));
  return text;
}

// --- rows and columns by kind ---

std::string RowKinds(const ModelStats& stats) {
  TextTable table({kLeft, kRight});
  for (const model::RowTypeTraits& type : model::kRowTypes) {
    const std::int32_t count = stats.row_types[static_cast<std::size_t>(type.type)];
    if (count == 0) continue;
    table.Add({type.word.empty() ? "no type" : std::string(type.word), CountText(count)});
  }
  return "\nRows\n" + table.Text(kIndent);
}

struct ShapeWord {
  BoundShape shape;
  std::string_view words;
};
constexpr std::array<ShapeWord, inspect::kBoundShapes> kShapes = {{
    {BoundShape::kNonNegative, "0 or more"},
    {BoundShape::kLowerOnly, "lower bound alone"},
    {BoundShape::kUpperOnly, "upper bound alone"},
    {BoundShape::kZeroOne, "from 0 to 1"},
    {BoundShape::kBoxed, "both bounds"},
    {BoundShape::kFixed, "fixed"},
    {BoundShape::kFree, "free"},
    {BoundShape::kCrossed, "lower above upper"},
}};

std::int32_t CountOf(const std::array<std::int32_t, inspect::kBoundShapes>& shapes) {
  std::int32_t count = 0;
  for (const std::int32_t of_shape : shapes) count += of_shape;
  return count;
}

// A line for each shape and a column for each type that there is.
std::string ColumnKinds(const ModelStats& stats) {
  std::vector<std::string> heading = {"Columns"};
  std::vector<const std::array<std::int32_t, inspect::kBoundShapes>*> types;
  for (const model::ColumnTypeTraits& type : model::kColumnTypes) {
    const auto& shapes = stats.column_types[static_cast<std::size_t>(type.type)];
    if (CountOf(shapes) == 0) continue;
    types.push_back(&shapes);
    heading.emplace_back(type.word.empty() ? "no type" : type.word);
  }
  TextTable table({kLeft, kRight, kRight, kRight, kRight});
  table.Add(heading);
  for (const ShapeWord& shape : kShapes) {
    std::vector<std::string> line = {"  " + std::string(shape.words)};
    for (const auto* shapes : types) {
      line.push_back(CountText((*shapes)[static_cast<std::size_t>(shape.shape)]));
    }
    const bool is_empty =
        std::all_of(line.begin() + 1, line.end(), [](const std::string& t) { return t.empty(); });
    if (!is_empty) table.Add(line);
  }
  return '\n' + table.Text();
}

// --- lengths ---

std::string LengthsText(const StatsReport& report) {
  TextTable table({kLeft, kRight, kLeft, kRight, kLeft, kRight, kRight, kRight});
  table.Add({"Elements in a", "least", "", "most", "", "mean", "median", "empty"});
  const auto add = [&table](std::string_view what, const RecordLengths& lengths,
                            const auto& record) {
    if (lengths.shortest == 0) return;
    const model::ModelRecord& shortest = record(lengths.shortest);
    const model::ModelRecord& longest = record(lengths.longest);
    table.Add({"  " + std::string(what), text::IntegerText(shortest.ElementCount()), shortest.Name,
               text::IntegerText(longest.ElementCount()), longest.Name, ShortText(lengths.mean),
               ShortText(lengths.median), text::IntegerText(lengths.empty)});
  };
  const model::ModelStore& store = report.model.store();
  add("row", report.stats.row_lengths,
      [&store](std::int32_t r) -> const model::ModelRecord& { return store.Row(r); });
  add("column", report.stats.column_lengths,
      [&store](std::int32_t c) -> const model::ModelRecord& { return store.Column(c); });
  return '\n' + table.Text();
}

// --- sizes of numbers ---

struct SizesColumn {
  std::string_view words;
  const NumberSizes& sizes;
};

std::array<SizesColumn, 4> SizesOf(const ModelStats& stats) {
  return {{{"coefficients", stats.coefficients},
           {"objective", stats.objective},
           {"right-hand sides", stats.right_hand_sides},
           {"bounds", stats.bounds}}};
}

std::string PlaceText(const model::ModelStore& store, const inspect::PlacedNumber& number) {
  std::string text;
  if (number.row != 0) text = store.Row(number.row).Name;
  if (number.row != 0 && number.column != 0) text += ", ";
  if (number.column != 0) text += store.Column(number.column).Name;
  return text;
}

std::string ExtremesText(const StatsReport& report) {
  const model::ModelStore& store = report.model.store();
  TextTable table({kLeft, kRight, kRight, kRight, kLeft, kRight, kLeft});
  table.Add({"Sizes", "zeros", "nonzeros", "smallest", "", "largest", ""});
  for (const SizesColumn& column : SizesOf(report.stats)) {
    const NumberSizes& sizes = column.sizes;
    if (sizes.count() + sizes.zeros() == 0) continue;
    std::vector<std::string> line = {"  " + std::string(column.words), CountText(sizes.zeros()),
                                     CountText(sizes.count())};
    if (sizes.count() > 0) {
      for (const inspect::PlacedNumber& number : {sizes.smallest(), sizes.largest()}) {
        line.push_back(ShortText(number.value));
        line.push_back(PlaceText(store, number));
      }
    }
    table.Add(line);
  }
  return '\n' + table.Text();
}

std::string HistogramText(const ModelStats& stats) {
  const std::array<SizesColumn, 4> columns = SizesOf(stats);
  std::array<std::vector<NumberSizes::Bucket>, 4> histograms;
  std::set<int> decades;
  std::vector<std::string> heading = {"Sizes from"};
  for (std::size_t i = 0; i < columns.size(); ++i) {
    histograms[i] = columns[i].sizes.Histogram();
    for (const NumberSizes::Bucket& bucket : histograms[i]) decades.insert(bucket.decade);
    heading.emplace_back(columns[i].words);
  }
  TextTable table({kLeft, kRight, kRight, kRight, kRight});
  table.Add(heading);
  for (const int decade : decades) {
    std::vector<std::string> line = {"  1E" + std::to_string(decade)};
    for (const auto& histogram : histograms) {
      const auto found =
          std::find_if(histogram.begin(), histogram.end(),
                       [decade](const auto& bucket) { return bucket.decade == decade; });
      line.push_back(found == histogram.end() ? "" : CountText(found->count));
    }
    table.Add(line);
  }
  return decades.empty() ? "" : '\n' + table.Text();
}

// --- families of names ---

std::string RangeText(const ValueRange& range) {
  if (range.is_empty) return "";
  const std::string from = ShortBound(range.from);
  const std::string to = ShortBound(range.to);
  return from == to ? from : from + " to " + to;
}

// The sizes of the coefficients behind their signs: "+-0.5 to 3".
std::string CoefficientsText(const inspect::ElementRange& elements) {
  if (elements.count == 0) return "";
  std::string text = elements.values.to > 0 ? "+" : "";
  if (elements.values.from < 0) text += '-';
  const std::string from = ShortText(elements.sizes.from);
  const std::string to = ShortText(elements.sizes.to);
  return text + (from == to ? from : from + " to " + to);
}

// "E", or "E 500 L 20" for several.
template <class Types>
std::string TypesText(const RecordFamily& family, const Types& types) {
  std::string text;
  for (const auto& type : types) {
    const std::int32_t count = family.types[static_cast<std::size_t>(type.type)];
    if (count == 0) continue;
    std::string letter = type.letter.empty() ? "none" : std::string(type.letter);
    if (count == family.count) return letter;
    if (!text.empty()) text += ' ';
    text.append(letter).append(" ").append(text::IntegerText(count));
  }
  return text;
}

template <class Types>
std::string FamiliesText(const std::vector<RecordFamily>& families, std::string_view title,
                         const Types& types, std::int64_t most) {
  TextTable table({kLeft, kRight, kLeft, kLeft, kLeft, kRight, kLeft});
  table.Add({std::string(title) + " by name", "count", "types", "lower", "upper", "elements",
             "coefficients"});
  const auto shown = std::min<std::int64_t>(most, static_cast<std::int64_t>(families.size()));
  for (std::int64_t i = 0; i < shown; ++i) {
    const RecordFamily& family = families[static_cast<std::size_t>(i)];
    table.Add({"  " + family.pattern, text::IntegerText(family.count), TypesText(family, types),
               RangeText(family.lower), RangeText(family.upper),
               text::IntegerText(family.elements.count), CoefficientsText(family.elements)});
  }
  std::string text = '\n' + table.Text();
  const std::int64_t more = static_cast<std::int64_t>(families.size()) - shown;
  if (more > 0) {
    text += "  ... " + Counted(more, "more pattern") + " (--limit all lists them)\n";
  }
  return text;
}

}  // namespace

std::string StatsText(const StatsReport& report) {
  const ModelStats& stats = report.stats;
  return HeadText(report) + RowKinds(stats) + ColumnKinds(stats) + LengthsText(report) +
         ExtremesText(report) + HistogramText(stats) +
         FamiliesText(stats.row_families, "Rows", model::kRowTypes, report.most_families) +
         FamiliesText(stats.column_families, "Columns", model::kColumnTypes, report.most_families);
}

}  // namespace quarvel::hosts
