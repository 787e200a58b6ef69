// The commands that add, rename, delete and change rows.
#include "tests/viewer/viewer_session.h"

namespace quarvel::viewer {
namespace {

const std::string kLongNameText =
    "The name you entered had more than 8 characters.  In a standard MPS file, names can be no "
    "longer than 8 characters.  If you wish your model to be standard, please reset the name to "
    "have 8 or fewer characters";

class RowCommandsTest : public ViewerTest {
 protected:
  // Does `steps` on the Rows tab of a built model.
  void OnRows(const std::function<void()>& steps) {
    BuildModel();
    View([&] {
      TurnTo(kRowsPage.number);
      steps();
    });
  }
  void AcceptBounds(std::string_view lower, std::string_view upper) {
    dialogs_.push_back([this, lower = std::string(lower), upper = std::string(upper)](auto&) {
      viewer().desk.row_bounds.bounds.txtLwrBnd.Type(lower);
      viewer().desk.row_bounds.bounds.txtUprBnd.Type(upper);
      viewer().desk.row_bounds.cmdOK.Click();
    });
  }
  void CancelBounds() {
    dialogs_.push_back([this](auto&) { viewer().desk.row_bounds.cmdCancel.Click(); });
  }
};

TEST_F(RowCommandsTest, AddAsksForANameAndForBounds) {
  OnRows([&] {
    desktop_.inputs = {"NEW"};
    dialogs_.push_back([&](platform::Form& dialog) {
      EXPECT_EQ(dialog.name(), "frmSetRowBounds");
      EXPECT_EQ(RowText(5), "NEW L 0 0");
      EXPECT_TRUE(viewer().desk.row_bounds.Option("L")->value());
      viewer().desk.row_bounds.bounds.txtUprBnd.Type("9");
      viewer().desk.row_bounds.Option("N")->Click();
      viewer().desk.row_bounds.cmdOK.Click();
    });
    Choose("mnuEditRowAdd");
    EXPECT_EQ(RowText(5), "NEW N 0 9");
    EXPECT_EQ(RowNames().back(), "NEW");
    EXPECT_EQ(viewer().contents.rows.fraList.caption(), "Rows (6)");
  });
  EXPECT_EQ(desktop_.input_boxes()[0],
            (platform::ShownInput{"Enter a name for the new row.  Names cannot contain spaces.",
                                  std::string(platform::kDefaultTitle), ""}));
}

TEST_F(RowCommandsTest, AddedRowStaysWhenItsBoundsAreCancelled) {
  OnRows([&] {
    desktop_.inputs = {"NEW"};
    CancelBounds();
    Choose("mnuEditRowAdd");
    EXPECT_EQ(RowText(5), "NEW L 0 0");
  });
}

TEST_F(RowCommandsTest, AddAsksAgainWhileTheNameHasSpaces) {
  OnRows([&] {
    desktop_.inputs = {"A B", " ", "AB"};
    CancelBounds();
    Choose("mnuEditRowAdd");
  });
  EXPECT_EQ(Boxes(), (Texts{"Spaces are not allowed in row names",
                            "Spaces are not allowed in row names", std::string(kSaveQuestion)}));
  EXPECT_EQ(model_.RowName(5), "AB");
}

TEST_F(RowCommandsTest, RefusedAddIsOneBoxOnly) {
  OnRows([&] {
    desktop_.inputs = {"", "LIM"};
    Choose("mnuEditRowAdd");
    Choose("mnuEditRowAdd");
    EXPECT_EQ(Boxes(), (Texts{"Row not added:  empty name given",
                              "Row not added:  that name is already in use"}));
    EXPECT_EQ(RowNames().size(), 5u);
  });
}

TEST_F(RowCommandsTest, FirstRowOfANewModelIsSeenOnceThereIsAColumnOrNot) {
  model_.MakeNewModel();
  View([&] {
    TurnTo(kRowsPage.number);
    desktop_.inputs = {"FIRST"};
    dialogs_.push_back([&](auto&) {
      EXPECT_EQ(RowText(0), "FIRST L 0 10000000000");
      viewer().desk.row_bounds.cmdCancel.Click();
    });
    Choose("mnuEditRowAdd");
    EXPECT_EQ(RowNames(), Texts{"FIRST"});
    EXPECT_EQ(viewer().contents.rows.cboShowOnly.list_index(), 0);
    EXPECT_EQ(viewer().contents.rows.fraList.caption(), "Rows (1)");
    EXPECT_EQ(viewer().contents.rows.fraElements.caption(), "Variables:  FIRST");
    EXPECT_TRUE(Item("mnuEditRowDel").Available());
  });
}

TEST_F(RowCommandsTest, RenameOffersTheNameAndStoresTheNewOne) {
  OnRows([&] {
    SelectRow("LIM");
    desktop_.inputs = {"CAP"};
    Choose("mnuEditRowRename");
    EXPECT_EQ(desktop_.input_boxes()[0],
              (platform::ShownInput{"Enter a name for this row",
                                    std::string(platform::kDefaultTitle), "LIM"}));
    EXPECT_EQ(RowNames()[1], "CAP");
    EXPECT_EQ(viewer().contents.rows.fraElements.caption(), "Variables in CAP (2):");
    EXPECT_EQ(Boxes(), Texts{});
  });
}

TEST_F(RowCommandsTest, RenameLeavesRefusalsToTheModel) {
  OnRows([&] {
    SelectRow("LIM");
    desktop_.inputs = {"", "A B", "LIM", "COST"};
    for (int i = 0; i < 4; ++i) Choose("mnuEditRowRename");
    EXPECT_EQ(Boxes(), (Texts{"Invalid Name", "Spaces are not allowed in row names",
                              "That name is already in use", "That name is already in use"}));
    EXPECT_EQ(model_.RowName(1), "LIM");
  });
}

TEST_F(RowCommandsTest, LongNameIsWarnedOfOnceForRowsAndColumnsInEachOpening) {
  OnRows([&] {
    desktop_.inputs = {"EIGHTEIG", "NINENINEN", "TENTENTENT", "COLUMNXXX"};
    for (int i = 0; i < 3; ++i) Choose("mnuEditRowRename");
    SelectColumn("X");
    Choose("mnuEditColRename");
    EXPECT_EQ(Boxes(), Texts{kLongNameText});
    EXPECT_EQ(model_.RowName(0), "TENTENTENT");
    EXPECT_EQ(model_.ColName(0), "COLUMNXXX");
  });
  desktop_.Clear();
  View([&] {
    desktop_.inputs = {"OTHERLONG"};
    Choose("mnuEditColRename");
    EXPECT_EQ(Boxes(), Texts{kLongNameText});
  });
}

TEST_F(RowCommandsTest, LongNameCountsCharactersNotBytes) {
  OnRows([&] {
    desktop_.inputs = {"\xC3\x84\xC3\x96\xC3\x9C\xC3\x84\xC3\x96\xC3\x9C\xC3\x84\xC3\x96"};
    Choose("mnuEditRowRename");
    EXPECT_EQ(Boxes(), Texts{});
  });
}

TEST_F(RowCommandsTest, DeleteAsksFirst) {
  OnRows([&] {
    SelectRow("LIM");
    desktop_.answers = {kNo, kYes};
    Choose("mnuEditRowDel");
    EXPECT_EQ(model_.NumberOfRows(), 5);
    Choose("mnuEditRowDel");
    EXPECT_EQ(RowNames(), (Texts{"COST", "LOW", "RNG", "EQ"}));
    EXPECT_EQ(viewer().contents.rows.fgrdList.current_row(), 1);
    EXPECT_EQ(viewer().contents.rows.fraElements.caption(), "Variables in LOW (1):");
    EXPECT_EQ(Column(viewer().contents.columns.fgrdElements, 0), (Texts{"COST", "EQ"}));
  });
  EXPECT_EQ(desktop_.boxes()[0], (platform::ShownBox{"Are you sure you want delete row LIM?",
                                                     MsgBoxStyle::kYesNo, "Confirm Deletion"}));
}

TEST_F(RowCommandsTest, DeleteKeyDeletesInTheListAndClampsTheSelection) {
  OnRows([&] {
    SelectRow("EQ");
    desktop_.answers = {kYes};
    EXPECT_TRUE(viewer().contents.rows.fgrdList.Press({platform::Key::kDelete}));
    EXPECT_EQ(RowNames(), (Texts{"COST", "LIM", "LOW", "RNG"}));
    EXPECT_EQ(viewer().contents.rows.fgrdList.current_row(), 3);
    EXPECT_EQ(viewer().contents.rows.fraElements.caption(), "Variables:  RNG");
  });
}

TEST_F(RowCommandsTest, OnlyRowIsNotDeleted) {
  ModelBuilder(model_).Row("A", 'L', 1).Column("X").Element("X", "A", 1);
  View([&] {
    TurnTo(kRowsPage.number);
    desktop_.answers = {kYes};
    Choose("mnuEditRowDel");
    EXPECT_EQ(Boxes()[1],
              "Cannot remove the only row.\r\nRename it instead of removing it and creating a new "
              "one.");
    EXPECT_EQ(RowNames(), Texts{"A"});
  });
}

TEST_F(RowCommandsTest, WithoutARowTheyRefuse) {
  OnRows([&] {
    viewer().contents.rows.fgrdList.set_current_row(-1);
    for (const char* name :
         {"mnuEditRowRename", "mnuEditRowDel", "mnuEditRowAddEle", "mnuEditRowChangeBnd"}) {
      Choose(name);
      EXPECT_EQ(Boxes().back(), "No Row Selected") << name;
    }
    viewer().contents.rows.fgrdList.Press({platform::Key::kDelete});
    EXPECT_EQ(Boxes(), Texts(5, "No Row Selected"));
    EXPECT_EQ(desktop_.input_boxes().size(), 0u);
  });
}

TEST_F(RowCommandsTest, ActOnTheRowBehindTheFilter) {
  OnRows([&] {
    viewer().contents.rows.cboShowOnly.Select(6);
    desktop_.answers = {kYes};
    desktop_.inputs = {"SAME"};
    Choose("mnuEditRowRename");
    EXPECT_EQ(model_.RowName(4), "SAME");
    Choose("mnuEditRowDel");
    EXPECT_EQ(model_.NumberOfRows(), 4);
    EXPECT_EQ(model_.RowName(3), "RNG");
    EXPECT_EQ(RowNames(), Texts{});
    EXPECT_EQ(viewer().contents.rows.fraList.caption(), "Rows (4)");
    EXPECT_FALSE(Item("mnuEditRowDel").enabled());
  });
}

TEST_F(RowCommandsTest, ChangeTypeAndBoundsOpensTheDialogOfTheRow) {
  OnRows([&] {
    SelectRow("LOW");
    AcceptBounds("2.5", "3");
    Choose("mnuEditRowChangeBnd");
    EXPECT_EQ(RowText(2), "LOW G 2.5 -10000000000");
    EXPECT_EQ(viewer().contents.rows.fgrdBounds.Text(0, 0), ">=  2.5");
    EXPECT_EQ(viewer().contents.rows.fgrdList.current_row(), 2);
  });
}

TEST_F(RowCommandsTest, ChangedTypeMayLeaveTheFilter) {
  OnRows([&] {
    viewer().contents.rows.cboShowOnly.Select(2);
    SelectRow("LOW");
    dialogs_.push_back([&](auto&) {
      viewer().desk.row_bounds.Option("N")->Click();
      viewer().desk.row_bounds.cmdOK.Click();
    });
    Choose("mnuEditRowChangeBnd");
    EXPECT_EQ(RowNames(), (Texts{"LIM", "RNG", "EQ"}));
    EXPECT_EQ(viewer().contents.rows.fgrdList.current_row(), 1);
    EXPECT_EQ(viewer().contents.rows.fraElements.caption(), "Variables:  RNG");
  });
}

TEST_F(RowCommandsTest, UnknownTypeIsToldInsteadOfTheDialog) {
  OnRows([&] {
    model_.AddRow("FRESH");
    viewer().RefreshForm();
    SelectRow("FRESH");
    Choose("mnuEditRowChangeBnd");
    EXPECT_EQ(Boxes(), Texts{"Invalid Bound Type specified"});
  });
}

TEST_F(RowCommandsTest, AddElementOpensItsDialogForTheRow) {
  OnRows([&] {
    SelectRow("LOW");
    desktop_.inputs = {"4.5"};
    dialogs_.push_back([&](platform::Form& dialog) {
      EXPECT_EQ(dialog.name(), "frmAddElementsToRow");
      viewer().desk.add_elements.fgrdCols.Select(2);
      viewer().desk.add_elements.cmdOK.Click();
    });
    Choose("mnuEditRowAddEle");
    EXPECT_EQ(Column(viewer().contents.rows.fgrdElements, 0), (Texts{"Y", "Z"}));
    EXPECT_EQ(Column(viewer().contents.rows.fgrdElements, 1), (Texts{"1", "4.5"}));
    EXPECT_EQ(viewer().contents.rows.fgrdList.current_row(), 2);
    EXPECT_EQ(model_.NumberOfElements(), 7);
  });
}

}  // namespace
}  // namespace quarvel::viewer
