#include <cstdint>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "component/lp_model.h"
#include "model/model_check.h"
#include "platform/scripted/scripted_desktop.h"
#include "tests/component/edge_numbers.h"
#include "tests/support/model_builder.h"

namespace quarvel {
namespace {

using platform::MsgBoxStyle;
using platform::ShownBox;

using Write = std::function<void(LPModel&)>;

ShownBox PlainBox(std::string text) {
  return {std::move(text), MsgBoxStyle::kOk, std::string(platform::kDefaultTitle)};
}

// The general number that a write raises, 0 when it raises nothing.
std::int32_t ErrorOf(LPModel& model, const Write& write) {
  try {
    write(model);
  } catch (const AutomationError& error) {
    return error.number();
  }
  return 0;
}

// Two rows OBJ and LIM, three columns X, Y and Z, and LIM = 2 X + 3 Y.
class PropertyWrites : public ::testing::Test {
 protected:
  PropertyWrites() {
    model.AddRow("OBJ");
    model.AddRow("LIM");
    for (const char* name : {"X", "Y", "Z"}) model.AddColumn(name);
    model.AddElement(1, 0, 2);
    model.AddElement(1, 1, 3);
  }

  std::vector<std::string> Boxes() const {
    std::vector<std::string> texts;
    for (const ShownBox& box : desktop.boxes()) texts.push_back(box.text);
    return texts;
  }

