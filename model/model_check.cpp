// The invariant of the stored fields, for tests, fuzzers and debug builds.

#include <algorithm>
#include <string>
#include <tuple>
#include <vector>

#include "model/model_data.h"
#include "text/numbers.h"

namespace quarvel {
namespace {

using Coefficient = std::tuple<std::int32_t, std::int32_t, double>;  // row, column, value

std::string Label(std::string_view what, std::int64_t number) {
  return std::string(what) + " " + text::IntegerText(number);
}

std::string CheckCounts(const ModelData& data) {
  if (data.NumberOfRows < 0 || data.NumberOfRows > data.Rows.size()) {
    return Label("more rows counted than stored:", data.NumberOfRows);
  }
  if (data.NumberOfColumns < 0 || data.NumberOfColumns > data.Columns.size()) {
    return Label("more columns counted than stored:", data.NumberOfColumns);
  }
  return {};
}

// Sorted, so that both views of the same coefficients compare equal whatever their order.
template <class Lines, class Make>
std::vector<Coefficient> Collect(const Lines& lines, std::int32_t count, const Make& make) {
  std::vector<Coefficient> all;
  for (std::int32_t number = 1; number <= count; ++number) {
    for (const ElementEntry& entry : lines[number].Elements) all.push_back(make(number, entry));
  }
  std::sort(all.begin(), all.end());
  return all;
}

std::string CheckNames(const ModelData& data) {
  for (std::int32_t r = 1; r <= data.NumberOfRows; ++r) {
    const std::int32_t found = FindRow(data, data.Rows[r].Name);
    if (found < 1 || found > r || data.Rows[found].Name != data.Rows[r].Name) {
      return Label("name index misses row", r);
    }
  }
  for (std::int32_t c = 1; c <= data.NumberOfColumns; ++c) {
    const std::int32_t found = FindColumn(data, data.Columns[c].Name);
    if (found < 1 || found > c || data.Columns[found].Name != data.Columns[c].Name) {
      return Label("name index misses column", c);
    }
  }
  return {};
}

}  // namespace

std::string CheckModelData(const ModelData& data) {
  if (!IsSettled(data)) return "work is still put off";
  if (std::string fault = CheckCounts(data); !fault.empty()) return fault;
  const auto by_row = Collect(data.Rows, data.NumberOfRows, [](auto r, const ElementEntry& e) {
    return Coefficient(r, e.Index, e.Value);
  });
  const auto by_column =
      Collect(data.Columns, data.NumberOfColumns,
              [](auto c, const ElementEntry& e) { return Coefficient(e.Index, c, e.Value); });
  if (by_row != by_column) return "row lists and column lists hold different coefficients";
  if (static_cast<std::int64_t>(by_row.size()) != data.NumberOfElements) {
    return Label("elements counted wrongly:", data.NumberOfElements);
  }
  for (const auto& [r, c, value] : by_row) {
    if (r < 1 || r > data.NumberOfRows) return Label("an element names row", r);
    if (c < 1 || c > data.NumberOfColumns) return Label("an element names column", c);
  }
  return CheckNames(data);
}

}  // namespace quarvel
