// The run as a whole: window, log, questions, and what is left after a failure.

#include "simplify/simplifier.h"

#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "platform/files.h"
#include "tests/simplify/simplify_helpers.h"
#include "tests/support/shown_form.h"
#include "tests/support/test_paths.h"

namespace quarvel::simplify {
namespace {

using platform::MsgBoxResult;
using platform::MsgBoxStyle;
using platform::ShownBox;
using Lines = std::vector<std::string>;

// `rows` rows of two elements that nothing simplifies.
void BuildRows(SimplifySession& session, int rows) {
  session.Build().Column("X").Column("Y");
  for (int i = 1; i <= rows; ++i) {
    const std::string name = "R" + std::to_string(i);
    session.Build().Row(name, 'L', 1).Element("X", name, 1).Element("Y", name, 1);
  }
}

// Something for both passes: row BOUND becomes a bound of X, and column EMPTY goes.
void BuildSimplifiable(SimplifySession& session) {
  session.Build()
      .Row("OBJ", 'N')
      .Row("BOUND", 'L', 6)
      .Column("X")
      .Column("Y")
      .Column("EMPTY")
      .Element("X", "OBJ", 1)
      .Element("Y", "OBJ", 1)
      .Element("X", "BOUND", 2);
}

TEST(Simplifier, RunsInThisOrder) {
  SimplifySession session;
  BuildSimplifiable(session);
  session.see_log = MsgBoxResult::kYes;
  session.Simplify();
  EXPECT_EQ(session.desktop.transcript(),
            (Lines{"show frmProgress", "box 4 [Quarvel] " + std::string(kLogQuestion),
                   "editor " + session.log_name, "close frmProgress"}));
}

TEST(Simplifier, WritesTheLogInLinesOfCrLf) {
  SimplifySession session;
  BuildSimplifiable(session);
  session.Simplify();
  EXPECT_EQ(ReadWholeFile(session.log_name), "Log file for simplification of " +
                                                 session.model.FileLocation() +
                                                 "\r\n"
                                                 "Converted row BOUND into variable bound\r\n"
                                                 "Removed empty column:  EMPTY\r\n");
}

TEST(Simplifier, ReplacesAnOlderLog) {
  SimplifySession session;
  BuildSimplifiable(session);
  WriteWholeFile(session.log_name, std::string(1000, 'x'));
  session.Simplify();
  EXPECT_EQ(session.LogLines().size(), 2u);
}

TEST(Simplifier, KeepsTheLogWhenTheUserDoesNotLook) {
  SimplifySession session;
  BuildSimplifiable(session);
  session.see_log = MsgBoxResult::kNo;
  session.Simplify();
  EXPECT_TRUE(platform::FileExists(session.log_name));
  EXPECT_TRUE(session.desktop.opened_in_editor().empty());
}

TEST(Simplifier, SaysWhenThereWasNothingToSimplify) {
  SimplifySession session;
  BuildRows(session, 2);
  session.Simplify();
  EXPECT_EQ(session.desktop.boxes(),
            (std::vector<ShownBox>{{std::string(kNothingDone), MsgBoxStyle::kOk,
                                    std::string(platform::kDefaultTitle)}}));
  EXPECT_FALSE(platform::FileExists(session.log_name));
}

TEST(Simplifier, WorksOnAnObjectThatHoldsNothing) {
  SimplifySession session;
  session.Simplify();
  EXPECT_EQ(session.desktop.transcript(),
            (Lines{"show frmProgress", "box 0 [Quarvel] " + std::string(kNothingDone),
                   "close frmProgress"}));
}

TEST(Simplifier, ClosesTheLogBeforeItAsks) {
  SimplifySession session;
  BuildSimplifiable(session);
  int asked = 0;
  session.on_shown = [&](const ShownBox&) {
    ++asked;
    EXPECT_EQ(session.model.store().settings().LogFileNumber, 0);
    EXPECT_EQ(session.desktop.shown().size(), 1u);  // the window waits for the answer
  };
  session.Simplify();
  EXPECT_EQ(asked, 1);
}

TEST(Simplifier, OpensTheLogUnderANumberOfItsOwn) {
  SimplifySession session;
  BuildRows(session, 50);
  session.desktop.on_events = [&](std::int64_t) {
    EXPECT_EQ(session.model.store().settings().LogFileNumber, 1);
  };
  session.Simplify();
  EXPECT_EQ(session.desktop.event_count(), 1);
}

TEST(Simplifier, TellsWhereTheLogIsWhenTheEditorDoesNotStart) {
  SimplifySession session;
  BuildSimplifiable(session);
  session.see_log = MsgBoxResult::kYes;
  session.desktop.editor_starts = false;
  session.Simplify();
  EXPECT_EQ(session.desktop.boxes().back(),
            (ShownBox{"Error loading log file in notepad.  The log file can be found at " +
                          session.log_name,
                      MsgBoxStyle::kOk, std::string(platform::kDefaultTitle)}));
  EXPECT_EQ(session.desktop.transcript().back(), "close frmProgress");
}

TEST(Simplifier, LogsAModelWithoutAFileInAFolderOfTheComponents) {
  SimplifySession session;
#ifdef _WIN32
  session.log_name = platform::ComponentFolder() + "\\newmodel.log";
#else
  session.log_name = session.folder.path() + "/quarvel/newmodel.log";
  ASSERT_EQ(setenv("XDG_STATE_HOME", session.folder.path().c_str(), 1), 0);
#endif
  BuildSimplifiable(session);
  session.Build().Location("");
  session.see_log = MsgBoxResult::kYes;
  session.desktop.editor_starts = false;
  session.Simplify();
  EXPECT_EQ(session.log_bytes(),
            "Log file for simplifications of unsaved model\r\n"
            "Converted row BOUND into variable bound\r\n"
            "Removed empty column:  EMPTY\r\n");
  EXPECT_EQ(session.desktop.opened_in_editor(), Lines{session.log_name});
  EXPECT_EQ(session.desktop.boxes().back().text,
            "Error loading log file in notepad.  The log file can be found at .log");
  platform::RemoveFile(session.log_name);
#ifndef _WIN32
  ASSERT_EQ(unsetenv("XDG_STATE_HOME"), 0);
#endif
}

TEST(Simplifier, PreparesTheWindowBeforeItIsShown) {
  SimplifySession session;
  BuildSimplifiable(session);
  int asked = 0;
  session.on_shown = [&](const ShownBox&) {
    ++asked;
    mps::frmProgress& window = ShownForm<mps::frmProgress>(session.desktop);
    EXPECT_EQ(window.caption(), "Progress: Simplifying MPS Model");
    EXPECT_EQ(window.bar.min(), 0);
    EXPECT_EQ(window.bar.max(), 3 * 2 + 3);  // before the row and the column went
    EXPECT_EQ(window.cmdStop.caption(), "Stop");
    EXPECT_FALSE(window.StopRequested);
  };
  session.Simplify();
  EXPECT_EQ(asked, 1);
}

TEST(Simplifier, ShowsProgressAtItsPoints) {
  SimplifySession session;
  BuildRows(session, 150);  // 452 steps
  session.Simplify();
  EXPECT_EQ(session.desktop.transcript(),
            (Lines{"show frmProgress", "frmProgress.barProgress value: 100",
                   "caption frmProgress: Progress:  Simplifying MPS Model (22.12%)", "events",
                   "frmProgress.barProgress value: 200",
                   "caption frmProgress: Progress:  Simplifying MPS Model (44.25%)", "events",
                   "frmProgress.barProgress value: 300",
                   "caption frmProgress: Progress:  Simplifying MPS Model (66.37%)", "events",
                   "frmProgress.barProgress value: 400",
                   "caption frmProgress: Progress:  Simplifying MPS Model(88.5%)", "events",
                   "box 0 [Quarvel] " + std::string(kNothingDone), "close frmProgress"}));
}

TEST(Simplifier, CountsAPlaceAgainAfterADeletion) {
  SimplifySession session;
  session.Build().Row("OBJ", 'N').Column("X").Element("X", "OBJ", 1);
  for (int j = 0; j < 197; ++j) session.Build().Column("C" + std::to_string(j));
  // Steps 1 and 2 are the row; X is step 3 and the empty columns follow, the last of them with step
  // 200.
  session.desktop.on_events = [&](std::int64_t) {
    EXPECT_EQ(session.model.NumberOfColumns(), 2);
    EXPECT_EQ(session.model.ColName(1), "C196");
  };
  session.Simplify();
  EXPECT_EQ(session.Captions(), Lines{"Progress:  Simplifying MPS Model(99.5%)"});
  EXPECT_EQ(session.ColumnNames(), Lines{"X"});
}

TEST(Simplifier, StopInTheFirstPassLeavesTheRestAlone) {
  SimplifySession session;
  BuildRows(session, 60);
  session.Build().Column("EMPTY").Row("LATE", 'L', 5).Element("X", "LATE", 1);
  session.desktop.on_events = [&](std::int64_t) { session.PressStop(); };
  session.Simplify();
  EXPECT_EQ(session.desktop.event_count(), 1);
  EXPECT_EQ(session.model.NumberOfRows(), 61);
  EXPECT_EQ(session.model.NumberOfColumns(), 3);
  EXPECT_EQ(session.nothing_done_boxes(), 1);
}

TEST(Simplifier, StopInTheSecondPassLeavesWhatIsNotReached) {
  const struct {
    const char* what;
    int rows, columns;
    std::int32_t rows_left, columns_left;
  } cases[] = {
      // Pass 1 takes two steps a row; the stop comes with step 200, before that place is examined.
      {"among the columns", 1, 300, 1, 300 - 197},
      {"among the rows", 95, 0, 95 - 9, 0},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.what);
    SimplifySession session;
    for (int i = 0; i < c.rows; ++i) session.Build().Row("R" + std::to_string(i), 'N');
    for (int j = 0; j < c.columns; ++j) session.Build().Column("C" + std::to_string(j));
    session.desktop.on_events = [&](std::int64_t) {
      const bool second_pass =
          session.Captions().back().starts_with("Progress:  Simplifying MPS Model(");
      if (second_pass) session.PressStop();
    };
    session.Simplify();
    EXPECT_EQ(session.model.NumberOfRows(), c.rows_left);
    EXPECT_EQ(session.model.NumberOfColumns(), c.columns_left);
    EXPECT_EQ(session.change_questions(), 1);
  }
}

TEST(Simplifier, TheWindowCannotBeClosedWhileItWorks) {
  SimplifySession session;
  BuildRows(session, 50);
  session.desktop.on_events = [&](std::int64_t) {
    ShownForm<mps::frmProgress>(session.desktop).RequestClose();
    EXPECT_TRUE(ShownForm<mps::frmProgress>(session.desktop).IsShowing());
  };
  session.Simplify();
  EXPECT_EQ(session.desktop.event_count(), 1);
}

TEST(Simplifier, StartsAfreshEachTime) {
  SimplifySession session;
  BuildSimplifiable(session);
  session.Simplify();
  session.Simplify();
  EXPECT_EQ(session.change_questions(), 1);
  EXPECT_EQ(session.nothing_done_boxes(), 1);
  EXPECT_FALSE(platform::FileExists(session.log_name));
}

TEST(Simplifier, RaisesWhenTheLogCannotBeCreated) {
  const struct {
    const char* location;
    std::int32_t number;
  } cases[] = {{"missing/model.mps", 76}, {"folder.mps", 75}};
  for (const auto& c : cases) {
    SimplifySession session;
    std::filesystem::create_directory(ToPath(session.folder.File("folder.log")));
    BuildSimplifiable(session);
    session.Build().Location(session.folder.File(c.location));
    EXPECT_EQ(session.FailureOfSimplify(), c.number) << c.location;
    EXPECT_EQ(session.model.NumberOfRows(), 2);
    EXPECT_EQ(session.desktop.transcript(), (Lines{"show frmProgress", "close frmProgress"}));
  }
}

TEST(Simplifier, NeverWritesItsLogOverTheModelsFile) {
  for (const bool exists : {true, false}) {
    SimplifySession session;
    BuildSimplifiable(session);
    session.Build().Location(session.log_name);
    if (exists) WriteWholeFile(session.log_name, "ROWS");
    EXPECT_EQ(session.FailureOfSimplify(), 75);
    EXPECT_EQ(platform::FileExists(session.log_name), exists);
    if (exists) {
      EXPECT_EQ(ReadWholeFile(session.log_name), "ROWS");
    }
  }
}

TEST(Simplifier, KnowsTheModelsFileByItsOtherNames) {
  SimplifySession session;
  BuildSimplifiable(session);
  WriteWholeFile(session.model.FileLocation(), "ROWS");
  std::filesystem::create_hard_link(ToPath(session.model.FileLocation()), ToPath(session.log_name));
  EXPECT_EQ(session.FailureOfSimplify(), 75);
  EXPECT_EQ(ReadWholeFile(session.model.FileLocation()), "ROWS");
}

TEST(Simplifier, SparesTheFileThatWasReadAsWell) {
  SimplifySession session;
  BuildSimplifiable(session);
  session.model.strMPSFile(session.log_name);
  EXPECT_EQ(session.FailureOfSimplify(), 75);
}

TEST(Simplifier, RaisesWhenAnUnwantedLogCannotBeDeleted) {
  SimplifySession session;
  BuildRows(session, 1);
  session.on_shown = [&](const ShownBox&) {
    platform::RemoveFile(session.log_name);
    std::filesystem::create_directories(ToPath(session.log_name + "/inside"));
  };
  EXPECT_NE(session.FailureOfSimplify(), 0);
  // The folder must not be taken for a log when the outcome is told.
  EXPECT_EQ(session.log_bytes(), "");
}

TEST(Simplifier, AnUnwantedLogMayBeGoneAlready) {
  SimplifySession session;
  BuildRows(session, 1);
  session.on_shown = [&](const ShownBox&) { platform::RemoveFile(session.log_name); };
  EXPECT_EQ(session.FailureOfSimplify(), 0);
}

TEST(Simplifier, CleansUpWhenABoxFails) {
  SimplifySession session;
  BuildSimplifiable(session);
  session.Build().Row("EQUAL", 'E', 9).Element("X", "EQUAL", 1);
  session.on_shown = [](const ShownBox&) { RaiseRunTimeError(RunTimeError::kDeviceIoError); };
  EXPECT_EQ(session.FailureOfSimplify(), 57);
  EXPECT_EQ(session.RowNames(), (Lines{"OBJ", "EQUAL"}));
}

TEST(Simplifier, KeepsItsLogInATextWhereThatIsWanted) {
  SimplifySession session;
  std::string log = "old";
  session.model.KeepLogIn(&log);
  BuildSimplifiable(session);
  WriteWholeFile(session.log_name, "the user's own");
  session.see_log = MsgBoxResult::kYes;
  session.model.SimplifyMPSModel();
  EXPECT_TRUE(log.starts_with("Log file for simplification of " + session.folder.File("model.mps") +
                              "\r\n"))
      << log;
  EXPECT_GT(log.size(), log.find('\n') + 1);
  EXPECT_EQ(session.desktop.opened_in_editor(), std::vector<std::string>());
  session.model.SimplifyMPSModel();
  EXPECT_EQ(log, "") << "nothing was left to do";
  EXPECT_EQ(ReadWholeFile(session.log_name), "the user's own");
}

TEST(Simplifier, FailingInsideAReadBecomesTheReadersQuestion) {
  SimplifySession session;
  const std::string file = session.folder.File("model.log");
  WriteWholeFile(
      file, "ROWS\n L  R1\n N  OBJ\nCOLUMNS\n    X  R1  1  OBJ  1\nRHS\n    RHS  R1  4\nENDATA\n");
  session.Build().Location(file);
  session.model.strMPSFile(file);
  session.desktop.on_box = nullptr;
  session.desktop.answers = {MsgBoxResult::kYes, MsgBoxResult::kYes};  // simplify; go on
  EXPECT_EQ(session.model.StartFileReding(), -1);
  ASSERT_EQ(session.desktop.boxes().size(), 2u);
  EXPECT_EQ(session.desktop.boxes()[1].text,
            std::string(Describe(RunTimeError::kPathFileAccessError)) +
                "\r\nWould you like to continue reading this MPS file?");
  EXPECT_EQ(session.RowNames(), (Lines{"R1", "OBJ"}));
  EXPECT_TRUE(session.desktop.shown().empty());
}

}  // namespace
}  // namespace quarvel::simplify
