#include <cstdint>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "component/lp_model.h"
#include "model/model_check.h"
#include "platform/scripted/scripted_desktop.h"
#include "tests/component/edge_numbers.h"
#include "tests/support/model_builder.h"
#include "tests/support/test_paths.h"

namespace quarvel {
namespace {

using Texts = std::vector<std::string>;

class Deleting : public ::testing::Test {
 protected:
  // OBJ (free) = X + Y, LIM = Y + Z, ONLY = X.
  void BuildSmall() {
    ModelBuilder(model)
        .Row("OBJ", 'N')
        .Row("LIM", 'L', 4)
        .Row("ONLY", 'G', 1)
        .Column("X")
        .Column("Y")
        .Column("Z")
        .Element("X", "OBJ", 1)
        .Element("X", "ONLY", 2)
        .Element("Y", "OBJ", 3)
        .Element("Y", "LIM", 4)
        .Element("Z", "LIM", 5);
  }

  Texts RowNames() const {
    Texts names;
    for (std::int32_t i = 0; i < model.NumberOfRows(); ++i) names.push_back(model.RowName(i));
    return names;
  }

  Texts ColumnNames() const {
    Texts names;
    for (std::int32_t j = 0; j < model.NumberOfColumns(); ++j) names.push_back(model.ColName(j));
    return names;
  }

  Texts Boxes() const {
    Texts texts;
    for (const platform::ShownBox& box : desktop.boxes()) texts.push_back(box.text);
    return texts;
  }

  std::int32_t ErrorOfDeleteElement(std::int32_t row, std::int32_t ele) {
    try {
      model.DeleteElement(row, ele);
    } catch (const AutomationError& error) {
      return error.number();
    }
    return 0;
  }

