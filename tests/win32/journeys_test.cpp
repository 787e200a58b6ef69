// `quarvel view` in real windows, worked by this program as a user would: from opening a file to
// saving it.
#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "platform/files.h"
#include "platform/scripted/scripted_desktop.h"
#include "platform/win32/control_view.h"
#include "tests/support/test_paths.h"
#include "tests/win32/window_driver.h"
#include "viewer/frm_view_equations.h"

namespace quarvel::platform::win32 {
namespace {

constexpr char kModel[] =
    "NAME          TRIP\n"
    "ROWS\n N  COST\n L  ROOM\n G  NEED\n E  EVEN\n"
    "COLUMNS\n"
    "    X1  COST  4  ROOM  1\n    X1  NEED  1\n"
    "    X2  COST  6  ROOM  1\n    X2  EVEN  2\n"
    "    X3  COST  9  NEED  1\n    X3  EVEN  -1\n"
    "RHS\n    RHS  ROOM  350  NEED  100\n"
    "ENDATA\n";

// The command number of a menu item of the viewer.
int CommandOf(const std::string& name) {
  ScriptedDesktop desktop;
  const viewer::frmViewEquations viewer(desktop);
  const auto& controls = viewer.controls();
  for (std::size_t i = 0; i < controls.size(); ++i) {
    if (controls[i]->name() == name) return kFirstControlId + static_cast<int>(i);
  }
  throw std::runtime_error("no menu item " + name);
}

class JourneyTest : public ::testing::Test {
 protected:
  JourneyTest() { WriteWholeFile(file_, kModel); }

  void Start(const std::vector<std::string>& words) {
    driver_ = std::make_unique<WindowDriver>("quarvel.exe", words);
  }
  // Opens the model for editing, up to its viewer.
  void Open() {
    Start({"view", file_, "--edit"});
    const HWND bounds = driver().Form("frmSetDefaultBounds");
    driver().Press(bounds, "cmdOK");
    driver().Answer("Quarvel", IDNO);
    viewer_ = driver().Form("frmViewEquations");
  }
  void EndWithoutSaving() {
    driver().Close(viewer_);
    EXPECT_EQ(driver().Answer("Quarvel", IDNO), "Do you want to save the current model?");
    EXPECT_EQ(driver().Wait(), 0u);
  }

  WindowDriver& driver() { return *driver_; }
  HWND viewer() const { return viewer_; }
  HWND Grid(std::string_view name) { return driver().Control(viewer_, name); }
  void Command(const std::string& item) { driver().Command(viewer_, CommandOf(item)); }
  std::string Cell(std::string_view grid, int line, int column) {
    return driver().Cell(Grid(grid), line, column);
  }
  void SelectLine(std::string_view grid, int line) { driver().SelectLine(Grid(grid), line); }
  void UntilCell(std::string_view grid, int line, int column, const std::string& text) {
    driver().Until(text, [&] {
      return driver().Lines(Grid(grid)) > line && Cell(grid, line, column) == text;
    });
  }
  std::string Saved() const { return ReadWholeFile(file_); }
  // Also while the file is being replaced, when nobody else can open it.
  bool HasSaved(std::string_view text) const {
    try {
      return Saved().find(text) != std::string::npos;
    } catch (const std::runtime_error&) {
      return false;
    }
  }

  TemporaryFolder folder_;
  std::string file_ = folder_.File("trip.mps");

