#include "model/model_check.h"

#include <algorithm>
#include <bit>
#include <cstdint>
#include <string_view>
#include <tuple>
#include <vector>

#include "model/model_store.h"
#include "text/numbers.h"

namespace quarvel::model {
namespace {

using Coefficient = std::tuple<std::int32_t, std::int32_t, std::uint64_t>;  // row, column, bits

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

// Also what is no number equals itself then.
std::uint64_t BitsOf(const ElementEntry& entry) {
  return std::bit_cast<std::uint64_t>(double{entry.Value});
}

// Sorted, so that both views of the same coefficients compare equal whatever their order.
template <class Records, class Make>
std::vector<Coefficient> Collect(const Records& records, std::int32_t count, const Make& make) {
  std::vector<Coefficient> all;
  for (std::int32_t number = 1; number <= count; ++number) {
    for (const ElementEntry& entry : records[number].Elements) all.push_back(make(number, entry));
  }
  std::sort(all.begin(), all.end());
  return all;
}

std::string CheckCoefficients(const ModelData& data) {
  const auto by_row = Collect(data.Rows, data.NumberOfRows, [](auto r, const ElementEntry& e) {
    return Coefficient(r, e.Index, BitsOf(e));
  });
  const auto by_column =
      Collect(data.Columns, data.NumberOfColumns,
              [](auto c, const ElementEntry& e) { return Coefficient(e.Index, c, BitsOf(e)); });
  if (by_row != by_column) return "row lists and column lists hold different coefficients";
  if (static_cast<std::int64_t>(by_row.size()) != data.NumberOfElements) {
    return Label("elements counted wrongly:", data.NumberOfElements);
  }
  for (const auto& [r, c, value] : by_row) {
    if (r < 1 || r > data.NumberOfRows) return Label("an element names row", r);
    if (c < 1 || c > data.NumberOfColumns) return Label("an element names column", c);
  }
  return {};
}

template <class Records, class Find>
std::string CheckNames(std::string_view kind, const Records& records, std::int32_t count,
                       const Find& find) {
  for (std::int32_t number = 1; number <= count; ++number) {
    const std::string_view name = records[number].Name;
    const std::int32_t found = find(NameKey::Of(name), name);
    if (found < 1 || found > number || records[found].Name != name) {
      return Label("name index misses " + std::string(kind), number);
    }
  }
  return {};
}

template <class FindRowNamed, class FindColumnNamed>
std::string Check(const ModelData& data, const FindRowNamed& find_row,
                  const FindColumnNamed& find_column) {
  std::string fault = CheckCounts(data);
  if (fault.empty()) fault = CheckCoefficients(data);
  if (fault.empty()) fault = CheckNames("row", data.Rows, data.NumberOfRows, find_row);
  if (fault.empty()) {
    fault = CheckNames("column", data.Columns, data.NumberOfColumns, find_column);
  }
  return fault;
}

}  // namespace

std::string CheckModelData(const ModelStore& store) {
  return Check(
      store.data(),
      [&](const NameKey& key, std::string_view name) { return store.FindRow(key, name); },
      [&](const NameKey& key, std::string_view name) { return store.FindColumn(key, name); });
}

std::string CheckStoredModel(StoredModel& model) {
  return Check(
      model.data,
      [&](const NameKey& key, std::string_view name) { return FindRow(model, key, name); },
      [&](const NameKey& key, std::string_view name) { return FindColumn(model, key, name); });
}

}  // namespace quarvel::model
