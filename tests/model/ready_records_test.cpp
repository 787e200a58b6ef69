// The records that a store lets be looked at as they are stored.
#include <cstddef>
#include <cstdint>
#include <random>
#include <string>
#include <utility>

#include <gtest/gtest.h>

#include "model/model_store.h"

namespace quarvel::model {
namespace {

void AppendRow(ModelStore& store, const std::string& name) {
  store.AddRow(NameKey::Of(name), name);
}

void AppendColumn(ModelStore& store, const std::string& name) {
  store.AddColumn(NameKey::Of(name), name);
}

// Rows R1 to R<rows> and columns C1 to C<columns>, with a coefficient at every second place.
void FillEverySecond(ModelStore& store, std::int32_t rows, std::int32_t columns) {
  for (std::int32_t r = 1; r <= rows; ++r) AppendRow(store, "R" + std::to_string(r));
  for (std::int32_t c = 1; c <= columns; ++c) {
    AppendColumn(store, "C" + std::to_string(c));
    for (std::int32_t r = 1 + c % 2; r <= rows; r += 2) store.AddElement(r, c, r + 100 * c);
  }
}

void ExpectReady(const ModelStore& store, std::size_t rows, std::size_t columns) {
  EXPECT_EQ(store.ready().rows.size(), rows);
  EXPECT_EQ(store.ready().columns.size(), columns);
}

TEST(ReadyRecords, AreThoseThatAreCountedWhileNothingIsDeferred) {
  ModelStore store;
  ExpectReady(store, 0, 0);
  FillEverySecond(store, 6, 4);
  ExpectReady(store, 6, 4);
  EXPECT_EQ(store.ready().rows[5].Name, "R6");
  EXPECT_EQ(store.ready().columns[3].Name, "C4");
  store.RemoveRow(2);
  ExpectReady(store, 0, 0);
  AppendRow(store, "S");
  ExpectReady(store, 0, 0);
  store.data();
  ExpectReady(store, 6, 4);
  EXPECT_EQ(store.ready().rows[5].Name, "S");
  store.RemoveColumn(1);
  ExpectReady(store, 0, 0);
  store.data();
  ExpectReady(store, 6, 3);
  store.Clear();
  ExpectReady(store, 0, 0);
}

TEST(ReadyRecords, AreNoneWhileRowIndexesAreDeferred) {
  ModelStore store;
  FillEverySecond(store, 2, 2);
  store.SetRowType(1, RowType::kLess);
  store.SetRowType(2, RowType::kLess);
  store.data();
  ExpectReady(store, 2, 2);
  store.SetRowType(1, RowType::kFree);
  ExpectReady(store, 0, 0);
  store.data();
  ExpectReady(store, 2, 2);
}

TEST(ReadyRecords, LeaveOutWhatIsNotCounted) {
  ModelStore store;
  store.StartAnew({}, {});
  ExpectReady(store, 0, 0);
  AppendRow(store, "A");
  ExpectReady(store, 1, 0);
}

// Fields that are taken over may count anything.
TEST(ReadyRecords, LeaveOutWhatIsNotStored) {
  for (const std::int32_t beyond : {-9, -1, 0, 1, 1000}) {
    ModelData data;
    data.Rows.Resize(3);
    data.Columns.Resize(2);
    data.NumberOfRows = 3 + beyond;
    data.NumberOfColumns = 2 + beyond;
    ModelStore store;
    store.Take(std::move(data));
    const bool fewer = beyond < 0;
    ExpectReady(store, fewer ? (beyond == -1 ? 2 : 0) : 3, fewer ? (beyond == -1 ? 1 : 0) : 2);
  }
}

TEST(ReadyRecords, FollowAReadThatKeepsRowListsUpToDate) {
  ModelStore store;
  ModelFill fill = store.fill();
  fill.Begin();
  fill.AppendRow(NameKey::Of("R"), "R", RowType::kLess, {0, 1});
  fill.AppendColumn(NameKey::Of("X"), "X", ColumnType::kInteger, {0, 4});
  ExpectReady(store, 0, 0);
  fill.TakeUpAgain();
  ExpectReady(store, 1, 1);
  fill.AppendColumn(NameKey::Of("Y"), "Y", ColumnType::kInteger, {0, 4});
  ExpectReady(store, 1, 2);
  fill.AppendRow(NameKey::Of("S"), "S", RowType::kLess, {0, 1});
  ExpectReady(store, 2, 2);
  fill.AppendElement(2, 2, 7);
  EXPECT_EQ(store.ready().rows[1].Elements[1], (ElementEntry{2, 7}));
  fill.Begin();
  ExpectReady(store, 0, 0);
}

std::int32_t UpTo(std::mt19937& random, std::int32_t most) {
  return static_cast<std::int32_t>(random() % static_cast<std::uint32_t>(most)) + 1;
}

// Any change; of a model without rows or columns one that adds some.
void ChangeAnything(ModelStore& store, std::mt19937& random, int step) {
  const std::int32_t rows = store.NumberOfRows();
  const std::int32_t columns = store.NumberOfColumns();
  const std::uint32_t kind = random() % 8;
  const std::string number = std::to_string(step);
  if (kind == 0 || rows == 0) AppendRow(store, "NR" + number);
  if (kind == 1 || columns == 0) AppendColumn(store, "NC" + number);
  if (rows == 0 || columns == 0) return;
  if (kind == 2) store.RemoveRow(UpTo(random, rows));
  if (kind == 3) store.RemoveColumn(UpTo(random, columns));
  if (kind == 4) store.AddElement(UpTo(random, rows), UpTo(random, columns), step);
  if (kind == 5) store.data();
  if (kind == 6) {
    const std::int32_t r = UpTo(random, rows);
    const std::int32_t count = store.ElementsInRow(r);
    if (count > 0) store.RemoveElement(r, UpTo(random, count));
  }
  if (kind == 7) {
    store.SetRowType(UpTo(random, rows), random() % 2 == 0 ? RowType::kFree : RowType::kLess);
  }
}

// They are none, or all records as everybody sees them, after whatever is changed.
TEST(ReadyRecords, ShowWhatIsSeenOtherwiseAfterAnyChange) {
  std::mt19937 random(7);
  int ready = 0;
  for (int run = 0; run < 60; ++run) {
    ModelStore store;
    FillEverySecond(store, 8, 8);
    for (int step = 0; step < 60; ++step) {
      ChangeAnything(store, random, step);
      if (store.has_deferred_work()) {
        ExpectReady(store, 0, 0);
        continue;
      }
      ++ready;
      ExpectReady(store, static_cast<std::size_t>(store.NumberOfRows()),
                  static_cast<std::size_t>(store.NumberOfColumns()));
      const auto seen = store.ready();
      ASSERT_EQ(seen.rows.data(), store.data().Rows.store().data());
      ASSERT_EQ(seen.columns.data(), store.data().Columns.store().data());
    }
  }
  EXPECT_GT(ready, 300);
}

}  // namespace
}  // namespace quarvel::model
