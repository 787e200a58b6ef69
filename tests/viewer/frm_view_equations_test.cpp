#include "viewer/frm_view_equations.h"

#include "tests/support/model_builder.h"
#include "tests/viewer/viewer_session.h"

namespace quarvel::viewer {
namespace {

TEST_F(ViewerTest, ComesUpWithTheModelAndEverythingShown) {
  BuildModel();
  View([&] {
    frmViewEquations& v = viewer();
    EXPECT_EQ(v.caption(), "Model Viewer");
    EXPECT_EQ(v.contents.txtName.text(), "DIET");
    EXPECT_EQ(v.contents.txtDescription.text(), "first\r\nsecond");
    EXPECT_EQ(v.contents.sstViewEqns.current(), kColumnsPage.number);
    EXPECT_EQ(v.contents.rows.cboShowOnly.list_index(), 0);
    EXPECT_EQ(v.contents.columns.cboShowOnly.list_index(), 0);
    EXPECT_EQ(RowNames(), (Texts{"COST", "LIM", "LOW", "RNG", "EQ"}));
    EXPECT_EQ(ColumnNames(), (Texts{"X", "Y", "Z", "W"}));
    EXPECT_EQ(v.contents.rows.fraList.caption(), "Rows (5)");
    EXPECT_EQ(v.contents.columns.fraList.caption(), "Columns (4)");
    EXPECT_EQ(v.contents.rows.fgrdList.current_row(), 0);
    EXPECT_EQ(v.contents.columns.fgrdList.current_row(), 0);
  });
}

TEST_F(ViewerTest, OffersTheFilters) {
  BuildModel();
  View([&] {
    EXPECT_EQ(viewer().contents.rows.cboShowOnly.items(),
              (Texts{"show all", "non-binding/objectives", "constraints", "less than",
                     "greater than", "ranges", "equalities"}));
    EXPECT_EQ(viewer().contents.columns.cboShowOnly.items(),
              (Texts{"show all", "real", "integer"}));
  });
}

TEST_F(ViewerTest, NamesTheTypesInTheLists) {
  BuildModel();
  model_.AddRow("FRESH");
  ChangeFields(model_,
               [&](model::ModelData& data) { data.Columns[4].Type = model::ColumnType::kBinary; });
  View([&] {
    EXPECT_EQ(Column(viewer().contents.rows.fgrdList, 1),
              (Texts{"objective", "less than", "greater than", "ranged", "equality", ""}));
    EXPECT_EQ(Column(viewer().contents.columns.fgrdList, 1),
              (Texts{"real", "integer", "real", "binary"}));
  });
}

TEST_F(ViewerTest, HasTheColumnWidthsOfEveryOpening) {
  BuildModel();
  const auto widths = [](const platform::Grid& grid) {
    std::vector<int> result;
    for (int i = 0; i < grid.columns(); ++i) result.push_back(grid.column_width(i));
    return result;
  };
  View([&] { viewer().contents.rows.fgrdList.set_column_width(0, 300); });
  View([&] {
    const frmViewEquations& v = viewer();
    EXPECT_EQ(widths(v.contents.rows.fgrdList), (std::vector<int>{128, 72}));
    EXPECT_EQ(widths(v.contents.rows.fgrdElements), (std::vector<int>{120, 88}));
    EXPECT_EQ(widths(v.contents.columns.fgrdList), (std::vector<int>{190, 64}));
    EXPECT_EQ(widths(v.contents.columns.fgrdElements), (std::vector<int>{152}));
    EXPECT_EQ(v.contents.columns.fgrdBounds.column_width(0), 104);
    EXPECT_EQ(v.contents.columns.fgrdBounds.column_width(1), 88);
  });
}

struct FilterCase {
  int position;
  bool invert;
  Texts kept;
};

TEST_F(ViewerTest, FiltersRows) {
  const FilterCase cases[] = {
      {1, false, {"COST"}},
      {2, false, {"LIM", "LOW", "RNG", "EQ"}},
      {3, false, {"LIM"}},
      {4, false, {"LOW"}},
      {5, false, {"RNG"}},
      {6, false, {"EQ"}},
      {0, true, {}},
      {1, true, {"LIM", "LOW", "RNG", "EQ"}},
      {2, true, {"COST"}},
      {6, true, {"COST", "LIM", "LOW", "RNG"}},
      {0, false, {"COST", "LIM", "LOW", "RNG", "EQ"}},
  };
  BuildModel();
  View([&] {
    TurnTo(kRowsPage.number);
    RecordPage& list = viewer().contents.rows;
    for (const FilterCase& c : cases) {
      list.cboShowOnly.Select(c.position);
      if (list.chkInvert.checked() != c.invert) list.chkInvert.Click();
      EXPECT_EQ(RowNames(), c.kept) << c.position << c.invert;
      EXPECT_EQ(list.fraList.caption(), "Rows (5)");
    }
  });
}

TEST_F(ViewerTest, FiltersColumns) {
  const FilterCase cases[] = {
      {1, false, {"X", "Z"}}, {2, false, {"Y"}},          {0, true, {}},
      {1, true, {"Y", "W"}},  {2, true, {"X", "Z", "W"}}, {0, false, {"X", "Y", "Z", "W"}},
  };
  BuildModel();
  ChangeFields(model_,
               [&](model::ModelData& data) { data.Columns[4].Type = model::ColumnType::kBinary; });
  View([&] {
    RecordPage& list = viewer().contents.columns;
    for (const FilterCase& c : cases) {
      list.cboShowOnly.Select(c.position);
      if (list.chkInvert.checked() != c.invert) list.chkInvert.Click();
      EXPECT_EQ(ColumnNames(), c.kept) << c.position << c.invert;
      EXPECT_EQ(list.fraList.caption(), "Columns (4)");
    }
  });
}

TEST_F(ViewerTest, ShowsNoDetailsWhenAFilterKeepsNothing) {
  BuildModel();
  View([&] {
    frmViewEquations& v = viewer();
    v.contents.columns.chkInvert.Click();
    EXPECT_EQ(v.contents.columns.fraElements.caption(), "");
    EXPECT_EQ(Column(v.contents.columns.fgrdElements, 0), Texts{""});
    EXPECT_EQ(v.contents.columns.fgrdBounds.Text(0, 1), "");
    EXPECT_EQ(v.contents.txtColsEqn.text(), "");
    TurnTo(kRowsPage.number);
    v.contents.rows.chkInvert.Click();
    EXPECT_EQ(v.contents.rows.fraElements.caption(), "");
    EXPECT_EQ(Column(v.contents.rows.fgrdElements, 0), Texts{""});
    EXPECT_EQ(v.contents.rows.fgrdBounds.Text(0, 0), "");
    v.contents.rows.chkInvert.Click();
    EXPECT_EQ(v.contents.rows.fraElements.caption(), "Variables in COST (1):");
  });
}

TEST_F(ViewerTest, ShowsTheDetailsOfARow) {
  const struct {
    const char* row;
    const char* caption;
    Texts variables;
    Texts values;
    const char* relation;
  } cases[] = {
      {"LIM", "Variables in LIM (2):", {"X", "Y"}, {"2", "3"}, "<=  4"},
      {"LOW", "Variables in LOW (1):", {"Y"}, {"1"}, ">=  1.5"},
      {"RNG", "Variables:  RNG", {}, {}, "2 <= RNG <= 8"},
      {"EQ", "Variables in EQ (2):", {"Z", "X"}, {"-2.5", "1"}, "=  7"},
      {"COST", "Variables in COST (1):", {"X"}, {"1"}, "Objective"},
  };
  BuildModel();
  View([&] {
    for (const auto& c : cases) {
      SelectRow(c.row);
      EXPECT_EQ(viewer().contents.rows.fraElements.caption(), c.caption);
      EXPECT_EQ(Column(viewer().contents.rows.fgrdElements, 0), c.variables) << c.row;
      EXPECT_EQ(Column(viewer().contents.rows.fgrdElements, 1), c.values) << c.row;
      EXPECT_EQ(Column(viewer().contents.rows.fgrdBounds, 0), Texts{c.relation});
    }
  });
}

TEST_F(ViewerTest, ShowsNoRelationOfARowWithoutType) {
  BuildModel();
  model_.AddRow("FRESH");
  View([&] {
    SelectRow("FRESH");
    EXPECT_EQ(viewer().contents.rows.fgrdBounds.Text(0, 0), "");
  });
}

TEST_F(ViewerTest, ShowsTheDetailsOfAColumn) {
  BuildModel();
  View([&] {
    RecordPage& tab = viewer().contents.columns;
    SelectColumn("Z");
    EXPECT_EQ(tab.fraElements.caption(), "Rows that Z appears in (1):");
    EXPECT_EQ(Column(tab.fgrdElements, 0), Texts{"EQ"});
    EXPECT_EQ(tab.fgrdBounds.Text(0, 0), "-1");
    EXPECT_EQ(tab.fgrdBounds.Text(0, 1), "<= Z <=");
    EXPECT_EQ(tab.fgrdBounds.Text(0, 2), "1");
    EXPECT_EQ(tab.fgrdBounds.current_row(), -1);
    EXPECT_EQ(viewer().contents.txtColsEqn.text(), "");
    tab.fgrdElements.Select(0);
    EXPECT_EQ(viewer().contents.txtColsEqn.text(), "EQ:   - 2.5*Z + 1*X  =  7");
    SelectColumn("W");
    EXPECT_EQ(tab.fraElements.caption(), "Rows that W appears in (0):");
    EXPECT_EQ(Column(tab.fgrdElements, 0), Texts{});
    EXPECT_EQ(tab.fgrdBounds.Text(0, 2), "10000000000");
    EXPECT_EQ(viewer().contents.txtColsEqn.text(), "");
  });
}

TEST_F(ViewerTest, ShowsTheEquationOfTheSelectedRowOfAColumn) {
  BuildModel();
  View([&] {
    RecordPage& tab = viewer().contents.columns;
    EXPECT_EQ(Column(tab.fgrdElements, 0), (Texts{"COST", "LIM", "EQ"}));
    EXPECT_EQ(tab.fgrdElements.current_row(), -1);
    tab.fgrdElements.Select(0);
    EXPECT_EQ(viewer().contents.txtColsEqn.text(), "COST:   + 1*X  (non-binding/objective)");
    tab.fgrdElements.Select(1);
    EXPECT_EQ(viewer().contents.txtColsEqn.text(), "LIM:   + 2*X + 3*Y  <=  4");
    SelectColumn("Y");
    EXPECT_EQ(tab.fgrdElements.current_row(), -1);
    EXPECT_EQ(viewer().contents.txtColsEqn.text(), "");
  });
}

TEST_F(ViewerTest, LeavesTheChoiceOfAnElementToTheUser) {
  BuildModel();
  View([&] {
    SelectRow("EQ");
    EXPECT_EQ(viewer().contents.rows.fgrdElements.current_row(), -1);
    viewer().contents.rows.fgrdElements.Select(1);
    TurnTo(kColumnsPage.number);
    TurnTo(kRowsPage.number);
    EXPECT_EQ(viewer().contents.rows.fgrdElements.current_row(), 1);
    SelectRow("LIM");
    EXPECT_EQ(viewer().contents.rows.fgrdElements.current_row(), -1);
  });
}

TEST_F(ViewerTest, DoubleClickOnAVariableGoesToItsColumn) {
  BuildModel();
  View([&] {
    SelectRow("EQ");
    const auto events = desktop_.event_count();
    viewer().contents.rows.fgrdElements.DoubleClick(0);
    EXPECT_EQ(viewer().contents.sstViewEqns.current(), kColumnsPage.number);
    EXPECT_EQ(viewer().contents.columns.fgrdList.current_row(), 2);
    EXPECT_EQ(viewer().focus(), &viewer().contents.columns.fgrdList);
    EXPECT_EQ(viewer().contents.columns.fraElements.caption(), "Rows that Z appears in (1):");
    EXPECT_EQ(desktop_.event_count(), events + 1);
  });
}

TEST_F(ViewerTest, DoubleClickOnARowOfAColumnGoesToThatRow) {
  BuildModel();
  View([&] {
    viewer().contents.columns.fgrdElements.DoubleClick(2);
    EXPECT_EQ(viewer().contents.sstViewEqns.current(), kRowsPage.number);
    EXPECT_EQ(viewer().contents.rows.fgrdList.current_row(), 4);
    EXPECT_EQ(viewer().focus(), &viewer().contents.rows.fgrdList);
    EXPECT_EQ(viewer().contents.rows.fraElements.caption(), "Variables in EQ (2):");
  });
}

TEST_F(ViewerTest, DoubleClickFindsItsGoalThroughTheFilterAndIgnoresAHiddenOne) {
  BuildModel();
  View([&] {
    TurnTo(kRowsPage.number);
    viewer().contents.rows.cboShowOnly.Select(6);
    TurnTo(kColumnsPage.number);
    viewer().contents.columns.fgrdElements.DoubleClick(1);
    EXPECT_EQ(viewer().contents.sstViewEqns.current(), kColumnsPage.number);
    viewer().contents.columns.fgrdElements.DoubleClick(2);
    EXPECT_EQ(viewer().contents.sstViewEqns.current(), kRowsPage.number);
    EXPECT_EQ(viewer().contents.rows.fgrdList.current_row(), 0);
    EXPECT_EQ(viewer().contents.rows.fraElements.caption(), "Variables in EQ (2):");
  });
}

TEST_F(ViewerTest, TurningAPageKeepsTheOthersFilter) {
  BuildModel();
  View([&] {
    viewer().contents.columns.cboShowOnly.Select(2);
    TurnTo(kRowsPage.number);
    TurnTo(kColumnsPage.number);
    EXPECT_EQ(ColumnNames(), Texts{"Y"});
  });
}

TEST_F(ViewerTest, StartsFiltersAnewAtEveryOpeningAndKeepsTheTab) {
  BuildModel();
  View([&] {
    viewer().contents.columns.cboShowOnly.Select(2);
    TurnTo(kRowsPage.number);
    viewer().contents.rows.chkInvert.Click();
  });
  View([&] {
    EXPECT_EQ(viewer().contents.sstViewEqns.current(), kRowsPage.number);
    EXPECT_FALSE(viewer().contents.rows.chkInvert.checked());
    EXPECT_EQ(RowNames().size(), 5u);
    EXPECT_EQ(ColumnNames().size(), 4u);
  });
}

TEST_F(ViewerTest, ComesUpEmptyWithoutRowsOrColumns) {
  ModelBuilder(model_).Name("HALF").Row("A", 'L', 1).Row("B", 'L', 1);
  View([&] {
    frmViewEquations& v = viewer();
    EXPECT_EQ(v.contents.txtName.text(), "HALF");
    EXPECT_EQ(RowNames(), Texts{});
    EXPECT_EQ(ColumnNames(), Texts{});
    EXPECT_EQ(v.contents.rows.fraList.caption(), "Rows (0)");
    EXPECT_EQ(v.contents.columns.fraList.caption(), "Columns (0)");
    EXPECT_EQ(v.contents.rows.cboShowOnly.list_index(), -1);
    EXPECT_EQ(v.contents.rows.fgrdElements.rows(), 1);
    EXPECT_EQ(v.contents.columns.fgrdElements.rows(), 1);
    EXPECT_FALSE(Item("mnuEditColDel").Available());
    EXPECT_TRUE(Item("mnuEditColAdd").Available());
  });
}

TEST_F(ViewerTest, RefreshLeavesTheInvertBoxesAlone) {
  BuildModel();
  View([&] {
    viewer().contents.columns.chkInvert.Click();
    viewer().RefreshForm();
    EXPECT_TRUE(viewer().contents.columns.chkInvert.checked());
    EXPECT_EQ(ColumnNames(), Texts{});
  });
  View([&] { EXPECT_FALSE(viewer().contents.columns.chkInvert.checked()); });
}

TEST_F(ViewerTest, ShowsNumbersThatReadBackToTheSameDouble) {
  BuildModel();
  model_.SetRowElementValue(0, 0, 0.1 + 0.2);
  model_.SetColUpperBound(0, 1.0 / 3);
  View([&] {
    SelectRow("COST");
    EXPECT_EQ(viewer().contents.rows.fgrdElements.Text(0, 1), "0.30000000000000004");
    SelectColumn("X");
    EXPECT_EQ(viewer().contents.columns.fgrdBounds.Text(0, 2), "0.3333333333333333");
    dialogs_.push_back([&](auto&) { viewer().desk.col_bounds.cmdOK.Click(); });
    Choose("mnuEditColChangeTypeBnd");
  });
  EXPECT_EQ(model_.ColUpperBound(0), 1.0 / 3);
}

TEST_F(ViewerTest, RefreshShowsTheModelAsItIs) {
  BuildModel();
  View([&] {
    viewer().contents.columns.cboShowOnly.Select(2);
    model_.SetModelName("OTHER");
    model_.SetModelDescription("changed");
    model_.SetColName(0, "NEW");
    viewer().RefreshForm();
    EXPECT_EQ(viewer().contents.txtName.text(), "OTHER");
    EXPECT_EQ(viewer().contents.txtDescription.text(), "changed");
    EXPECT_EQ(ColumnNames(), (Texts{"NEW", "Y", "Z", "W"}));
    model_.MakeNewModel();
    viewer().RefreshForm();
    EXPECT_EQ(ColumnNames(), Texts{});
    EXPECT_EQ(viewer().contents.rows.fraList.caption(), "Rows (0)");
    EXPECT_EQ(viewer().contents.txtName.text(), "");
  });
}

TEST_F(ViewerTest, ShowsWhatItShowedWhilePaused) {
  BuildModel();
  View([&] {
    TurnTo(kRowsPage.number);
    const Texts before = RowNames();
    viewer().Pause();
    viewer().Pause();
    model_.DeleteRow(0);
    viewer().contents.rows.cboShowOnly.Select(3);
    EXPECT_EQ(RowNames(), before);
    viewer().Resume();
    viewer().RefreshForm();
    EXPECT_EQ(RowNames(), before);
    viewer().Resume();
    EXPECT_EQ(RowNames(), (Texts{"LIM", "LOW", "RNG", "EQ"}));
  });
}

TEST_F(ViewerTest, RunsNoCommandAndStaysOpenWhilePaused) {
  BuildModel();
  View([&] {
    viewer().Pause();
    Choose("mnuEditColRename");
    Choose("mnuFileNew");
    Choose("mnuFileExit");
    viewer().RequestClose();
    EXPECT_TRUE(viewer().IsShowing());
    EXPECT_EQ(Boxes(), Texts{});
    EXPECT_EQ(desktop_.input_boxes().size(), 0u);
    viewer().Resume();
  });
}

}  // namespace
}  // namespace quarvel::viewer
