#include "model/row_lists.h"

#include <algorithm>
#include <cstdint>
#include <random>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "model/stored_model.h"

namespace quarvel::model {
namespace {

using List = std::vector<std::pair<std::int32_t, double>>;

// A model that has column lists only, and the row lists that belong to it.
struct Columns {
  Columns(std::int32_t rows, std::int32_t columns) : expected(static_cast<std::size_t>(rows)) {
    data.Rows.Resize(rows);
    data.Columns.Resize(columns);
    data.NumberOfRows = rows;
    data.NumberOfColumns = columns;
  }
  void Add(std::int32_t row, std::int32_t column) {
    const auto value = static_cast<double>(data.NumberOfElements + 1);
    data.Columns[column].Elements.Append({row, value});
    expected[static_cast<std::size_t>(row - 1)].emplace_back(column, value);
    ++data.NumberOfElements;
  }

  StoredModel model;
  ModelData& data = model.data;
  std::vector<List> expected;
};

void ExpectFilled(Columns& columns) {
  FillRowLists(columns.model);
  for (std::int32_t r = 1; r <= columns.data.Rows.size(); ++r) {
    List list;
    for (const ElementEntry& entry : columns.data.Rows[r].Elements) {
      list.emplace_back(entry.Index, entry.Value);
    }
    // Column by column; within one, in the order of its list.
    List& expected = columns.expected[static_cast<std::size_t>(r - 1)];
    std::stable_sort(expected.begin(), expected.end(),
                     [](const auto& one, const auto& other) { return one.first < other.first; });
    ASSERT_EQ(list, expected) << "row " << r;
  }
}

void AddAtRandom(Columns& columns, int per_column, unsigned seed) {
  std::mt19937 random(seed);
  const auto rows = static_cast<unsigned>(columns.data.Rows.size());
  for (std::int32_t c = 1; c <= columns.data.Columns.size(); ++c) {
    for (int i = 0; i < per_column; ++i) {
      columns.Add(static_cast<std::int32_t>(random() % rows) + 1, c);
    }
  }
}

TEST(RowLists, NothingGivesNothing) {
  Columns none(0, 0);
  ExpectFilled(none);
  Columns empty(3, 2);
  ExpectFilled(empty);
}

TEST(RowLists, FewRowsKeepTheOrderOfTheColumns) {
  Columns columns(50, 300);
  AddAtRandom(columns, 5, 1);
  ExpectFilled(columns);
}

// From 4097 rows on they are filled in groups of 2048; the last row numbers are at the borders.
TEST(RowLists, ManyRowsKeepTheOrderOfTheColumns) {
  for (const std::int32_t rows : {4096, 4097, 6143, 6144, 6145, 20'000}) {
    Columns columns(rows, 3000);
    for (std::int32_t c = 1; c <= 3000; c += 100) {
      columns.Add(1, c);
      columns.Add(rows, c);
    }
    AddAtRandom(columns, 4, 2);
    ExpectFilled(columns);
  }
}

TEST(RowLists, ARowThatHoldsMostOfTheModelIsFilledToo) {
  Columns columns(10'000, 2000);
  for (std::int32_t c = 1; c <= 2000; ++c) {
    for (int i = 0; i < 6; ++i) columns.Add(7000, c);
  }
  AddAtRandom(columns, 3, 3);
  ExpectFilled(columns);
}

// Beside rows that stand before and behind it in its group, at the group's borders too.
TEST(RowLists, ARowThatHoldsMostOfALargeGroupKeepsTheOrderOfTheColumns) {
  for (const std::int32_t longest : {1, 2047, 2048, 5000, 10'000}) {
    Columns columns(10'000, 150'000);
    for (std::int32_t c = 1; c <= 150'000; ++c) {
      if (c % 10 != 0) columns.Add(longest, c);
      columns.Add(c % 10'000 + 1, c);
    }
    AddAtRandom(columns, 1, 4);
    ExpectFilled(columns);
  }
}

TEST(RowLists, TheLastRowsMayBeEmpty) {
  Columns columns(9000, 10);
  columns.Add(4000, 3);
  columns.Add(4000, 4);
  columns.Add(1, 5);
  ExpectFilled(columns);
}

}  // namespace
}  // namespace quarvel::model
