#include "quarvel/arrays.h"

#include <array>
#include <cmath>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "tests/api/api_model.h"

namespace quarvel {
namespace {

using testing::ErrorOf;
using testing::SmallApiModel;

TEST(ApiArrays, HaveInfinityWhereThereIsNoBound) {
  const Model model = SmallApiModel();
  std::vector<double> lower(3);
  std::vector<double> upper(3);
  CopyRowBounds(model, lower, upper);
  EXPECT_EQ(lower, (std::vector<double>{-HUGE_VAL, -HUGE_VAL, 1}));
  EXPECT_EQ(upper, (std::vector<double>{HUGE_VAL, 4, 8}));
  lower.resize(2);
  upper.resize(2);
  CopyColumnBounds(model, lower, upper);
  EXPECT_EQ(lower, (std::vector<double>{0, -1}));
  EXPECT_EQ(upper, (std::vector<double>{HUGE_VAL, 5}));
}

TEST(ApiArrays, HaveTypesAndNames) {
  const Model model = SmallApiModel();
  std::vector<RowType> rows(3);
  CopyRowTypes(model, rows);
  EXPECT_EQ(rows, (std::vector<RowType>{RowType::kFree, RowType::kLess, RowType::kRanged}));
  std::vector<ColumnType> columns(2);
  CopyColumnTypes(model, columns);
  EXPECT_EQ(columns, (std::vector<ColumnType>{ColumnType::kContinuous, ColumnType::kInteger}));
  std::string names;
  VisitRowNames(model, [&](std::string_view name) { names.append(name).append(" "); });
  VisitColumnNames(model, [&](std::string_view name) { names.append(name).append(" "); });
  EXPECT_EQ(names, "COST LIMIT RANGE X Y ");
}

TEST(ApiArrays, HaveTheMatrixByRowsAndByColumns) {
  const Model model = SmallApiModel();
  std::vector<std::int32_t> starts(4);
  std::vector<std::int32_t> indices(5);
  std::vector<double> values(5);
  CopyMatrixByRows(model, starts, indices, values);
  EXPECT_EQ(starts, (std::vector<std::int32_t>{0, 2, 4, 5}));
  EXPECT_EQ(indices, (std::vector<std::int32_t>{0, 1, 0, 1, 0}));
  EXPECT_EQ(values, (std::vector<double>{3, -2, 1, 1, 1}));
  starts.resize(3);
  CopyMatrixByColumns(model, starts, indices, values);
  EXPECT_EQ(starts, (std::vector<std::int32_t>{0, 3, 5}));
  EXPECT_EQ(indices, (std::vector<std::int32_t>{0, 1, 2, 0, 1}));
  EXPECT_EQ(values, (std::vector<double>{3, 1, 1, -2, 1}));
}

TEST(ApiArrays, SeeTheModelWithoutWhatWasRemoved) {
  Model model = SmallApiModel();
  model.RemoveRow(1);
  std::vector<std::int32_t> starts(3);
  std::vector<std::int32_t> indices(3);
  std::vector<double> values(3);
  CopyMatrixByColumns(model, starts, indices, values);
  EXPECT_EQ(starts, (std::vector<std::int32_t>{0, 2, 3}));
  EXPECT_EQ(indices, (std::vector<std::int32_t>{0, 1, 0}));
  EXPECT_EQ(values, (std::vector<double>{3, 1, -2}));
}

TEST(ApiArrays, HaveTheActivityOfEveryRow) {
  const Model model = SmallApiModel();
  std::array<double, 3> activities{};
  CopyActivities(model, std::array{2.0, 0.5}, activities);
  EXPECT_EQ(activities, (std::array{5.0, 2.5, 2.0}));
}

TEST(ApiArrays, OfAnotherLengthAreRefusedAndStayAsTheyAre) {
  const Model model = SmallApiModel();
  std::vector<double> three(3, 7);
  std::vector<double> two(2, 7);
  EXPECT_EQ(ErrorOf([&] { CopyRowBounds(model, three, two); }), ErrorCode::kIndex);
  EXPECT_EQ(ErrorOf([&] { CopyActivities(model, three, three); }), ErrorCode::kIndex);
  EXPECT_EQ(ErrorOf([&] { CopyActivities(model, two, two); }), ErrorCode::kIndex);
  EXPECT_EQ(three, std::vector<double>(3, 7));
  std::vector<std::int32_t> starts(3);
  std::vector<std::int32_t> indices(5);
  EXPECT_EQ(ErrorOf([&] { CopyMatrixByRows(model, starts, indices, three); }), ErrorCode::kIndex);
  EXPECT_EQ(ErrorOf([&] { CopyMatrixByColumns(model, starts, indices, three); }),
            ErrorCode::kIndex);
}

}  // namespace
}  // namespace quarvel
