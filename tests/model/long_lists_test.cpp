// Lists of very many coefficients, between removals that have left gaps in them.
#include <cstdint>
#include <string>

#include <gtest/gtest.h>

#include "model/model_check.h"
#include "model/model_store.h"

namespace quarvel::model {
namespace {

// Rows R1 to R<rows> and columns C1 to C<columns>, each row with each column.
void FillWhole(ModelStore& store, std::int32_t rows, std::int32_t columns) {
  for (std::int32_t r = 1; r <= rows; ++r) {
    const std::string name = "R" + std::to_string(r);
    store.AddRow(NameKey::Of(name), name);
  }
  for (std::int32_t c = 1; c <= columns; ++c) {
    const std::string name = "C" + std::to_string(c);
    store.AddColumn(NameKey::Of(name), name);
    for (std::int32_t r = 1; r <= rows; ++r) store.AddElement(r, c, r + 1000 * c);
  }
}

// Lists whose places are known between removals take what is added to them.
TEST(LongLists, FindWhatIsAddedToALongListBetweenRemovals) {
  constexpr std::int32_t kSize = 100;
  ModelStore store;
  FillWhole(store, kSize, 3);
  store.AddColumn(NameKey::Of("NEW"), "NEW");
  store.AddRow(NameKey::Of("LAST"), "LAST");
  store.RemoveRow(7);
  store.RemoveColumn(3);
  for (int walk = 0; walk < 40; ++walk) {
    ASSERT_EQ(store.FindElement(5, 2), 2);
    ASSERT_EQ(store.looks().ColumnElement(2, 50).Index, 50);
    ASSERT_EQ(store.looks().ElementValue(walk + 1, 2), walk + (walk < 6 ? 1 : 2) + 2000);
  }
  const std::int32_t last = store.NumberOfRows();
  store.AddElement(last, 2, -5);
  ASSERT_TRUE(store.has_gaps());
  EXPECT_EQ(store.looks().ColumnElement(2, kSize), (ElementEntry{last, -5}));
  store.RemoveElement(last, 1);
  EXPECT_EQ(store.looks().ElementsInColumn(2), kSize - 1);
  EXPECT_EQ(CheckModelData(store), "");
}

// Once the entries that are left in a long column were counted, the count follows each change.
TEST(LongLists, CountAColumnBetweenRemovalsOfItsFirstElements) {
  constexpr std::int32_t kSize = 200;
  ModelStore store;
  FillWhole(store, kSize, 2);
  store.RemoveRow(9);
  std::int32_t count = kSize - 1;
  ASSERT_EQ(store.looks().ElementsInColumn(2), count);
  for (std::int32_t r = 1; r <= 50; ++r) {
    store.RemoveElement(r, 2);
    ASSERT_EQ(store.looks().ElementsInColumn(2), --count) << r;
    ASSERT_TRUE(store.has_gaps());
  }
  EXPECT_EQ(store.data().Columns[2].ElementCount(), count);
}

}  // namespace
}  // namespace quarvel::model
