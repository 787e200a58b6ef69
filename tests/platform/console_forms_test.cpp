// Forms on a console: choices, progress, and Ctrl-C as their stop button.
#include <chrono>
#include <csignal>
#include <deque>
#include <functional>
#include <iostream>
#include <sstream>
#include <string>

#include <gtest/gtest.h>

#include "platform/automation_error.h"
#include "platform/basic_controls.h"
#include "platform/console/console_system.h"
#include "tests/support/any_box.h"
#include "tests/support/console_fixture.h"
#include "tests/support/default_interrupt.h"

namespace quarvel::platform {
namespace {

using ConsoleFormsTest = ConsoleDesktopTest;

// Two options and a button, as a small dialog has them.
class frmChoice : public Form {
 public:
  explicit frmChoice(Desktop& desktop) : Form(desktop, "frmChoice") {
    set_caption("Set Bounds");
    lblText.set_caption("Choose && go");
    optA.set_caption("&First");
    optB.set_caption("&Second");
    optB.set_value(true);
    cmdOK.is_default = true;
    cmdOK.on_click = [this] {
      chosen = optA.value() ? "A" : "B";
      Unload();
    };
  }
  Label lblText{*this, "lblText", {}};
  OptionButton optA{*this, "optA", {}};
  OptionButton optB{*this, "optB", {}};
  Button cmdOther{*this, "cmdOther", {}};
  Button cmdOK{*this, "cmdOK", {}};
  std::string chosen;
};

TEST_F(ConsoleFormsTest, PressesTheDefaultButtonWithoutATerminal) {
  frmChoice form(desktop_);
  EXPECT_EQ(Printed([&] { form.ShowModal(); }), "");
  EXPECT_EQ(form.chosen, "B");
}

TEST_F(ConsoleFormsTest, LetsTheUserChooseByNumber) {
  const std::string question =
      "Set Bounds\nChoose & go\n  1. First\n* 2. Second\n1-2, or Enter for the marked: ";
  struct Case {
    std::deque<std::string> typed;
    const char* chosen;
    int repeats;
  };
  for (const Case& c : {Case{{"1"}, "A", 0}, Case{{"2"}, "B", 0}, Case{{""}, "B", 0},
                        Case{{"3", "x", "0", " 1 "}, "A", 3}}) {
    Type(c.typed);
    frmChoice form(desktop_);
    std::string expected = question;
    for (int i = 0; i < c.repeats; ++i) {
      expected += "Answer 1 to 2, nothing for the marked, or quit.\n1-2, or Enter for the marked: ";
    }
    EXPECT_EQ(Printed([&] { form.ShowModal(); }), expected);
    EXPECT_EQ(form.chosen, c.chosen);
    EXPECT_FALSE(desktop_.has_quit());
  }
}

TEST_F(ConsoleFormsTest, TakesTheMarkedAndAsksNoMoreWhenTheUserQuits) {
  Type({"3", "Qui", "1"});
  frmChoice form(desktop_);
  Printed([&] { form.ShowModal(); });
  EXPECT_EQ(form.chosen, "B");
  EXPECT_TRUE(desktop_.has_quit());
  frmChoice next(desktop_);
  EXPECT_EQ(Printed([&] { next.ShowModal(); }), "");
  EXPECT_EQ(next.chosen, "B");
}

TEST_F(ConsoleFormsTest, TakesTheEndOfInputForQuit) {
  Type({});
  frmChoice form(desktop_);
  Printed([&] { form.ShowModal(); });
  EXPECT_EQ(form.chosen, "B");
  EXPECT_TRUE(desktop_.has_quit());
}

TEST_F(ConsoleFormsTest, LeavesFormsToTheProgramFirst) {
  answers_.drive = [](Form& form) {
    auto& choice = static_cast<frmChoice&>(form);
    choice.optA.Click();
    choice.cmdOK.Click();
    return true;
  };
  Type({"2"});
  frmChoice form(desktop_);
  EXPECT_EQ(Printed([&] { form.ShowModal(); }), "");
  EXPECT_EQ(form.chosen, "A");
}

TEST_F(ConsoleFormsTest, PressesTheOnlyUsableButton) {
  frmChoice form(desktop_);
  form.cmdOK.is_default = false;
  form.cmdOther.set_enabled(false);
  form.ShowModal();
  EXPECT_EQ(form.chosen, "B");
}

TEST_F(ConsoleFormsTest, ClosesAFormWithoutAnObviousButton) {
  frmChoice form(desktop_);
  form.cmdOK.is_default = false;
  form.ShowModal();
  EXPECT_EQ(form.chosen, "");
  EXPECT_FALSE(form.IsShowing());
}

TEST_F(ConsoleFormsTest, NeverWaitsForEver) {
  frmChoice form(desktop_);
  int clicks = 0;
  form.cmdOK.on_click = [&] { ++clicks; };
  try {
    form.ShowModal();
    ADD_FAILURE() << "the form was never closed";
  } catch (const AutomationError& error) {
    EXPECT_EQ(error.number(), 51);
  }
  EXPECT_EQ(clicks, 3);
  EXPECT_FALSE(form.IsShowing());
}

// A window that works in its activation and closes only after its stop is confirmed.
class frmWork : public Form {
 public:
  explicit frmWork(Desktop& desktop) : Form(desktop, "frmWork") {
    set_caption("Working (50.%)");
    bar.set_range(0, 10);
    bar.set_value(5);
    cmdGo.is_stop = true;
    cmdGo.on_click = [this] {
      const auto answer =
          this->desktop().MsgBox(AnyBox("Are you sure?", MsgBoxStyle::kYesNo, "Confirm"));
      stopped = answer == MsgBoxResult::kYes;
    };
  }
  ProgressBar bar{*this, "pbr", {}};
  Button cmdGo{*this, "cmdGo", {}};
  bool stopped = false;
  std::function<void()> work = [] {};