 private:
  std::unique_ptr<WindowDriver> driver_;
  HWND viewer_ = nullptr;
};

TEST_F(JourneyTest, ReadIsStopped) {
  std::string large = "ROWS\n N  COST\nODD\n";
  for (int i = 0; i < 400000; ++i) large += " L  ROW" + std::to_string(i) + '\n';
  WriteWholeFile(file_, large + "ENDATA\n");
  Start({"view", file_});
  driver().Press(driver().Form("frmSetDefaultBounds"), "cmdOK");
  // A question holds the read back until the Stop button is found.
  const HWND question = driver().Box("Error.  Continue Reading MPS File?");
  const auto progress = GetWindow(question, GW_OWNER);
  const HWND stop = driver().Control(progress, "cmdStop");
  EXPECT_FALSE(IsWindowEnabled(progress));
  driver().AtOnce([&] {
    PostMessageW(question, WM_COMMAND, IDYES, 0);
    PostMessageW(stop, BM_CLICK, 0, 0);
  });
  EXPECT_EQ(driver().Answer("Confirm", IDYES), "Are you sure you wish to stop?");
  EXPECT_EQ(driver().Wait(), 1u);
}

TEST_F(JourneyTest, ListsAreFilteredAndSearched) {
  Open();
  driver().Turn(viewer(), "sstViewEqns", 1);
  const HWND rows = Grid("fgrdRows");
  EXPECT_EQ(driver().Lines(rows), 4);
  EXPECT_EQ(Cell("fgrdRows", 1, 0), "ROOM");
  EXPECT_EQ(Cell("fgrdRows", 1, 1), "less than");
  driver().Choose(viewer(), "cboRowsShowOnly", 3);
  EXPECT_EQ(driver().Lines(rows), 1);
  driver().Press(viewer(), "chkRowsInvert");
  driver().Until("the other rows", [&] { return driver().Lines(rows) == 3; });
  EXPECT_EQ(Cell("fgrdRows", 1, 0), "NEED");
  EXPECT_EQ(driver().Text(Grid("fraRows")), "Rows (4)");
  driver().Press(viewer(), "chkRowsInvert");
  driver().Choose(viewer(), "cboRowsShowOnly", 0);
  driver().Until("all rows", [&] { return driver().Lines(rows) == 4; });
  PostMessageW(rows, WM_CHAR, L'e', 1);
  driver().Until("the row that begins so", [&] { return driver().SelectedLine(rows) == 3; });
  EXPECT_EQ(driver().Text(Grid("fraVars")), "Variables in EVEN (2):");
  EndWithoutSaving();
}

TEST_F(JourneyTest, RowIsRenamedAddedAndDeleted) {
  Open();
  driver().Turn(viewer(), "sstViewEqns", 1);
  SelectLine("fgrdRows", 2);
  Command("mnuEditRowRename");
  EXPECT_EQ(driver().AnswerInput("WANTED"), "Enter a name for this row");
  UntilCell("fgrdRows", 2, 0, "WANTED");
  Command("mnuEditRowAdd");
  driver().AnswerInput("EXTRA");
  const HWND bounds = driver().Form("frmSetRowBounds");
  driver().Enter(bounds, "txtUprBnd", "12");
  driver().Press(bounds, "cmdOK");
  UntilCell("fgrdRows", 4, 0, "EXTRA");
  SelectLine("fgrdRows", 4);
  driver().Key(Grid("fgrdRows"), VK_DELETE);
  EXPECT_EQ(driver().Answer("Confirm Deletion", IDYES), "Are you sure you want delete row EXTRA?");
  driver().Until("the row is gone", [&] { return driver().Lines(Grid("fgrdRows")) == 4; });
  EndWithoutSaving();
}

TEST_F(JourneyTest, ElementsAreAddedChangedAndDeleted) {
  Open();
  driver().Turn(viewer(), "sstViewEqns", 1);
  SelectLine("fgrdRows", 1);
  UntilCell("fgrdRowsVars", 1, 0, "X2");
  Command("mnuEditRowAddEle");
  const HWND adding = driver().Form("frmAddElementsToRow");
  const HWND columns = driver().Control(adding, "fgrdCols");
  ASSERT_EQ(driver().Lines(columns), 1);
  EXPECT_EQ(driver().Cell(columns, 0, 1), "X3");
  driver().Press(adding, "cmdOK");
  EXPECT_EQ(driver().Answer("Quarvel", IDOK), "Please select a column");
  driver().SelectLine(columns, 0);
  driver().Press(adding, "cmdOK");
  driver().AnswerInput("2.5");
  UntilCell("fgrdRowsVars", 2, 0, "X3");
  EXPECT_EQ(Cell("fgrdRowsVars", 2, 1), "2.5");
  SelectLine("fgrdRowsVars", 0);
  Command("mnuEditRowDelEle");
  EXPECT_EQ(driver().Answer("Confirm Deletion", IDYES),
            "Are you sure you want delete element X1 from row ROOM?");
  UntilCell("fgrdRowsVars", 0, 0, "X2");
  EndWithoutSaving();
}

TEST_F(JourneyTest, RowBoundsAreReversedAndSet) {
  Open();
  driver().Turn(viewer(), "sstViewEqns", 1);
  SelectLine("fgrdRows", 1);
  Command("mnuEditRowChangeBnd");
  HWND bounds = driver().Form("frmSetRowBounds");
  driver().Press(bounds, "optR");
  driver().Enter(bounds, "txtLwrBnd", "no number");
  driver().Press(bounds, "cmdOK");
  EXPECT_EQ(driver().Answer("Quarvel", IDOK), "Invalid Input");
  EXPECT_EQ(driver().Text(driver().Control(bounds, "txtLwrBnd")), "");
  driver().Enter(bounds, "txtLwrBnd", "5");
  driver().Enter(bounds, "txtUprBnd", "2");
  driver().Press(bounds, "cmdOK");
  EXPECT_EQ(driver().Answer("Quarvel", IDOK), "Bounds were reversed");
  UntilCell("fgrdRows", 1, 1, "ranged");
  EXPECT_EQ(Cell("fgrdRowsType", 0, 0), "2 <= ROOM <= 5");
  EndWithoutSaving();
}

TEST_F(JourneyTest, ColumnBoundsAndTypeAreSet) {
  Open();
  driver().Turn(viewer(), "sstViewEqns", 0);
  SelectLine("fgrdCols", 1);
  Command("mnuEditColChangeTypeBnd");
  const HWND bounds = driver().Form("frmSetColBounds");
  driver().Press(bounds, "optI");
  driver().Enter(bounds, "txtUprBnd", "8");
  driver().Press(bounds, "cmdOK");
  UntilCell("fgrdCols", 1, 1, "integer");
  EXPECT_EQ(Cell("fgrdColsBounds", 0, 2), "8");
  EndWithoutSaving();
}

TEST_F(JourneyTest, ModelIsSimplifiedOrNot) {
  Open();
  driver().Turn(viewer(), "sstViewEqns", 1);
  Command("mnuEditSimplify");
  driver().Answer("Quarvel", IDNO);
  EXPECT_EQ(driver().Lines(Grid("fgrdRows")), 4);
  // A row with one element becomes a bound of its column.
  SelectLine("fgrdRows", 1);
  UntilCell("fgrdRowsVars", 1, 0, "X2");
  SelectLine("fgrdRowsVars", 1);
  Command("mnuEditRowDelEle");
  driver().Answer("Confirm Deletion", IDYES);
  Command("mnuEditSimplify");
  driver().Answer("Quarvel", IDYES);
  // The log of what was done opens in the system's editor.
  driver().Answer("Quarvel", IDYES);
  CloseForeignWindow(L"Notepad");
  driver().Until("one row less", [&] { return driver().Lines(Grid("fgrdRows")) == 3; });
  EndWithoutSaving();
}

TEST_F(JourneyTest, AnotherFileIsOpened) {
  const std::string other = folder_.File("\xC3\xA4nderung.mps");
  WriteWholeFile(other, "ROWS\n N  ONLY\nCOLUMNS\n    Y  ONLY  1\nENDATA\n");
  Open();
  driver().Turn(viewer(), "sstViewEqns", 1);
  Command("mnuFileOpen");
  EXPECT_EQ(driver().Answer("Quarvel", IDNO), "Do you want to save the current model?");
  driver().AnswerFile("Identify the MPS file to open", other);
  driver().Press(driver().Form("frmSetDefaultBounds"), "cmdOK");
  driver().Answer("Quarvel", IDNO);
  UntilCell("fgrdRows", 0, 0, "ONLY");
  EXPECT_EQ(driver().Lines(Grid("fgrdRows")), 1);
  EndWithoutSaving();
}

TEST_F(JourneyTest, ModelIsSavedUnderItsName) {
  Open();
  driver().Enter(viewer(), "txtName", "RENAMED");
  Command("mnuFileSave");
  driver().Answer("Quarvel", IDNO);
  driver().Until("the new name in the file", [&] { return HasSaved("RENAMED"); });
  EndWithoutSaving();
}

TEST_F(JourneyTest, ModelIsSavedUnderAnotherName) {
  Open();
  const std::string other = folder_.File("other");
  Command("mnuFileSaveAs");
  driver().Answer("Quarvel", IDNO);
  driver().AnswerFile("Save As...", other);
  driver().Until("the file", [&] { return FileExists(other + ".mps"); });
  EndWithoutSaving();
  EXPECT_NE(ReadWholeFile(other + ".mps").find("ENDATA"), std::string::npos);
}

TEST_F(JourneyTest, ClosingAsksAndTakesEachAnswer) {
  Open();
  driver().Close(viewer());
  driver().Answer("Quarvel", IDCANCEL);
  EXPECT_TRUE(driver().HasForm("frmViewEquations"));
  driver().Enter(viewer(), "txtName", "CLOSED");
  driver().Close(viewer());
  driver().Answer("Quarvel", IDYES);
  driver().Answer("Quarvel", IDNO);
  EXPECT_EQ(driver().Wait(), 0u);
  EXPECT_NE(Saved().find("CLOSED"), std::string::npos);
}

}  // namespace
}  // namespace quarvel::platform::win32
