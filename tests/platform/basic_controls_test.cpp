#include "platform/basic_controls.h"

#include <limits>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "platform/scripted/scripted_desktop.h"

namespace quarvel::platform {
namespace {

class ControlsTest : public ::testing::Test {
 protected:
  // What the drawer was told since the form was drawn.
  std::vector<std::string> Told() const {
    return {desktop_.transcript().begin() + 1, desktop_.transcript().end()};
  }

  ScriptedDesktop desktop_;
  Form form_{desktop_, "frmTest"};
};

using Texts = std::vector<std::string>;

TEST_F(ControlsTest, StandInTheirFormInCreationOrder) {
  Label label(form_, "lblFirst", {1, 2, 3, 4});
  Button button(form_, "cmdSecond", {});
  EXPECT_EQ(form_.controls(), (std::vector<Control*>{&label, &button}));
  EXPECT_EQ(form_.Find("cmdSecond"), &button);
  EXPECT_EQ(form_.Find("CMDSECOND"), nullptr);
  EXPECT_EQ(label.kind(), ControlKind::kLabel);
  EXPECT_EQ(label.place().height, 4);
  EXPECT_EQ(label.place(), (Place{1, 2, 3, 4}));
}

TEST_F(ControlsTest, TellTheDrawerWhatChanged) {
  Button button(form_, "cmdGo", {});
  form_.Show();
  button.set_caption("Go");
  button.set_enabled(false);
  button.set_visible(false);
  EXPECT_EQ(Told(), (Texts{"frmTest.cmdGo caption: Go", "frmTest.cmdGo enabled: false",
                           "frmTest.cmdGo visible: false"}));
}

TEST_F(ControlsTest, SayNothingWhenNothingChanges) {
  Button button(form_, "cmdGo", {});
  OptionButton option(form_, "optA", {});
  ProgressBar bar(form_, "pbr", {});
  form_.Show();
  button.set_caption("");
  button.set_enabled(true);
  button.set_visible(true);
  option.set_value(false);
  bar.set_range(0, 100);
  bar.set_value(0);
  EXPECT_EQ(Told(), Texts{});
}

TEST_F(ControlsTest, KeepTheirStateWithoutAWindow) {
  Button button(form_, "cmdGo", {});
  button.set_caption("Go");
  EXPECT_EQ(button.caption(), "Go");
  EXPECT_EQ(desktop_.transcript(), Texts{});
}

TEST_F(ControlsTest, ButtonRunsItsHandlerWhenPressed) {
  Button button(form_, "cmdGo", {});
  button.Click();
  int clicks = 0;
  button.on_click = [&] { ++clicks; };
  button.Click();
  EXPECT_EQ(clicks, 1);
}

TEST_F(ControlsTest, ButtonIgnoresThePressWhenDisabledOrHidden) {
  Button button(form_, "cmdGo", {});
  int clicks = 0;
  button.on_click = [&] { ++clicks; };
  button.set_enabled(false);
  button.Click();
  button.set_enabled(true);
  button.set_visible(false);
  button.Click();
  EXPECT_EQ(clicks, 0);
}

TEST_F(ControlsTest, ButtonMayLoseItsHandlerInsideIt) {
  Button button(form_, "cmdGo", {});
  std::string said;
  const std::string text(100, 'x');
  button.on_click = [&button, &said, text] {
    button.on_click = nullptr;
    said = text;
  };
  button.Click();
  EXPECT_EQ(said, text);
}

TEST_F(ControlsTest, OptionClearsTheOthersOfItsGroupOnly) {
  OptionButton a(form_, "optA", {});
  OptionButton b(form_, "optB", {});
  OptionButton other(form_, "optOther", {}, 1);
  other.set_value(true);
  a.set_value(true);
  b.set_value(true);
  EXPECT_FALSE(a.value());
  EXPECT_TRUE(b.value());
  EXPECT_TRUE(other.value());
}

TEST_F(ControlsTest, OptionTellsTheClearedOneBeforeItself) {
  OptionButton a(form_, "optA", {});
  OptionButton b(form_, "optB", {});
  a.set_value(true);
  form_.Show();
  b.set_value(true);
  EXPECT_EQ(Told(), (Texts{"frmTest.optA value: false", "frmTest.optB value: true"}));
}

TEST_F(ControlsTest, OptionCanBeClearedFromCode) {
  OptionButton a(form_, "optA", {});
  a.set_value(true);
  a.set_value(false);
  EXPECT_FALSE(a.value());
}

TEST_F(ControlsTest, OptionIsSelectedByAClickUnlessDisabledOrHidden) {
  OptionButton a(form_, "optA", {});
  OptionButton b(form_, "optB", {});
  OptionButton c(form_, "optC", {});
  b.set_enabled(false);
  c.set_visible(false);
  a.Click();
  b.Click();
  c.Click();
  EXPECT_TRUE(a.value());
  EXPECT_FALSE(b.value());
  EXPECT_FALSE(c.value());
}

TEST_F(ControlsTest, ProgressBarHoldsItsValueWithinItsRange) {
  ProgressBar bar(form_, "pbr", {});
  constexpr float kInfinity = std::numeric_limits<float>::infinity();
  constexpr float kNaN = std::numeric_limits<float>::quiet_NaN();
  struct Case {
    float set, held;
  };
  for (const Case c : {Case{5, 5}, {101, 100}, {-1, 0}, {kInfinity, 100}, {kNaN, 0}}) {
    bar.set_value(50);
    bar.set_value(c.set);
    EXPECT_EQ(bar.value(), c.held) << c.set;
  }
}

TEST_F(ControlsTest, ProgressBarTellsHowMuchIsDone) {
  ProgressBar bar(form_, "pbr", {});
  bar.set_range(10, 20);
  EXPECT_EQ(bar.Done(), 0);
  bar.set_value(12.5F);
  EXPECT_EQ(bar.Done(), 0.25);
  bar.set_value(20);
  EXPECT_EQ(bar.Done(), 1);
  bar.set_range(20, 20);
  EXPECT_EQ(bar.Done(), 0);
}

TEST_F(ControlsTest, ProgressBarMayBeEmpty) {
  ProgressBar bar(form_, "pbr", {});
  bar.set_range(0, 0);
  bar.set_value(1);
  EXPECT_EQ(bar.min(), 0);
  EXPECT_EQ(bar.max(), 0);
  EXPECT_EQ(bar.value(), 0);
}

TEST_F(ControlsTest, ProgressBarTakesItsValueAlongWithTheRange) {
  ProgressBar bar(form_, "pbr", {});
  bar.set_value(80);
  form_.Show();
  bar.set_range(0, 50);
  EXPECT_EQ(bar.value(), 50);
  bar.set_range(0, 150'000'000);
  EXPECT_EQ(Told(), (Texts{"frmTest.pbr range: 0 50", "frmTest.pbr value: 50",
                           "frmTest.pbr range: 0 150000000"}));
}

TEST_F(ControlsTest, ProgressBarNeverHasItsBoundsCrossed) {
  ProgressBar bar(form_, "pbr", {});
  bar.set_range(10, 5);
  EXPECT_EQ(bar.min(), 10);
  EXPECT_EQ(bar.max(), 10);
  EXPECT_EQ(bar.value(), 10);
}

}  // namespace
}  // namespace quarvel::platform
