#include "platform/scripted/scripted_desktop.h"

#include <stdexcept>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "platform/basic_controls.h"
#include "tests/support/any_box.h"

namespace quarvel::platform {
namespace {

using Lines = std::vector<std::string>;

TEST(ScriptedDesktop, WritesDownEverythingInOrder) {
  ScriptedDesktop desktop;
  desktop.answers = {MsgBoxResult::kNo};
  desktop.files = {"/m/model.mps"};
  desktop.inputs = {"12"};
  Form form(desktop, "frmTest");
  Button button(form, "cmdGo", {});
  ProgressBar bar(form, "pbr", {});
  form.Show();
  form.set_caption("Working");
  button.set_caption("Stop");
  bar.set_range(0, 10);
  bar.set_value(2.5F);
  desktop.DoEvents();
  desktop.MsgBox(AnyBox("Go on?", MsgBoxStyle::kYesNo, "Confirm"));
  const FileDialog dialog{FileDialog::Kind::kSave, "Save As...", "all (*.*)|*.*", ".mps", ""};
  EXPECT_EQ(desktop.ShowFileDialog(dialog), "/m/model.mps");
  desktop.InputBox("How many?", "Count", "1");
  desktop.SetMousePointer(MousePointer::kWait);
  desktop.SetMousePointer(MousePointer::kDefault);
  desktop.Beep();
  desktop.OpenInEditor("/m/model.log");
  form.Unload();
  EXPECT_EQ(desktop.transcript(),
            (Lines{"show frmTest", "caption frmTest: Working", "frmTest.cmdGo caption: Stop",
                   "frmTest.pbr range: 0 10", "frmTest.pbr value: 2.5", "events",
                   "box 4 [Confirm] Go on?", "file save [Save As...] all (*.*)|*.* -> /m/model.mps",
                   "input [Count] How many? -> 12", "pointer wait", "pointer default", "beep",
                   "editor /m/model.log", "close frmTest"}));
}

TEST(ScriptedDesktop, AnswersQuestionsFromTheQueue) {
  ScriptedDesktop desktop;
  desktop.answers = {MsgBoxResult::kYes, MsgBoxResult::kCancel};
  EXPECT_EQ(desktop.MsgBox(AnyBox("1", MsgBoxStyle::kYesNo, "t")), MsgBoxResult::kYes);
  EXPECT_EQ(desktop.MsgBox(AnyBox("2", MsgBoxStyle::kOk, "t")), MsgBoxResult::kOk);
  EXPECT_EQ(desktop.MsgBox(AnyBox("3", MsgBoxStyle::kYesNoCancelExclamation, "t")),
            MsgBoxResult::kCancel);
}

TEST(ScriptedDesktop, GivesEveryBoxToItsAnswererWhenSet) {
  ScriptedDesktop desktop;
  desktop.on_box = [](const ShownBox& box) {
    return box.text == "1" ? MsgBoxResult::kNo : MsgBoxResult::kYes;
  };
  EXPECT_EQ(desktop.MsgBox(AnyBox("1", MsgBoxStyle::kYesNo, "t")), MsgBoxResult::kNo);
  EXPECT_EQ(desktop.MsgBox(AnyBox("2", MsgBoxStyle::kYesNo, "t")), MsgBoxResult::kYes);
}

TEST(ScriptedDesktop, RefusesWhatTheTestDidNotExpect) {
  ScriptedDesktop desktop;
  EXPECT_THROW(desktop.MsgBox(AnyBox("Sure?", MsgBoxStyle::kYesNo, "t")), std::logic_error);
  EXPECT_THROW(desktop.InputBox("Name?", "t", ""), std::logic_error);
  EXPECT_THROW(desktop.ShowFileDialog(FileDialog()), std::logic_error);
  EXPECT_EQ(desktop.transcript().at(1), "unexpected question: Sure?");
}

TEST(ScriptedDesktop, RefusesAModalLoopThatNothingEnds) {
  ScriptedDesktop desktop;
  Form form(desktop, "frmTest");
  int turns = 0;
  desktop.idle_limit = 5;
  desktop.on_idle = [&](Form&) { ++turns; };
  EXPECT_THROW(form.ShowModal(), std::logic_error);
  EXPECT_EQ(turns, 5);
  EXPECT_EQ(desktop.transcript(),
            (Lines{"show modal frmTest", "unexpected modal loop of frmTest", "close frmTest"}));
}

TEST(ScriptedDesktop, CountsEventsAndLetsTheTestAct) {
  ScriptedDesktop desktop;
  std::vector<std::int64_t> numbers;
  desktop.on_events = [&](std::int64_t number) { numbers.push_back(number); };
  desktop.DoEvents();
  desktop.DoEvents();
  EXPECT_EQ(numbers, (std::vector<std::int64_t>{1, 2}));
  EXPECT_EQ(desktop.event_count(), 2);
}

TEST(ScriptedDesktop, KeepsTheDialogsAsTheyWereAsked) {
  ScriptedDesktop desktop;
  desktop.files = {""};
  FileDialog dialog;
  dialog.file_name = "offered";
  EXPECT_EQ(desktop.ShowFileDialog(dialog), "");
  EXPECT_EQ(desktop.file_dialogs().at(0).file_name, "offered");
}

TEST(ScriptedDesktop, MayHaveNoEditor) {
  ScriptedDesktop desktop;
  EXPECT_TRUE(desktop.OpenInEditor("a"));
  desktop.editor_starts = false;
  EXPECT_FALSE(desktop.OpenInEditor("b"));
  EXPECT_EQ(desktop.opened_in_editor(), (Lines{"a", "b"}));
}

TEST(ScriptedDesktop, ForgetsWhatHappenedWhenCleared) {
  ScriptedDesktop desktop;
  Form form(desktop, "frmTest");
  form.Show();
  desktop.MsgBox(AnyBox("text", MsgBoxStyle::kOk, "t"));
  desktop.DoEvents();
  desktop.Beep();
  desktop.OpenInEditor("a");
  desktop.Clear();
  EXPECT_TRUE(desktop.transcript().empty());
  EXPECT_TRUE(desktop.boxes().empty());
  EXPECT_TRUE(desktop.opened_in_editor().empty());
  EXPECT_EQ(desktop.event_count(), 0);
  EXPECT_EQ(desktop.beeps(), 0);
  EXPECT_EQ(desktop.shown(), std::vector<Form*>{&form});
}

}  // namespace
}  // namespace quarvel::platform
