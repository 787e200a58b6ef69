#include "model/list_agreement.h"

#include <algorithm>
#include <cstdint>
#include <functional>
#include <vector>

#include <gtest/gtest.h>

#include "model/model_data.h"

namespace quarvel::model {
namespace {

// A model and what is known of its lists, with the counter of changes that a store keeps.
struct Watched {
  explicit Watched(std::int32_t size) {
    data.Rows.Resize(size);
    data.Columns.Resize(size);
    data.NumberOfRows = data.NumberOfColumns = size;
  }
  bool Known() const { return agreement.Known(changes); }
  void Examine() { agreement.Examine(data, changes); }
  void NoteFilled() { agreement.NoteFilled(changes); }

  ModelData data;
  ListAgreement agreement;
  ListAgreement::Changes changes = 1;
};

// A change that says nothing of the agreement.
void AddPair(Watched& model, std::int32_t r, std::int32_t c) {
  model.data.Rows[r].Elements.Append({c, 1});
  model.data.Columns[c].Elements.Append({r, 1});
  ++model.data.NumberOfElements;
  ++model.changes;
}

// Adds as a store does, which looks whether the pair is new.
void AddNoticed(Watched& model, std::int32_t r, std::int32_t c) {
  const bool is_new =
      std::none_of(model.data.Rows[r].Elements.begin(), model.data.Rows[r].Elements.end(),
                   [c](const ElementEntry& entry) { return entry.Index == c; });
  const bool survives = is_new && model.agreement.WillSurviveNewPair();
  AddPair(model, r, c);
  if (survives) model.agreement.Follow(model.changes);
}

// Rows 1 to 4 and columns 1 to 4 with the pairs (1,1) (2,2) (3,3) (4,4) (1,2).
Watched AgreeingModel() {
  Watched model(4);
  for (std::int32_t n = 1; n <= 4; ++n) AddPair(model, n, n);
  AddPair(model, 1, 2);
  return model;
}

TEST(ListAgreement, FindsEveryDisagreement) {
  struct Case {
    const char* what;
    std::function<void(Watched&)> spoil;
    bool agree;
  };
  const std::vector<Case> cases = {
      {"nothing", [](Watched&) {}, true},
      {"a pair twice in both lists", [](Watched& m) { AddPair(m, 3, 1), AddPair(m, 3, 1); }, false},
      {"a pair twice in the row",
       [](Watched& m) {
         m.data.Rows[3].Elements.Append({3, 1});
       },
       false},
      {"a pair twice in the column",
       [](Watched& m) {
         m.data.Columns[2].Elements.Append({1, 1});
       },
       false},
      {"a pair in the row only",
       [](Watched& m) {
         m.data.Rows[4].Elements.Append({1, 1});
       },
       false},
      {"a pair in the column only",
       [](Watched& m) {
         m.data.Columns[4].Elements.Append({2, 1});
       },
       false},
      {"pairs exchanged",
       [](Watched& m) {
         m.data.Rows[3].Elements[1].Index = 4;
         m.data.Rows[4].Elements[1].Index = 3;
       },
       false},
      {"a column that is not there",
       [](Watched& m) {
         m.data.Rows[2].Elements.Append({5, 1});
       },
       false},
      {"column 0",
       [](Watched& m) {
         m.data.Rows[2].Elements.Append({0, 1});
       },
       false},
      {"a row that is not there",
       [](Watched& m) {
         m.data.Columns[3].Elements.Append({5, 1});
       },
       false},
      {"row -1",
       [](Watched& m) {
         m.data.Columns[3].Elements.Append({-1, 1});
       },
       false},
  };
  for (const Case& c : cases) {
    Watched model = AgreeingModel();
    c.spoil(model);
    model.Examine();
    EXPECT_EQ(model.agreement.everywhere(), c.agree) << c.what;
  }
}

TEST(ListAgreement, IsUnknownUntilExaminedAndAfterAnyChange) {
  Watched model(0);
  EXPECT_FALSE(model.Known());
  model.Examine();
  EXPECT_TRUE(model.Known());
  ++model.changes;
  EXPECT_FALSE(model.Known());
}

TEST(ListAgreement, ACoefficientAddedBehindItsBackMakesItUnknown) {
  Watched model = AgreeingModel();
  model.Examine();
  AddPair(model, 4, 1);
  EXPECT_FALSE(model.Known());
}

TEST(ListAgreement, FollowsAChangeThatSpoilsNothing) {
  Watched model = AgreeingModel();
  model.Examine();
  model.agreement.Follow(++model.changes);
  EXPECT_TRUE(model.Known());
}

TEST(ListAgreement, DoesNotFollowAcrossAChangeThatItWasNotToldOf) {
  Watched model = AgreeingModel();
  model.Examine();
  ++model.changes;
  model.agreement.Follow(++model.changes);
  EXPECT_FALSE(model.Known());
}

// What it says of a model whose row lists were made from its column lists must be what it says
// after looking at everything.
TEST(ListAgreement, RowsMadeFromColumnsOnlyNeedAGlance) {
  for (const bool twice : {false, true}) {
    Watched model = AgreeingModel();
    if (twice) AddPair(model, 3, 3);
    model.NoteFilled();
    EXPECT_FALSE(model.Known());
    model.Examine();
    EXPECT_TRUE(model.Known());
    EXPECT_EQ(model.agreement.everywhere(), !twice);
  }
}

TEST(ListAgreement, FilledListsAreKnownToBeAlikeUntilAChange) {
  Watched model = AgreeingModel();
  EXPECT_FALSE(model.agreement.JustFilled(model.changes));
  model.NoteFilled();
  EXPECT_TRUE(model.agreement.JustFilled(model.changes));
  model.agreement.NoteValueSet();
  EXPECT_FALSE(model.agreement.JustFilled(model.changes));
  model.NoteFilled();
  AddNoticed(model, 4, 1);
  EXPECT_FALSE(model.agreement.JustFilled(model.changes));
}

TEST(ListAgreement, AGlanceTellsWhetherPairsAreDistinct) {
  for (const bool twice : {false, true}) {
    Watched model = AgreeingModel();
    if (twice) AddPair(model, 3, 3);
    EXPECT_FALSE(model.agreement.KnowsPairsDistinct(model.data, model.changes));
    model.NoteFilled();
    EXPECT_EQ(model.agreement.KnowsPairsDistinct(model.data, model.changes), !twice);
    EXPECT_EQ(model.Known(), !twice);
    model.Examine();
    EXPECT_EQ(model.agreement.KnowsPairsDistinct(model.data, model.changes), !twice);
    AddPair(model, 4, 4);
    EXPECT_FALSE(model.agreement.KnowsPairsDistinct(model.data, model.changes));
  }
}

TEST(ListAgreement, WhatWasDoneToFilledListsWithoutNoticeIsFound) {
  Watched model = AgreeingModel();
  model.NoteFilled();
  model.data.Rows[4].Elements.Append({1, 1});
  ++model.changes;
  model.Examine();
  EXPECT_FALSE(model.agreement.everywhere());
}

TEST(ListAgreement, NewCoefficientsAddedWithNoticeLeaveItKnown) {
  Watched model = AgreeingModel();
  model.Examine();
  AddNoticed(model, 4, 1);
  AddNoticed(model, 1, 4);
  EXPECT_TRUE(model.Known());
  EXPECT_TRUE(model.agreement.everywhere());
}

TEST(ListAgreement, APairAddedTwiceMakesItUnknownAndIsFound) {
  for (const bool row_is_longer : {false, true}) {
    Watched model = AgreeingModel();
    model.Examine();
    if (row_is_longer) {
      AddNoticed(model, 2, 3);
      AddNoticed(model, 2, 4);
    }
    AddNoticed(model, 2, 2);
    EXPECT_FALSE(model.Known());
    model.Examine();
    EXPECT_FALSE(model.agreement.everywhere());
  }
}

// Numbers that are not there may come true by what is added.
TEST(ListAgreement, AdditionsToADisagreeingModelMakeItUnknown) {
  Watched model = AgreeingModel();
  AddPair(model, 3, 3);
  model.Examine();
  AddNoticed(model, 4, 1);
  EXPECT_FALSE(model.Known());
}

TEST(ListAgreement, RaisesWhenFewerRowsAreStoredThanCounted) {
  Watched model = AgreeingModel();
  model.data.NumberOfRows = 5;
  EXPECT_THROW(model.Examine(), AutomationError);
  EXPECT_FALSE(model.Known());
}

}  // namespace
}  // namespace quarvel::model