  platform::ScriptedDesktop desktop;
  LPModel model{desktop};
};

TEST_F(PropertyWrites, BadNumbersShowTheTextOfTheirOperation) {
  struct Case {
    std::string operation;
    std::string what;
    std::int32_t count;
    std::function<void(LPModel&, std::int32_t)> write;
  };
  const std::vector<Case> cases = {
      {"SetColUpperBound", "Column", 3, [](auto& m, auto n) { m.SetColUpperBound(n, 1); }},
      {"SetColLowerBound", "Column", 3, [](auto& m, auto n) { m.SetColLowerBound(n, 1); }},
      {"SetColName", "Column", 3, [](auto& m, auto n) { m.SetColName(n, "NEW"); }},
      {"SetColType", "Column", 3, [](auto& m, auto n) { m.SetColType(n, "I"); }},
      {"SetRowName", "Row", 2, [](auto& m, auto n) { m.SetRowName(n, "NEW"); }},
      {"SetRowElementValue", "Row", 2, [](auto& m, auto n) { m.SetRowElementValue(n, 0, 1); }},
      {"SetRowElementValue", "Element", 2, [](auto& m, auto n) { m.SetRowElementValue(1, n, 1); }},
      {"SetRowLowerBound", "Row", 2, [](auto& m, auto n) { m.SetRowLowerBound(n, 1); }},
      {"SetRowUpperBound", "Row", 2, [](auto& m, auto n) { m.SetRowUpperBound(n, 1); }},
  };
  for (const Case& c : cases) {
    for (const std::int32_t number : {-1, c.count, 99, kGreatest, kLeast}) {
      desktop.Clear();
      c.write(model, number);
      const std::string text =
          "Invalid " + c.what + " number when attempting to " + c.operation + "()";
      EXPECT_EQ(desktop.boxes(), std::vector{PlainBox(text)}) << number;
    }
  }
}

TEST_F(PropertyWrites, BadNumbersAreReportedBeforeTheValueIsLookedAt) {
  const std::vector<std::pair<std::string, Write>> cases = {
      {"Column number when attempting to SetColUpperBound()",
       [](auto& m) { m.SetColUpperBound(99, "abc"); }},
      {"Column number when attempting to SetColName()",
       [](auto& m) { m.SetColName(3, model::Variant::Null{}); }},
      {"Row number when attempting to SetRowName()", [](auto& m) { m.SetRowName(2, "A B"); }},
      {"Element number when attempting to SetRowElementValue()",
       [](auto& m) { m.SetRowElementValue(0, 0, "abc"); }},
  };
  for (const auto& [text, write] : cases) {
    desktop.Clear();
    EXPECT_EQ(ErrorOf(model, write), 0);
    EXPECT_EQ(Boxes(), std::vector{"Invalid " + text});
  }
}

TEST_F(PropertyWrites, ValuesThatCannotBeConvertedRaiseTypeMismatchAndChangeNothing) {
  const std::vector<Write> writes = {
      [](auto& m) { m.SetColUpperBound(0, "abc"); },
      [](auto& m) { m.SetColLowerBound(0, model::Variant::Null{}); },
      [](auto& m) { m.SetRowUpperBound(1, ""); },
      [](auto& m) { m.SetRowLowerBound(1, "1,5"); },
      [](auto& m) { m.SetRowElementValue(1, 0, "0x10"); },
      [](auto& m) { m.SetColName(0, model::Variant::Null{}); },
      [](auto& m) { m.SetRowName(0, model::Variant::Null{}); },
      [](auto& m) { m.SetColType(0, model::Variant::Null{}); },
      [](auto& m) { m.SetRowType(0, model::Variant::Null{}); },
      [](auto& m) { m.SetModelName(model::Variant::Null{}); },
      [](auto& m) { m.SetModelDescription(model::Variant::Null{}); },
  };
  for (const Write& write : writes) EXPECT_EQ(ErrorOf(model, write), 13);
  EXPECT_TRUE(desktop.boxes().empty());
  EXPECT_EQ(model.ColUpperBound(0), 1e10);
  EXPECT_EQ(model.RowElementValue(1, 0), 2);
  EXPECT_EQ(model.ColName(0), "X");
}

TEST_F(PropertyWrites, BoundsTakeEveryKindOfValue) {
  const std::vector<std::pair<model::Variant, double>> cases = {
      {model::Variant(), 0},  {true, -1}, {false, 0},      {7, 7},
      {std::int64_t{-3}, -3}, {2.5, 2.5}, {" 1E3 ", 1000},
  };
  for (const auto& [value, number] : cases) {
    model.SetColLowerBound(1, value);
    model.SetRowUpperBound(1, value);
    EXPECT_EQ(model.ColLowerBound(1), number);
    EXPECT_EQ(model.RowUpperBound(1), number);
  }
}

TEST_F(PropertyWrites, BoundsMayBeReversedAndLeaveTheTypeAlone) {
  model.SetRowType(1, "E");
  model.SetRowLowerBound(1, 9);
  model.SetRowUpperBound(1, 4);
  EXPECT_EQ(model.RowLowerBound(1), 9);
  EXPECT_EQ(model.RowUpperBound(1), 4);
  EXPECT_EQ(model.RowType(1), "E");
  EXPECT_TRUE(desktop.boxes().empty());
}

TEST_F(PropertyWrites, NamesAreRefusedByTheFirstRuleThatFails) {
  struct Case {
    model::Variant name;
    std::string row_text;
    std::string column_text;
  };
  const std::vector<Case> cases = {
      {"A B", "Spaces are not allowed in row names", "Spaces are not allowed in column names"},
      {" ", "Spaces are not allowed in row names", "Spaces are not allowed in column names"},
      {"", "Invalid Name", "Invalid Name"},
      {model::Variant(), "Invalid Name", "Invalid Name"},
  };
  for (const Case& c : cases) {
    desktop.Clear();
    model.SetRowName(1, c.name);
    model.SetColName(1, c.name);
    EXPECT_EQ(desktop.boxes(), (std::vector{PlainBox(c.row_text), PlainBox(c.column_text)}));
  }
  EXPECT_EQ(model.RowName(1), "LIM");
  EXPECT_EQ(model.ColName(1), "Y");
}

TEST_F(PropertyWrites, NamesInUseAreRefusedAlsoWhenTheyAreTheItemsOwn) {
  model.SetColName(0, "X");
  model.SetColName(0, "Z");
  model.SetRowName(1, "LIM");
  model.SetRowName(1, "OBJ");
  EXPECT_EQ(Boxes(), std::vector<std::string>(4, "That name is already in use"));
}

TEST_F(PropertyWrites, NamesCompareExactlyAndMayHoldTabs) {
  model.SetColName(0, "y");
  model.SetRowName(0, "A\tB");
  EXPECT_TRUE(desktop.boxes().empty());
  EXPECT_EQ(model.ColName(0), "y");
  EXPECT_EQ(model.RowName(0), "A\tB");
}

TEST_F(PropertyWrites, RowsAndColumnsMayShareAName) {
  model.SetRowName(0, "X");
  EXPECT_TRUE(desktop.boxes().empty());
  EXPECT_EQ(model.RowName(0), "X");
}

TEST_F(PropertyWrites, AnOldNameIsFreeAgain) {
  model.SetColName(0, "W");
  model.SetColName(1, "X");
  EXPECT_TRUE(desktop.boxes().empty());
  EXPECT_EQ(model.ColName(1), "X");
  model.SetColName(2, "W");
  EXPECT_EQ(Boxes(), std::vector<std::string>{"That name is already in use"});
}

TEST_F(PropertyWrites, NumbersBecomeNamesByTheirText) {
  model.SetColName(0, 12.5);
  model.SetRowName(0, true);
  EXPECT_EQ(model.ColName(0), "12.5");
  EXPECT_EQ(model.RowName(0), "True");
}

TEST_F(PropertyWrites, ModelNameAndDescriptionTakeAnyText) {
  model.SetModelName("a b");
  model.SetModelDescription(3);
  EXPECT_EQ(model.ModelName(), "a b");
  EXPECT_EQ(model.ModelDescription(), "3");
  model.SetModelName(model::Variant());
  EXPECT_EQ(model.ModelName(), "");
}

TEST_F(PropertyWrites, ColumnTypesAreRealOrIntegerOnly) {
  model.SetColType(0, "I");
  EXPECT_EQ(model.ColType(0), "I");
  const std::vector<model::Variant> refused = {"r", "B", "", "RR", "i", 1, true};
  for (const model::Variant& type : refused) {
    desktop.Clear();
    model.SetColType(0, type);
    EXPECT_EQ(desktop.boxes(), std::vector{PlainBox("Invalid Column Type")});
  }
  EXPECT_EQ(model.ColType(0), "I");
  model.SetColType(0, "R");
  EXPECT_EQ(model.ColType(0), "R");
}

TEST_F(PropertyWrites, RowTypesAreTheFiveLetters) {
  for (const char* type : {"E", "R", "L", "G", "N"}) {
    model.SetRowType(1, type);
    EXPECT_EQ(model.RowType(1), type);
  }
  const std::vector<model::Variant> refused = {"n", "I", "", "NN", 0, model::Variant()};
  for (const model::Variant& type : refused) {
    desktop.Clear();
    model.SetRowType(1, type);
    EXPECT_EQ(desktop.boxes(), std::vector{PlainBox("Invalid Row Type")});
  }
  EXPECT_EQ(model.RowType(1), "N");
}

TEST_F(PropertyWrites, SetRowTypeRaisesForRowsThatAreNotStored) {
  for (const std::int32_t number : {-1, 2, 99, kGreatest, kLeast}) {
    EXPECT_EQ(ErrorOf(model, [number](auto& m) { m.SetRowType(number, "N"); }), 9) << number;
  }
  EXPECT_TRUE(desktop.boxes().empty());
}

TEST_F(PropertyWrites, SetRowTypeRefusesTheHiddenRowOfANewModel) {
  model.MakeNewModel();
  model.SetRowType(0, model::Variant::Null{});
  const auto box = PlainBox("Invalid Row number when attempting to SetRowType()");
  EXPECT_EQ(desktop.boxes(), std::vector{box});
  EXPECT_EQ(ErrorOf(model, [](auto& m) { m.SetRowType(1, "N"); }), 9);
}

TEST_F(PropertyWrites, TheFirstTypeOfARowAppendsTheLastRowToItsIndex) {
  model.SetRowType(0, "N");
  model.SetRowType(1, "G");
  EXPECT_EQ(model.store().data().NonBindingRows.store(), std::vector{2});
  EXPECT_EQ(model.store().data().BindingRows.store(), std::vector{2});
  EXPECT_EQ(model.NumberOfNonBindingRows(), 1);
  EXPECT_EQ(model.NumberOfBindingRows(), 1);
}

TEST_F(PropertyWrites, ChangingBetweenFreeAndBindingRebuildsTheIndexes) {
  model.SetRowType(0, "N");
  model.SetRowType(1, "G");
  model.SetRowType(1, "N");
  EXPECT_EQ(model.store().data().NonBindingRows.store(), (std::vector{1, 2}));
  EXPECT_TRUE(model.store().data().BindingRows.empty());
  model.SetRowType(0, "L");
  EXPECT_EQ(model.store().data().NonBindingRows.store(), std::vector{2});
  EXPECT_EQ(model.store().data().BindingRows.store(), std::vector{1});
}

TEST_F(PropertyWrites, ChangingAmongBindingTypesLeavesTheIndexesAsTheyWere) {
  model.SetRowType(0, "N");
  model.SetRowType(1, "G");
  model.SetRowType(1, "E");
  EXPECT_EQ(model.store().data().NonBindingRows.store(), std::vector{2});
  EXPECT_EQ(model.store().data().BindingRows.store(), std::vector{2});
}

TEST_F(PropertyWrites, CoefficientsChangeInBothLists) {
  model.SetRowElementValue(1, 1, "-7.5");
  EXPECT_EQ(model.RowElementValue(1, 1), -7.5);
  EXPECT_EQ(model.ColElementvalue(1, 0), -7.5);
  EXPECT_EQ(model::CheckModelData(model.store()), "");
}

TEST_F(PropertyWrites, ACoefficientOfZeroStays) {
  model.SetRowElementValue(1, 0, 0);
  EXPECT_EQ(model.RowNumberElements(1), 2);
  EXPECT_EQ(model.NumberOfElements(), 2);
  EXPECT_EQ(model.ColElementvalue(0, 0), 0);
}

TEST_F(PropertyWrites, OfRepeatedCoefficientsTheColumnsFirstOneChanges) {
  model.AddElement(1, 0, 5);
  model.SetRowElementValue(1, 2, 8);
  EXPECT_EQ(model.RowElementValue(1, 0), 2);
  EXPECT_EQ(model.RowElementValue(1, 2), 8);
  EXPECT_EQ(model.ColElementvalue(0, 0), 8);
  EXPECT_EQ(model.ColElementvalue(0, 1), 5);
}

TEST_F(PropertyWrites, AnElementThatNamesNoColumnRaises) {
  ChangeFields(model, [&](model::ModelData& data) { data.Rows[2].Elements[1].Index = 44; });
  EXPECT_EQ(ErrorOf(model, [](auto& m) { m.SetRowElementValue(1, 0, 1); }), 9);
}

TEST_F(PropertyWrites, TheDefaultBoundsFlagIsStored) {
  model.SetDefaultToPlusMinusInfinity(true);
  EXPECT_TRUE(model.store().settings().DefaultToPlusMinusInfinity);
}

}  // namespace
}  // namespace quarvel
