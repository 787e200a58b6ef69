// The numbers of a model for people.

#include <algorithm>
#include <array>
#include <set>
#include <span>

#include "hosts/input_bytes.h"
#include "hosts/printing.h"
#include "hosts/session.h"
#include "hosts/stats_report.h"
#include "hosts/stats_words.h"
#include "hosts/text_table.h"
#include "text/numbers.h"
#include "text/visible_text.h"

namespace quarvel::hosts {
namespace {

using inspect::ModelStats;
using inspect::NumberSizes;
using inspect::RecordFamily;
using inspect::RecordLengths;
using enum TextTable::Align;

constexpr std::string_view kIndent = "  ";

std::string CountText(std::int64_t count) { return count == 0 ? "" : text::IntegerText(count); }

// --- the model as a whole ---

void AppendFact(const StatsReport& report, std::string& text, std::string_view what,
                const std::string& fact) {
  constexpr std::size_t kWidth = 18;
  if (fact.empty()) return;
  text += report.pen.Draw(Ink::kHeading, what);
  text.append(kWidth - what.size(), ' ').append(text::VisibleText(fact)).append("\n");
}

// A table whose first line is its heading.
std::string TableText(const StatsReport& report, const TextTable& table) {
  const std::string text = table.Text("", report.width);
  const std::size_t end = text.find('\n') + 1;
  return '\n' + report.pen.Draw(Ink::kHeading, text.substr(0, end)) + text.substr(end);
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
  AppendFact(report, text, "Name", report.model.ModelName());
  AppendFact(report, text, "File", NameOfInput(report.file));
  AppendFact(report, text, "Size", SizeText(report.model));
  AppendFact(report, text, "Density", ShortText(100 * report.stats.density) + " %");
  AppendFact(report, text, "Given twice", DuplicatesText(report));
  AppendFact(report, text, "Simplification", ForecastText(report.model.store(), report.forecast));
  return text;
}

// --- rows and columns by kind ---

std::string RowKinds(const StatsReport& report) {
  TextTable table({kLeft, kRight});
  for (const model::RowTypeTraits& type : model::kRowTypes) {
    const std::int32_t count = report.stats.row_types[static_cast<std::size_t>(type.type)];
    if (count == 0) continue;
    table.Add({type.word.empty() ? "no type" : std::string(type.word), CountText(count)});
  }
  return '\n' + report.pen.Draw(Ink::kHeading, "Rows\n") + table.Text(kIndent);
}

// A line for each shape and a column for each type that there is.
std::string ColumnKinds(const StatsReport& report) {
  std::vector<std::string> heading = {"Columns"};
  std::vector<const std::array<std::int32_t, inspect::kBoundShapes>*> types;
  for (const model::ColumnTypeTraits& type : model::kColumnTypes) {
    const auto& shapes = report.stats.column_types[static_cast<std::size_t>(type.type)];
    if (CountOf(shapes) == 0) continue;
    types.push_back(&shapes);
    heading.emplace_back(type.word.empty() ? "no type" : type.word);
  }
  TextTable table({kLeft, kRight, kRight, kRight, kRight});
  table.Add(heading);
  for (const ShapeWord& shape : kShapeWords) {
    std::vector<std::string> line = {"  " + std::string(shape.words)};
    for (const auto* shapes : types) {
      line.push_back(CountText((*shapes)[static_cast<std::size_t>(shape.shape)]));
    }
    const bool is_empty =
        std::all_of(line.begin() + 1, line.end(), [](const std::string& t) { return t.empty(); });
    if (!is_empty) table.Add(line);
  }
  return TableText(report, table);
}

// --- lengths ---

std::string LengthsText(const StatsReport& report) {
  TextTable table({kLeft, kRight, kName, kRight, kName, kRight, kRight, kRight});
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
  return TableText(report, table);
}

// --- tables that fit ---

// How a table is made to fit, the most pleasant first.
struct Tightness {
  Room room;
  bool is_tight;            // one blank between columns
  TextTable::Align others;  // of texts that are no names
};
constexpr Tightness kTightnesses[] = {{Room::kUsual, false, kLeft},
                                      {Room::kLittle, false, kLeft},
                                      {Room::kLittle, true, kLeft},
                                      {Room::kLittle, true, kName}};

// What `make` gives for the first tightness whose lines are no wider than there is room, with names cut to
// so many cells; else for the last one.
template <class Make>
TextTable FittingTable(std::size_t width, std::size_t name_width, const Make& make) {
  for (const Tightness& tightness : kTightnesses) {
    TextTable table = make(tightness);
    if (tightness.is_tight) table.Tighten();
    const bool is_last = tightness.others == kName;
    if (is_last || table.FitsInto(width, name_width)) return table;
  }
  return make(kTightnesses[0]);
}

// --- sizes of numbers ---

TextTable ExtremesTable(const StatsReport& report, Room room) {
  const model::ModelStore& store = report.model.store();
  TextTable table({kLeft, kRight, kRight, kRight, kName, kRight, kName});
  table.Add({"Sizes", "zeros", "nonzeros", "smallest", "", "largest", ""});
  for (const NamedSizes& column : SizesOf(report.stats)) {
    const NumberSizes& sizes = column.sizes;
    if (sizes.count() + sizes.zeros() == 0) continue;
    std::vector<std::string> line = {"  " + std::string(column.words), CountText(sizes.zeros()),
                                     CountText(sizes.count())};
    if (sizes.count() > 0) {
      for (const inspect::PlacedNumber& number : {sizes.smallest(), sizes.largest()}) {
        line.push_back(ShortText(number.value, room));
        line.push_back(PlaceText(store, number));
      }
    }
    table.Add(line);
  }
  return table;
}

std::string ExtremesText(const StatsReport& report) {
  constexpr std::size_t kReadableNames = 8;
  return TableText(
      report, FittingTable(report.width, kReadableNames, [&report](const Tightness& tightness) {
        return ExtremesTable(report, tightness.room);
      }));
}

std::string HistogramText(const StatsReport& report) {
  const std::array<NamedSizes, 4> columns = SizesOf(report.stats);
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
  return decades.empty() ? "" : TableText(report, table);
}

// --- families of names ---

struct FamilyList {
  std::span<const RecordFamily> families;
  std::string_view title;
  std::string (*types)(const RecordFamily&, Room);
};

TextTable FamiliesTable(const FamilyList& list, const Tightness& tightness) {
  const TextTable::Align others = tightness.others;
  const Room room = tightness.room;
  TextTable table({kName, kRight, others, others, others, kRight, others});
  table.Add({std::string(list.title) + (room == Room::kUsual ? " by name" : ""), "count", "types",
             "lower", "upper", "elements", "coefficients"});
  for (const RecordFamily& family : list.families) {
    table.Add({"  " + family.pattern, text::IntegerText(family.count), list.types(family, room),
               RangeText(family.lower, Bound::Side::kLower, room),
               RangeText(family.upper, Bound::Side::kUpper, room),
               text::IntegerText(family.elements.count), CoefficientsText(family.elements, room)});
  }
  return table;
}

std::string FamiliesText(const StatsReport& report, const std::vector<RecordFamily>& families,
                         std::string_view title, std::string (*types)(const RecordFamily&, Room)) {
  const auto shown =
      std::min<std::int64_t>(report.most_families, static_cast<std::int64_t>(families.size()));
  const FamilyList list = {std::span(families).first(static_cast<std::size_t>(shown)), title,
                           types};
  constexpr std::size_t kReadableName = 17;
  std::string text = TableText(
      report, FittingTable(report.width, kReadableName, [&list](const Tightness& tightness) {
        return FamiliesTable(list, tightness);
      }));
  const std::int64_t more = static_cast<std::int64_t>(families.size()) - shown;
  if (more > 0) {
    text += report.pen.Draw(
        Ink::kAside, "  ... " + Counted(more, "more pattern") + " (--limit all lists them)\n");
  }
  return text;
}

}  // namespace

std::string StatsText(const StatsReport& report) {
  const ModelStats& stats = report.stats;
  return HeadText(report) + RowKinds(report) + ColumnKinds(report) + LengthsText(report) +
         ExtremesText(report) + HistogramText(report) +
         FamiliesText(report, stats.row_families, "Rows", RowTypesText) +
         FamiliesText(report, stats.column_families, "Columns", ColumnTypesText);
}

}  // namespace quarvel::hosts
