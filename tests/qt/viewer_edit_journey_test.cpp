// What a user does to a model in the viewer's real windows.
#include <QComboBox>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QTabBar>

#include "tests/qt/viewer_journey.h"

namespace quarvel {
namespace {

using platform::ClickIn;
using platform::DoubleClickIn;
using platform::Part;
using platform::PressKey;
using platform::WindowNamed;
using Texts = std::vector<std::string>;

using ViewerEditJourney = ViewerJourney;

// A file that takes so long that the user can press Stop.
std::string LongModel() {
  std::string text = "NAME LONG\nROWS\n N COST\n L LIMIT\nCOLUMNS\n";
  for (int i = 0; i < 1'500'000; ++i) {
    const std::string name = " X" + std::to_string(i);
    text.append(name).append(" COST 1 LIMIT 2\n");
  }
  return text + "RHS\n RHS LIMIT 5\nENDATA\n";
}

TEST_F(ViewerEditJourney, StopEndsAReadAfterTheQuestion) {
  WriteWholeFile(path_, LongModel());
  Press("frmSetDefaultBounds", "cmdOK");
  const auto reading = [] {
    QWidget* const window = WindowNamed("frmProgress");
    return window != nullptr && Part<QProgressBar>(window, "barProgress")->value() > 0;
  };
  When(reading, [] { WindowNamed("frmProgress")->close(); });
  Press("frmProgress", "cmdStop");
  AnswerBox(QMessageBox::No);
  When(reading, [] {});
  Press("frmProgress", "cmdStop");
  AnswerBox(QMessageBox::Yes);
  const Outcome outcome = Run({"view", path_});
  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(outcome.err, "quarvel: " + path_ + " was not read\n");
  const SeenBox stop = {"Confirm", "Are you sure you wish to stop?"};
  EXPECT_EQ(boxes(), (std::vector<SeenBox>{stop, stop}));
}

TEST_F(ViewerEditJourney, DefaultBoundsAreTheUsersChoice) {
  In("frmSetDefaultBounds", [](QWidget& window) {
    ClickIn(*Part<QRadioButton>(&window, "optLimitToLimit"), QPoint(8, 11));
  });
  Open();
  Next([] { EXPECT_EQ(Column("fgrdColsBounds", 0), Texts{"-10000000000"}); });
  In("frmViewEquations", [](QWidget& viewer) { viewer.close(); });
  EXPECT_EQ(Run({"view", path_}).status, 0);
}

TEST_F(ViewerEditJourney, FilterShowsSomeRowsAndTheRestWhenInverted) {
  Open();
  TurnTo(1);
  In("frmViewEquations", [](QWidget& viewer) {
    EXPECT_EQ(Column("fgrdRows", 0).size(), 6u);
    auto& box = *Part<QComboBox>(&viewer, "cboRowsShowOnly");
    for (int i = 0; i < 3; ++i) PressKey(box, Qt::Key_Down);
    EXPECT_EQ(box.currentText(), "less than");
    EXPECT_EQ(Column("fgrdRows", 0), (Texts{"SUPPLY1", "SUPPLY2"}));
    ClickIn(*Part<QAbstractButton>(&viewer, "chkRowsInvert"), QPoint(8, 12));
  });
  Next([] {
    EXPECT_EQ(Column("fgrdRows", 0), (Texts{"FREIGHT", "DEMAND1", "DEMAND2", "DEMAND3"}));
  });
  In("frmViewEquations", [](QWidget& viewer) { viewer.close(); });
  EXPECT_EQ(Run({"view", path_}).status, 0);
}

TEST_F(ViewerEditJourney, DoubleClickLeadsFromARowToItsVariable) {
  Open();
  TurnTo(1);
  In("frmViewEquations", [](QWidget& viewer) {
    auto& variables = *Part<QTableView>(&viewer, "fgrdRowsVars");
    DoubleClickIn(*variables.viewport(),
                  variables.visualRect(variables.model()->index(4, 0)).center());
  });
  In("frmViewEquations", [](QWidget& viewer) {
    EXPECT_EQ(viewer.findChild<QTabBar*>()->currentIndex(), 0);
    EXPECT_EQ(Part<QTableView>(&viewer, "fgrdCols")->currentIndex().row(), 4);
    EXPECT_EQ(Column("fgrdColsBounds", 1), Texts{"<= X22 <="});
  });
  In("frmViewEquations", [](QWidget& viewer) { viewer.close(); });
  EXPECT_EQ(Run({"view", path_}).status, 0);
}

TEST_F(ViewerEditJourney, WithoutEditingNothingCanBeChanged) {
  Open();
  In("frmViewEquations", [](QWidget& viewer) {
    EXPECT_FALSE(Part<QLineEdit>(&viewer, "txtName")->isEnabled());
    PressKey(*Part<QTableView>(&viewer, "fgrdCols"), Qt::Key_Delete);
    PressKey(*Part<QTableView>(&viewer, "fgrdCols"), Qt::Key_F2);
    EXPECT_EQ(QApplication::activeModalWidget(), &viewer);
    EXPECT_EQ(Column("fgrdCols", 0).size(), 6u);
    viewer.close();
  });
  EXPECT_EQ(Run({"view", path_}).status, 0);
}

TEST_F(ViewerEditJourney, RowIsAddedWithItsBounds) {
  Open();
  TurnTo(1);
  Choose({"mnuEdit", "mnuEditRow", "mnuEditRowAdd"});
  Answer("two words");
  AnswerBox(QMessageBox::Ok);
  Answer("EXTRA");
  In("frmSetRowBounds", [](QWidget& window) {
    EXPECT_TRUE(Part<QRadioButton>(&window, "optLT")->isChecked());
    ClickIn(*Part<QRadioButton>(&window, "optR"), QPoint(8, 10));
  });
  Fill("frmSetRowBounds", "txtLwrBnd", "5");
  Fill("frmSetRowBounds", "txtUprBnd", "2");
  Press("frmSetRowBounds", "cmdOK");
  AnswerBox(QMessageBox::Ok);
  When([] { return WindowNamed("frmSetRowBounds") == nullptr; },
       [] {
         EXPECT_EQ(Column("fgrdRows", 0).back(), "EXTRA");
         EXPECT_EQ(Column("fgrdRows", 1).back(), "ranged");
       });
  ClickLine("frmViewEquations", "fgrdRows", "EXTRA");
  Next([] { EXPECT_EQ(Column("fgrdRowsType", 0), Texts{"2 <= EXTRA <= 5"}); });
  Leave();
  EXPECT_EQ(Run({"view", path_, "--edit"}).status, 0);
  EXPECT_EQ(boxes()[1].text, "Spaces are not allowed in row names");
  EXPECT_EQ(boxes()[2].text, "Bounds were reversed");
}

TEST_F(ViewerEditJourney, ColumnGetsOtherBoundsAndBecomesInteger) {
  Open();
  ClickLine("frmViewEquations", "fgrdCols", "X12");
  Choose({"mnuEdit", "mnuEditCol", "mnuEditColChangeTypeBnd"});
  In("frmSetColBounds",
     [](QWidget& window) { ClickIn(*Part<QRadioButton>(&window, "optI"), QPoint(8, 10)); });
  Fill("frmSetColBounds", "txtUprBnd", "nine");
  Press("frmSetColBounds", "cmdOK");
  AnswerBox(QMessageBox::Ok);
  Fill("frmSetColBounds", "txtUprBnd", "9");
  In("frmSetColBounds",
     [](QWidget& window) { PressKey(*Part<QLineEdit>(&window, "txtUprBnd"), Qt::Key_Return); });
  When([] { return WindowNamed("frmSetColBounds") == nullptr; },
       [] {
         EXPECT_EQ(Column("fgrdCols", 1)[1], "integer");
         EXPECT_EQ(Column("fgrdColsBounds", 2), Texts{"9"});
       });
  Leave();
  EXPECT_EQ(Run({"view", path_, "--edit"}).status, 0);
  EXPECT_EQ(boxes()[1].text, "Invalid Input");
}

TEST_F(ViewerEditJourney, ElementsAreAddedAndDeleted) {
  Open();
  TurnTo(1);
  ClickLine("frmViewEquations", "fgrdRows", "SUPPLY1");
  Choose({"mnuEdit", "mnuEditRow", "mnuEditRowAddEle"});
  Press("frmAddElementsToRow", "cmdOK");
  AnswerBox(QMessageBox::Ok);
  ClickLine("frmAddElementsToRow", "fgrdCols", "4");
  Press("frmAddElementsToRow", "cmdOK");
  Answer("2.5");
  When([] { return WindowNamed("frmAddElementsToRow") == nullptr; },
       [] {
         EXPECT_EQ(Column("fgrdRowsVars", 0), (Texts{"X11", "X12", "X13", "X22"}));
         EXPECT_EQ(Column("fgrdRowsVars", 1).back(), "2.5");
       });
  ClickLine("frmViewEquations", "fgrdRowsVars", "X12");
  Choose({"mnuEdit", "mnuEditRow", "mnuEditRowDelEle"});
  AnswerBox(QMessageBox::Yes);
  Next([] { EXPECT_EQ(Column("fgrdRowsVars", 0), (Texts{"X11", "X13", "X22"})); });
  Leave();
  EXPECT_EQ(Run({"view", path_, "--edit"}).status, 0);
  EXPECT_EQ(boxes()[1].text, "Please select a column");
  EXPECT_EQ(boxes()[2].text, "Are you sure you want delete element X12 from row SUPPLY1?");
}

TEST_F(ViewerEditJourney, DeleteKeyDeletesTheRowAfterTheQuestion) {
  Open();
  TurnTo(1);
  ClickLine("frmViewEquations", "fgrdRows", "SUPPLY2");
  for (const auto answer : {QMessageBox::No, QMessageBox::Yes}) {
    In("frmViewEquations", [](QWidget& viewer) {
      EXPECT_EQ(Column("fgrdRows", 0).size(), 6u);
      PressKey(*Part<QTableView>(&viewer, "fgrdRows"), Qt::Key_Delete);
    });
    AnswerBox(answer);
    When([] { return WindowNamed("msgbox") == nullptr; }, [] {});
  }
  Next([] {
    EXPECT_EQ(Column("fgrdRows", 0),
              (Texts{"FREIGHT", "SUPPLY1", "DEMAND1", "DEMAND2", "DEMAND3"}));
  });
  Leave();
  EXPECT_EQ(Run({"view", path_, "--edit"}).status, 0);
}

TEST_F(ViewerEditJourney, ElementGetsAnotherValue) {
  Open();
  ClickLine("frmViewEquations", "fgrdCols", "X11");
  ClickLine("frmViewEquations", "fgrdColsEqns", "SUPPLY1");
  Choose({"mnuEdit", "mnuEditCol", "mnuEditColChangeEle"});
  Answer("7");
  When(
      [] { return WindowNamed("frmInputBox") == nullptr; },
      [] {
        EXPECT_TRUE(Part<QPlainTextEdit>(&Viewer(), "txtColsEqn")->toPlainText().contains("7*X11"));
      });
  Leave();
  EXPECT_EQ(Run({"view", path_, "--edit"}).status, 0);
}

TEST_F(ViewerEditJourney, RightClickOffersTheEditCommands) {
  Open();
  In("frmViewEquations", [](QWidget& viewer) {
    auto& columns = *Part<QTableView>(&viewer, "fgrdCols");
    const QPoint place = columns.visualRect(columns.model()->index(2, 0)).center();
    QContextMenuEvent event(QContextMenuEvent::Mouse, place,
                            columns.viewport()->mapToGlobal(place));
    QApplication::sendEvent(columns.viewport(), &event);
    EXPECT_EQ(columns.currentIndex().row(), 2);
  });
  When([] { return QApplication::activePopupWidget() != nullptr; },
       [] { PressKey(*QApplication::activePopupWidget(), Qt::Key_Escape); });
  Leave();
  EXPECT_EQ(Run({"view", path_, "--edit"}).status, 0);
}

}  // namespace
}  // namespace quarvel
