#include <cstdint>
#include <limits>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "component/lp_model.h"
#include "model/model_check.h"
#include "platform/scripted/scripted_desktop.h"
#include "tests/support/model_builder.h"

namespace quarvel {
namespace {

constexpr const char* kLongName =
    "The name you entered had more than 8 characters.  In a standard MPS file, names can be no "
    "longer than 8 "
    "characters.  If you wish your model to be standard, please reset the name to have 8 or fewer "
    "characters";

class Adding : public ::testing::Test {
 protected:
  std::vector<std::string> Boxes() const {
    std::vector<std::string> texts;
    for (const platform::ShownBox& box : desktop.boxes()) {
      EXPECT_EQ(box.style, platform::MsgBoxStyle::kOk);
      EXPECT_EQ(box.title, platform::kDefaultTitle);
      texts.push_back(box.text);
    }
    return texts;
  }

  platform::ScriptedDesktop desktop;
  LPModel model{desktop};
};

TEST_F(Adding, AFreshRowHasANameAndNothingElse) {
  EXPECT_EQ(model.AddRow("R1"), -1);
  EXPECT_EQ(model.NumberOfRows(), 1);
  EXPECT_EQ(model.RowName(0), "R1");
  EXPECT_EQ(model.RowType(0), "");
  EXPECT_EQ(model.RowLowerBound(0), 0);
  EXPECT_EQ(model.RowUpperBound(0), 0);
  EXPECT_EQ(model.RowNumberElements(0), 0);
  EXPECT_EQ(model.NumberOfBindingRows(), 0);
  EXPECT_EQ(model.NumberOfNonBindingRows(), 0);
}

TEST_F(Adding, AFreshColumnIsRealAndUnboundedAbove) {
  EXPECT_EQ(model.AddColumn("C1"), -1);
  EXPECT_EQ(model.NumberOfColumns(), 1);
  EXPECT_EQ(model.ColName(0), "C1");
  EXPECT_EQ(model.ColType(0), "R");
  EXPECT_EQ(model.ColLowerBound(0), 0);
  EXPECT_EQ(model.ColUpperBound(0), 1e10);
}

TEST_F(Adding, TheFirstRowOfANewModelTakesOverTheHiddenOne) {
  model.AddRow("OLD");
  model.AddRow("OLDER");
  model.MakeNewModel();
  model.AddRow("FIRST");
  model.AddRow("SECOND");
  EXPECT_EQ(model.RowType(0), "L");
  EXPECT_EQ(model.RowUpperBound(0), 1e10);
  EXPECT_EQ(model.RowType(1), "");
  EXPECT_EQ(model.RowUpperBound(1), 0);
}

TEST_F(Adding, TheFirstColumnOfANewModelKeepsTheHiddenLowerBound) {
  model.MakeNewModel();
  ChangeFields(model, [&](model::ModelData& data) { data.Columns[1].LowerBound = 3; });
  model.AddColumn("FIRST");
  model.AddColumn("SECOND");
  EXPECT_EQ(model.ColLowerBound(0), 3);
  EXPECT_EQ(model.ColLowerBound(1), 0);
}

TEST_F(Adding, PlaceholderNamesAreNotInUse) {
  model.MakeNewModel();
  EXPECT_EQ(model.AddRow("ROW1"), -1);
  EXPECT_EQ(model.AddColumn("COL1"), -1);
  EXPECT_TRUE(desktop.boxes().empty());
}

TEST_F(Adding, NamesAreRefusedWithTheTextOfTheirRule) {
  model.AddRow("USED");
  model.AddColumn("USED");
  struct Case {
    const char* name;
    std::string text;
  };
  const std::vector<Case> cases = {
      {"A B", "spaces are not allowed in "},
      {" ", "spaces are not allowed in "},
      {"", "empty name given"},
      {"USED", "that name is already in use"},
  };
  for (const Case& c : cases) {
    desktop.Clear();
    EXPECT_EQ(model.AddRow(c.name), 0);
    EXPECT_EQ(model.AddColumn(c.name), 0);
    const bool spaces = c.text.back() == ' ';
    EXPECT_EQ(Boxes(),
              (std::vector{"Row not added:  " + c.text + (spaces ? "row names" : ""),
                           "Column not added:  " + c.text + (spaces ? "column names" : "")}));
  }
  EXPECT_EQ(model.NumberOfRows(), 1);
  EXPECT_EQ(model.NumberOfColumns(), 1);
}

TEST_F(Adding, NamesDifferByCase) {
  EXPECT_EQ(model.AddRow("row"), -1);
  EXPECT_EQ(model.AddRow("ROW"), -1);
  EXPECT_EQ(model.NumberOfRows(), 2);
}

TEST_F(Adding, ALongNameIsAddedAndWarnedOfOnceForAnObject) {
  EXPECT_EQ(model.AddColumn("NINECHARS"), -1);
  EXPECT_EQ(Boxes(), std::vector<std::string>{kLongName});
  model.MakeNewModel();
  EXPECT_EQ(model.AddColumn("NINECHARS"), -1);
  EXPECT_EQ(model.AddRow("TENCHARS10"), -1);
  EXPECT_EQ(desktop.boxes().size(), 1u);
  EXPECT_EQ(model.ColName(0), "NINECHARS");
  EXPECT_EQ(model.RowName(0), "TENCHARS10");
}

TEST_F(Adding, TheWarningComesAfterTheRowStands) {
  desktop.on_box = [this](const platform::ShownBox&) {
    EXPECT_EQ(model.RowName(0), "NINECHARS");
    return platform::MsgBoxResult::kOk;
  };
  model.AddRow("NINECHARS");
  EXPECT_EQ(desktop.boxes().size(), 1u);
}

TEST_F(Adding, EightCharactersAreNotLongHoweverManyBytes) {
  EXPECT_EQ(model.AddRow("\u00c4\u00d6\u00dc\u00e4\u00f6\u00fc\u00df\u00e9"), -1);
  EXPECT_TRUE(desktop.boxes().empty());
  EXPECT_EQ(model.AddRow("\u00c4\u00d6\u00dc\u00e4\u00f6\u00fc\u00df\u00e9x"), -1);
  EXPECT_EQ(desktop.boxes().size(), 1u);
}

TEST_F(Adding, ACoefficientStandsInBothLists) {
  model.AddRow("R");
  model.AddColumn("C");
  model.AddColumn("D");
  model.AddElement(0, 1, -2.5);
  EXPECT_EQ(model.RowElementCol(0, 0), 1);
  EXPECT_EQ(model.RowElementValue(0, 0), -2.5);
  EXPECT_EQ(model.ColElementrow(1, 0), 0);
  EXPECT_EQ(model.ColElementvalue(1, 0), -2.5);
  EXPECT_EQ(model.NumberOfElements(), 1);
  EXPECT_EQ(model::CheckModelData(model.store()), "");
}

TEST_F(Adding, ARepeatedCoefficientIsASecondOne) {
  model.AddRow("R");
  model.AddColumn("C");
  model.AddElement(0, 0, 1);
  model.AddElement(0, 0, 0);
  EXPECT_EQ(model.NumberOfElements(), 2);
  EXPECT_EQ(model.RowNumberElements(0), 2);
  EXPECT_EQ(model.ColNumberElements(0), 2);
  EXPECT_EQ(model.ElementValue(0, 0), 1);
}

TEST_F(Adding, ACoefficientOutsideTheModelIsRefused) {
  constexpr std::int32_t kGreatest = std::numeric_limits<std::int32_t>::max();
  model.MakeNewModel();
  model.AddElement(0, 0, 1);
  model.AddRow("R");
  model.AddElement(0, 0, 1);
  model.AddColumn("C");
  model.AddElement(-1, 0, 1);
  model.AddElement(0, 1, 1);
  model.AddElement(kGreatest, kGreatest, 1);
  EXPECT_EQ(Boxes(), std::vector<std::string>(
                         5, "Invalid row or column given when attempting to AddElement()"));
  EXPECT_EQ(model.NumberOfElements(), 0);
}

TEST_F(Adding, ManyRowsWithDistinctNamesAreAllFoundAgain) {
  constexpr std::int32_t kRows = 20000;
  for (std::int32_t i = 0; i < kRows; ++i) ASSERT_EQ(model.AddRow("R" + std::to_string(i)), -1);
  EXPECT_EQ(model.AddRow("R12345"), 0);
  EXPECT_EQ(model.NumberOfRows(), kRows);
  EXPECT_EQ(model.RowName(kRows - 1), "R19999");
}

}  // namespace
}  // namespace quarvel
