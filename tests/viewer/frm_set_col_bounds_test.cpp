#include "viewer/frm_set_col_bounds.h"

#include "tests/support/model_builder.h"
#include "tests/viewer/viewer_session.h"

namespace quarvel::viewer {
namespace {

class ColBoundsTest : public ViewerTest {
 protected:
  ColBoundsTest() { BuildModel(); }

  // Shows the dialog for a column and does `steps` in it once; cancelled afterwards when still
  // open.
  void Show(std::int32_t column, const std::function<void()>& steps) {
    dialogs_.push_back([steps](auto&) { steps(); });
    dialogs_.push_back([this](auto&) { dialog_.cmdCancel.Click(); });
    dialog_.ShowBounds(model_, column);
    dialogs_.clear();
  }
  void Enter(std::string_view lower, std::string_view upper) {
    dialog_.bounds.txtLwrBnd.Type(lower);
    dialog_.bounds.txtUprBnd.Type(upper);
    dialog_.cmdOK.Click();
  }

  frmSetColBounds dialog_{desktop_};
};

TEST_F(ColBoundsTest, HasItsWords) {
  EXPECT_EQ(dialog_.caption(), "Set Column Bounds");
  EXPECT_EQ(dialog_.fraType.caption(), "Column Type");
  EXPECT_EQ(dialog_.Option("R")->caption(), "Real");
  EXPECT_EQ(dialog_.Option("I")->caption(), "Integer");
  EXPECT_EQ(dialog_.bounds.fraValues.caption(), "Bound Values");
  EXPECT_EQ(dialog_.bounds.lblUpper.caption(), "Upper:");
  EXPECT_EQ(dialog_.bounds.lblLower.caption(), "Lower:");
  EXPECT_EQ(dialog_.cmdOK.caption(), "OK");
  EXPECT_EQ(dialog_.cmdCancel.caption(), "Cancel");
}

TEST_F(ColBoundsTest, OpensWithTheTypeAndBoundsOfTheColumn) {
  Show(1, [&] {
    EXPECT_TRUE(dialog_.Option("I")->value());
    EXPECT_EQ(dialog_.bounds.txtLwrBnd.text(), "0");
    EXPECT_EQ(dialog_.bounds.txtUprBnd.text(), "10");
    EXPECT_EQ(dialog_.lblRecord.caption(), "Column Y");
  });
  Show(2, [&] {
    EXPECT_TRUE(dialog_.Option("R")->value());
    EXPECT_FALSE(dialog_.Option("I")->value());
    EXPECT_EQ(dialog_.bounds.txtLwrBnd.text(), "-1");
  });
}

TEST_F(ColBoundsTest, RefusesBinaryColumnsAndThoseWithoutType) {
  for (const model::ColumnType type : {model::ColumnType::kBinary, model::ColumnType::kNone}) {
    desktop_.Clear();
    ChangeFields(model_, [&](model::ModelData& data) { data.Columns[1].Type = type; });
    dialog_.ShowBounds(model_, 0);
    EXPECT_EQ(Boxes(), Texts{"Invalid Column Type specified"});
    EXPECT_FALSE(dialog_.IsLoaded());
  }
}

TEST_F(ColBoundsTest, CancelAndEscapeChangeNothing) {
  Show(2, [&] {
    dialog_.Option("I")->Click();
    EXPECT_TRUE(dialog_.PressCancelButton());
    EXPECT_FALSE(dialog_.IsShowing());
  });
  EXPECT_EQ(ColumnText(2), "Z R -1 1");
}

TEST_F(ColBoundsTest, ClearsWhatIsNoNumberAndStaysOpen) {
  Show(2, [&] {
    Enter("1E999", "?");
    EXPECT_TRUE(dialog_.IsShowing());
    EXPECT_EQ(dialog_.bounds.txtLwrBnd.text(), "");
    EXPECT_EQ(dialog_.bounds.txtUprBnd.text(), "");
    EXPECT_EQ(dialog_.focus(), &dialog_.bounds.txtLwrBnd);
    Enter("0", "");
    EXPECT_EQ(dialog_.bounds.txtLwrBnd.text(), "0");
    EXPECT_EQ(dialog_.focus(), &dialog_.bounds.txtUprBnd);
  });
  EXPECT_EQ(Boxes(), (Texts{"Invalid Input", "Invalid Input"}));
  EXPECT_EQ(ColumnText(2), "Z R -1 1");
}

TEST_F(ColBoundsTest, StoresTypeAndBounds) {
  Show(2, [&] {
    dialog_.Option("I")->Click();
    Enter("-3", "3.5");
    EXPECT_FALSE(dialog_.IsShowing());
  });
  EXPECT_EQ(ColumnText(2), "Z I -3 3.5");
  Show(2, [&] {
    dialog_.Option("R")->Click();
    EXPECT_TRUE(dialog_.PressDefaultButton());
  });
  EXPECT_EQ(ColumnText(2), "Z R -3 3.5");
}

TEST_F(ColBoundsTest, ReversedBoundsArePutInOrderForEveryType) {
  for (const int column : {0, 1}) {
    desktop_.Clear();
    Show(column, [&] { Enter("5", "2"); });
    EXPECT_EQ(Boxes(), Texts{"Bounds were reversed"});
    EXPECT_EQ(model_.ColLowerBound(column), 2);
    EXPECT_EQ(model_.ColUpperBound(column), 5);
  }
}

TEST_F(ColBoundsTest, EqualBoundsAreTakenSilently) {
  Show(2, [&] { Enter("4", "4"); });
  EXPECT_EQ(Boxes(), Texts{});
  EXPECT_EQ(ColumnText(2), "Z R 4 4");
}

TEST_F(ColBoundsTest, HoldsBoundsWithinTheLimit) {
  Show(2, [&] { Enter("-2E10", "2E10"); });
  EXPECT_EQ(Boxes(),
            (Texts{"Upper Bound set to limit of 1E+10", "Lower Bound set to limit of -1E+10"}));
  EXPECT_EQ(ColumnText(2), "Z R -10000000000 10000000000");
  desktop_.Clear();
  Show(2, [&] { Enter("-1E10", "1E10"); });
  EXPECT_EQ(Boxes(), Texts{});
}

TEST_F(ColBoundsTest, ReversesBeforeItHoldsWithinTheLimit) {
  Show(2, [&] { Enter("2E10", "1"); });
  EXPECT_EQ(Boxes(), (Texts{"Bounds were reversed", "Upper Bound set to limit of 1E+10"}));
  EXPECT_EQ(ColumnText(2), "Z R 1 10000000000");
}

}  // namespace
}  // namespace quarvel::viewer