 protected:
  void OnActivate() override { work(); }
  bool OnQueryUnload(UnloadReason) override { return stopped; }
};

TEST_F(ConsoleFormsTest, StopsAndClosesAFormLeftOpenByItsWork) {
  frmWork form(desktop_);
  EXPECT_EQ(Printed([&] { form.ShowModal(); }), "");
  EXPECT_TRUE(form.stopped);
  EXPECT_FALSE(form.IsShowing());
}

TEST_F(ConsoleFormsTest, AnswersOnlyTheQuestionOfItsOwnStop) {
  frmWork form(desktop_);
  form.Show();
  Printed([&] { form.cmdGo.Click(); });
  EXPECT_FALSE(form.stopped);
}

TEST_F(ConsoleFormsTest, DrawsNoProgressInAPipe) {
  frmWork form(desktop_);
  form.Show();
  EXPECT_EQ(Printed([&] { desktop_.DoEvents(); }), "");
}

TEST_F(ConsoleFormsTest, DrawsProgressOnOneLineAndErasesIt) {
  desktop_.set_shows_progress(true);
  frmWork form(desktop_);
  form.Show();
  const std::string line = "Working (50.%) [###############...............]";
  EXPECT_EQ(Printed([&] { desktop_.DoEvents(); }), line);
  // A draw follows another too soon, unless a busy machine lets the time between them pass.
  bool is_left_out = false;
  for (int i = 0; i < 100 && !is_left_out; ++i) {
    is_left_out = Printed([&] { desktop_.DoEvents(); }).empty();
  }
  EXPECT_TRUE(is_left_out);
  // A Ctrl-C behind it goes too.
  const std::string erased(line.size() + 2, ' ');
  EXPECT_EQ(Printed([&] { desktop_.MsgBox(AnyBox("Text", MsgBoxStyle::kOk, kDefaultTitle)); }),
            erased + "Text\n");
  EXPECT_EQ(Printed([&] { desktop_.DoEvents(); }), line);
  form.stopped = true;
  EXPECT_EQ(Printed([&] { form.Unload(); }), erased);
}

TEST_F(ConsoleFormsTest, ShowsNothingOfWorkThatTakesNoTime) {
  desktop_.set_shows_progress(true);
  desktop_.set_progress_delay(60'000);
  frmWork form(desktop_);
  form.Show();
  EXPECT_EQ(Printed([&] {
              desktop_.DoEvents();
              form.bar.set_value(9);
              desktop_.DoEvents();
              form.stopped = true;
              form.Unload();
            }),
            "");
}

TEST_F(ConsoleFormsTest, TellsHowLongItWillTakeYet) {
  desktop_.set_shows_progress(true);
  frmWork form(desktop_);
  form.Show();
  Printed([&] { desktop_.DoEvents(); });
  const auto until = std::chrono::steady_clock::now() + std::chrono::milliseconds(700);
  while (std::chrono::steady_clock::now() < until) {
  }
  form.bar.set_value(7.5F);
  const std::string later = Printed([&] { desktop_.DoEvents(); });
  EXPECT_TRUE(later.starts_with("Working (50.%), ")) << later;
  EXPECT_TRUE(later.ends_with(" s left [######################........]")) << later;
  form.bar.set_value(2);
  std::string back;
  while (back.empty()) back = Printed([&] { desktop_.DoEvents(); });
  EXPECT_EQ(back.find("left"), std::string::npos) << "of other work: " << back;
  form.stopped = true;
  Printed([&] { form.Unload(); });
}

TEST_F(ConsoleFormsTest, TellsHowLongItWillTakeYetAfterAnotherFormWasShownOverIt) {
  desktop_.set_shows_progress(true);
  frmWork form(desktop_);
  form.Show();
  {
    frmWork over(desktop_);
    over.Show();
    Printed([&] { desktop_.DoEvents(); });
    over.stopped = true;
    Printed([&] { over.Unload(); });
  }
  EXPECT_TRUE(Printed([&] { desktop_.DoEvents(); }).starts_with("Working"));
  const auto until = std::chrono::steady_clock::now() + std::chrono::milliseconds(700);
  while (std::chrono::steady_clock::now() < until) {
  }
  form.bar.set_value(7.5F);
  const std::string later = Printed([&] { desktop_.DoEvents(); });
  EXPECT_NE(later.find(" s left ["), std::string::npos) << later;
  form.stopped = true;
  Printed([&] { form.Unload(); });
}

TEST_F(ConsoleFormsTest, CutsTheProgressLineToTheScreen) {
  desktop_.set_shows_progress(true);
  frmWork form(desktop_);
  std::string caption;
  for (int i = 0; i < 100; ++i) caption += "\u00E9";
  form.set_caption(caption);
  form.Show();
  EXPECT_EQ(Printed([&] { desktop_.DoEvents(); }), caption.substr(0, 74 * 2) + "...");
  form.stopped = true;
  Printed([&] { form.Unload(); });
}

TEST_F(ConsoleFormsTest, DrawsAnEmptyBarForAnEmptyRange) {
  desktop_.set_shows_progress(true);
  frmWork form(desktop_);
  form.bar.set_range(0, 0);
  form.Show();
  EXPECT_EQ(Printed([&] { desktop_.DoEvents(); }), "Working (50.%) [" + std::string(30, '.') + "]");
  form.stopped = true;
  Printed([&] { form.Unload(); });
}

TEST_F(ConsoleFormsTest, DoesNothingAtEventsWithoutACtrlC) {
  frmWork form(desktop_);
  form.Show();
  desktop_.DoEvents();
  EXPECT_FALSE(desktop_.interrupted());
  EXPECT_FALSE(form.stopped);
}

#ifndef _WIN32

TEST_F(ConsoleFormsTest, CtrlCPressesStopAndConfirmsIt) {
  frmWork form(desktop_);
  form.Show();
  std::raise(SIGINT);
  EXPECT_TRUE(desktop_.interrupted());
  EXPECT_FALSE(form.stopped) << "before events run";
  EXPECT_EQ(Printed([&] { desktop_.DoEvents(); }), "");
  EXPECT_TRUE(form.stopped);
}

TEST_F(ConsoleFormsTest, CtrlCPressesStopOnce) {
  frmWork form(desktop_);
  form.Show();
  std::raise(SIGINT);
  desktop_.DoEvents();
  form.stopped = false;
  desktop_.DoEvents();
  EXPECT_FALSE(form.stopped);
}

TEST_F(ConsoleFormsTest, CtrlCWaitsForAFormThatCanBeStopped) {
  std::raise(SIGINT);
  desktop_.DoEvents();
  frmWork form(desktop_);
  form.work = [&] { desktop_.DoEvents(); };
  form.Show();
  EXPECT_TRUE(form.stopped);
}

TEST_F(ConsoleFormsTest, CtrlCBelongsToTheDesktopOfItsTime) {
  std::raise(SIGINT);
  const ConsoleDesktop later(answers_);
  EXPECT_TRUE(desktop_.interrupted());
  EXPECT_FALSE(later.interrupted());
}

TEST(ConsoleDesktopDeathTest, SecondCtrlCEndsTheProgram) {
  const DefaultInterrupt interrupt;
  EXPECT_EXIT(
      {
        FakeAnswers answers;
        const ConsoleDesktop desktop(answers);
        std::raise(SIGINT);
        std::raise(SIGINT);
      },
      testing::KilledBySignal(SIGINT), "");
}

TEST(ConsoleDesktop, LeavesCtrlCAsItWas) {
  const DefaultInterrupt interrupt;
  {
    FakeAnswers answers;
    const ConsoleDesktop desktop(answers);
    std::raise(SIGINT);
  }
  const auto handler = std::signal(SIGINT, SIG_DFL);
  EXPECT_EQ(handler, SIG_DFL);
}

TEST(ConsoleDesktop, GoesOnIgnoringCtrlCWhereItWasIgnored) {
  const DefaultInterrupt interrupt;
  std::signal(SIGINT, SIG_IGN);
  {
    FakeAnswers answers;
    const ConsoleDesktop desktop(answers);
    std::raise(SIGINT);
    EXPECT_FALSE(desktop.interrupted());
  }
}

TEST(ReadInputLine, ReadsStandardInputAfterItsEndToo) {
  std::istringstream lines("one\r\ntwo");
  std::streambuf* const before = std::cin.rdbuf(lines.rdbuf());
  EXPECT_EQ(console::ReadInputLine(), "one");
  EXPECT_EQ(console::ReadInputLine(), "two");
  EXPECT_EQ(console::ReadInputLine(), std::nullopt);
  lines.str("three");
  EXPECT_EQ(console::ReadInputLine(), "three");
  std::cin.rdbuf(before);
}

#endif

}  // namespace
}  // namespace quarvel::platform
