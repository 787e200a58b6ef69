#include "viewer/frm_add_elements_to_row.h"

#include "model/model_check.h"
#include "tests/viewer/viewer_session.h"

namespace quarvel::viewer {
namespace {

class AddElementsTest : public ViewerTest {
 protected:
  // Shows the dialog for a row and does `steps` in it once; cancelled afterwards when still open.
  void Show(std::int32_t row, const std::function<void()>& steps) {
    dialogs_.push_back([steps](auto&) { steps(); });
    dialogs_.push_back([this](auto&) { dialog_.cmdCancel.Click(); });
    dialog_.Begin(row, model_);
    dialogs_.clear();
  }

  frmAddElementsToRow dialog_{desktop_};
};

TEST_F(AddElementsTest, ListsTheColumnsThatTheRowDoesNotHave) {
  BuildModel();
  Show(1, [&] {
    EXPECT_EQ(dialog_.caption(), "Add Elements to Row LIM");
    EXPECT_EQ(dialog_.lblSelect.caption(), "Select a Column to Add:");
    EXPECT_EQ(dialog_.cmdOK.caption(), "OK");
    EXPECT_EQ(dialog_.cmdCancel.caption(), "Cancel");
    EXPECT_EQ(dialog_.fgrdCols.fixed_rows(), 1);
    EXPECT_EQ(Column(dialog_.fgrdCols, 0), (Texts{"i.d.", "2", "3"}));
    EXPECT_EQ(Column(dialog_.fgrdCols, 1), (Texts{"name", "Z", "W"}));
    EXPECT_EQ(dialog_.fgrdCols.current_row(), 0);
  });
}

TEST_F(AddElementsTest, HasItsDesignCaptionBefore) {
  EXPECT_EQ(dialog_.caption(), "Add Elements to Row XXXXXXXX");
}

TEST_F(AddElementsTest, ModelWithoutColumnsIsOneBox) {
  ModelBuilder(model_).Row("A", 'L', 1);
  dialog_.Begin(0, model_);
  EXPECT_EQ(Boxes(), Texts{"Error: No column has been added yet. Please add columns first"});
  EXPECT_FALSE(dialog_.IsLoaded());
}

TEST_F(AddElementsTest, FullRowHasTheHeaderOnly) {
  ModelBuilder(model_).Row("A", 'L', 1).Column("X").Element("X", "A", 1);
  Show(0, [&] {
    EXPECT_EQ(dialog_.fgrdCols.rows(), 1);
    dialog_.cmdOK.Click();
    EXPECT_TRUE(dialog_.IsShowing());
  });
  EXPECT_EQ(Boxes(), Texts{"Please select a column"});
}

TEST_F(AddElementsTest, NeedsAColumn) {
  BuildModel();
  Show(1, [&] {
    dialog_.cmdOK.Click();
    dialog_.fgrdCols.set_current_row(-1);
    dialog_.cmdOK.Click();
    EXPECT_TRUE(dialog_.IsShowing());
  });
  EXPECT_EQ(Boxes(), (Texts{"Please select a column", "Please select a column"}));
}

TEST_F(AddElementsTest, AddsTheCoefficientOfTheChosenColumn) {
  BuildModel();
  Show(1, [&] {
    desktop_.inputs = {"-2.5"};
    dialog_.fgrdCols.Select(2);
    EXPECT_TRUE(dialog_.PressDefaultButton());
    EXPECT_FALSE(dialog_.IsShowing());
  });
  EXPECT_EQ(desktop_.input_boxes()[0],
            (platform::ShownInput{"Enter a coefficient value for the element at column W, row LIM",
                                  std::string(platform::kDefaultTitle), ""}));
  EXPECT_EQ(model_.ElementValue(1, 3), -2.5);
  EXPECT_EQ(model_.NumberOfElements(), 7);
  EXPECT_EQ(model::CheckModelData(model_.store()), "");
  EXPECT_EQ(Boxes(), Texts{});
}

TEST_F(AddElementsTest, DoubleClickChoosesALine) {
  BuildModel();
  Show(1, [&] {
    desktop_.inputs = {"3"};
    dialog_.fgrdCols.DoubleClick(1);
    EXPECT_FALSE(dialog_.IsShowing());
  });
  EXPECT_EQ(model_.ElementValue(1, 2), 3);
}

TEST_F(AddElementsTest, StaysOpenAfterEveryRefusal) {
  BuildModel();
  Show(1, [&] {
    dialog_.fgrdCols.Select(1);
    desktop_.inputs = {"", "abc", "0", "-0"};
    for (int i = 0; i < 4; ++i) {
      dialog_.cmdOK.Click();
      EXPECT_TRUE(dialog_.IsShowing());
    }
  });
  EXPECT_EQ(Boxes(), (Texts{"Invalid input", "Cannot have an element with coefficient 0",
                            "Cannot have an element with coefficient 0"}));
  EXPECT_EQ(model_.NumberOfElements(), 6);
}

TEST_F(AddElementsTest, WarnsOfALongValueAndAddsIt) {
  BuildModel();
  Show(1, [&] {
    dialog_.fgrdCols.Select(1);
    desktop_.inputs = {"123.456789012"};
    dialog_.cmdOK.Click();
  });
  EXPECT_EQ(Boxes(), Texts{kLongValueText});
  EXPECT_EQ(model_.ElementValue(1, 2), 123.456789012);
}

TEST_F(AddElementsTest, CancelAddsNothing) {
  BuildModel();
  Show(1, [&] {
    dialog_.fgrdCols.Select(1);
    EXPECT_TRUE(dialog_.PressCancelButton());
    EXPECT_FALSE(dialog_.IsShowing());
  });
  EXPECT_EQ(model_.NumberOfElements(), 6);
}

TEST_F(AddElementsTest, ComesUpWithoutAChosenColumnEveryTime) {
  BuildModel();
  Show(1, [&] { dialog_.fgrdCols.Select(2); });
  Show(4, [&] {
    EXPECT_EQ(dialog_.fgrdCols.current_row(), 0);
    EXPECT_EQ(Column(dialog_.fgrdCols, 1), (Texts{"name", "Y", "W"}));
  });
}

}  // namespace
}  // namespace quarvel::viewer
