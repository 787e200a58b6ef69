// Counts at their limit. Nobody can fill a model that far here, so the counts are made up.
#include <cstdint>
#include <functional>
#include <utility>

#include <gtest/gtest.h>

#include "model/model_store.h"

namespace quarvel::model {
namespace {

constexpr int kOverflow = 6;

int ErrorOf(const std::function<void()>& call) {
  try {
    call();
  } catch (const AutomationError& error) {
    return error.number();
  }
  return 0;
}

// One row and one column are stored, whatever is counted.
void FillWithCounts(ModelStore& store, std::int32_t rows, std::int32_t columns,
                    std::int32_t elements) {
  ModelData data;
  data.Rows.Resize(1);
  data.Columns.Resize(1);
  data.NumberOfRows = rows;
  data.NumberOfColumns = columns;
  data.NumberOfElements = elements;
  store.Take(std::move(data));
}

TEST(CountLimits, LeaveRoomForALoopBehindTheLast) {
  EXPECT_EQ(kMostCounted, 2147483646);
  EXPECT_EQ(ErrorOf([] { CheckOneMore(kMostCounted - 1); }), 0);
  EXPECT_EQ(ErrorOf([] { CheckOneMore(kMostCounted); }), kOverflow);
}

TEST(CountLimits, RowTooManyIsAnOverflowAndChangesNothing) {
  ModelStore store;
  FillWithCounts(store, kMostCounted, 1, 0);
  EXPECT_EQ(ErrorOf([&] { store.AddRow(NameKey::Of("R"), "R"); }), kOverflow);
  EXPECT_EQ(store.NumberOfRows(), kMostCounted);
  EXPECT_EQ(store.data().Rows.size(), 1);
}

TEST(CountLimits, ColumnTooManyIsAnOverflowAndChangesNothing) {
  ModelStore store;
  FillWithCounts(store, 1, kMostCounted, 0);
  EXPECT_EQ(ErrorOf([&] { store.AddColumn(NameKey::Of("C"), "C"); }), kOverflow);
  EXPECT_EQ(store.NumberOfColumns(), kMostCounted);
  EXPECT_EQ(store.data().Columns.size(), 1);
}

TEST(CountLimits, ElementTooManyIsAnOverflowAndChangesNothing) {
  ModelStore store;
  FillWithCounts(store, 1, 1, kMostCounted);
  EXPECT_EQ(ErrorOf([&] { store.AddElement(1, 1, 2.5); }), kOverflow);
  EXPECT_EQ(store.NumberOfElements(), kMostCounted);
  EXPECT_EQ(store.data().Rows[1].ElementCount(), 0);
  EXPECT_EQ(store.data().Columns[1].ElementCount(), 0);
}

TEST(CountLimits, EndAReadAtTheRecordOrElementTooMany) {
  StoredModel model;
  DeferredWork deferred(model);
  ModelFill fill(model, deferred);
  fill.Begin();
  const Bounds bounds = {0, BoundLimit};
  const auto add_row = [&](const char* name) {
    fill.AppendRow(NameKey::Of(name), name, RowType::kLess, bounds);
  };
  const auto add_column = [&](const char* name) {
    fill.AppendColumn(NameKey::Of(name), name, ColumnType::kContinuous, bounds);
  };
  add_row("R");
  add_column("C");
  model.data.NumberOfElements = kMostCounted;
  EXPECT_EQ(ErrorOf([&] { fill.AppendElement(1, 1, 2.5); }), kOverflow);
  EXPECT_EQ(model.data.NumberOfElements, kMostCounted);
  EXPECT_EQ(model.data.Columns[1].ElementCount(), 0);
  model.data.NumberOfRows = kMostCounted;
  model.data.NumberOfColumns = kMostCounted;
  EXPECT_EQ(ErrorOf([&] { add_row("S"); }), kOverflow);
  EXPECT_EQ(ErrorOf([&] { add_column("D"); }), kOverflow);
  EXPECT_EQ(model.data.Rows.size(), 1);
  EXPECT_EQ(model.data.Columns.size(), 1);
}

}  // namespace
}  // namespace quarvel::model
