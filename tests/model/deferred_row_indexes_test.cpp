#include "model/deferred_row_indexes.h"

#include <vector>

#include <gtest/gtest.h>

namespace quarvel::model {
namespace {

using Numbers = std::vector<std::int32_t>;

ModelData RowsOf(const std::vector<RowType>& types) {
  ModelData data;
  for (const RowType type : types) {
    RowRecord row;
    row.Type = type;
    data.Rows.Append(row);
  }
  data.NumberOfRows = data.Rows.size();
  return data;
}

TEST(DeferredRowIndexes, ListsTheRowsThereWereByTheTypesTheyHave) {
  ModelData data = RowsOf({RowType::kLess, RowType::kFree, RowType::kEqual, RowType::kFree});
  DeferredRowIndexes indexes;
  indexes.Rebuild(3);
  EXPECT_TRUE(indexes.due());
  data.Rows[1].Type = RowType::kFree;
  indexes.CatchUp(data);
  EXPECT_FALSE(indexes.due());
  EXPECT_EQ(data.BindingRows.store(), Numbers{3});
  EXPECT_EQ(data.NonBindingRows.store(), (Numbers{1, 2}));
  EXPECT_EQ(data.NumberOfNonBindingRows, 2);
}

TEST(DeferredRowIndexes, AppendsRowsThatGotTheirFirstTypeInTheOrderTheyDid) {
  ModelData data = RowsOf({RowType::kLess, RowType::kFree, RowType::kFree});
  DeferredRowIndexes indexes;
  indexes.Rebuild(1);
  EXPECT_TRUE(indexes.Append(3, 3, RowType::kFree));
  EXPECT_TRUE(indexes.Append(2, 3, RowType::kFree));
  indexes.CatchUp(data);
  EXPECT_EQ(data.BindingRows.store(), Numbers{1});
  EXPECT_EQ(data.NonBindingRows.store(), (Numbers{3, 3}));
}

// A row without a type is listed as one that binds, and stays there.
TEST(DeferredRowIndexes, RefusesARowThatIsListedAsTheOtherKind) {
  DeferredRowIndexes indexes;
  indexes.Rebuild(2);
  EXPECT_FALSE(indexes.Append(2, 2, RowType::kFree));
  EXPECT_TRUE(indexes.Append(2, 2, RowType::kLess));
  EXPECT_TRUE(indexes.Append(3, 3, RowType::kFree));
}

// Asked before the lists are made, they are what they will be then.
void ExpectAnswers(DeferredRowIndexes& indexes, const ModelData& data, const Numbers& binding,
                   const Numbers& others) {
  const Gaps rows;
  for (const RowList list : {RowList::kBinding, RowList::kNonBinding}) {
    const Numbers& expected = list == RowList::kBinding ? binding : others;
    Numbers answers;
    for (std::int32_t k = 1; k <= indexes.Count(list, data, rows); ++k) {
      answers.push_back(indexes.At(list, k, data, rows));
    }
    EXPECT_EQ(answers, expected);
    EXPECT_THROW(indexes.At(list, 0, data, rows), AutomationError);
    EXPECT_THROW(indexes.At(list, indexes.Count(list, data, rows) + 1, data, rows),
                 AutomationError);
  }
  EXPECT_TRUE(indexes.due());
}

TEST(DeferredRowIndexes, TellWhatTheListsWillHold) {
  ModelData data = RowsOf({RowType::kLess, RowType::kFree, RowType::kEqual, RowType::kFree});
  DeferredRowIndexes indexes;
  indexes.Rebuild(3);
  ExpectAnswers(indexes, data, {1, 3}, {2});
  data.Rows[3].Type = RowType::kFree;
  indexes.NoteChanged(3, RowList::kNonBinding);
  ExpectAnswers(indexes, data, {1}, {2, 3});
  EXPECT_TRUE(indexes.Append(4, 4, RowType::kFree));
  ExpectAnswers(indexes, data, {1}, {2, 3, 4});
  indexes.Rebuild(4);
  ExpectAnswers(indexes, data, {1}, {2, 3, 4});
  indexes.CatchUp(data);
  EXPECT_EQ(data.BindingRows.store(), Numbers{1});
  EXPECT_EQ(data.NonBindingRows.store(), (Numbers{2, 3, 4}));
}

TEST(DeferredRowIndexes, TellOfRowsByTheNumbersThatGapsLeaveThem) {
  ModelData data = RowsOf({RowType::kLess, RowType::kFree, RowType::kEqual, RowType::kLess});
  DeferredRowIndexes indexes;
  Gaps rows;
  rows.Open(4);
  indexes.Rebuild(4);
  EXPECT_EQ(indexes.At(RowList::kBinding, 2, data, rows), 3);
  rows.Note(1);
  indexes.NoteGone(1);
  indexes.Rebuild(3);
  EXPECT_EQ(indexes.Count(RowList::kBinding, data, rows), 2);
  EXPECT_EQ(indexes.At(RowList::kBinding, 2, data, rows), 3);
  EXPECT_EQ(indexes.At(RowList::kNonBinding, 1, data, rows), 1);
}

TEST(DeferredRowIndexes, NothingDueLeavesTheListsAlone) {
  ModelData data = RowsOf({RowType::kLess});
  DeferredRowIndexes().CatchUp(data);
  EXPECT_EQ(data.NumberOfBindingRows, 0);
}

}  // namespace
}  // namespace quarvel::model
