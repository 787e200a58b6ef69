#include "tests/support/edit_questions.h"

#include <cstddef>
#include <vector>

namespace quarvel::testing {
namespace {

// What tells a list from others that hold the same in another order.
std::int32_t Blend(std::int32_t sum, std::int32_t number, double value) {
  const auto blended = static_cast<std::uint32_t>(sum) * 31u + static_cast<std::uint32_t>(number);
  return static_cast<std::int32_t>(blended * 7u + (value < 0 ? 1u : value > 0 ? 2u : 3u));
}

std::int32_t BlendOf(const std::vector<NaiveEntry>& list) {
  auto sum = static_cast<std::int32_t>(list.size());
  for (const NaiveEntry& entry : list) sum = Blend(sum, entry.Index - 1, entry.Value);
  return sum;
}

std::int32_t NumberNamed(const std::vector<NaiveRecord>& records, std::int32_t count,
                         const std::string& name) {
  for (std::int32_t n = 1; n <= count; ++n) {
    if (records[static_cast<std::size_t>(n - 1)].Name == name) return n;
  }
  return 0;
}

}  // namespace

std::int32_t RowList(const LPModel& model, std::int32_t i) {
  std::int32_t sum = model.RowNumberElements(i);
  for (std::int32_t k = 0; k < model.RowNumberElements(i); ++k) {
    sum = Blend(sum, model.RowElementCol(i, k), model.RowElementValue(i, k));
  }
  return sum;
}
std::int32_t RowList(const NaiveModel& model, std::int32_t i) {
  return BlendOf(model.Rows[static_cast<std::size_t>(i)].Elements);
}

std::int32_t ColumnList(const LPModel& model, std::int32_t j) {
  std::int32_t sum = model.ColNumberElements(j);
  for (std::int32_t k = 0; k < model.ColNumberElements(j); ++k) {
    sum = Blend(sum, model.ColElementrow(j, k), model.ColElementvalue(j, k));
  }
  return sum;
}
std::int32_t ColumnList(const NaiveModel& model, std::int32_t j) {
  return BlendOf(model.Columns[static_cast<std::size_t>(j)].Elements);
}

std::int32_t RowNamed(const LPModel& model, const std::string& name) {
  return model.store().FindRow(name);
}
std::int32_t RowNamed(const NaiveModel& model, const std::string& name) {
  return NumberNamed(model.Rows, model.NumberOfRows, name);
}
std::int32_t ColumnNamed(const LPModel& model, const std::string& name) {
  return model.store().FindColumn(name);
}
std::int32_t ColumnNamed(const NaiveModel& model, const std::string& name) {
  return NumberNamed(model.Columns, model.NumberOfColumns, name);
}

}  // namespace quarvel::testing
