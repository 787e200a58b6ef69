#include "model/list_agreement.h"

#include <cstdint>
#include <functional>
#include <vector>

#include <gtest/gtest.h>

#include "model/model_data.h"

namespace quarvel {
namespace {

void AddPair(ModelData& data, std::int32_t r, std::int32_t c) {
  data.Rows[r].Elements.Append({c, 1});
  data.Columns[c].Elements.Append({r, 1});
  ++data.NumberOfElements;
}

// Rows 1 to 4 and columns 1 to 4 with the pairs (1,1) (2,2) (3,3) (4,4) (1,2).
ModelData AgreeingModel() {
  ModelData data;
  data.Rows.Resize(4);
  data.Columns.Resize(4);
  data.NumberOfRows = data.NumberOfColumns = 4;
  for (std::int32_t n = 1; n <= 4; ++n) AddPair(data, n, n);
  AddPair(data, 1, 2);
  return data;
}

using Numbers = std::vector<std::int32_t>;

Numbers OddRows(const ModelData& data) {
  Numbers odd;
  for (std::int32_t r = 1; r <= data.NumberOfRows; ++r) {
    if (!data.agreement.RowAgrees(r)) odd.push_back(r);
  }
  return odd;
}

Numbers OddColumns(const ModelData& data) {
  Numbers odd;
  for (std::int32_t c = 1; c <= data.NumberOfColumns; ++c) {
    if (!data.agreement.ColumnAgrees(c)) odd.push_back(c);
  }
  return odd;
}

TEST(ListAgreement, NamesTheRowsAndColumnsOfEveryDisagreement) {
  struct Case {
    const char* what;
    std::function<void(ModelData&)> spoil;
    Numbers rows;
    Numbers columns;
  };
  const std::vector<Case> cases = {
      {"nothing", [](ModelData&) {}, {}, {}},
      {"a pair twice in both lists",
       [](ModelData& d) { AddPair(d, 3, 1), AddPair(d, 3, 1); },
       {3},
       {1}},
      {"a pair twice in the row",
       [](ModelData& d) {
         d.Rows[3].Elements.Append({3, 1});
       },
       {3},
       {3}},
      {"a pair twice in the column",
       [](ModelData& d) {
         d.Columns[2].Elements.Append({1, 1});
       },
       {1},
       {2}},
      {"a pair in the row only",
       [](ModelData& d) {
         d.Rows[4].Elements.Append({1, 1});
       },
       {4},
       {1}},
      {"a pair in the column only",
       [](ModelData& d) {
         d.Columns[4].Elements.Append({2, 1});
       },
       {2},
       {4}},
      {"pairs exchanged",
       [](ModelData& d) {
         d.Rows[3].Elements[1].Index = 4;
         d.Rows[4].Elements[1].Index = 3;
       },
       {3, 4},
       {3, 4}},
      {"a column that is not there",
       [](ModelData& d) {
         d.Rows[2].Elements.Append({5, 1});
       },
       {2},
       {}},
      {"column 0",
       [](ModelData& d) {
         d.Rows[2].Elements.Append({0, 1});
       },
       {2},
       {}},
      {"a row that is not there",
       [](ModelData& d) {
         d.Columns[3].Elements.Append({5, 1});
       },
       {},
       {3}},
      {"row -1",
       [](ModelData& d) {
         d.Columns[3].Elements.Append({-1, 1});
       },
       {},
       {3}},
  };
  for (const Case& c : cases) {
    ModelData data = AgreeingModel();
    c.spoil(data);
    data.agreement.Examine(data);
    EXPECT_EQ(OddRows(data), c.rows) << c.what;
    EXPECT_EQ(OddColumns(data), c.columns) << c.what;
    EXPECT_EQ(data.agreement.everywhere(), c.rows.empty() && c.columns.empty()) << c.what;
  }
}

TEST(ListAgreement, IsUnknownUntilExamined) {
  ModelData data;
  EXPECT_FALSE(data.agreement.Known(data));
  data.agreement.Examine(data);
  EXPECT_TRUE(data.agreement.Known(data));
  data.agreement.Forget();
  EXPECT_FALSE(data.agreement.Known(data));
}

TEST(ListAgreement, ACoefficientAddedBehindItsBackMakesItUnknown) {
  ModelData data = AgreeingModel();
  data.agreement.Examine(data);
  AddPair(data, 4, 1);
  EXPECT_FALSE(data.agreement.Known(data));
}

TEST(ListAgreement, CoefficientsRemovedWithNoticeLeaveItKnown) {
  ModelData data = AgreeingModel();
  data.agreement.Examine(data);
  data.NumberOfElements -= 2;
  data.agreement.NoteRemoved(2);
  EXPECT_TRUE(data.agreement.Known(data));
}

// What it says of a model whose row lists were made from its column lists must be what it says
// after looking at everything.
TEST(ListAgreement, RowsMadeFromColumnsOnlyNeedAGlance) {
  for (const bool twice : {false, true}) {
    ModelData data = AgreeingModel();
    if (twice) AddPair(data, 3, 3);
    data.agreement.NoteFilled(data);
    EXPECT_FALSE(data.agreement.Known(data));
    data.agreement.Examine(data);
    EXPECT_TRUE(data.agreement.Known(data));
    EXPECT_EQ(OddRows(data), twice ? Numbers{3} : Numbers{});
    EXPECT_EQ(OddColumns(data), twice ? Numbers{3} : Numbers{});
  }
}

TEST(ListAgreement, WhatWasDoneToFilledListsWithoutNoticeIsFound) {
  ModelData data = AgreeingModel();
  data.agreement.NoteFilled(data);
  data.Rows[4].Elements.Append({1, 1});
  ++data.NumberOfElements;
  data.agreement.Examine(data);
  EXPECT_EQ(OddRows(data), Numbers{4});

  data = AgreeingModel();
  data.agreement.NoteFilled(data);
  data.Rows[4].Elements.Append({1, 1});
  data.agreement.Forget();
  data.agreement.Examine(data);
  EXPECT_EQ(OddRows(data), Numbers{4});
}

// Adds with notice, as a host does.
void AddNoticed(ModelData& data, std::int32_t r, std::int32_t c) {
  data.agreement.NoteAdding(data, r, c);
  AddPair(data, r, c);
}

TEST(ListAgreement, NewCoefficientsAddedWithNoticeLeaveItKnown) {
  ModelData data = AgreeingModel();
  data.agreement.Examine(data);
  AddNoticed(data, 4, 1);
  AddNoticed(data, 1, 4);
  EXPECT_TRUE(data.agreement.Known(data));
  EXPECT_TRUE(data.agreement.everywhere());
}

TEST(ListAgreement, APairAddedTwiceMakesItUnknownAndIsFound) {
  for (const bool row_is_longer : {false, true}) {
    ModelData data = AgreeingModel();
    data.agreement.Examine(data);
    if (row_is_longer) {
      AddNoticed(data, 2, 3);
      AddNoticed(data, 2, 4);
    }
    AddNoticed(data, 2, 2);
    EXPECT_FALSE(data.agreement.Known(data));
    data.agreement.Examine(data);
    EXPECT_EQ(OddRows(data), Numbers{2});
    EXPECT_EQ(OddColumns(data), Numbers{2});
  }
}

TEST(ListAgreement, LongListsAreNotLookedThroughAtEachAddition) {
  ModelData data;
  data.Rows.Resize(40);
  data.Columns.Resize(40);
  data.NumberOfRows = data.NumberOfColumns = 40;
  for (std::int32_t n = 2; n <= 40; ++n) {
    AddPair(data, 1, n);
    AddPair(data, n, 1);
  }
  data.agreement.Examine(data);
  AddNoticed(data, 3, 4);
  EXPECT_TRUE(data.agreement.Known(data));
  AddNoticed(data, 1, 1);
  EXPECT_FALSE(data.agreement.Known(data));
  data.agreement.Examine(data);
  EXPECT_TRUE(data.agreement.everywhere());
}

// Numbers that are not there may come true by what is added.
TEST(ListAgreement, AdditionsToADisagreeingModelMakeItUnknown) {
  ModelData data = AgreeingModel();
  AddPair(data, 3, 3);
  data.agreement.Examine(data);
  AddNoticed(data, 4, 1);
  EXPECT_FALSE(data.agreement.Known(data));
}

TEST(ListAgreement, RaisesWhenFewerRowsAreStoredThanCounted) {
  ModelData data = AgreeingModel();
  data.NumberOfRows = 5;
  EXPECT_THROW(data.agreement.Examine(data), AutomationError);
  EXPECT_FALSE(data.agreement.Known(data));
}

}  // namespace
}  // namespace quarvel
