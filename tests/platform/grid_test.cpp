#include "platform/grid.h"

#include <chrono>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "platform/scripted/scripted_desktop.h"

namespace quarvel::platform {
namespace {

using Lines = std::vector<std::string>;

class GridTest : public ::testing::Test {
 protected:
  GridTest() {
    grid_.cell = [this](int row, int column) {
      ++asked_;
      return texts_.at(static_cast<std::size_t>(row)) + (column == 0 ? "" : "'");
    };
    grid_.on_row_change = [this] { changes_.push_back(grid_.current_row()); };
  }

  void Fill(const Lines& texts) {
    texts_ = texts;
    grid_.set_rows(static_cast<int>(texts.size()));
  }
  void Type(const std::string& word) {
    for (const char c : word) grid_.TypeCharacter(std::string(1, c));
  }
  // What the drawer was told since the form was drawn.
  Lines Told() const { return {desktop_.transcript().begin() + 1, desktop_.transcript().end()}; }

  ScriptedDesktop desktop_;
  Form form_{desktop_, "frmTest"};
  Grid grid_{form_, "grd", {}, {100, 50}};
  Lines texts_;
  std::vector<int> changes_;
  int asked_ = 0;
};

TEST_F(GridTest, AsksForNoCellUntilOneIsWanted) {
  grid_.set_rows(1000000);
  grid_.set_current_row(999999);
  EXPECT_EQ(asked_, 0);
  texts_ = {"a"};
  EXPECT_EQ(grid_.Text(0, 1), "a'");
  EXPECT_EQ(asked_, 1);
}

TEST_F(GridTest, FirstRowIsCurrentInAGridThatWasEmpty) {
  EXPECT_EQ(grid_.current_row(), -1);
  grid_.set_rows(3);
  EXPECT_EQ(grid_.current_row(), 0);
  EXPECT_EQ(changes_, std::vector<int>{});
}

TEST_F(GridTest, KeepsTheCurrentRowWhereItCan) {
  const struct {
    int rows;
    int current;
  } cases[] = {{4, 3}, {10, 3}, {2, 1}, {0, -1}, {5, 0}, {-1, -1}};
  grid_.set_rows(4);
  grid_.set_current_row(3);
  for (const auto& c : cases) {
    grid_.set_rows(c.rows);
    EXPECT_EQ(grid_.current_row(), c.current) << c.rows;
  }
  EXPECT_EQ(changes_, std::vector<int>{3});
  EXPECT_EQ(grid_.rows(), 0);
}

TEST_F(GridTest, TellsOfAnotherCurrentRowOnce) {
  grid_.set_rows(3);
  grid_.set_current_row(2);
  grid_.set_current_row(2);
  grid_.set_current_row(-1);
  grid_.Select(1);
  EXPECT_EQ(changes_, (std::vector<int>{2, -1, 1}));
}

TEST_F(GridTest, IgnoresRowsOutsideIt) {
  grid_.set_rows(3);
  grid_.set_current_row(3);
  grid_.set_current_row(-2);
  grid_.Select(7);
  EXPECT_EQ(grid_.current_row(), 0);
  EXPECT_EQ(changes_, std::vector<int>{});
}

TEST_F(GridTest, LetsTheUserSelectUnlessDisabledOrHidden) {
  grid_.set_rows(3);
  grid_.set_enabled(false);
  grid_.Select(1);
  grid_.set_enabled(true);
  grid_.set_visible(false);
  grid_.Select(1);
  EXPECT_EQ(grid_.current_row(), 0);
  grid_.set_visible(true);
  grid_.Select(1);
  EXPECT_EQ(grid_.current_row(), 1);
}

TEST_F(GridTest, TellsTheDrawerWhatChanged) {
  form_.Show();
  Fill({"a", "b"});
  grid_.set_current_row(1);
  grid_.set_column_width(1, 60);
  grid_.set_column_width(1, 60);
  grid_.set_column_width(2, 9);
  grid_.Refresh();
  EXPECT_EQ(Told(), (Lines{"frmTest.grd rows: 2", "frmTest.grd current: 1",
                           "frmTest.grd widths: 100 60", "frmTest.grd rows: 2"}));
}

TEST_F(GridTest, ShowsNothingForACellThatFailsOrIsNotThere) {
  Fill({"a"});
  texts_.clear();
  EXPECT_EQ(grid_.Text(0, 0), "");
  EXPECT_EQ(grid_.Text(1, 0), "");
  EXPECT_EQ(grid_.Text(-1, 0), "");
  EXPECT_EQ(grid_.Text(0, 2), "");
  grid_.cell = nullptr;
  EXPECT_EQ(grid_.Text(0, 0), "");
}

TEST_F(GridTest, AsksForNoCellOutsideIt) {
  Fill({"a"});
  int asked = 0;
  grid_.cell = [&asked](int, int) { return std::string(1, static_cast<char>('a' + asked++)); };
  for (const auto& [row, column] :
       {std::pair(-1, 0), {1, 0}, {0, -1}, {0, grid_.columns()}, {0, grid_.columns() + 1}}) {
    EXPECT_EQ(grid_.Text(row, column), "") << row << ' ' << column;
  }
  EXPECT_EQ(asked, 0);
}

TEST_F(GridTest, AnswersWhatItAnsweredBeforeWhileNotRedrawn) {
  Fill({"a", "b"});
  EXPECT_EQ(grid_.Text(0, 0), "a");
  grid_.set_redraw(false);
  texts_ = {"x", "y"};
  EXPECT_EQ(grid_.Text(0, 0), "a");
  EXPECT_EQ(grid_.Text(1, 0), "");
  EXPECT_EQ(asked_, 1);
  grid_.set_redraw(true);
  EXPECT_EQ(grid_.Text(0, 0), "x");
}

TEST_F(GridTest, ARefreshWhileNotRedrawnForgetsNothing) {
  Fill({"a", "b"});
  EXPECT_EQ(grid_.Text(0, 0), "a");
  grid_.set_redraw(false);
  texts_ = {"x", "y"};
  grid_.Refresh();
  EXPECT_EQ(grid_.Text(0, 0), "a");
  grid_.set_redraw(true);
  EXPECT_EQ(grid_.Text(0, 0), "x");
}

TEST_F(GridTest, RemembersNoMoreThanAFewScreens) {
  constexpr int kRows = 100000;
  grid_.cell = [](int row, int) { return std::to_string(row); };
  grid_.set_rows(kRows);
  for (int row = 0; row < kRows; ++row) EXPECT_EQ(grid_.Text(row, 0), std::to_string(row));
  grid_.set_redraw(false);
  int remembered = 0;
  for (int row = 0; row < kRows; ++row) remembered += grid_.Text(row, 0).empty() ? 0 : 1;
  EXPECT_GT(remembered, 0);
  EXPECT_LE(remembered, 4096);
}

TEST_F(GridTest, CopiesTheCurrentRow) {
  Fill({"a", "b"});
  EXPECT_TRUE(grid_.Press(Ctrl('C')));
  EXPECT_EQ(desktop_.clipboard(), "a\ta'");
  grid_.set_current_row(-1);
  EXPECT_EQ(grid_.CopyText(), "");
}

TEST_F(GridTest, CopiesAllRowsWhenAllAreMarked) {
  Fill({"a", "b"});
  EXPECT_TRUE(grid_.Press(Ctrl('A')));
  EXPECT_TRUE(grid_.all_selected());
  EXPECT_TRUE(grid_.Press(Ctrl('C')));
  EXPECT_EQ(desktop_.clipboard(), "a\ta'\r\nb\tb'");
}

TEST_F(GridTest, ChoosingARowEndsTheMarkingOfAll) {
  Fill({"a", "b"});
  grid_.Press(Ctrl('A'));
  grid_.Select(0);
  EXPECT_FALSE(grid_.all_selected());
  grid_.Press(Ctrl('A'));
  grid_.set_rows(2);
  EXPECT_FALSE(grid_.all_selected());
}

TEST_F(GridTest, MarksNothingInAnEmptyGrid) {
  EXPECT_TRUE(grid_.Press(Ctrl('A')));
  EXPECT_FALSE(grid_.all_selected());
}

TEST_F(GridTest, TakesTheDeleteKeyOnlyWithAHandler) {
  Fill({"a"});
  int deletions = 0;
  EXPECT_FALSE(grid_.Press({Key::kDelete}));
  grid_.on_delete = [&] { ++deletions; };
  EXPECT_TRUE(grid_.Press({Key::kDelete}));
  EXPECT_FALSE(grid_.Press({Key::kDelete, 0, true}));
  EXPECT_EQ(deletions, 1);
}

TEST_F(GridTest, LeavesOtherKeysAndKeysOfADisabledGrid) {
  Fill({"a"});
  EXPECT_FALSE(grid_.Press({Key::kF2}));
  EXPECT_FALSE(grid_.Press(Ctrl('X')));
  EXPECT_FALSE(grid_.Press(CtrlShift('C')));
  grid_.set_redraw(false);
  EXPECT_FALSE(grid_.Press(Ctrl('C')));
  grid_.set_redraw(true);
  grid_.set_enabled(false);
  EXPECT_FALSE(grid_.Press(Ctrl('C')));
  EXPECT_EQ(desktop_.clipboard(), "");
}

TEST_F(GridTest, DoubleClickSelectsItsRowFirst) {
  Fill({"a", "b"});
  std::vector<int> clicked;
  grid_.on_double_click = [&] { clicked.push_back(grid_.current_row()); };
  grid_.DoubleClick(1);
  grid_.DoubleClick(2);
  grid_.DoubleClick(-1);
  EXPECT_EQ(clicked, std::vector<int>{1});
  EXPECT_EQ(changes_, std::vector<int>{1});
}

TEST_F(GridTest, DoubleClickGoesNoFurtherWhenTheSelectionMovedOn) {
  Fill({"a", "b", "c"});
  int clicks = 0;
  grid_.on_double_click = [&] { ++clicks; };
  grid_.on_row_change = [this] { grid_.set_rows(1); };
  grid_.DoubleClick(2);
  EXPECT_EQ(clicks, 0);
}

TEST_F(GridTest, TypingGoesToTheNextNameThatBeginsSo) {
  const struct {
    const char* typed;
    int found;
  } cases[] = {{"b", 1}, {"be", 2}, {"bez", 2}, {"c", 4}, {"x", 0}, {"\xC3\xA4", 5}};
  for (const auto& c : cases) {
    Form form(desktop_, "frmNew");
    Grid grid(form, "grdNew", {}, {10});
    grid.cell = [](int row, int) {
      return Lines{
          "Alpha", "Bach", "BEET", "bell", "Cage", "\xC3\x84pfel"}[static_cast<std::size_t>(row)];
    };
    grid.set_rows(6);
    const std::string typed = c.typed;
    if (typed.size() == 2 && typed[0] == '\xC3') {
      grid.TypeCharacter(typed);
    } else {
      for (const char letter : typed) grid.TypeCharacter(std::string(1, letter));
    }
    EXPECT_EQ(grid.current_row(), c.found) << c.typed;
  }
}

TEST_F(GridTest, TheSameLetterAgainStepsThroughItsNames) {
  Fill({"b1", "a1", "a2", "b2", "a3"});
  std::vector<int> found;
  for (int i = 0; i < 4; ++i) {
    grid_.TypeCharacter("a");
    found.push_back(grid_.current_row());
  }
  EXPECT_EQ(found, (std::vector<int>{1, 2, 4, 1}));
}

TEST_F(GridTest, TypingStartsAnewAfterASecond) {
  Fill({"a", "ab", "b"});
  grid_.set_current_row(-1);
  grid_.TypeCharacter("a");
  EXPECT_EQ(grid_.current_row(), 0);
  const auto end = std::chrono::steady_clock::now() + std::chrono::milliseconds(1010);
  while (std::chrono::steady_clock::now() < end) continue;
  grid_.TypeCharacter("b");
  EXPECT_EQ(grid_.current_row(), 2);
}

TEST_F(GridTest, TypingNeverFindsTheHeader) {
  Grid grid(form_, "grdHead", {}, {10, 10}, 1);
  grid.cell = [](int row, int) { return Lines{"name", "x", "new"}[static_cast<std::size_t>(row)]; };
  grid.set_rows(3);
  grid.TypeCharacter("n");
  EXPECT_EQ(grid.current_row(), 2);
  grid.TypeCharacter("n");
  EXPECT_EQ(grid.current_row(), 2);
  grid.set_rows(1);
  grid.TypeCharacter("n");
  EXPECT_EQ(grid.current_row(), 0);
}

TEST_F(GridTest, TypingMovesNothingInAGridThatCannotBeUsed) {
  Fill({"a", "b"});
  grid_.set_current_row(0);
  grid_.set_enabled(false);
  grid_.TypeCharacter("b");
  EXPECT_EQ(grid_.current_row(), 0);
  grid_.set_enabled(true);
  grid_.set_visible(false);
  grid_.TypeCharacter("b");
  EXPECT_EQ(grid_.current_row(), 0);
  grid_.set_visible(true);
  grid_.set_redraw(false);
  grid_.TypeCharacter("b");
  EXPECT_EQ(grid_.current_row(), 0);
  grid_.set_redraw(true);
  grid_.TypeCharacter("b");
  EXPECT_EQ(grid_.current_row(), 1);
}

TEST_F(GridTest, TypingSearchesTheColumnOfNames) {
  Grid grid(form_, "grdTwo", {}, {10, 10});
  grid.search_column = 1;
  grid.cell = [](int row, int column) {
    return column == 0 ? std::to_string(row) : std::string(1, static_cast<char>('a' + row));
  };
  grid.set_rows(3);
  grid.TypeCharacter("c");
  EXPECT_EQ(grid.current_row(), 2);
}

}  // namespace
}  // namespace quarvel::platform
