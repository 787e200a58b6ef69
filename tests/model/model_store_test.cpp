#include "model/model_store.h"

#include <algorithm>
#include <cstdint>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "model/model_check.h"

namespace quarvel::model {
namespace {

std::int32_t AddRow(ModelStore& store, const std::string& name) {
  return store.AddRow(NameKey::Of(name), name);
}

std::int32_t AddColumn(ModelStore& store, const std::string& name) {
  return store.AddColumn(NameKey::Of(name), name);
}

// Rows R1 to R<rows> and columns C1 to C<columns>; a coefficient wherever row and column number
// leave the same rest.
void Build(ModelStore& store, std::int32_t rows, std::int32_t columns, std::int32_t rest) {
  for (std::int32_t r = 1; r <= rows; ++r) {
    AddRow(store, "R" + std::to_string(r));
    store.SetRowType(r, r % 2 == 0 ? RowType::kFree : RowType::kLess);
  }
  for (std::int32_t c = 1; c <= columns; ++c) {
    AddColumn(store, "C" + std::to_string(c));
    for (std::int32_t r = 1; r <= rows; ++r) {
      if (r % rest == c % rest) store.AddElement(r, c, r + 1000 * c);
    }
  }
}

std::string NamesOfRows(const ModelStore& store) {
  std::string names;
  for (std::int32_t r = 1; r <= store.NumberOfRows(); ++r)
    names.append(store.looks().NameOfRow(r)) += " ";
  return names;
}

// The same row or column of both, which hold the same records.
void RemoveAnyRecord(std::mt19937& random, ModelStore& a, ModelStore& b) {
  const bool row = a.NumberOfColumns() == 0 || random() % 2 == 0;
  const auto count = static_cast<unsigned>(row ? a.NumberOfRows() : a.NumberOfColumns());
  const auto number = static_cast<std::int32_t>(random() % count) + 1;
  for (ModelStore* store : {&a, &b}) row ? store->RemoveRow(number) : store->RemoveColumn(number);
}

TEST(ModelStore, FindsRecordsByNameThroughEveryChange) {
  ModelStore store;
  Build(store, 4, 4, 2);
  EXPECT_EQ(store.FindRow("R3"), 3);
  store.RenameRow(3, "OTHER");
  EXPECT_EQ(store.FindRow("R3"), 0);
  store.RemoveRow(2);
  EXPECT_EQ(store.FindRow("OTHER"), 2);
  EXPECT_EQ(store.FindRow("R4"), 3);
  store.RenameColumn(1, "FIRST");
  EXPECT_EQ(store.FindColumn("FIRST"), 1);
  EXPECT_EQ(CheckModelData(store), "");
}

TEST(ModelStore, KnowsWhetherNamesAreDistinct) {
  ModelStore store;
  EXPECT_TRUE(store.looks().KnowsNamesDistinct());
  Build(store, 4, 4, 2);
  EXPECT_TRUE(store.looks().KnowsNamesDistinct());
  store.RemoveRow(2);
  EXPECT_FALSE(store.looks().KnowsNamesDistinct() && store.FindRow("R4") != 3);
  store.RenameRow(1, "R3");
  EXPECT_FALSE(store.looks().KnowsNamesDistinct());
  store.Clear();
  Build(store, 2, 2, 2);
  EXPECT_TRUE(store.looks().KnowsNamesDistinct());
  store.RenameColumn(2, "C1");
  EXPECT_FALSE(store.looks().KnowsNamesDistinct());
}

TEST(ModelStore, ShowsItsFieldsWithoutRowListsAndWithoutGaps) {
  ModelStore store;
  Build(store, 6, 3, 3);
  store.RemoveRow(1);
  store.RemoveRow(3);
  EXPECT_EQ(store.looks().DataWithoutRowLists().NumberOfRows, 4);
  EXPECT_EQ(store.looks().DataWithoutRowLists().Rows[2].Name, "R3");
  const std::string seen = NamesOfRows(store);
  EXPECT_EQ(seen, "R2 R3 R5 R6 ");
  EXPECT_EQ(CheckModelData(store), "");
}

TEST(ModelStore, ChangesRecordsWhileRemovalsOfTheirKindAreDeferred) {
  ModelStore store;
  Build(store, 6, 3, 3);
  store.RemoveRow(1);
  store.RemoveRow(3);
  ASSERT_TRUE(store.has_deferred_work());
  store.RowBounds(2) = {-1, 5};
  EXPECT_EQ(store.Row(2).Name, "R3");
  EXPECT_EQ(store.Row(2).UpperBound, 5);
  // What a row's list says of columns stands where it did.
  store.ColumnBoundsAt(store.Row(2).Elements[1]).LowerBound = -7;
  EXPECT_TRUE(store.has_deferred_work());
  EXPECT_EQ(store.data().Columns[3].LowerBound, -7);
  EXPECT_EQ(NamesOfRows(store), "R2 R3 R5 R6 ");
  EXPECT_EQ(CheckModelData(store), "");
}

TEST(ModelStore, TellsOfEachRowThatGoesWithAColumn) {
  ModelStore store;
  Build(store, 4, 2, 2);
  std::vector<std::string> gone;
  store.RemoveColumn(1, [&](const RowRecord& row) { gone.push_back(row.Name); });
  EXPECT_EQ(gone, (std::vector<std::string>{"R1", "R3"}));
  EXPECT_EQ(NamesOfRows(store), "R2 R4 ");
  EXPECT_EQ(store.NumberOfElements(), 2);
  EXPECT_EQ(CheckModelData(store), "");
}

// A pair that was added twice: each removal takes the first entry of the other list only, and what is
// left of them names the record that comes next.
TEST(ModelStore, TakesOutTheFirstEntryOfEachListWhereTheyDisagree) {
  ModelStore store;
  Build(store, 3, 3, 4);
  store.AddElement(2, 1, 7);
  store.AddElement(2, 1, 8);
  store.RemoveRow(2);
  EXPECT_TRUE(store.has_gaps());
  EXPECT_EQ(store.looks().ElementsInColumn(1), 2);
  EXPECT_TRUE(store.has_gaps());
  ASSERT_EQ(store.Column(1).ElementCount(), 2);
  EXPECT_EQ(store.Column(1).Elements[2], (ElementEntry{2, 8}));
  store.RemoveRow(2);
  store.RemoveRow(1);
  EXPECT_EQ(store.data().Columns[1].ElementCount(), 0);
}

// What removals leave in lists that disagree depends on their order, and not on who looks meanwhile.
TEST(ModelStore, DefersRemovalsWhereListsDisagreeWithoutATrace) {
  std::mt19937 random(17);
  for (int run = 0; run < 60; ++run) {
    ModelStore deferred;
    ModelStore plain;
    Build(deferred, 12, 10, 3);
    Build(plain, 12, 10, 3);
    for (int pair = 0; pair < 30; ++pair) {
      const auto r = static_cast<std::int32_t>(random() % 12) + 1;
      const auto c = static_cast<std::int32_t>(random() % 4) + 1;
      for (ModelStore* store : {&deferred, &plain}) store->AddElement(r, c, pair);
    }
    for (int step = 0; step < 9 && deferred.NumberOfRows() > 0; ++step) {
      RemoveAnyRecord(random, deferred, plain);
      plain.data();
      ASSERT_EQ(NamesOfRows(deferred), NamesOfRows(plain)) << "run " << run;
      for (std::int32_t c = 1; c <= plain.NumberOfColumns(); ++c) {
        ASSERT_EQ(deferred.looks().ElementsInColumn(c), plain.looks().ElementsInColumn(c))
            << "run " << run;
      }
      ASSERT_TRUE(deferred.has_gaps());
    }
    ASSERT_EQ(deferred.NumberOfElements(), plain.NumberOfElements());
    for (std::int32_t c = 1; c <= plain.NumberOfColumns(); ++c) {
      ASSERT_TRUE(std::ranges::equal(deferred.data().Columns[c].Elements,
                                     plain.data().Columns[c].Elements));
    }
    for (std::int32_t r = 1; r <= plain.NumberOfRows(); ++r) {
      ASSERT_TRUE(
          std::ranges::equal(deferred.data().Rows[r].Elements, plain.data().Rows[r].Elements));
    }
  }
}

// Of a row or a column that all others share, each entry is found without a walk.
TEST(ModelStore, AnswersAboutLongListsBetweenRemovalsWithoutClosingGaps) {
  constexpr std::int32_t kSize = 400;
  ModelStore store;
  Build(store, kSize, kSize, kSize);
  std::vector<double> values = {1001};  // of the rows in column 1
  for (std::int32_t n = 2; n <= kSize; ++n) {
    store.AddElement(1, n, n);
    store.AddElement(n, 1, n);
    values.push_back(n);
  }
  std::mt19937 random(3);
  for (int step = 0; step < 300; ++step) {
    const auto others = static_cast<unsigned>(values.size()) - 1;
    const auto r = static_cast<std::int32_t>(random() % others) + 2;
    store.RemoveRow(r);
    values.erase(values.begin() + (r - 1));
    const auto count = static_cast<std::int32_t>(values.size());
    ASSERT_EQ(store.looks().ElementsInColumn(1), count);
    const auto offset = random() % values.size();
    const auto k = static_cast<std::int32_t>(offset) + 1;
    ASSERT_EQ(store.looks().ColumnElement(1, k), (ElementEntry{k, values[offset]}));
    ASSERT_THROW(store.looks().ColumnElement(1, count + 1), AutomationError);
    ASSERT_TRUE(store.has_gaps());
  }
  EXPECT_EQ(CheckModelData(store), "");
}

TEST(ModelStore, RaisesForNumbersOfNothingAndChangesNothing) {
  ModelStore store;
  Build(store, 2, 2, 2);
  for (const std::int32_t number : {-1, 0, 3}) {
    EXPECT_THROW(store.Row(number), AutomationError);
    EXPECT_THROW(store.AddElement(number, 1, 1), AutomationError);
    EXPECT_THROW(store.AddElement(1, number, 1), AutomationError);
    EXPECT_THROW(store.RemoveRow(number), AutomationError);
    EXPECT_THROW(store.RemoveColumn(number), AutomationError);
    EXPECT_THROW(store.RemoveElement(1, number), AutomationError);
    EXPECT_THROW(store.SetElementValue(1, number, 1), AutomationError);
  }
  EXPECT_EQ(store.NumberOfElements(), 2);
  EXPECT_EQ(CheckModelData(store), "");
}

TEST(ModelStore, TakesFieldsThatDisagreeAndFindsThatOut) {
  ModelStore store;
  Build(store, 4, 4, 2);
  ModelData data = store.data();
  data.Rows[1].Elements[1].Index = 2;
  store.Take(std::move(data));
  EXPECT_NE(CheckModelData(store), "");
  EXPECT_EQ(store.FindRow("R4"), 4);
  store.RemoveRow(1);
  EXPECT_EQ(NamesOfRows(store), "R2 R3 R4 ");
}

// What a read does: row lists come out of the column lists, whenever somebody looks.
TEST(ModelStore, FillsRowListsWhenSomebodyLooks) {
  ModelStore store;
  ModelFill fill = store.fill();
  fill.Begin();
  for (const std::string name : {"A", "B"}) {
    fill.AppendRow(NameKey::Of(name), name, RowType::kLess, {0, 1});
  }
  fill.AppendColumn(NameKey::Of("X"), "X", ColumnType::kInteger, {0, 4});
  fill.AppendElement(2, 1, 3);
  EXPECT_TRUE(store.has_deferred_work());
  ASSERT_EQ(store.Row(2).ElementCount(), 1);
  EXPECT_EQ(store.Row(2).Elements[1], (ElementEntry{1, 3}));
  fill.AppendElement(1, 1, 5);
  EXPECT_EQ(store.Row(1).Elements[1], (ElementEntry{1, 5}));
  EXPECT_EQ(CheckModelData(store), "");
}

// What stands in a loop between removals closes no gap, so that the loop costs one pass in all.
TEST(ModelStore, KeepsGapsOpenForWhateverConcernsOneRecord) {
  constexpr std::int32_t kSize = 300;
  ModelStore store;
  Build(store, kSize, kSize, 100);
  for (std::int32_t n = 1; n <= kSize / 3; ++n) {
    store.RemoveRow(store.FindRow("R" + std::to_string(2 * n)));
    store.RemoveColumn(store.FindColumn("C" + std::to_string(2 * n + 1)));
    const std::int32_t r = AddRow(store, "NEW" + std::to_string(n));
    store.SetRowType(r, n % 2 == 0 ? RowType::kFree : RowType::kLess);
    store.SetRowType(n, RowType::kFree);
    store.AddElement(r, n, n);
    store.SetElementValue(r, 1, 2 * n);
    store.RenameRow(r, "OTHER" + std::to_string(n));
    store.RenameColumn(n, "OTHER" + std::to_string(n));
    ASSERT_TRUE(store.has_deferred_work()) << n;
    ASSERT_TRUE(store.has_gaps()) << n;
  }
  EXPECT_EQ(CheckModelData(store), "");
  EXPECT_EQ(store.FindRow("OTHER7"), kSize - kSize / 3 + 7);
  EXPECT_EQ(store.FindRow("R6"), 0);
}

// Looks at lists that gaps of the other kind run through are paid for: so many of them close the
// gaps that all together cost no more than some passes.
TEST(ModelStore, ClosesGapsWhenLooksHaveCostAPartOfAPass) {
  constexpr std::int32_t kSize = 1000;
  ModelStore store;
  Build(store, kSize, kSize, 500);
  int closed = 0;
  for (std::int32_t n = 1; n <= kSize / 2; ++n) {
    store.RemoveRow(store.NumberOfRows() / 2);
    ASSERT_GT(store.Column(n).ElementCount(), 0);
    if (!store.has_gaps()) ++closed;
  }
  EXPECT_GT(closed, 0);
  EXPECT_LT(closed, 20);
}

// One row and one column with an entry for each of the others: after some walks entries are found
// and taken out of both where they are, and nobody can tell.
TEST(ModelStore, ThinsOutLongListsAsIfTheyWereShort) {
  constexpr std::int32_t kSize = 400;
  ModelStore store;
  Build(store, kSize, kSize, kSize);
  for (std::int32_t n = 2; n <= kSize; ++n) {
    store.AddElement(1, n, n);
    store.AddElement(n, 1, n);
  }
  std::vector<double> row;
  for (const ElementEntry& entry : store.Row(1).Elements) row.push_back(entry.Value);
  store.RemoveRow(2);
  std::mt19937 random(5);
  for (int step = 0; step < 300; ++step) {
    const auto at = static_cast<std::ptrdiff_t>(random() % row.size());
    const auto k = static_cast<std::int32_t>(at) + 1;
    if (step % 3 == 0) {
      store.SetElementValue(1, k, step);
      row[static_cast<std::size_t>(at)] = step;
    } else {
      store.RemoveElement(1, k);
      row.erase(row.begin() + at);
    }
    // The dense column loses one too.
    const std::int32_t r = store.NumberOfRows() - step;
    ASSERT_EQ(store.looks().ElementValue(r, 1), store.FindElement(r, 1) == 0 ? 0 : r + 1);
    if (store.ElementsInRow(r) > 1) store.RemoveElement(r, store.FindElement(r, 1));
    ASSERT_TRUE(store.has_gaps());
  }
  ASSERT_EQ(store.Row(1).ElementCount(), static_cast<std::int32_t>(row.size()));
  for (std::size_t i = 0; i < row.size(); ++i) {
    ASSERT_EQ(store.Row(1).Elements[static_cast<std::int32_t>(i) + 1].Value, row[i]);
  }
  EXPECT_EQ(CheckModelData(store), "");
}

TEST(ModelStore, GivesANameThatIsFreeAgainToANewRecord) {
  ModelStore store;
  Build(store, 4, 4, 2);
  store.RemoveRow(2);
  EXPECT_EQ(store.FindRow("R2"), 0);
  EXPECT_EQ(AddRow(store, "R2"), 4);
  EXPECT_EQ(store.FindRow("R2"), 4);
  store.RemoveRow(1);
  store.RenameRow(1, "R1");
  EXPECT_EQ(store.FindRow("R1"), 1);
  EXPECT_TRUE(store.has_gaps());
  EXPECT_EQ(CheckModelData(store), "");
  EXPECT_EQ(NamesOfRows(store), "R1 R4 R2 ");
}

// Removals in any order, looked at now and then, leave what they leave one by one.
TEST(ModelStore, DefersRandomRemovalsWithoutATrace) {
  std::mt19937 random(11);
  for (int run = 0; run < 40; ++run) {
    ModelStore deferred;
    ModelStore plain;
    Build(deferred, 20, 15, 3);
    Build(plain, 20, 15, 3);
    for (int step = 0; step < 12 && deferred.NumberOfRows() > 0; ++step) {
      RemoveAnyRecord(random, deferred, plain);
      plain.data();
      ASSERT_EQ(NamesOfRows(deferred), NamesOfRows(plain)) << "run " << run;
    }
    EXPECT_EQ(CheckModelData(deferred), "");
    EXPECT_EQ(deferred.NumberOfElements(), plain.NumberOfElements());
    EXPECT_EQ(deferred.data().BindingRows.store(), plain.data().BindingRows.store());
  }
}

}  // namespace
}  // namespace quarvel::model
