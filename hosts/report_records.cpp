// Rows and columns on the page of a report: their kinds, their names, how they are scaled, what
// simplification would take, and the first equations.

#include <algorithm>
#include <cmath>

#include "hosts/html.h"
#include "hosts/report_page.h"
#include "hosts/short_equation.h"
#include "hosts/stats_words.h"
#include "inspect/row_scales.h"
#include "text/numbers.h"

namespace quarvel::hosts {
namespace {

using inspect::ModelStats;
using inspect::RecordFamily;
using inspect::RecordLengths;

constexpr std::size_t kMostFamilies = 20;
constexpr std::size_t kMostScales = 10;
constexpr std::int32_t kMostEquations = 12;
constexpr std::size_t kMostLettersOfEquation = 400;

std::string WordOf(std::string_view word) { return word.empty() ? "no type" : std::string(word); }

// --- kinds and lengths ---

std::string RowKinds(const ModelStats& stats) {
  HtmlTable table("Rows", {{"Type"}, {"how many", true}});
  for (const model::RowTypeTraits& type : model::kRowTypes) {
    const std::int32_t count = stats.row_types[static_cast<std::size_t>(type.type)];
    if (count > 0) table.Add({WordOf(type.word), GroupedText(count)});
  }
  return table.empty() ? "" : table.Text();
}

std::string ColumnKinds(const ModelStats& stats) {
  HtmlTable table("Columns", {{"Type"}, {"bounds"}, {"how many", true}});
  for (const model::ColumnTypeTraits& type : model::kColumnTypes) {
    for (const ShapeWord& shape : kShapeWords) {
      const std::int32_t count = stats.column_types[static_cast<std::size_t>(type.type)]
                                                   [static_cast<std::size_t>(shape.shape)];
      if (count > 0) table.Add({WordOf(type.word), std::string(shape.words), GroupedText(count)});
    }
  }
  return table.empty() ? "" : table.Text();
}

template <class GetRecord>
void AddLengths(HtmlTable& table, const std::string& what, const RecordLengths& lengths,
                const GetRecord& record) {
  if (lengths.shortest == 0) return;
  const model::ModelRecord& shortest = record(lengths.shortest);
  const model::ModelRecord& longest = record(lengths.longest);
  table.Add({what, GroupedText(shortest.ElementCount()), shortest.Name,
             GroupedText(longest.ElementCount()), longest.Name, ShortText(lengths.mean),
             ShortText(lengths.median), GroupedText(lengths.empty)});
}

std::string Lengths(const ModelStats& stats, const model::ModelStore& store) {
  HtmlTable table("Coefficients in a row and in a column", {{"In a"},
                                                            {"least", true},
                                                            {"for example"},
                                                            {"most", true},
                                                            {"for example"},
                                                            {"mean", true},
                                                            {"median", true},
                                                            {"empty ones", true}});
  AddLengths(table, "row", stats.row_lengths,
             [&store](std::int32_t r) -> const model::ModelRecord& { return store.Row(r); });
  AddLengths(table, "column", stats.column_lengths,
             [&store](std::int32_t c) -> const model::ModelRecord& { return store.Column(c); });
  return table.empty() ? "" : table.Text();
}

// --- names ---

std::string Families(const std::vector<RecordFamily>& families, std::string_view caption,
                     std::string (*types)(const RecordFamily&, Room)) {
  HtmlTable table(caption, {{"Pattern"},
                            {"how many", true},
                            {"types"},
                            {"lower"},
                            {"upper"},
                            {"coefficients", true},
                            {"their sizes"}});
  const std::size_t shown = std::min(families.size(), kMostFamilies);
  for (std::size_t i = 0; i < shown; ++i) {
    const RecordFamily& family = families[i];
    table.Add({family.pattern, GroupedText(family.count), types(family, Room::kUsual),
               RangeText(family.lower, Bound::Side::kLower),
               RangeText(family.upper, Bound::Side::kUpper), GroupedText(family.elements.count),
               CoefficientsText(family.elements)});
  }
  table.AddMore(static_cast<std::int64_t>(families.size() - shown), "pattern");
  return table.empty() ? "" : table.Text();
}

std::string FamiliesPart(const ModelStats& stats) {
  const std::string tables = Families(stats.row_families, "Rows", RowTypesText) +
                             Families(stats.column_families, "Columns", ColumnTypesText);
  if (tables.empty()) return "";
  return HtmlPart(
      "names", "Families of names",
      "<p>Names that differ in numbers and index texts alone are one pattern: # stands for a "
      "number, * for a text.</p>\n" +
          tables);
}

// --- scales ---

std::string ScalesPart(const model::ModelStore& store) {
  HtmlTable table(
      "Rows whose coefficients lie farthest apart",
      {{"Row"}, {"smallest", true}, {"largest", true}, {"powers of ten between", true}});
  for (const inspect::RowScale& scale : inspect::WorstScaledRows(store, kMostScales)) {
    // To a tenth.
    const double decades = std::round(scale.decades * 10) / 10;
    table.Add({store.Row(scale.row).Name, ShortText(scale.smallest), ShortText(scale.largest),
               ShortText(decades)});
  }
  return HtmlPart("scales", "The worst-scaled rows",
                  table.empty() ? "<p>None: within each row all coefficients have one size.</p>\n"
                                : table.Text());
}

// --- simplification and equations ---

std::string SimplificationPart(const model::ModelStore& store) {
  const simplify::Forecast forecast = simplify::ForecastOf(store);
  const std::string text = forecast.none()
                               ? "There is nothing that it would take."
                               : "It would take: " + ForecastText(store, forecast) + '.';
  return HtmlPart("simplification", "Simplification",
                  "<p>" + Html(text, kMostLettersOfEquation) + "</p>\n");
}

std::string EquationsPart(const LPModel& model) {
  std::string items;
  const std::int32_t shown = std::min(model.NumberOfRows(), kMostEquations);
  const EquationRoom room = {.cells = kMostLettersOfEquation, .terms = EquationRoom::kAny};
  for (std::int32_t row = 0; row < shown; ++row) {
    items += "<dt>" + Html(model.RowName(row)) + "</dt><dd>" +
             Html(ShortEquation(model, row, room), 2 * kMostLettersOfEquation) + "</dd>\n";
  }
  if (items.empty()) return "";
  std::string text = "<dl class=\"equations\">\n" + items + "</dl>\n";
  const std::int32_t more = model.NumberOfRows() - shown;
  if (more > 0) {
    text += "<p class=\"more\">... " + GroupedText(more) +
            (more == 1 ? " more row" : " more rows") + "</p>\n";
  }
  return HtmlPart("equations", "The first equations", text);
}

}  // namespace

std::string ReportOnNumbers(const ReportedModel& reported) {
  const model::ModelStore& store = reported.model.store();
  return MatrixPart(store) +
         HtmlPart("kinds", "Rows and columns",
                  "<div class=\"pair\">\n" + RowKinds(reported.stats) +
                      ColumnKinds(reported.stats) + "</div>\n" + Lengths(reported.stats, store)) +
         SizesPart(reported.stats, store) + FamiliesPart(reported.stats) + ScalesPart(store);
}

std::string ReportOnRecords(const ReportedModel& reported) {
  return SimplificationPart(reported.model.store()) + EquationsPart(reported.model);
}

}  // namespace quarvel::hosts
