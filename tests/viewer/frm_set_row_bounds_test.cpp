#include "viewer/frm_set_row_bounds.h"

#include "tests/support/model_builder.h"
#include "tests/viewer/viewer_session.h"

namespace quarvel::viewer {
namespace {

class RowBoundsTest : public ViewerTest {
 protected:
  RowBoundsTest() { BuildModel(); }

  // Shows the dialog for a row and does `steps` in it once; cancelled afterwards when still open.
  void Show(std::int32_t row, const std::function<void()>& steps) {
    dialogs_.push_back([steps](auto&) { steps(); });
    dialogs_.push_back([this](auto&) { dialog_.cmdCancel.Click(); });
    dialog_.ShowBounds(model_, row);
    dialogs_.clear();
  }
  void Enter(std::string_view lower, std::string_view upper) {
    dialog_.bounds.txtLwrBnd.Type(lower);
    dialog_.bounds.txtUprBnd.Type(upper);
  }
  // Selects `option`, enters both bounds for the row LIM and presses OK.
  void Accept(platform::OptionButton& option, std::string_view lower, std::string_view upper) {
    Show(1, [&] {
      option.Click();
      Enter(lower, upper);
      dialog_.cmdOK.Click();
      EXPECT_FALSE(dialog_.IsShowing());
    });
  }

