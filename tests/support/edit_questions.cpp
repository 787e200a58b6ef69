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

// What else a record is than its list.
std::int32_t BlendOf(std::int32_t sum, const std::string& name, const std::string& type,
                     double lower, double upper) {
  for (const char character : name + type) sum = Blend(sum, character, 1);
  return Blend(Blend(sum, 1, lower), 2, upper);
}

std::int32_t BlendOf(const NaiveRecord& record) {
  return BlendOf(BlendOf(record.Elements), record.Name, record.Type, record.LowerBound,
                 record.UpperBound);
}

// How many rows a list holds, and the one at that place.
std::int32_t BlendOfList(std::int32_t sum, const std::vector<std::int32_t>& list, std::int32_t i) {
  const auto place = static_cast<std::size_t>(i);
  sum = Blend(sum, static_cast<std::int32_t>(list.size()), 1);
  return place < list.size() ? Blend(sum, list[place] - 1, 2) : sum;
}

std::int32_t NumberNamed(const std::vector<NaiveRecord>& records, std::int32_t count,
                         const std::string& name) {
  for (std::int32_t n = 1; n <= count; ++n) {
    if (records[static_cast<std::size_t>(n - 1)].Name == name) return n;
  }
  return 0;
}

}  // namespace

std::int32_t RowAnswers(const LPModel& model, std::int32_t i) {
  std::int32_t sum = model.RowNumberElements(i);
  for (std::int32_t k = 0; k < model.RowNumberElements(i); ++k) {
    sum = Blend(sum, model.RowElementCol(i, k), model.RowElementValue(i, k));
  }
  sum = BlendOf(sum, model.RowName(i), model.RowType(i), model.RowLowerBound(i),
                model.RowUpperBound(i));
  sum = Blend(sum, model.NumberOfBindingRows(), 1);
  if (i < model.NumberOfBindingRows()) sum = Blend(sum, model.BindingRowIndex(i), 2);
  sum = Blend(sum, model.NumberOfNonBindingRows(), 1);
  if (i < model.NumberOfNonBindingRows()) sum = Blend(sum, model.NonBindingRowIndex(i), 2);
  return sum;
}
std::int32_t RowAnswers(const NaiveModel& model, std::int32_t i) {
  const std::int32_t sum = BlendOf(model.Rows[static_cast<std::size_t>(i)]);
  return BlendOfList(BlendOfList(sum, model.BindingRows, i), model.NonBindingRows, i);
}

std::int32_t ColumnAnswers(const LPModel& model, std::int32_t j) {
  std::int32_t sum = model.ColNumberElements(j);
  for (std::int32_t k = 0; k < model.ColNumberElements(j); ++k) {
    sum = Blend(sum, model.ColElementrow(j, k), model.ColElementvalue(j, k));
  }
  return BlendOf(sum, model.ColName(j), model.ColType(j), model.ColLowerBound(j),
                 model.ColUpperBound(j));
}
std::int32_t ColumnAnswers(const NaiveModel& model, std::int32_t j) {
  return BlendOf(model.Columns[static_cast<std::size_t>(j)]);
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
