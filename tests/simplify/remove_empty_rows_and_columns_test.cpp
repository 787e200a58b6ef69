// Pass 2: empty columns and rows.

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "tests/simplify/simplify_helpers.h"

namespace quarvel::simplify {
namespace {

using Lines = std::vector<std::string>;

TEST(RemoveEmpty, TakesColumnsFirstThenRowsOfEveryType) {
  SimplifySession session;
  session.Build()
      .Row("N0", 'N')
      .Row("L0", 'L', 1)
      .Row("KEPT", 'G', 1)
      .Row("G0", 'G', 1)
      .Row("E0", 'E', 1)
      .Ranged("R0", 1, 2)
      .RowWithin("NONE", ModelBuilder::kNoType, 0, 0)
      .Column("A")
      .Column("X")
      .Column("B")
      .Column("Y")
      .Element("X", "KEPT", 1)
      .Element("Y", "KEPT", 2);
  session.Simplify();
  EXPECT_EQ(session.LogLines(), (Lines{"Removed empty column:  A", "Removed empty column:  B",
                                       "Removed empty row:  N N0", "Removed empty row:  L L0",
                                       "Removed empty row:  G G0", "Removed empty row:  E E0",
                                       "Removed empty row:  R R0", "Removed empty row:   NONE"}));
  EXPECT_EQ(session.RowNames(), Lines{"KEPT"});
  EXPECT_EQ(session.ColumnNames(), (Lines{"X", "Y"}));
  EXPECT_EQ(session.model.RowElementCol(0, 1), 1);
  EXPECT_EQ(session.model.ColElementrow(1, 0), 0);
  EXPECT_EQ(session.model.NumberOfBindingRows(), 1);
  EXPECT_EQ(session.model.NumberOfNonBindingRows(), 0);
  EXPECT_EQ(session.change_questions(), 1);
}

TEST(RemoveEmpty, TakesAdjacentColumnsAndTheLastOne) {
  const struct {
    Lines columns;  // those that begin with X get an element
    Lines kept;
  } cases[] = {
      {{"A", "B", "X"}, {"X"}},          {{"X", "A", "B"}, {"X"}},
      {{"X1", "A", "X2"}, {"X1", "X2"}}, {{"A", "X1", "X2", "B"}, {"X1", "X2"}},
      {{"X1", "X2", "A"}, {"X1", "X2"}},
  };
  for (const auto& c : cases) {
    SimplifySession session;
    session.Build().Row("ROW", 'N').Column("FIRST").Element("FIRST", "ROW", 1);
    for (const std::string& name : c.columns) {
      session.Build().Column(name);
      if (name.starts_with("X")) session.Build().Element(name, "ROW", 1);
    }
    session.Simplify();
    Lines expected = c.kept;
    expected.insert(expected.begin(), "FIRST");
    EXPECT_EQ(session.ColumnNames(), expected);
  }
}

TEST(RemoveEmpty, TakesAModelThatIsAllEmpty) {
  SimplifySession session;
  session.Build().Row("A", 'N').Row("B", 'L', 1).Column("X").Column("Y");
  session.Simplify();
  EXPECT_EQ(session.model.NumberOfRows(), 0);
  EXPECT_EQ(session.model.NumberOfColumns(), 0);
  EXPECT_TRUE(session.model.store().data().Rows.empty());
  EXPECT_TRUE(session.model.store().data().Columns.empty());
  EXPECT_TRUE(session.model.store().data().BindingRows.empty());
  EXPECT_EQ(session.LogLines(), (Lines{"Removed empty column:  X", "Removed empty column:  Y",
                                       "Removed empty row:  N A", "Removed empty row:  L B"}));
}

TEST(RemoveEmpty, TakesTheColumnThatAConversionEmptied) {
  SimplifySession session;
  session.Build()
      .Row("OBJ", 'N')
      .Row("BOUND", 'L', 4)
      .Column("X")
      .Column("Y")
      .Column("Z")
      .Element("X", "OBJ", 1)
      .Element("Z", "OBJ", 1)
      .Element("Y", "BOUND", 1);
  session.Simplify();
  EXPECT_EQ(session.ColumnNames(), (Lines{"X", "Z"}));
  EXPECT_EQ(session.LogLines(),
            (Lines{"Converted row BOUND into variable bound", "Removed empty column:  Y"}));
}

TEST(RemoveEmpty, KeepsTheObjectiveThatHasElements) {
  SimplifySession session;
  session.Build().Row("OBJ", 'N').Column("X").Element("X", "OBJ", 1);
  session.Simplify();
  EXPECT_EQ(session.RowNames(), Lines{"OBJ"});
  EXPECT_EQ(session.nothing_done_boxes(), 1);
}

TEST(RemoveEmpty, LeavesTheHiddenRecordsOfANewModelAlone) {
  SimplifySession session;
  session.model.MakeNewModel();
  session.model.store().settings().FileLocation = session.folder.File("model.mps");
  session.Simplify();
  EXPECT_EQ(session.model.store().data().Rows.size(), 1);
  EXPECT_EQ(session.model.store().data().Columns.size(), 1);
  EXPECT_EQ(session.nothing_done_boxes(), 1);
}

// Deleting a row of such a model leaves entries behind that name the row which moves into its
// place.
TEST(RemoveEmpty, WorksOnAModelWithElementsThatStandTwice) {
  SimplifySession session;
  session.Build()
      .Row("EMPTY", 'N')
      .Row("TWICE", 'G', 1)
      .Column("A")
      .Column("X")
      .Element("X", "TWICE", 1)
      .Element("X", "TWICE", 2);
  session.Simplify();
  EXPECT_EQ(session.RowNames(), Lines{"TWICE"});
  EXPECT_EQ(session.ColumnNames(), Lines{"X"});
  EXPECT_EQ(session.model.RowNumberElements(0), 2);
  EXPECT_EQ(session.model.ColElementrow(0, 1), 0);
}

}  // namespace
}  // namespace quarvel::simplify
