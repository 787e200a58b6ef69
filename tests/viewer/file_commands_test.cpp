// The commands on the model as a whole: new, open, save, simplify, help.
#include "viewer/file_commands.h"

#include <filesystem>

#include "mps/frm_set_default_bounds.h"
#include "platform/files.h"
#include "tests/support/test_paths.h"
#include "tests/viewer/viewer_session.h"

namespace quarvel::viewer {
namespace {

const std::string kSave{kSaveQuestion};
const std::string kNoElements = "There are no elements in the model yet.  Save aborted";
const std::string_view kSmallFile =
    "* small model\nNAME SMALL\nROWS\n N COST\n L LIM\nCOLUMNS\n X COST 1 LIM 1\n Y LIM 2\n"
    "RHS\n R LIM 4\nENDATA\n";

class FileCommandsTest : public ViewerTest {
 protected:
  void With(const std::function<void()>& steps) {
    BuildModel();
    WriteWholeFile(model_.FileLocation(), "old");
    View(steps);
  }
  std::string Written() { return ReadWholeFile(model_.FileLocation()); }
  // The user picks that file and accepts the default bounds.
  void PickFile(const std::string& path) {
    desktop_.files.push_back(path);
    if (path.empty()) return;
    dialogs_.push_back(
        [](platform::Form& form) { dynamic_cast<mps::frmSetDefaultBounds&>(form).cmdOK.Click(); });
  }
};

TEST_F(FileCommandsTest, NewAsksBeforeItDropsTheModel) {
  With([&] {
    desktop_.answers = {kCancel};
    Choose("mnuFileNew");
    EXPECT_EQ(model_.NumberOfRows(), 5);
    desktop_.answers = {kNo};
    Choose("mnuFileNew");
    EXPECT_EQ(model_.NumberOfRows(), 0);
    EXPECT_EQ(ColumnNames(), Texts{});
    EXPECT_EQ(viewer().contents.txtName.text(), "");
    EXPECT_EQ(viewer().contents.rows.fraList.caption(), "Rows (0)");
  });
  EXPECT_EQ(Boxes(), (Texts{kSave, kSave}));
  EXPECT_EQ(desktop_.boxes()[0].style, MsgBoxStyle::kYesNoCancelExclamation);
}

TEST_F(FileCommandsTest, NewSavesFirstWhenAsked) {
  With([&] {
    const std::string path = model_.FileLocation();
    desktop_.answers = {kYes, kNo};
    Choose("mnuFileNew");
    EXPECT_EQ(model_.NumberOfRows(), 0);
    EXPECT_TRUE(ReadWholeFile(path).ends_with("ENDATA\r\n"));
  });
}

TEST_F(FileCommandsTest, NewAndOpenKeepTheModelWhenNothingWasSaved) {
  With([&] {
    model_.store().settings().FileLocation.clear();
    for (const char* name : {"mnuFileNew", "mnuFileOpen"}) {
      desktop_.answers = {kYes, kNo};
      desktop_.files = {""};
      Choose(name);
      EXPECT_EQ(model_.NumberOfRows(), 5) << name;
      EXPECT_EQ(desktop_.files.size(), 0u);
    }
    EXPECT_EQ(desktop_.beeps(), 2);
  });
}

TEST_F(FileCommandsTest, NewAndOpenAskNothingOfAModelWithoutElements) {
  model_.MakeNewModel();
  View([&] {
    Choose("mnuFileNew");
    PickFile("");
    Choose("mnuFileOpen");
    EXPECT_EQ(Boxes(), Texts{});
  });
}

TEST_F(FileCommandsTest, OpenShowsTheModelThatWasRead) {
  const std::string path = folder_.File("small.mps");
  WriteWholeFile(path, kSmallFile);
  With([&] {
    desktop_.answers = {kNo, kNo};
    PickFile(path);
    Choose("mnuFileOpen");
    EXPECT_EQ(viewer().contents.txtName.text(), "SMALL");
    EXPECT_EQ(viewer().contents.txtDescription.text(), "small model");
    EXPECT_EQ(RowNames(), (Texts{"COST", "LIM"}));
    EXPECT_EQ(ColumnNames(), (Texts{"X", "Y"}));
    EXPECT_TRUE(Item("mnuEdit").Available());
    EXPECT_TRUE(Item("mnuFileSave").Available());
    EXPECT_EQ(Boxes(), (Texts{kSave, kSimplifyQuestionText}));
  });
}

TEST_F(FileCommandsTest, OpenBringsAnEmptyWindowToLife) {
  const std::string path = folder_.File("small.mps");
  WriteWholeFile(path, kSmallFile);
  model_.MakeNewModel();
  View([&] {
    desktop_.answers = {kNo};
    PickFile(path);
    Choose("mnuFileOpen");
    EXPECT_EQ(ColumnNames(), (Texts{"X", "Y"}));
    EXPECT_TRUE(Item("mnuEditColDel").Available());
  });
}

// Name and description must be there for the next save.
TEST_F(FileCommandsTest, CancelledOpenShowsTheModelAgain) {
  With([&] {
    desktop_.answers = {kNo};
    PickFile("");
    Choose("mnuFileOpen");
    EXPECT_EQ(viewer().contents.txtName.text(), "DIET");
    EXPECT_EQ(viewer().contents.txtDescription.text(), "first\r\nsecond");
    EXPECT_EQ(RowNames().size(), 5u);
  });
}

TEST_F(FileCommandsTest, FailedOpenShowsWhatIsLeft) {
  With([&] {
    // Not to save; not to go on with a file that is not there.
    desktop_.answers = {kNo, kNo};
    PickFile(folder_.File("none.mps"));
    Choose("mnuFileOpen");
    EXPECT_EQ(RowNames(), Texts{});
    EXPECT_EQ(viewer().contents.columns.fraList.caption(), "Columns (0)");
    EXPECT_TRUE(viewer().IsShowing());
  });
}

TEST_F(FileCommandsTest, ReadByAHostRefreshesTheWindow) {
  const std::string path = folder_.File("small.mps");
  WriteWholeFile(path, kSmallFile);
  With([&] {
    desktop_.answers = {kNo};
    PickFile(path);
    EXPECT_EQ(model_.ReadMPSFile(), -1);
    EXPECT_EQ(viewer().contents.txtName.text(), "SMALL");
    EXPECT_EQ(ColumnNames(), (Texts{"X", "Y"}));
    EXPECT_TRUE(viewer().contents.rows.fgrdList.redraw());
  });
}

TEST_F(FileCommandsTest, SaveOfAnEmptyModelIsRefused) {
  model_.MakeNewModel();
  View([&] {
    Choose("mnuFileSave");
    Choose("mnuFileSaveAs");
    EXPECT_EQ(Boxes(), Texts(2, kNoElements));
  });
}

TEST_F(FileCommandsTest, SaveTakesNameAndDescriptionAndOffersToSimplify) {
  With([&] {
    viewer().contents.txtName.Type("MEALS");
    viewer().contents.txtDescription.Type("a\nb");
    desktop_.answers = {kNo};
    Choose("mnuFileSave");
    EXPECT_EQ(model_.ModelName(), "MEALS");
    EXPECT_EQ(model_.ModelDescription(), "a\r\nb");
    EXPECT_EQ(Boxes(), Texts{kSimplifyQuestionText});
    EXPECT_EQ(desktop_.boxes()[0].style, MsgBoxStyle::kYesNo);
    EXPECT_TRUE(Written().starts_with("NAME          MEALS\r\n* a\r\n* b\r\nROWS\r\n"));
    EXPECT_EQ(desktop_.file_dialogs().size(), 0u);
    EXPECT_EQ(model_.NumberOfRows(), 5);
  });
}

TEST_F(FileCommandsTest, SaveSimplifiesWhenAsked) {
  With([&] {
    viewer().contents.txtName.Type("MEALS");
    // Simplify, do not look at the log.
    desktop_.answers = {kYes, kNo};
    Choose("mnuFileSave");
    EXPECT_EQ(viewer().contents.txtName.text(), "MEALS");
    EXPECT_EQ(RowNames(), (Texts{"COST", "LIM", "EQ"}));
    EXPECT_EQ(ColumnNames(), (Texts{"X", "Y", "Z"}));
    EXPECT_EQ(Written().find("RNG"), std::string::npos);
  });
}

TEST_F(FileCommandsTest, SaveOfAModelWithoutFileAsksForOne) {
  With([&] {
    model_.store().settings().FileLocation.clear();
    desktop_.answers = {kNo};
    desktop_.files = {folder_.File("new.mps")};
    Choose("mnuFileSave");
    EXPECT_EQ(model_.FileLocation(), folder_.File("new.mps"));
    EXPECT_TRUE(Written().ends_with("ENDATA\r\n"));
    EXPECT_EQ(Boxes(), Texts{kSimplifyQuestionText});
  });
}

TEST_F(FileCommandsTest, FailedSaveAsksForAnotherFile) {
  With([&] {
    model_.store().settings().FileLocation = folder_.File("none/x.mps");
    desktop_.answers = {kNo};
    desktop_.files = {folder_.File("new.mps")};
    Choose("mnuFileSave");
    EXPECT_EQ(Boxes().size(), 2u);
    EXPECT_EQ(model_.FileLocation(), folder_.File("new.mps"));
  });
}

TEST_F(FileCommandsTest, CancelledSaveSaysNothingMore) {
  With([&] {
    model_.store().settings().FileLocation.clear();
    desktop_.answers = {kNo};
    desktop_.files = {""};
    Choose("mnuFileSave");
    EXPECT_EQ(Boxes(), Texts{kSimplifyQuestionText});
    EXPECT_EQ(desktop_.beeps(), 1);
  });
}

TEST_F(FileCommandsTest, SaveAsLeavesNameAndDescriptionAsTheyAreInTheModel) {
  With([&] {
    viewer().contents.txtName.Type("MEALS");
    viewer().contents.txtDescription.Type("changed");
    desktop_.answers = {kNo};
    desktop_.files = {folder_.File("copy.mps")};
    Choose("mnuFileSaveAs");
    EXPECT_EQ(model_.ModelName(), "DIET");
    EXPECT_TRUE(Written().starts_with("NAME          DIET\r\n* first\r\n* second\r\n"));
    EXPECT_EQ(viewer().contents.txtName.text(), "MEALS");
  });
}

TEST_F(FileCommandsTest, SaveAsTellsWhenNothingWasSaved) {
  With([&] {
    desktop_.answers = {kNo};
    desktop_.files = {""};
    Choose("mnuFileSaveAs");
    EXPECT_EQ(Boxes(), (Texts{kSimplifyQuestionText, "Model could not be saved"}));
  });
}

TEST_F(FileCommandsTest, ModelThatIsSimplifiedAwayIsNotSaved) {
  ModelBuilder(model_)
      .Location(folder_.File("a.mps"))
      .Row("A", 'L', 4)
      .Column("X")
      .Element("X", "A", 1);
  WriteWholeFile(model_.FileLocation(), "old");
  View([&] {
    // Save, simplify (which asks nothing of a row that fits), do not look at the log.
    desktop_.answers = {kYes, kYes, kNo};
    viewer().RequestClose();
    EXPECT_EQ(model_.NumberOfElements(), 0);
    EXPECT_EQ(Boxes().back(), "No elements in the model.  Aborting save.");
    EXPECT_TRUE(viewer().IsShowing());
    viewer().RequestClose();
    EXPECT_FALSE(viewer().IsShowing());
  });
}

TEST_F(FileCommandsTest, SimplifyAsksAndShowsTheOutcome) {
  With([&] {
    desktop_.answers = {kNo};
    Choose("mnuEditSimplify");
    EXPECT_EQ(model_.NumberOfRows(), 5);
    viewer().contents.columns.cboShowOnly.Select(2);
    desktop_.answers = {kYes, kYes};
    Choose("mnuEditSimplify");
    EXPECT_EQ(RowNames(), (Texts{"COST", "LIM", "EQ"}));
    EXPECT_EQ(ColumnNames(), (Texts{"X", "Y", "Z"}));
    EXPECT_EQ(desktop_.opened_in_editor(), Texts{folder_.File("diet.log")});
    EXPECT_EQ(model_.ColLowerBound(1), 1.5);
  });
  EXPECT_EQ(desktop_.boxes()[0], (platform::ShownBox{kSimplifyQuestionText, MsgBoxStyle::kYesNo,
                                                     std::string(platform::kDefaultTitle)}));
}

TEST_F(FileCommandsTest, FailedSimplificationIsABoxAndTheWindowStays) {
  With([&] {
    model_.store().settings().FileLocation = folder_.File("none/diet.mps");
    desktop_.answers = {kYes};
    Choose("mnuEditSimplify");
    EXPECT_EQ(Boxes().size(), 2u);
    EXPECT_EQ(Boxes()[1], Describe(RunTimeError::kPathNotFound));
    EXPECT_TRUE(viewer().IsShowing());
    EXPECT_TRUE(viewer().contents.rows.fgrdList.redraw());
    EXPECT_EQ(RowNames().size(), 5u);
  });
}

TEST_F(FileCommandsTest, ExitClosesThroughTheQuestion) {
  With([&] {
    desktop_.answers = {kCancel, kNo};
    Choose("mnuFileExit");
    EXPECT_TRUE(viewer().IsShowing());
    Choose("mnuFileExit");
    EXPECT_FALSE(viewer().IsShowing());
  });
  EXPECT_EQ(Boxes(), (Texts{kSave, kSave}));
}

TEST_F(FileCommandsTest, AboutShowsTheAuthors) {
  With([&] {
    Choose("mnuHelpAbout");
    EXPECT_EQ(desktop_.boxes().back().title, "Authors of Quarvel Object");
  });
}

TEST_F(FileCommandsTest, HelpOpensTheReadmeBesideTheComponent) {
  With([&] {
    Choose("mnuHelpHelp");
    ASSERT_EQ(desktop_.opened_in_editor().size(), 1u);
    const std::string path = desktop_.opened_in_editor()[0];
    EXPECT_TRUE(path.starts_with(platform::ComponentFolder()));
    const std::string name = path.substr(platform::ComponentFolder().size());
    EXPECT_TRUE(name == "/quarvel.readme.txt" || name == "\\quarvel.readme.txt") << name;
    EXPECT_EQ(Boxes(), Texts{});
    desktop_.editor_starts = false;
    EXPECT_TRUE(PressShortcut(viewer(), {platform::Key::kF1}));
    EXPECT_EQ(Boxes(), Texts{"The help could not be opened.  It can be found at " + path});
  });
}

#ifndef _WIN32
TEST(ReadmeOfTest, KnowsWhereAnInstallationHasIt) {
  const TemporaryFolder folder;
  const std::string programs = folder.File("bin");
  const std::string shared = folder.File("share/quarvel");
  std::filesystem::create_directories(programs);
  std::filesystem::create_directories(shared);
  EXPECT_EQ(ReadmeOf(programs), programs + "/quarvel.readme.txt");
  WriteWholeFile(shared + "/quarvel.readme.txt", "installed");
  EXPECT_EQ(ReadmeOf(programs), shared + "/quarvel.readme.txt");
  WriteWholeFile(programs + "/quarvel.readme.txt", "beside");
  EXPECT_EQ(ReadmeOf(programs), programs + "/quarvel.readme.txt");
}
#endif

}  // namespace
}  // namespace quarvel::viewer
