// Opening, simplifying, saving and closing in the viewer's real windows.
#include <QLineEdit>

#include "tests/qt/viewer_journey.h"

namespace quarvel {
namespace {

using platform::Part;
using platform::PressKey;
using platform::WindowNamed;
using Texts = std::vector<std::string>;

constexpr const char* kSaveQuestion = "Do you want to save the current model?";
// R2 is one bound of X.
constexpr std::string_view kSingleElementRow =
    "NAME SMALL\nROWS\n N R1\n L R2\nCOLUMNS\n X R1 1 R2 2\n Y R1 -3.5\nRHS\n RHS R2 8\nENDATA\n";

class ViewerFileJourney : public ViewerJourney {
 protected:
  // The boxes' texts, each up to its first line end.
  Texts Questions() const {
    Texts texts;
    for (const SeenBox& box : boxes()) texts.push_back(box.text.substr(0, box.text.find('\n')));
    return texts;
  }
  void Close() {
    In("frmViewEquations", [](QWidget& viewer) { viewer.close(); });
  }
};

TEST_F(ViewerFileJourney, FileThatMayBeCutOffIsSaidToBeAndShown) {
  const std::string_view cut = kSingleElementRow.substr(0, kSingleElementRow.find("ENDATA"));
  for (const bool is_cut : {true, false}) {
    WriteWholeFile(path_, is_cut ? cut : kSingleElementRow);
    Open();
    In("frmViewEquations", [](QWidget&) { EXPECT_EQ(Column("fgrdRows", 0), (Texts{"R1", "R2"})); });
    Leave();
    const Outcome run = Run({"view", path_, "--edit"});
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.out, "");
    EXPECT_EQ(run.err,
              is_cut ? "quarvel: " + path_ + ": no ENDATA line: the file may be cut off\n" : "");
  }
}

TEST_F(ViewerFileJourney, SaveKeepsTheOldFileWhenTheUserCancelsAtTheEnd) {
  const std::string before = ReadWholeFile(path_);
  Open();
  Close();
  AnswerBox(QMessageBox::Cancel);
  In("frmViewEquations", [](QWidget&) {});
  Leave();
  EXPECT_EQ(Run({"view", path_, "--edit"}).status, 0);
  EXPECT_EQ(ReadWholeFile(path_), before);
  EXPECT_EQ(Questions(),
            (Texts{"Do you want to simplify the model?", kSaveQuestion, kSaveQuestion}));
}

TEST_F(ViewerFileJourney, ClosingWithYesSavesTheModelUnderItsOwnName) {
  Open();
  Fill("frmViewEquations", "txtName", "RENAMED");
  Close();
  AnswerBox(QMessageBox::Yes);
  AnswerBox(QMessageBox::No);  // to simplifying
  EXPECT_EQ(Run({"view", path_, "--edit"}).status, 0);
  EXPECT_TRUE(ReadWholeFile(path_).starts_with("NAME          RENAMED\r\n"));
}

TEST_F(ViewerFileJourney, ShortcutSavesAndTheModelReadsBackTheSame) {
  const std::string before = Rows(path_);
  ASSERT_NE(before.find("SUPPLY1"), std::string::npos);
  Open();
  In("frmViewEquations", [](QWidget& viewer) {
    PressKey(*Part<QLineEdit>(&viewer, "txtName"), Qt::Key_S, Qt::ControlModifier);
  });
  AnswerBox(QMessageBox::No);
  Leave();
  EXPECT_EQ(Run({"view", path_, "--edit"}).status, 0);
  EXPECT_EQ(Rows(path_), before);
}

TEST_F(ViewerFileJourney, SaveAsWritesTheModelThere) {
  const std::string other = folder_.File("other.mps");
  const std::string typed = folder_.File("other");
  Open();
  Choose({"mnuFile", "mnuFileSaveAs"});
  AnswerBox(QMessageBox::No);
  TypePath(typed);
  Leave();
  EXPECT_EQ(Run({"view", path_, "--edit"}).status, 0);
  EXPECT_EQ(Rows(other), Rows(path_));
}

TEST_F(ViewerFileJourney, SimplifyWithNoChangesNothingAndWithYesRemovesTheRow) {
  WriteWholeFile(path_, kSingleElementRow);
  Open();
  Choose({"mnuEdit", "mnuEditSimplify"});
  AnswerBox(QMessageBox::No);
  When([] { return WindowNamed("msgbox") == nullptr; },
       [] {
         EXPECT_EQ(Column("fgrdRows", 0), (Texts{"R1", "R2"}));
       });
  Choose({"mnuEdit", "mnuEditSimplify"});
  AnswerBox(QMessageBox::Yes);
  AnswerBox(QMessageBox::No);  // to seeing the log
  When([] { return WindowNamed("msgbox") == nullptr; },
       [] {
         EXPECT_EQ(Column("fgrdRows", 0), Texts{"R1"});
         EXPECT_EQ(Column("fgrdColsBounds", 2), Texts{"4"});
       });
  Leave();
  EXPECT_EQ(Run({"view", path_, "--edit"}).status, 0);
}

TEST_F(ViewerFileJourney, OpenReadsAnotherFileIntoTheSameWindow) {
  const std::string other = folder_.File("small.mps");
  WriteWholeFile(other, kSingleElementRow);
  Open();
  Choose({"mnuFile", "mnuFileOpen"});
  AnswerBox(QMessageBox::No);
  TypePath(other);
  Open();
  When([] { return WindowNamed("msgbox") == nullptr; },
       [] {
         EXPECT_EQ(Column("fgrdCols", 0), (Texts{"X", "Y"}));
       });
  Leave();
  EXPECT_EQ(Run({"view", path_, "--edit"}).status, 0);
}

TEST_F(ViewerFileJourney, NewModelIsBuiltFromNothing) {
  Choose({"mnuEdit", "mnuEditCol", "mnuEditColAdd"});
  Answer("X");
  Press("frmSetColBounds", "cmdOK");
  TurnTo(1);
  Choose({"mnuEdit", "mnuEditRow", "mnuEditRowAdd"});
  Answer("LIMIT");
  Press("frmSetRowBounds", "cmdOK");
  ClickLine("frmViewEquations", "fgrdRows", "LIMIT");
  Choose({"mnuEdit", "mnuEditRow", "mnuEditRowAddEle"});
  ClickLine("frmAddElementsToRow", "fgrdCols", "0");
  Press("frmAddElementsToRow", "cmdOK");
  Answer("3");
  When([] { return WindowNamed("frmAddElementsToRow") == nullptr; },
       [] { EXPECT_EQ(Column("fgrdRowsVars", 0), Texts{"X"}); });
  Leave();
  EXPECT_EQ(Run({"view", "--edit"}).status, 0);
}

TEST_F(ViewerFileJourney, ProblemsInTheFileAreAskedAboutInWindows) {
  WriteWholeFile(path_, "NAME BAD\nROWS\n N COST\n Q WRONG\nCOLUMNS\n X COST 1\nENDATA\n");
  Press("frmSetDefaultBounds", "cmdOK");
  AnswerBox(QMessageBox::No);
  const Outcome outcome = Run({"view", path_});
  EXPECT_EQ(outcome.status, 1);
  ASSERT_EQ(boxes().size(), 1u);
  EXPECT_EQ(boxes()[0].title, "Error.  Continue Reading MPS File?");
}

TEST_F(ViewerFileJourney, ReadOnlyViewClosesWithoutAQuestion) {
  Open();
  Close();
  EXPECT_EQ(Run({"view", path_}).status, 0);
  EXPECT_EQ(boxes().size(), 1u);
}

}  // namespace
}  // namespace quarvel
