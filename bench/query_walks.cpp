#include "bench/query_walks.h"

#include <cstddef>
#include <cstdint>
#include <vector>

#include "bench/times.h"

namespace quarvel::bench {
namespace {

// What a walk over all coefficients adds up, so that none of it can be left out.
struct Sum {
  std::int64_t indexes = 0;
  double values = 0;
};

void PrintSum(const Sum& rows, const Sum& columns) {
  PrintResult("indexes", static_cast<double>(rows.indexes + columns.indexes));
  PrintResult("values", rows.values + columns.values);
}

// Sums of its own in a function of its own, as a program's loop has them. A sum of the caller's would be
// stored at each step, for the case that a question raises an error; and in a function with objects to destroy
// then, gcc keeps no floating-point variable in a register over a call.
[[gnu::noinline]] Sum SumOfRows(const LPModel& model) {
  Sum sum;
  for (std::int32_t i = 0; i < model.NumberOfRows(); ++i) {
    const std::int32_t count = model.RowNumberElements(i);
    for (std::int32_t k = 0; k < count; ++k) {
      sum.indexes += model.RowElementCol(i, k);
      sum.values += model.RowElementValue(i, k);
    }
  }
  return sum;
}

[[gnu::noinline]] Sum SumOfColumns(const LPModel& model) {
  Sum sum;
  for (std::int32_t j = 0; j < model.NumberOfColumns(); ++j) {
    const std::int32_t count = model.ColNumberElements(j);
    for (std::int32_t k = 0; k < count; ++k) {
      sum.indexes += model.ColElementrow(j, k);
      sum.values += model.ColElementvalue(j, k);
    }
  }
  return sum;
}

// The lists of all rows, or of all columns, one after the other.
struct Packed {
  std::vector<std::size_t> starts{0};
  std::vector<std::int32_t> indexes;
  std::vector<double> values;

  void Add(std::int32_t index, double value) {
    indexes.push_back(index);
    values.push_back(value);
  }
  void EndList() { starts.push_back(indexes.size()); }
};

Packed PackRows(const LPModel& model) {
  Packed packed;
  for (std::int32_t i = 0; i < model.NumberOfRows(); ++i) {
    for (std::int32_t k = 0; k < model.RowNumberElements(i); ++k) {
      packed.Add(model.RowElementCol(i, k), model.RowElementValue(i, k));
    }
    packed.EndList();
  }
  return packed;
}

Packed PackColumns(const LPModel& model) {
  Packed packed;
  for (std::int32_t j = 0; j < model.NumberOfColumns(); ++j) {
    for (std::int32_t k = 0; k < model.ColNumberElements(j); ++k) {
      packed.Add(model.ColElementrow(j, k), model.ColElementvalue(j, k));
    }
    packed.EndList();
  }
  return packed;
}

[[gnu::noinline]] Sum SumOf(const Packed& packed) {
  Sum sum;
  for (std::size_t list = 0; list + 1 < packed.starts.size(); ++list) {
    for (std::size_t k = packed.starts[list]; k < packed.starts[list + 1]; ++k) {
      sum.indexes += packed.indexes[k];
      sum.values += packed.values[k];
    }
  }
  return sum;
}

}  // namespace

void RunQueryWalk(const LPModel& model) {
  Sum rows;
  Sum columns;
  PrintTimes(TimesOf([&] {
    rows = SumOfRows(model);
    columns = SumOfColumns(model);
  }));
  PrintSum(rows, columns);
}

void RunPlainWalk(const LPModel& model) {
  const Packed row_lists = PackRows(model);
  const Packed column_lists = PackColumns(model);
  Sum rows;
  Sum columns;
  PrintTimes(TimesOf([&] {
    rows = SumOf(row_lists);
    columns = SumOf(column_lists);
  }));
  PrintSum(rows, columns);
}

}  // namespace quarvel::bench