  platform::ScriptedDesktop desktop;
  LPModel model{desktop};
};

TEST_F(Deleting, ARowTakesItsCoefficientsAndItsNumberWithIt) {
  BuildSmall();
  EXPECT_EQ(model.DeleteRow(0), -1);
  EXPECT_EQ(model.NumberOfElements(), 3);
  EXPECT_EQ(RowNames(), (Texts{"LIM", "ONLY"}));
  EXPECT_EQ(model.ColElementrow(0, 0), 1);
  EXPECT_EQ(model.ColElementvalue(0, 0), 2);
  EXPECT_EQ(model.NumberOfNonBindingRows(), 0);
  EXPECT_EQ(model.store().data().BindingRows.store(), (std::vector{1, 2}));
  EXPECT_EQ(model::CheckModelData(model.store()), "");
}

TEST_F(Deleting, AColumnThatARowEmptiesStays) {
  BuildSmall();
  model.DeleteRow(1);
  EXPECT_EQ(ColumnNames(), (Texts{"X", "Y", "Z"}));
  EXPECT_EQ(model.ColNumberElements(2), 0);
}

TEST_F(Deleting, ARowThatAColumnEmptiesGoesToo) {
  BuildSmall();
  EXPECT_EQ(model.DeleteColumn(0), -1);
  EXPECT_EQ(RowNames(), (Texts{"OBJ", "LIM"}));
  EXPECT_EQ(ColumnNames(), (Texts{"Y", "Z"}));
  EXPECT_EQ(model.NumberOfElements(), 3);
  EXPECT_EQ(model.store().data().BindingRows.store(), std::vector{2});
  EXPECT_EQ(model::CheckModelData(model.store()), "");
}

TEST_F(Deleting, ARowThatWasEmptyBeforeStaysWhenAColumnGoes) {
  BuildSmall();
  model.AddRow("EMPTY");
  model.DeleteColumn(0);
  EXPECT_EQ(RowNames(), (Texts{"OBJ", "LIM", "EMPTY"}));
}

TEST_F(Deleting, AColumnThatEmptiesNoRowLeavesTheRowIndexesAlone) {
  BuildSmall();
  ChangeFields(model, [](model::ModelData& data) {
    data.BindingRows.Release();
    data.NumberOfBindingRows = 0;
  });
  model.DeleteColumn(2);
  EXPECT_EQ(model.NumberOfBindingRows(), 0);
  EXPECT_EQ(model.NumberOfRows(), 3);
}

TEST_F(Deleting, TheOnlyRowAndTheOnlyColumnAreKeptWhateverTheNumber) {
  model.AddRow("R");
  model.AddColumn("C");
  for (const std::int32_t number : {0, 7, -1, kGreatest}) {
    desktop.Clear();
    EXPECT_EQ(model.DeleteRow(number), -1);
    EXPECT_EQ(model.DeleteColumn(number), -1);
    EXPECT_EQ(Boxes(),
              (Texts{"Cannot remove the only row.\r\nRename it instead of removing it and creating "
                     "a new one.",
                     "Cannot remove the only column.\r\nRename it instead of removing it and "
                     "creating a new one."}));
  }
  EXPECT_EQ(model.NumberOfRows(), 1);
  EXPECT_EQ(model.NumberOfColumns(), 1);
}

TEST_F(Deleting, NumbersOutsideTheModelAreIgnored) {
  BuildSmall();
  for (const std::int32_t number : {-1, 3, kGreatest, kLeast}) {
    EXPECT_EQ(model.DeleteRow(number), -1);
    EXPECT_EQ(model.DeleteColumn(number), -1);
  }
  EXPECT_EQ(model.NumberOfRows(), 3);
  EXPECT_EQ(model.NumberOfColumns(), 3);
  EXPECT_TRUE(desktop.boxes().empty());
}

TEST_F(Deleting, ANewModelHasNothingToDelete) {
  model.MakeNewModel();
  EXPECT_EQ(model.DeleteRow(0), -1);
  EXPECT_EQ(model.DeleteColumn(0), -1);
  EXPECT_EQ(model.DeleteElement(0, 0), 0);
  EXPECT_TRUE(desktop.boxes().empty());
  EXPECT_EQ(model.store().data().Rows.size(), 1);
}

TEST_F(Deleting, AnElementGoesFromBothLists) {
  BuildSmall();
  EXPECT_EQ(model.DeleteElement(0, 0), -1);
  EXPECT_EQ(model.NumberOfElements(), 4);
  EXPECT_EQ(model.RowNumberElements(0), 1);
  EXPECT_EQ(model.RowElementCol(0, 0), 1);
  EXPECT_EQ(model.ColNumberElements(0), 1);
  EXPECT_EQ(model::CheckModelData(model.store()), "");
}

TEST_F(Deleting, AColumnThatLosesItsLastElementStays) {
  BuildSmall();
  model.DeleteElement(1, 1);
  EXPECT_EQ(model.ColNumberElements(2), 0);
  EXPECT_EQ(model.NumberOfColumns(), 3);
}

TEST_F(Deleting, TheOnlyElementOfARowTakesTheRowWithIt) {
  BuildSmall();
  EXPECT_EQ(model.DeleteElement(2, 0), -1);
  EXPECT_EQ(RowNames(), (Texts{"OBJ", "LIM"}));
  EXPECT_EQ(model.store().data().BindingRows.store(), std::vector{2});
  EXPECT_EQ(model.NumberOfElements(), 4);
}

TEST_F(Deleting, TheOnlyElementOfTheOnlyRowLeavesNoRows) {
  model.AddRow("R");
  model.AddColumn("C");
  model.AddElement(0, 0, 1);
  EXPECT_EQ(model.DeleteElement(0, 0), -1);
  EXPECT_EQ(model.NumberOfRows(), 0);
  EXPECT_TRUE(model.store().data().Rows.empty());
  EXPECT_TRUE(model.store().data().BindingRows.empty());
  EXPECT_EQ(model.NumberOfColumns(), 1);
}

TEST_F(Deleting, ElementsOfRowsThatAreNotThereGiveZero) {
  BuildSmall();
  for (const std::int32_t row : {-1, 3, kGreatest, kLeast}) {
    EXPECT_EQ(model.DeleteElement(row, 0), 0) << row;
  }
  EXPECT_EQ(model.NumberOfElements(), 5);
}

TEST_F(Deleting, ElementsThatARowDoesNotHaveRaise) {
  BuildSmall();
  model.AddRow("EMPTY");
  for (const std::int32_t ele : {-1, 2, kGreatest, kLeast}) {
    EXPECT_EQ(ErrorOfDeleteElement(0, ele), 9) << ele;
    EXPECT_EQ(ErrorOfDeleteElement(2, ele), 9) << ele;
  }
  EXPECT_EQ(ErrorOfDeleteElement(3, 0), 9);
  EXPECT_EQ(model.NumberOfElements(), 5);
  EXPECT_EQ(model.NumberOfRows(), 4);
}

TEST_F(Deleting, OfRepeatedCoefficientsARowTakesOnlyTheFirstOfEachColumn) {
  BuildSmall();
  model.AddElement(0, 0, 9);
  model.DeleteRow(0);
  // The second coefficient of OBJ at X now names the row that took its number.
  EXPECT_EQ(model.NumberOfElements(), 4);
  EXPECT_EQ(model.ColNumberElements(0), 2);
  EXPECT_EQ(model.ColElementrow(0, 1), 0);
  EXPECT_EQ(model.ColElementvalue(0, 1), 9);
  EXPECT_EQ(model.RowNumberElements(0), 2);
}

TEST_F(Deleting, OfRepeatedCoefficientsAColumnTakesOnlyTheFirstOfEachRow) {
  BuildSmall();
  model.AddElement(2, 0, 9);
  model.DeleteColumn(0);
  EXPECT_EQ(RowNames(), (Texts{"OBJ", "LIM", "ONLY"}));
  EXPECT_EQ(model.NumberOfElements(), 4);
  EXPECT_EQ(model.RowElementCol(2, 0), 0);
  EXPECT_EQ(model.RowElementValue(2, 0), 9);
}

TEST_F(Deleting, AnElementWhoseColumnIsNotThereRaises) {
  BuildSmall();
  ChangeFields(model, [&](model::ModelData& data) { data.Rows[1].Elements[1].Index = 77; });
  EXPECT_EQ(ErrorOfDeleteElement(0, 0), 9);
  EXPECT_EQ(model.RowNumberElements(0), 2);
}

TEST_F(Deleting, ModelsWhoseListsDisagreeAreDeletedFromWithoutHarm) {
  BuildSmall();
  ChangeFields(model, [&](model::ModelData& data) { data.Rows[1].Elements[1].Index = 77; });
  ChangeFields(model, [&](model::ModelData& data) { data.Columns[2].Elements[2].Index = -5; });
  ChangeFields(model,
               [&](model::ModelData& data) { data.Columns[3].Elements[1].Index = kGreatest; });
  EXPECT_EQ(model.DeleteRow(2), -1);
  EXPECT_EQ(model.DeleteColumn(0), -1);
  EXPECT_EQ(model.DeleteRow(0), -1);
  EXPECT_EQ(RowNames(), Texts{"LIM"});
  EXPECT_EQ(ColumnNames(), (Texts{"Y", "Z"}));
}

// A loop that looks at rows and deletes some of them stays cheap.

// The lists of binding and of non-binding rows, asked row by row between deletions and changes.

TEST_F(Deleting, ANewModelAfterDeletionsKeepsTheirRowIndexes) {
  BuildSmall();
  model.DeleteRow(2);
  model.MakeNewModel();
  EXPECT_EQ(model.NumberOfBindingRows(), 1);
  EXPECT_EQ(model.store().data().BindingRows.store(), std::vector{2});
  EXPECT_EQ(model.store().data().NonBindingRows.store(), std::vector{1});
}

TEST_F(Deleting, NamesOfDeletedRowsAreFreeAndTheOthersAreStillFound) {
  BuildSmall();
  model.DeleteRow(0);
  EXPECT_EQ(model.AddRow("OBJ"), -1);
  EXPECT_EQ(model.AddRow("ONLY"), 0);
  model.DeleteRow(2);
  EXPECT_EQ(model.AddRow("OBJ"), -1);
  EXPECT_EQ(RowNames(), (Texts{"LIM", "ONLY", "OBJ"}));
}

TEST_F(Deleting, TheStoreRaisesForNumbersThatAreNotThere) {
  BuildSmall();
  for (const std::int32_t number : {0, 4, -1, kGreatest}) {
    EXPECT_THROW(model.store().RemoveRow(number), AutomationError);
    EXPECT_THROW(model.store().RemoveColumn(number), AutomationError);
    EXPECT_THROW(model.store().RemoveElement(number, 1), AutomationError);
  }
  EXPECT_EQ(model.NumberOfRows(), 3);
}

TEST_F(Deleting, RowsThatAColumnEmptiesAreNamedInAnOpenLog) {
  const TemporaryFolder folder;
  ModelBuilder builder(model);
  builder.Location(folder.File("model.mps")).Column("SINGLE").Column("A").Column("B");
  builder.Row("FREE", 'N').Element("SINGLE", "FREE", 1);
  builder.Row("LATER", 'E').Element("SINGLE", "LATER", 1);
  for (int i = 0; i < 60; ++i) {
    const std::string name = "R" + std::to_string(i);
    builder.Row(name, 'G').Element("A", name, 1).Element("B", name, 1);
  }
  // At the first event point of a simplification only the log's heading and LATER's conversion are
  // written.
  desktop.on_events = [this](std::int64_t number) {
    if (number > 1) return;
    model.AddRow("MORE");
    model.AddElement(model.NumberOfRows() - 1, 0, 1);
    model.SetRowType(model.NumberOfRows() - 1, "G");
    model.DeleteColumn(0);
  };
  desktop.answers = {platform::MsgBoxResult::kNo};
  model.SimplifyMPSModel();
  const std::string log = ReadWholeFile(folder.File("model.log"));
  EXPECT_NE(log.find("Removed empty row:  N FREE\r\nRemoved empty row:  G MORE\r\n"),
            std::string::npos)
      << log;
}

}  // namespace
}  // namespace quarvel