  frmSetRowBounds dialog_{desktop_};
};

TEST_F(RowBoundsTest, HasItsWords) {
  const struct {
    const platform::Control& control;
    const char* caption;
  } cases[] = {
      {dialog_.fraType, "Bound Type"},
      {*dialog_.Option("N"), "Non-Binding/Objective"},
      {*dialog_.Option("R"), "Range"},
      {*dialog_.Option("E"), "Equality"},
      {*dialog_.Option("G"), "Greater Than or Equal To"},
      {*dialog_.Option("L"), "Less Than or Equal To"},
      {dialog_.bounds.fraValues, "Bound Values"},
      {dialog_.bounds.lblLower, "Lower:"},
      {dialog_.bounds.lblUpper, "Upper:"},
      {dialog_.cmdOK, "OK"},
      {dialog_.cmdCancel, "Cancel"},
  };
  EXPECT_EQ(dialog_.caption(), "Set Row Bounds");
  for (const auto& c : cases) EXPECT_EQ(c.control.caption(), c.caption);
}

TEST_F(RowBoundsTest, OpensWithTheTypeAndBoundsOfTheRow) {
  const struct {
    platform::OptionButton& option;
    const char* lower;
    const char* upper;
  } cases[] = {
      {*dialog_.Option("N"), "-10000000000", "10000000000"},
      {*dialog_.Option("L"), "-10000000000", "4"},
      {*dialog_.Option("G"), "1.5", "10000000000"},
      {*dialog_.Option("R"), "2", "8"},
      {*dialog_.Option("E"), "7", "7"},
  };
  for (int row = 0; row < 5; ++row) {
    Show(row, [&] {
      EXPECT_TRUE(cases[row].option.value());
      EXPECT_EQ(dialog_.bounds.txtLwrBnd.text(), cases[row].lower);
      EXPECT_EQ(dialog_.bounds.txtUprBnd.text(), cases[row].upper);
      EXPECT_EQ(dialog_.lblRecord.caption(), "Row " + model_.RowName(row));
    });
  }
}

TEST_F(RowBoundsTest, RefusesARowWithoutType) {
  ChangeFields(model_, [&](model::ModelData& data) { data.Rows[1].Type = model::RowType::kNone; });
  dialog_.ShowBounds(model_, 0);
  EXPECT_EQ(Boxes(), Texts{"Invalid Bound Type specified"});
  EXPECT_FALSE(dialog_.IsLoaded());
}

TEST_F(RowBoundsTest, CancelChangesNothing) {
  Show(1, [&] {
    dialog_.Option("N")->Click();
    Enter("1", "2");
    dialog_.cmdCancel.Click();
  });
  EXPECT_EQ(RowText(1), "LIM L -10000000000 4");
}

TEST_F(RowBoundsTest, EnterAndEscapePressTheButtons) {
  Show(1, [&] {
    Enter("1", "2");
    EXPECT_TRUE(dialog_.PressCancelButton());
    EXPECT_FALSE(dialog_.IsShowing());
  });
  EXPECT_EQ(RowText(1), "LIM L -10000000000 4");
  Show(1, [&] {
    Enter("1", "2");
    EXPECT_TRUE(dialog_.PressDefaultButton());
  });
  EXPECT_EQ(RowText(1), "LIM L 10000000000 2");
}

TEST_F(RowBoundsTest, ClearsWhatIsNoNumberAndStaysOpen) {
  const struct {
    const char* lower;
    const char* upper;
    const char* lower_after;
    const char* upper_after;
  } cases[] = {{"abc", "5", "", "5"}, {"5", "", "5", ""}, {"x", "1,5", "", ""}};
  for (const auto& c : cases) {
    desktop_.Clear();
    Show(1, [&] {
      dialog_.Option("N")->Click();
      Enter(c.lower, c.upper);
      dialog_.cmdOK.Click();
      EXPECT_TRUE(dialog_.IsShowing());
      EXPECT_EQ(dialog_.bounds.txtLwrBnd.text(), c.lower_after);
      EXPECT_EQ(dialog_.bounds.txtUprBnd.text(), c.upper_after);
    });
    EXPECT_EQ(Boxes(), Texts{"Invalid Input"});
    EXPECT_EQ(RowText(1), "LIM L -10000000000 4");
  }
}

TEST_F(RowBoundsTest, ReversedRangeIsPutInOrder) {
  Accept(*dialog_.Option("R"), "5", "2");
  EXPECT_EQ(Boxes(), Texts{"Bounds were reversed"});
  EXPECT_EQ(RowText(1), "LIM R 2 5");
}

TEST_F(RowBoundsTest, RangeOfOneValueBecomesAnEquality) {
  Accept(*dialog_.Option("R"), "3", "3.0");
  EXPECT_EQ(Boxes(), Texts{"Bounds were identical.  Bound type changed to equality"});
  EXPECT_EQ(RowText(1), "LIM E 3 3");
}

TEST_F(RowBoundsTest, StoresEachTypeWithItsBounds) {
  const struct {
    platform::OptionButton& option;
    const char* lower;
    const char* upper;
    const char* stored;
  } cases[] = {
      {*dialog_.Option("R"), "-1", "2.5", "LIM R -1 2.5"},
      {*dialog_.Option("E"), "1", "9", "LIM E 9 9"},
      {*dialog_.Option("L"), "3", "7", "LIM L 10000000000 7"},
      {*dialog_.Option("G"), "3", "7", "LIM G 3 -10000000000"},
      {*dialog_.Option("N"), "6", "2", "LIM N 6 2"},
  };
  for (const auto& c : cases) {
    Accept(c.option, c.lower, c.upper);
    EXPECT_EQ(RowText(1), c.stored);
  }
  EXPECT_EQ(Boxes(), Texts{});
}

TEST_F(RowBoundsTest, HoldsBoundsWithinTheLimit) {
  const std::string upper = "Upper Bound set to limit of 1E+10";
  const std::string lower = "Lower Bound set to limit of -1E+10";
  const struct {
    const char* lower;
    const char* upper;
    Texts boxes;
    const char* stored;
  } cases[] = {
      {"0", "2E+10", {upper}, "LIM N 0 10000000000"},
      {"0", "1E+10", {}, "LIM N 0 10000000000"},
      {"-2E10", "0", {lower}, "LIM N -10000000000 0"},
      {"-1E10", "0", {}, "LIM N -10000000000 0"},
      {"-1E99", "1E99", {upper, lower}, "LIM N -10000000000 10000000000"},
  };
  for (const auto& c : cases) {
    desktop_.Clear();
    Accept(*dialog_.Option("N"), c.lower, c.upper);
    EXPECT_EQ(Boxes(), c.boxes) << c.lower << ' ' << c.upper;
    EXPECT_EQ(RowText(1), c.stored);
  }
}

TEST_F(RowBoundsTest, EqualityCopiesItsValueBeforeItIsHeldWithinTheLimit) {
  Accept(*dialog_.Option("E"), "1", "-5E10");
  EXPECT_EQ(Boxes(), Texts{"Lower Bound set to limit of -1E+10"});
  EXPECT_EQ(RowText(1), "LIM E -10000000000 -50000000000");
}

TEST_F(RowBoundsTest, KeepsTheRowIndexesRight) {
  Accept(*dialog_.Option("N"), "0", "1");
  EXPECT_EQ(model_.NumberOfNonBindingRows(), 2);
  EXPECT_EQ(model_.NonBindingRowIndex(1), 1);
}

TEST_F(RowBoundsTest, IsNotShownTwiceAtOnce) {
  Show(1, [&] {
    try {
      dialog_.ShowBounds(model_, 0);
      ADD_FAILURE() << "shown twice";
    } catch (const AutomationError& error) {
      EXPECT_EQ(error.number(), 400);
    }
    EXPECT_EQ(dialog_.lblRecord.caption(), "Row LIM");
  });
}

}  // namespace
}  // namespace quarvel::viewer
