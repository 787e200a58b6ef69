// The commands that add, rename, delete and change columns.
#include "tests/support/model_builder.h"
#include "tests/viewer/viewer_session.h"

namespace quarvel::viewer {
namespace {

class ColumnCommandsTest : public ViewerTest {
 protected:
  void OnColumns(const std::function<void()>& steps) {
    BuildModel();
    View(steps);
  }
};

TEST_F(ColumnCommandsTest, AddAsksForANameAndForBounds) {
  OnColumns([&] {
    desktop_.inputs = {"NEW"};
    dialogs_.push_back([&](platform::Form& dialog) {
      EXPECT_EQ(dialog.name(), "frmSetColBounds");
      EXPECT_EQ(ColumnText(4), "NEW R 0 10000000000");
      viewer().desk.col_bounds.Option("I")->Click();
      viewer().desk.col_bounds.bounds.txtUprBnd.Type("9");
      viewer().desk.col_bounds.cmdOK.Click();
    });
    Choose("mnuEditColAdd");
    EXPECT_EQ(ColumnText(4), "NEW I 0 9");
    EXPECT_EQ(ColumnNames().back(), "NEW");
    EXPECT_EQ(viewer().contents.columns.fraList.caption(), "Columns (5)");
  });
  EXPECT_EQ(desktop_.input_boxes()[0],
            (platform::ShownInput{"Enter a name for the new column.  Names cannot contain spaces.",
                                  std::string(platform::kDefaultTitle), ""}));
}

TEST_F(ColumnCommandsTest, AddAsksAgainWhileTheNameHasSpaces) {
  OnColumns([&] {
    desktop_.inputs = {"A B", "AB"};
    dialogs_.push_back([&](auto&) { viewer().desk.col_bounds.cmdCancel.Click(); });
    Choose("mnuEditColAdd");
    EXPECT_EQ(Boxes(), Texts{"Spaces are not allowed in column names"});
    EXPECT_EQ(model_.ColName(4), "AB");
  });
}

TEST_F(ColumnCommandsTest, RefusedAddIsOneBoxOnly) {
  OnColumns([&] {
    desktop_.inputs = {"", "X"};
    Choose("mnuEditColAdd");
    Choose("mnuEditColAdd");
    EXPECT_EQ(Boxes(), (Texts{"Column not added:  empty name given",
                              "Column not added:  that name is already in use"}));
    EXPECT_EQ(ColumnNames().size(), 4u);
  });
}

TEST_F(ColumnCommandsTest, FirstColumnOfANewModelIsSeen) {
  model_.MakeNewModel();
  View([&] {
    desktop_.inputs = {"FIRST"};
    dialogs_.push_back([&](auto&) { viewer().desk.col_bounds.cmdCancel.Click(); });
    Choose("mnuEditColAdd");
    EXPECT_EQ(ColumnNames(), Texts{"FIRST"});
    EXPECT_EQ(viewer().contents.columns.fraElements.caption(), "Rows that FIRST appears in (0):");
    EXPECT_TRUE(Item("mnuEditColDel").Available());
  });
}

TEST_F(ColumnCommandsTest, RenameOffersTheNameAndStoresTheNewOne) {
  OnColumns([&] {
    SelectColumn("Y");
    desktop_.inputs = {"UNITS"};
    Choose("mnuEditColRename");
    EXPECT_EQ(desktop_.input_boxes()[0],
              (platform::ShownInput{"Enter a name for this column",
                                    std::string(platform::kDefaultTitle), "Y"}));
    EXPECT_EQ(ColumnNames()[1], "UNITS");
    EXPECT_EQ(viewer().contents.columns.fgrdBounds.Text(0, 1), "<= UNITS <=");
  });
}

TEST_F(ColumnCommandsTest, RenameLeavesRefusalsToTheModel) {
  OnColumns([&] {
    desktop_.inputs = {"", "A B", "X"};
    for (int i = 0; i < 3; ++i) Choose("mnuEditColRename");
    EXPECT_EQ(Boxes(), (Texts{"Invalid Name", "Spaces are not allowed in column names",
                              "That name is already in use"}));
  });
}

TEST_F(ColumnCommandsTest, DeleteAsksFirstAndTakesEmptiedRowsAlong) {
  OnColumns([&] {
    SelectColumn("Y");
    desktop_.answers = {kNo, kYes};
    Choose("mnuEditColDel");
    EXPECT_EQ(model_.NumberOfColumns(), 4);
    Choose("mnuEditColDel");
    EXPECT_EQ(ColumnNames(), (Texts{"X", "Z", "W"}));
    EXPECT_EQ(RowNames(), (Texts{"COST", "LIM", "RNG", "EQ"}));
    EXPECT_EQ(viewer().contents.columns.fraElements.caption(), "Rows that Z appears in (1):");
  });
  EXPECT_EQ(desktop_.boxes()[0], (platform::ShownBox{"Are you sure you want delete column Y?",
                                                     MsgBoxStyle::kYesNo, "Confirm Deletion"}));
}

TEST_F(ColumnCommandsTest, DeleteKeyDeletesInTheList) {
  OnColumns([&] {
    SelectColumn("W");
    desktop_.answers = {kYes};
    EXPECT_TRUE(viewer().contents.columns.fgrdList.Press({platform::Key::kDelete}));
    EXPECT_EQ(ColumnNames(), (Texts{"X", "Y", "Z"}));
  });
}

TEST_F(ColumnCommandsTest, OnlyColumnIsNotDeleted) {
  ModelBuilder(model_).Row("A", 'L', 1).Column("X").Element("X", "A", 1);
  View([&] {
    desktop_.answers = {kYes};
    Choose("mnuEditColDel");
    EXPECT_EQ(Boxes()[1],
              "Cannot remove the only column.\r\nRename it instead of removing it and creating a "
              "new one.");
    EXPECT_EQ(ColumnNames(), Texts{"X"});
  });
}

TEST_F(ColumnCommandsTest, WithoutAColumnTheyRefuse) {
  OnColumns([&] {
    viewer().contents.columns.fgrdList.set_current_row(-1);
    for (const char* name : {"mnuEditColRename", "mnuEditColDel", "mnuEditColChangeTypeBnd"}) {
      Choose(name);
      EXPECT_EQ(Boxes().back(), "No Column Selected") << name;
    }
    EXPECT_EQ(Boxes().size(), 3u);
  });
}

TEST_F(ColumnCommandsTest, ChangeTypeAndBoundsOpensTheDialogOfTheColumn) {
  OnColumns([&] {
    viewer().contents.columns.cboShowOnly.Select(2);
    dialogs_.push_back([&](auto&) {
      EXPECT_TRUE(viewer().desk.col_bounds.Option("I")->value());
      viewer().desk.col_bounds.bounds.txtUprBnd.Type("3");
      viewer().desk.col_bounds.cmdOK.Click();
    });
    Choose("mnuEditColChangeTypeBnd");
    EXPECT_EQ(ColumnText(1), "Y I 0 3");
    EXPECT_EQ(viewer().contents.columns.fgrdBounds.Text(0, 2), "3");
  });
}

TEST_F(ColumnCommandsTest, BinaryColumnIsToldInsteadOfTheDialog) {
  BuildModel();
  ChangeFields(model_,
               [&](model::ModelData& data) { data.Columns[1].Type = model::ColumnType::kBinary; });
  View([&] {
    Choose("mnuEditColChangeTypeBnd");
    EXPECT_EQ(Boxes(), Texts{"Invalid Column Type specified"});
  });
}

}  // namespace
}  // namespace quarvel::viewer
