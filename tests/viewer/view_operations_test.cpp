// The operations that show the viewer, and how it closes.
#include "tests/viewer/viewer_session.h"

namespace quarvel::viewer {
namespace {

class ViewOperationsTest : public ViewerTest {
 protected:
  int CurrentRow() { return viewer().contents.rows.fgrdList.current_row(); }
  int CurrentColumn() { return viewer().contents.columns.fgrdList.current_row(); }
  // Answers the question before the window closes, and tells whether it has closed.
  bool CloseWith(MsgBoxResult answer) {
    desktop_.answers.push_back(answer);
    viewer().RequestClose();
    return !viewer().IsShowing();
  }
};

TEST_F(ViewOperationsTest, TellThatTheWindowIsShowing) {
  BuildModel();
  EXPECT_FALSE(model_.ViewEquationsWindowIsShowing());
  View([&] { EXPECT_TRUE(model_.ViewEquationsWindowIsShowing()); });
  EXPECT_FALSE(model_.ViewEquationsWindowIsShowing());
}

TEST_F(ViewOperationsTest, TurnToTheRowThatIsMeant) {
  BuildModel();
  const struct {
    std::function<void()> operation;
    int line;
  } cases[] = {
      {[&] { model_.ViewRow(3, true); }, 3},           {[&] { model_.ViewRow(0, true); }, 0},
      {[&] { model_.ViewRow(4, true); }, 4},           {[&] { model_.ViewBindingRow(1, true); }, 2},
      {[&] { model_.ViewNonBindingRow(0, true); }, 0},
  };
  for (const auto& c : cases) {
    ShowBy(c.operation, [&] {
      EXPECT_EQ(viewer().contents.sstViewEqns.current(), kRowsPage.number);
      EXPECT_EQ(CurrentRow(), c.line);
    });
  }
}

TEST_F(ViewOperationsTest, TurnToTheColumnThatIsMeant) {
  BuildModel();
  ShowBy([&] { model_.ViewCol(2, true); },
         [&] {
           EXPECT_EQ(viewer().contents.sstViewEqns.current(), kColumnsPage.number);
           EXPECT_EQ(CurrentColumn(), 2);
           EXPECT_EQ(viewer().contents.columns.fraElements.caption(),
                     "Rows that Z appears in (1):");
         });
}

TEST_F(ViewOperationsTest, LetEventsRunBeforeTheyShowTheWindow) {
  BuildModel();
  Texts events;
  desktop_.on_events = [&](std::int64_t) {
    const platform::Form* const form = desktop_.LastShown("frmViewEquations");
    events.push_back(form != nullptr && form->IsShowing() ? "shown" : "not shown");
  };
  ShowBy([&] { model_.ViewRow(1, true); }, [] {});
  EXPECT_EQ(events, Texts{"not shown"});
}

TEST_F(ViewOperationsTest, RefuseNumbersOutOfRange) {
  BuildModel();
  model_.ViewCol(4, true);
  model_.ViewCol(-1, true);
  model_.ViewRow(5, true);
  model_.ViewRow(-1, false);
  model_.ViewNonBindingRow(1, true);
  model_.ViewBindingRow(4, true);
  EXPECT_EQ(
      Boxes(),
      (Texts{
          "Quarvel.dll error: column 4 is out of range.  \r\nColumns range from 0 to 3.",
          "Quarvel.dll error: column -1 is out of range.  \r\nColumns range from 0 to 3.",
          "Quarvel.dll error: row 5 is out of range.  \r\nRows range from 0 to 4.",
          "Quarvel.dll error: row -1 is out of range.  \r\nRows range from 0 to 4.",
          "Quarvel.dll error: row 1 is out of range.  \r\nNon-Binding Rows range from 0 to 0.",
          "Quarvel.dll error: row 4 is out of range.  \r\nBinding rows range from 0 to 3.",
      }));
  for (const platform::ShownBox& box : desktop_.boxes()) {
    EXPECT_EQ(box.style, MsgBoxStyle::kOk);
    EXPECT_EQ(box.title, platform::kDefaultTitle);
  }
  EXPECT_EQ(desktop_.LastShown("frmViewEquations"), nullptr);
  EXPECT_FALSE(model_.ViewEquationsWindowIsShowing());
}

TEST_F(ViewOperationsTest, RefusedRowTakesTheWindowAwayThroughItsQuestion) {
  BuildModel();
  View([&] {
    desktop_.answers = {kCancel, kNo};
    model_.ViewRow(99, true);
    EXPECT_TRUE(viewer().IsShowing());
    model_.ViewRow(99, true);
    EXPECT_FALSE(viewer().IsShowing());
  });
  EXPECT_EQ(Boxes()[1], kSaveQuestion);
  EXPECT_EQ(Boxes()[3], kSaveQuestion);
  EXPECT_EQ(Boxes().size(), 4u);
}

TEST_F(ViewOperationsTest, EveryRefusedKindOfRowTakesTheWindowAway) {
  BuildModel();
  for (const auto& refused :
       {&LPModel::ViewRow, &LPModel::ViewBindingRow, &LPModel::ViewNonBindingRow}) {
    View(
        [&] {
          (model_.*refused)(99, false);
          EXPECT_FALSE(viewer().IsShowing());
        },
        false);
  }
}

TEST_F(ViewOperationsTest, RefusedColumnLeavesTheWindow) {
  BuildModel();
  View([&] {
    model_.ViewCol(99, true);
    EXPECT_TRUE(viewer().IsShowing());
  });
}

TEST_F(ViewOperationsTest, SecondCallSelectsInTheOpenWindowAndReturns) {
  BuildModel();
  View([&] {
    model_.ViewRow(2, true);
    EXPECT_EQ(CurrentRow(), 2);
    EXPECT_EQ(viewer().contents.sstViewEqns.current(), kRowsPage.number);
    model_.ViewCol(1, false);
    EXPECT_EQ(CurrentColumn(), 1);
    EXPECT_FALSE(viewer().contents.txtName.enabled());
    model_.ViewEquations(true);
    EXPECT_TRUE(viewer().contents.txtName.enabled());
    EXPECT_EQ(viewer().contents.sstViewEqns.current(), kColumnsPage.number);
    EXPECT_TRUE(viewer().IsShowing());
  });
  int shown = 0;
  for (const std::string& line : desktop_.transcript()) {
    shown += line == "show modal frmViewEquations" ? 1 : 0;
  }
  EXPECT_EQ(shown, 1);
}

TEST_F(ViewOperationsTest, TakeTheRowForAPlaceInAFilteredList) {
  BuildModel();
  View([&] {
    TurnTo(kRowsPage.number);
    viewer().contents.rows.cboShowOnly.Select(2);
    model_.ViewRow(1, true);
    EXPECT_EQ(RowNames()[static_cast<std::size_t>(CurrentRow())], "LOW");
    model_.ViewRow(4, true);
    EXPECT_EQ(CurrentRow(), 1);
  });
}

TEST_F(ViewOperationsTest, WindowThatAnEventOpenedAndClosedIsNotShownAgain) {
  BuildModel();
  bool first = true;
  int idles = 0;
  desktop_.on_events = [&](std::int64_t) {
    if (std::exchange(first, false)) model_.ViewEquations(false);
  };
  desktop_.on_idle = [&](platform::Form& top) {
    ++idles;
    top.RequestClose();
  };
  model_.ViewRow(1, false);
  EXPECT_EQ(idles, 1);
  EXPECT_FALSE(model_.ViewEquationsWindowIsShowing());
}

TEST_F(ViewOperationsTest, NewModelOpensForEditing) {
  BuildModel();
  ShowBy([&] { model_.NewMPSModel(); },
         [&] {
           EXPECT_EQ(model_.NumberOfRows(), 0);
           EXPECT_TRUE(viewer().contents.txtName.enabled());
           EXPECT_EQ(RowNames(), Texts{});
         });
  EXPECT_EQ(model_.ModelName(), "");
}

TEST_F(ViewOperationsTest, NewModelIsSeenInAnOpenWindow) {
  BuildModel();
  View([&] {
    model_.NewMPSModel();
    EXPECT_EQ(ColumnNames(), Texts{});
    EXPECT_EQ(viewer().contents.txtName.text(), "");
  });
}

TEST_F(ViewOperationsTest, ClosingAsksOnlyForAnEditedModelWithElements) {
  BuildModel();
  View([&] { viewer().RequestClose(); }, false);
  model_.MakeNewModel();
  View([&] { viewer().RequestClose(); });
  EXPECT_EQ(Boxes(), Texts{});
}

TEST_F(ViewOperationsTest, ClosingAsksWhetherToSave) {
  BuildModel();
  View([&] {
    EXPECT_FALSE(CloseWith(kCancel));
    EXPECT_TRUE(CloseWith(kNo));
  });
  ASSERT_EQ(desktop_.boxes().size(), 2u);
  EXPECT_EQ(desktop_.boxes()[0],
            (platform::ShownBox{std::string(kSaveQuestion), MsgBoxStyle::kYesNoCancelExclamation,
                                std::string(platform::kDefaultTitle)}));
  EXPECT_FALSE(platform::FileExists(model_.FileLocation()));
}

TEST_F(ViewOperationsTest, ClosingWithYesSavesFirst) {
  BuildModel();
  WriteWholeFile(model_.FileLocation(), "old");
  View([&] {
    viewer().contents.txtName.Type("NEWNAME");
    desktop_.answers = {kYes, kNo};
    viewer().RequestClose();
    EXPECT_FALSE(viewer().IsShowing());
  });
  EXPECT_EQ(Boxes(), (Texts{std::string(kSaveQuestion), kSimplifyQuestionText}));
  EXPECT_TRUE(ReadWholeFile(model_.FileLocation()).starts_with("NAME          NEWNAME\r\n"));
}

TEST_F(ViewOperationsTest, WindowStaysWhenSavingIsCancelledOrFails) {
  BuildModel();
  model_.store().settings().FileLocation.clear();
  View([&] {
    desktop_.answers = {kYes, kNo};
    desktop_.files = {""};
    viewer().RequestClose();
    EXPECT_TRUE(viewer().IsShowing());
    desktop_.answers = {kYes, kNo};
    desktop_.files = {folder_.File("none/x.mps")};
    viewer().RequestClose();
    EXPECT_TRUE(viewer().IsShowing());
    EXPECT_EQ(model_.NumberOfElements(), 6);
  });
}

TEST_F(ViewOperationsTest, AskingTwiceAtOnceAsksOnce) {
  BuildModel();
  View([&] {
    on_shown_ = [&](const platform::ShownBox&) { viewer().RequestClose(); };
    EXPECT_FALSE(CloseWith(kCancel));
    on_shown_ = nullptr;
    EXPECT_EQ(Boxes().size(), 1u);
  });
}

TEST_F(ViewOperationsTest, EndsWithTheModelThatWasLetGo) {
  BuildModel();
  View([&] {});
  viewer().RefreshForm();
  EXPECT_EQ(viewer().contents.rows.fgrdList.rows(), 0);
  EXPECT_EQ(viewer().contents.txtName.text(), "");
}

TEST_F(ViewOperationsTest, ManyOpeningsAndClosingsAreAlike) {
  BuildModel();
  for (int i = 0; i < 1000; ++i) {
    const std::size_t lines = desktop_.transcript().size();
    ShowBy([&] { model_.ViewRow(i % 5, i % 2 == 0); }, [&] { EXPECT_EQ(CurrentRow(), i % 5); });
    ASSERT_GT(desktop_.transcript().size(), lines);
    desktop_.Clear();
    EXPECT_EQ(desktop_.shown().size(), 0u);
    EXPECT_FALSE(model_.ViewEquationsWindowIsShowing());
  }
}

}  // namespace
}  // namespace quarvel::viewer
