// Hosts that come back into the model while the viewer, one of its boxes or its dialogs is open.
#include "model/model_check.h"
#include "platform/files.h"
#include "tests/support/model_builder.h"
#include "tests/viewer/viewer_session.h"

namespace quarvel::viewer {
namespace {

class CallbackTest : public ViewerTest {
 protected:
  // Does `what` at the first box that begins so, before it is answered.
  void AtBox(const std::string& start, const std::function<void()>& what) {
    on_shown_ = [this, start, what](const platform::ShownBox& box) {
      if (!box.text.starts_with(start)) return;
      on_shown_ = nullptr;
      what();
    };
  }
  void With(const std::function<void()>& steps) {
    BuildModel();
    View(steps);
    EXPECT_EQ(model::CheckModelData(model_.store()), "");
  }
};

TEST_F(CallbackTest, RowThatIsGoneUnderTheQuestionIsNotSelected) {
  With([&] {
    SelectRow("EQ");
    AtBox("Are you sure", [&] { model_.DeleteRow(0); });
    desktop_.answers = {kYes};
    Choose("mnuEditRowDel");
    EXPECT_EQ(model_.NumberOfRows(), 4);
    EXPECT_EQ(Boxes().back(), "No Row Selected");
  });
}

TEST_F(CallbackTest, ColumnThatIsGoneUnderTheQuestionIsNotSelected) {
  With([&] {
    SelectColumn("W");
    AtBox("Are you sure", [&] { model_.DeleteColumn(1); });
    desktop_.answers = {kYes};
    Choose("mnuEditColDel");
    EXPECT_EQ(model_.NumberOfColumns(), 3);
    EXPECT_EQ(Boxes().back(), "No Column Selected");
  });
}

TEST_F(CallbackTest, ElementThatIsGoneUnderTheQuestionIsNotSelected) {
  With([&] {
    SelectRow("EQ");
    viewer().contents.rows.fgrdElements.Select(1);
    AtBox("Are you sure", [&] { model_.DeleteElement(4, 0); });
    desktop_.answers = {kYes};
    Choose("mnuEditRowDelEle");
    EXPECT_EQ(model_.NumberOfElements(), 5);
    EXPECT_EQ(Boxes().back(), "Please first click on a row and an element in that row");
  });
}

TEST_F(CallbackTest, SelectionOutsideAModelThatShrankIsNone) {
  With([&] {
    SelectRow("EQ");
    viewer().contents.rows.fgrdElements.Select(1);
    model_.MakeNewModel();
    for (const char* name :
         {"mnuEditRowRename", "mnuEditRowDel", "mnuEditRowAddEle", "mnuEditRowChangeBnd"}) {
      Item(name).Click();
      EXPECT_EQ(Boxes().back(), "No Row Selected") << name;
    }
    EXPECT_EQ(viewer().contents.rows.fgrdList.Text(4, 0), "");
    EXPECT_EQ(viewer().contents.rows.fgrdElements.Text(1, 0), "");
    EXPECT_EQ(viewer().contents.rows.fgrdBounds.Text(0, 0), "");
    viewer().contents.rows.fgrdElements.DoubleClick(0);
    viewer().contents.rows.fgrdList.Select(1);
    TurnTo(kColumnsPage.number);
    viewer().contents.columns.fgrdElements.Select(0);
    viewer().contents.columns.fgrdElements.DoubleClick(0);
    EXPECT_EQ(viewer().contents.columns.fgrdElements.Text(0, 0), "");
    EXPECT_EQ(viewer().contents.txtColsEqn.text(), "");
  });
}

TEST_F(CallbackTest, WindowClosedUnderAQuestionEndsTheCommand) {
  const char* const commands[] = {"mnuEditColDel", "mnuFileNew", "mnuFileOpen", "mnuEditSimplify"};
  for (const char* command : commands) {
    BuildModel();
    View([&] {
      SelectColumn("X");
      on_shown_ = [&](const platform::ShownBox& box) {
        if (box.text.starts_with("Quarvel.dll")) return;
        on_shown_ = nullptr;
        viewer().EditMode(false);  // the closing asks nothing
        model_.ViewRow(99, false);
      };
      desktop_.answers = {kYes};
      const std::int32_t columns = model_.NumberOfColumns();
      Choose(command);
      EXPECT_FALSE(viewer().IsShowing());
      EXPECT_EQ(model_.NumberOfColumns(), columns) << command;
    });
    model_.store().Clear();
  }
}

TEST_F(CallbackTest, WindowClosedUnderADialogEndsTheCommand) {
  With([&] {
    SelectRow("LIM");
    dialogs_.push_back([&](auto&) {
      viewer().EditMode(false);
      viewer().Unload();
      viewer().desk.row_bounds.bounds.txtUprBnd.Type("5");
      viewer().desk.row_bounds.cmdOK.Click();
    });
    Choose("mnuEditRowChangeBnd");
    EXPECT_FALSE(viewer().IsShowing());
    EXPECT_FALSE(viewer().desk.row_bounds.IsShowing());
    EXPECT_EQ(model_.RowUpperBound(1), 4);
  });
}

TEST_F(CallbackTest, CommandNeverActsOnAnotherLineThanItNamed) {
  struct {
    const char* command;
    bool is_row;
    const char* box;
  } const kCases[] = {{"mnuEditRowDel", true, "Are you sure"},
                      {"mnuEditColDel", false, "Are you sure"},
                      {"mnuEditRowRename", true, "The name you entered"},
                      {"mnuEditColRename", false, "The name you entered"}};
  for (const auto& c : kCases) {
    BuildModel();
    View([&] {
      SelectRow("LIM");
      SelectColumn("Y");
      TurnTo(c.is_row ? kRowsPage.number : kColumnsPage.number);
      AtBox(c.box, [&] { c.is_row ? model_.DeleteRow(0) : model_.DeleteColumn(0); });
      desktop_.answers = {kYes};
      desktop_.inputs = {"LONGER_NAME"};
      Choose(c.command);
      EXPECT_EQ(Boxes().back(), c.is_row ? "No Row Selected" : "No Column Selected") << c.command;
      EXPECT_EQ((c.is_row ? RowNames() : ColumnNames())[0], c.is_row ? "LIM" : "Y") << c.command;
      EXPECT_EQ((c.is_row ? RowNames() : ColumnNames())[1], c.is_row ? "LOW" : "Z") << c.command;
      desktop_.inputs.clear();
    });
    model_.store().Clear();
    desktop_.Clear();
  }
}

TEST_F(CallbackTest, DialogNeverWritesToAnotherLineThanItNamed) {
  With([&] {
    SelectRow("LIM");
    SelectColumn("X");
    dialogs_ = {[&](auto&) {
                  model_.DeleteRow(0);
                  viewer().desk.row_bounds.cmdOK.Click();
                },
                [&](auto&) {
                  viewer().desk.col_bounds.bounds.txtUprBnd.Type("-3");
                  AtBox("Bounds were reversed", [&] { model_.DeleteColumn(0); });
                  viewer().desk.col_bounds.cmdOK.Click();
                }};
    TurnTo(kRowsPage.number);
    Choose("mnuEditRowChangeBnd");
    ASSERT_EQ(Boxes(), Texts{"No Row Selected"});
    EXPECT_EQ(RowText(1).substr(0, 5), "LOW G");
    TurnTo(kColumnsPage.number);
    Choose("mnuEditColChangeTypeBnd");
    EXPECT_EQ(Boxes().back(), "No Column Selected");
    EXPECT_EQ(ColumnText(0).substr(0, 3), "Y I");
  });
}

TEST_F(CallbackTest, ElementGoesToNoOtherColumnThanTheOneAskedFor) {
  With([&] {
    SelectRow("RNG");
    const std::int32_t elements = model_.NumberOfElements();
    dialogs_.push_back([&](auto&) {
      viewer().desk.add_elements.fgrdCols.Select(4);
      desktop_.inputs = {"1234.56789012345"};
      AtBox("The value entered is longer", [&] { model_.DeleteColumn(3); });
      viewer().desk.add_elements.cmdOK.Click();
    });
    Choose("mnuEditRowAddEle");
    EXPECT_EQ(Boxes().back(), "Please select a column");
    EXPECT_EQ(model_.NumberOfElements(), elements);
  });
}

TEST_F(CallbackTest, SaveUnderAnEmptiedWindowKeepsNameAndDescription) {
  With([&] {
    model_.SetModelName("KEPT");
    model_.SetModelDescription("kept too");
    desktop_.answers = {kNo};
    desktop_.on_file = [&](const platform::FileDialog&) {
      desktop_.on_file = nullptr;
      desktop_.answers = {kYes, kNo};
      desktop_.files = {""};
      model_.ViewRow(99, true);
      desktop_.files = {""};
    };
    Choose("mnuFileOpen");
    EXPECT_EQ(model_.ModelName(), "KEPT");
    EXPECT_EQ(model_.ModelDescription(), "kept too");
  });
}

TEST_F(CallbackTest, WindowOpenedDuringAReadChangesNothing) {
  BuildModel();
  std::string text = "NAME\nROWS\n N COST\nCOLUMNS\n";
  for (int j = 0; j < 300; ++j) text += " C" + std::to_string(j) + " COST 1\n";
  const std::string path = folder_.File("during.mps");
  WriteWholeFile(path, text + "ENDATA\n");
  bool looked = false;
  desktop_.on_events = [&](std::int64_t) {
    if (looked) return;
    looked = true;
    ShowBy([&] { model_.ViewEquations(true); },
           [&] {
             EXPECT_GT(viewer().contents.columns.fgrdList.rows(), 0);
             EXPECT_FALSE(Item("mnuEditSimplify").Available());
             EXPECT_FALSE(Item("mnuFileOpen").Available());
             EXPECT_FALSE(Item("mnuEditColDel").Available());
           });
  };
  desktop_.on_box = [](const platform::ShownBox&) { return kNo; };
  model_.strMPSFile(path);
  model_.StartFileReding();
  EXPECT_TRUE(looked);
  EXPECT_EQ(model_.ReadMPSFileErr(), -1);
  EXPECT_EQ(model_.NumberOfColumns(), 300);
}

// What a host does while events run is seen by whoever went there.
TEST_F(CallbackTest, DoubleClickShowsItsGoalAsItIsBehindTheEvents) {
  BuildModel();
  View([&] {
    SelectRow("EQ");
    desktop_.on_events = [this](std::int64_t) { model_.AddElement(0, 2, 5); };
    viewer().contents.rows.fgrdElements.DoubleClick(0);
    desktop_.on_events = nullptr;
    EXPECT_EQ(viewer().contents.columns.fraElements.caption(), "Rows that Z appears in (2):");
  });
}

TEST_F(CallbackTest, RowThatIsGoneUnderItsBoundsDialogIsToldAsNotSelected) {
  With([&] {
    SelectRow("EQ");
    dialogs_.push_back([&](auto&) {
      model_.DeleteRow(0);
      viewer().desk.row_bounds.cmdOK.Click();
      EXPECT_FALSE(viewer().desk.row_bounds.IsShowing());
    });
    Choose("mnuEditRowChangeBnd");
    EXPECT_EQ(Boxes(), Texts{"No Row Selected"});
    EXPECT_EQ(RowNames(), (Texts{"LIM", "LOW", "RNG", "EQ"}));
    EXPECT_EQ(RowText(3), "EQ E 7 7");
  });
}

TEST_F(CallbackTest, ColumnThatIsGoneUnderItsBoundsDialogIsToldAsNotSelected) {
  With([&] {
    SelectColumn("W");
    dialogs_.push_back([&](auto&) {
      viewer().desk.col_bounds.bounds.txtUprBnd.Type("1E11");
      AtBox("Upper Bound", [&] { model_.DeleteColumn(3); });
      viewer().desk.col_bounds.cmdOK.Click();
    });
    Choose("mnuEditColChangeTypeBnd");
    EXPECT_EQ(Boxes(), (Texts{"Upper Bound set to limit of 1E+10", "No Column Selected"}));
    EXPECT_EQ(ColumnNames(), (Texts{"X", "Y", "Z"}));
  });
}

TEST_F(CallbackTest, ColumnThatIsGoneUnderTheAddDialogIsNotSelected) {
  With([&] {
    SelectRow("LIM");
    dialogs_.push_back([&](auto&) {
      viewer().desk.add_elements.fgrdCols.Select(2);
      model_.DeleteColumn(2);
      viewer().desk.add_elements.cmdOK.Click();
      EXPECT_TRUE(viewer().desk.add_elements.IsShowing());
      viewer().desk.add_elements.cmdCancel.Click();
    });
    Choose("mnuEditRowAddEle");
    EXPECT_EQ(Boxes(), Texts{"Please select a column"});
  });
}

TEST_F(CallbackTest, FailingCommandIsOneBoxAndTheWindowGoesOn) {
  With([&] {
    SelectRow("LIM");
    dialogs_.push_back([&](auto&) {
      // A second dialog for the row while the first one is open.
      model_.AddRow("LATE");
      Item("mnuEditRowChangeBnd").Click();
      viewer().desk.row_bounds.cmdCancel.Click();
    });
    Choose("mnuEditRowChangeBnd");
    EXPECT_EQ(Boxes(), Texts{std::string(Describe(RunTimeError::kFormAlreadyDisplayed))});
    EXPECT_TRUE(viewer().IsShowing());
    EXPECT_EQ(RowNames().back(), "LATE");
  });
}

TEST_F(CallbackTest, WindowIsPausedWhileTheModelIsSimplified) {
  With([&] {
    Texts seen;
    on_shown_ = [&](const platform::ShownBox&) {
      if (desktop_.box_data().back().kind != platform::BoxKind::kOfferLog) return;
      seen = ColumnNames();
      EXPECT_FALSE(viewer().contents.columns.fgrdList.redraw());
    };
    EXPECT_EQ(ColumnNames().size(), 4u);
    desktop_.answers = {kYes, kNo};
    Choose("mnuEditSimplify");
    EXPECT_EQ(seen, (Texts{"X", "Y", "Z", "W"}));
    EXPECT_EQ(ColumnNames(), (Texts{"X", "Y", "Z"}));
    EXPECT_TRUE(viewer().contents.columns.fgrdList.redraw());
  });
}

TEST_F(CallbackTest, SimplificationByAHostLeavesTheWindowUsable) {
  With([&] {
    SelectRow("EQ");
    desktop_.answers = {kNo};
    model_.SimplifyMPSModel();
    EXPECT_TRUE(viewer().contents.rows.fgrdList.redraw());
    desktop_.inputs = {"CAP"};
    SelectRow("LIM");
    Choose("mnuEditRowRename");
    EXPECT_EQ(RowNames(), (Texts{"COST", "CAP", "EQ"}));
  });
}

// The numbers behind a list are all that it keeps.
TEST_F(CallbackTest, ListsOfAMillionRowsAskForTheCellsThatAreSeen) {
  constexpr std::int32_t kRows = 1000000;
  ChangeFields(model_, [](model::ModelData& data) {
    data.Rows.Resize(kRows);
    data.NumberOfRows = kRows;
    for (std::int32_t i = 1; i <= kRows; ++i) {
      data.Rows[i].Type = i % 2 == 0 ? model::RowType::kGreater : model::RowType::kLess;
    }
    data.Columns.Resize(1);
    data.NumberOfColumns = 1;
  });
  View([&] {
    platform::Grid& grid = viewer().contents.rows.fgrdList;
    int cells = 0;
    const auto cell = grid.cell;
    grid.cell = [&cells, cell](int line, int column) {
      ++cells;
      return cell(line, column);
    };
    TurnTo(kRowsPage.number);
    EXPECT_EQ(grid.rows(), kRows);
    viewer().contents.rows.cboShowOnly.Select(4);
    EXPECT_EQ(grid.rows(), kRows / 2);
    EXPECT_EQ(grid.Text(kRows / 2 - 1, 1), "greater than");
    EXPECT_EQ(cells, 1);
    grid.cell = cell;
  });
}

}  // namespace
}  // namespace quarvel::viewer
