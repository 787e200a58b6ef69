// ReadMPSFile from its dialogs to its result, and hosts that call back meanwhile.

#include <cstdio>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "model/model_check.h"
#include "mps/frm_mps_file_open.h"
#include "mps/frm_progress.h"
#include "mps/frm_set_default_bounds.h"
#include "platform/file_dialog.h"
#include "tests/mps/read_helpers.h"

namespace quarvel::mps {
namespace {

using platform::Form;
using platform::MsgBoxStyle;
using platform::ShownBox;

TEST(ReadMPSFile, ReturnsOneAndKeepsTheModelWhenTheDialogIsCancelled) {
  ReadSession session;
  session.Read(ManyColumns(3));
  session.desktop.Clear();
  EXPECT_EQ(session.ReadFile(""), 1);
  EXPECT_EQ(session.model.NumberOfColumns(), 3);
  EXPECT_EQ(session.model.FileLocation(), "");
  EXPECT_EQ(session.model.strMPSFile(), "");
  EXPECT_TRUE(session.desktop.boxes().empty());
}

TEST(ReadMPSFile, AsksForAFileWithItsTitleAndFilterAndAnEmptyName) {
  ReadSession session;
  session.Read(ManyColumns(1));
  session.Read(ManyColumns(1));
  ASSERT_EQ(session.desktop.file_dialogs().size(), 2u);
  for (const platform::FileDialog& dialog : session.desktop.file_dialogs()) {
    EXPECT_EQ(dialog.kind, platform::FileDialog::Kind::kOpen);
    EXPECT_EQ(dialog.title, "Identify the MPS file to open");
    EXPECT_EQ(dialog.filter, "MPS files (*.MPS)|*.MPS|all files (*.*)|*.*");
    EXPECT_EQ(dialog.default_extension, "");
  }
  EXPECT_EQ(session.model.FileLocation(), session.folder.File("model.mps"));
  EXPECT_EQ(session.model.strMPSFile(), session.folder.File("model.mps"));
}

TEST(ReadMPSFile, ShowsItsWindowsInOrder) {
  ReadSession session;
  session.Read(ManyColumns(1));
  std::vector<std::string> windows;
  for (const std::string& line : session.desktop.transcript()) {
    if (line.starts_with("show") || line.starts_with("close")) windows.push_back(line);
  }
  const std::vector<std::string> expected = {"show modal frmSetDefaultBounds",
                                             "close frmSetDefaultBounds", "show modal frmProgress",
                                             "close frmProgress"};
  EXPECT_EQ(windows, expected);
}

// --- default bounds ---

TEST(DefaultBounds, HaveTheirWordsAndComeUpWithZeroSelected) {
  ReadSession session;
  int shown = 0;
  session.desktop.on_idle = [&](Form& form) {
    auto& dialog = dynamic_cast<frmSetDefaultBounds&>(form);
    ++shown;
    EXPECT_EQ(dialog.caption(), "Set Default Bounds");
    EXPECT_EQ(dialog.lblChoose.caption(),
              "Choose which default bounds for Quarvel to implement.  These values are used if a "
              "column/variable is not explicitly given bounds.");
    EXPECT_EQ(dialog.optZeroToLimit.caption(), "0 to +1E10");
    EXPECT_EQ(dialog.optLimitToLimit.caption(), "-1E10 to +1E10");
    EXPECT_EQ(dialog.cmdOK.caption(), "OK");
    EXPECT_TRUE(dialog.optZeroToLimit.value());
    EXPECT_FALSE(dialog.optLimitToLimit.value());
    dialog.optLimitToLimit.Click();
    dialog.cmdOK.Click();
  };
  session.Read(ManyColumns(1));
  session.Read(ManyColumns(1));
  EXPECT_EQ(shown, 2);
}

TEST(DefaultBounds, ClosedWithoutOkKeepTheChoiceAndTheReadGoesOn) {
  for (const bool before : {false, true}) {
    ReadSession session;
    session.model.SetDefaultToPlusMinusInfinity(before);
    session.desktop.on_idle = [&](Form& form) {
      auto& dialog = dynamic_cast<frmSetDefaultBounds&>(form);
      dialog.optLimitToLimit.Click();
      dialog.RequestClose();
    };
    EXPECT_EQ(session.Read(ManyColumns(1)), -1);
    EXPECT_EQ(session.model.ColLowerBound(0), before ? -1e10 : 0);
  }
}

// --- direct calls ---

TEST(StartFileReding, ReadsWithoutAWindow) {
  ReadSession session;
  const std::string path = session.folder.File("direct.mps");
  WriteWholeFile(path, ManyColumns(300));
  session.model.strMPSFile(path);
  EXPECT_EQ(session.model.StartFileReding(), -1);
  EXPECT_EQ(session.model.ReadMPSFileErr(), -1);
  EXPECT_EQ(session.model.NumberOfColumns(), 300);
  EXPECT_EQ(session.model.FileLocation(), "");
  for (const std::string& line : session.desktop.transcript()) {
    EXPECT_FALSE(line.starts_with("show") || line.starts_with("caption")) << line;
  }
}

TEST(StartFileReding, AsksItsQuestionsAndTakesNoStop) {
  ReadSession session;
  const std::string path = session.folder.File("direct.mps");
  WriteWholeFile(path, ManyColumns(300) + "never read");
  session.Read(ManyColumns(1));  // leaves its window behind
  session.model.strMPSFile(path);
  Progress(session).StopRequested = true;
  session.model.StartFileReding();
  EXPECT_EQ(session.model.NumberOfColumns(), 300);
}

TEST(StartFileReding, ReadsWhileAHostSaysTheViewerIsOpen) {
  ReadSession session;
  session.model.frmViewEquationsIsShowing(true);
  EXPECT_EQ(session.Read(ManyColumns(3)), -1);
  EXPECT_TRUE(session.model.frmViewEquationsIsShowing());
}

// --- hosts that call back ---

TEST(ReadCallback, SeesEverythingReadSoFarFromBothSides) {
  ReadSession session;
  int looks = 0;
  session.desktop.on_events = [&](std::int64_t) {
    ++looks;
    const LPModel& model = session.model;
    EXPECT_EQ(model.RowNumberElements(1), model.NumberOfElements());
    EXPECT_EQ(model::CheckModelData(model.store()), "");
  };
  session.Read(ManyColumns(450));
  EXPECT_EQ(looks, 4);
  EXPECT_EQ(session.model.NumberOfElements(), 451);
  EXPECT_EQ(model::CheckModelData(session.model.store()), "");
}

TEST(ReadCallback, MayDeleteAddAndResetInTheMiddle) {
  for (int action = 0; action < 5; ++action) {
    ReadSession session;
    session.desktop.on_events = [&](std::int64_t number) {
      if (number != 2) return;
      LPModel& model = session.model;
      if (action == 0) model.DeleteRow(1);
      if (action == 1) model.DeleteColumn(7);
      if (action == 2) model.MakeNewModel();
      if (action == 3) model.AddElement(0, 0, 5);
      if (action == 4) model.AddRow("HOSTROW");
    };
    EXPECT_EQ(session.Read(ManyColumns(600)), -1) << action;
    EXPECT_EQ(model::CheckModelData(session.model.store()), "") << action;
  }
}

TEST(ReadCallback, MayDeleteColumnsUnderAQuestionInTheMiddleOfALine) {
  for (const std::int32_t deleted : {0, 1, 2}) {
    ReadSession session;
    const auto answer = session.desktop.on_box;
    session.desktop.on_box = [&](const ShownBox& box) {
      if (box.text.find("no match for row name") != std::string::npos) {
        session.model.DeleteColumn(deleted);
      }
      return answer(box);
    };
    session.Read(
        "ROWS\n L R1\n L R2\nCOLUMNS\n A R1 1 R2 1\n B R1 1 R2 1\n C R1 1\n"
        " C NOPE 4 R2 5\nENDATA\n");
    const LPModel& model = session.model;
    EXPECT_EQ(model::CheckModelData(model.store()), "") << deleted;
    // The rest of the line goes to its own column, wherever that stands now, or nowhere.
    const std::int32_t column = model.store().FindColumn("C");
    EXPECT_EQ(column, deleted == 2 ? 0 : 2);
    if (column != 0) {
      EXPECT_EQ(model.ElementValue(1, column - 1), 5);
    }
    EXPECT_EQ(model.NumberOfElements(), 4);
  }
}

TEST(ReadCallback, MayReadAnotherFileDirectly) {
  ReadSession session;
  const std::string other = session.folder.File("other.mps");
  WriteWholeFile(other, "ROWS\n L OTHER\nCOLUMNS\n Z OTHER 1\nENDATA\n");
  session.desktop.on_events = [&](std::int64_t number) {
    if (number != 1) return;
    session.model.strMPSFile(other);
    session.model.StartFileReding();
  };
  session.Read(ManyColumns(600));
  EXPECT_EQ(model::CheckModelData(session.model.store()), "");
}

TEST(ReadCallback, RaisesWhenAReadIsStartedInsideARead) {
  ReadSession session;
  std::int32_t number_raised = 0;
  session.desktop.on_events = [&](std::int64_t number) {
    if (number != 1) return;
    session.desktop.files.push_back(session.folder.File("model.mps"));
    try {
      session.model.ReadMPSFile();
    } catch (const AutomationError& error) {
      number_raised = error.number();
    }
  };
  EXPECT_EQ(session.Read(ManyColumns(300)), -1);
  EXPECT_EQ(number_raised, 400);
  EXPECT_EQ(session.desktop.files.size(), 1u);  // refused before anything is asked
  EXPECT_EQ(session.model.NumberOfColumns(), 300);
}

// --- the file is free afterwards ---

TEST(FileOfARead, CanBeDeletedWhileTheLastQuestionsAreAsked) {
  ReadSession session;
  session.desktop.on_box = [&](const ShownBox&) {
    if (session.desktop.box_data().back().kind == platform::BoxKind::kOfferToSimplify) {
      platform::RemoveFile(session.folder.File("model.mps"));
    }
    return kNo;
  };
  EXPECT_EQ(session.Read(ManyColumns(1)), -1);
  EXPECT_FALSE(platform::FileExists(session.folder.File("model.mps")));
}

TEST(FileOfARead, CanBeDeletedAfterEveryWayOut) {
  for (const bool stop : {false, true}) {
    ReadSession session;
    session.problem_answers = {stop ? kYes : kNo};
    session.desktop.on_events = [&](std::int64_t) {
      if (stop) Progress(session).cmdStop.Click();
    };
    session.Read("ROWS\n bad\n" + std::string(stop ? ManyColumns(300) : ""));
    EXPECT_EQ(session.model.ReadMPSFileErr(), 0);
    platform::RemoveFile(session.folder.File("model.mps"));
    EXPECT_FALSE(platform::FileExists(session.folder.File("model.mps")));
  }
}

// Where one object's dialog has been does not reach another's.
TEST(FileDialogHost, IsOneForEachObjectAndStartsEmpty) {
  platform::ScriptedDesktop desktop;
  LPModel a(desktop);
  LPModel b(desktop);
  std::vector<std::string> asked;
  desktop.on_file = [&](const platform::FileDialog& dialog) { asked.push_back(dialog.folder); };
  desktop.files = {"/models/a.mps", "", "", ""};
  desktop.on_idle = [](platform::Form& form) { form.Unload(); };
  desktop.answers = {kNo};
  a.ReadMPSFile();
  a.MakeNewModel();
  a.SaveAsMPSFile();
  b.SaveAsMPSFile();
  EXPECT_EQ(asked, (std::vector<std::string>{"", "/models", ""}));
}

}  // namespace
}  // namespace quarvel::mps
