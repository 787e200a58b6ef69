#include "platform/input_controls.h"

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "platform/basic_controls.h"
#include "platform/scripted/scripted_desktop.h"

namespace quarvel::platform {
namespace {

using Lines = std::vector<std::string>;

class InputControlsTest : public ::testing::Test {
 protected:
  // What the drawer was told since the form was drawn.
  Lines Told() const { return {desktop_.transcript().begin() + 1, desktop_.transcript().end()}; }
  std::function<void()> Count() {
    return [this] { ++runs_; };
  }

  ScriptedDesktop desktop_;
  Form form_{desktop_, "frmTest"};
  int runs_ = 0;
};

using CheckBoxTest = InputControlsTest;
using TextBoxTest = InputControlsTest;
using ComboBoxTest = InputControlsTest;
using TabStripTest = InputControlsTest;

TEST_F(CheckBoxTest, IsTurnedByAClickAndRunsItsHandlerThen) {
  CheckBox box(form_, "chk", {});
  bool seen = false;
  box.on_click = [&] { seen = box.checked(); };
  box.Click();
  EXPECT_TRUE(seen);
  box.Click();
  EXPECT_FALSE(seen);
}

TEST_F(CheckBoxTest, IsSetFromCodeWithoutAHandler) {
  CheckBox box(form_, "chk", {});
  box.on_click = Count();
  form_.Show();
  box.set_checked(true);
  box.set_checked(true);
  EXPECT_TRUE(box.checked());
  EXPECT_EQ(runs_, 0);
  EXPECT_EQ(Told(), Lines{"frmTest.chk value: true"});
}

TEST_F(CheckBoxTest, StaysWhenDisabledOrHidden) {
  CheckBox box(form_, "chk", {});
  box.on_click = Count();
  box.set_enabled(false);
  box.Click();
  box.set_enabled(true);
  box.set_visible(false);
  box.Click();
  EXPECT_FALSE(box.checked());
  EXPECT_EQ(runs_, 0);
}

struct LineCase {
  const char* given;
  const char* one;
  const char* many;
};

const LineCase kLineCases[] = {
    {"a", "a", "a"},
    {"a\nb", "a b", "a\r\nb"},
    {"a\r\nb", "a b", "a\r\nb"},
    {"a\rb\n", "a b ", "a\r\nb\r\n"},
    {"\n\r\n\r", "   ", "\r\n\r\n\r\n"},
    {"", "", ""},
};

TEST_F(TextBoxTest, SeparatesLinesByCrLfOrHoldsOne) {
  for (const LineCase& c : kLineCases) {
    Form form(desktop_, "frmNew");
    TextBox one(form, "txtOne", {});
    TextBox many(form, "txtMany", {}, TextBox::Lines::kMany);
    one.set_text(c.given);
    many.set_text(c.given);
    EXPECT_EQ(one.text(), c.one);
    EXPECT_EQ(many.text(), c.many);
    TextBox typed(form, "txtTyped", {}, TextBox::Lines::kMany);
    typed.Type(c.given);
    EXPECT_EQ(typed.text(), c.many);
  }
}

TEST_F(TextBoxTest, TellsTheDrawerWhatCodeWritesAndNotWhatTheUserTypes) {
  TextBox box(form_, "txt", {});
  box.on_change = Count();
  form_.Show();
  box.set_text("a");
  box.set_text("a");
  EXPECT_EQ(runs_, 0);
  box.Type("b");
  box.Type("b");
  EXPECT_EQ(box.text(), "b");
  EXPECT_EQ(runs_, 1);
  EXPECT_EQ(Told(), Lines{"frmTest.txt value: a"});
}

TEST_F(TextBoxTest, IsNotTypedInWhenReadOnlyDisabledOrHidden) {
  TextBox box(form_, "txt", {});
  box.set_text("a");
  box.read_only = true;
  box.Type("b");
  box.read_only = false;
  box.set_enabled(false);
  box.Type("b");
  box.set_enabled(true);
  box.set_visible(false);
  box.Type("b");
  EXPECT_EQ(box.text(), "a");
}

TEST_F(ComboBoxTest, HasNoChoiceAfterItsEntriesAreSet) {
  ComboBox box(form_, "cbo", {});
  box.on_click = Count();
  box.set_items({"a", "b"});
  EXPECT_EQ(box.list_index(), -1);
  box.set_list_index(1);
  box.set_items({"c"});
  EXPECT_EQ(box.items(), Lines{"c"});
  EXPECT_EQ(box.list_index(), -1);
  EXPECT_EQ(runs_, 1);
}

TEST_F(ComboBoxTest, RunsItsHandlerForEveryChoiceAlsoOfTheSameEntry) {
  ComboBox box(form_, "cbo", {});
  box.on_click = Count();
  box.set_items({"a", "b"});
  form_.Show();
  box.set_list_index(1);
  box.set_list_index(1);
  box.Select(1);
  box.Select(0);
  EXPECT_EQ(runs_, 4);
  EXPECT_EQ(Told(), (Lines{"frmTest.cbo current: 1", "frmTest.cbo current: 0"}));
}

TEST_F(ComboBoxTest, IgnoresEntriesItDoesNotHave) {
  ComboBox box(form_, "cbo", {});
  box.on_click = Count();
  box.set_items({"a", "b"});
  box.set_list_index(2);
  box.set_list_index(-2);
  box.Select(2);
  EXPECT_EQ(box.list_index(), -1);
  EXPECT_EQ(runs_, 0);
  box.set_list_index(0);
  box.set_list_index(-1);
  EXPECT_EQ(box.list_index(), -1);
}

TEST_F(ComboBoxTest, IsNotChosenFromWhenDisabledOrHidden) {
  ComboBox box(form_, "cbo", {});
  box.on_click = Count();
  box.set_items({"a"});
  box.set_enabled(false);
  box.Select(0);
  box.set_enabled(true);
  box.set_visible(false);
  box.Select(0);
  EXPECT_EQ(box.list_index(), -1);
  EXPECT_EQ(runs_, 0);
}

TEST_F(TabStripTest, ShowsTheControlsOfItsCurrentPageOnly) {
  TabStrip strip(form_, "sst", {}, {"One", "Two"});
  Label one(form_, "lblOne", {});
  Label two(form_, "lblTwo", {});
  Label always(form_, "lblAlways", {});
  strip.Hold(0, one);
  strip.Hold(1, two);
  EXPECT_TRUE(one.visible());
  EXPECT_FALSE(two.visible());
  strip.Select(1);
  EXPECT_FALSE(one.visible());
  EXPECT_TRUE(two.visible());
  EXPECT_TRUE(always.visible());
}

TEST_F(TabStripTest, ControlThatIsHiddenStaysSoOnItsPage) {
  TabStrip strip(form_, "sst", {}, {"One", "Two"});
  Label two(form_, "lblTwo", {});
  strip.Hold(1, two);
  two.set_visible(false);
  strip.Select(1);
  EXPECT_FALSE(two.visible());
  two.set_visible(true);
  EXPECT_TRUE(two.visible());
  strip.Select(0);
  EXPECT_FALSE(two.visible());
}

TEST_F(TabStripTest, TakesTheOldPageAwayBeforeItShowsTheNew) {
  TabStrip strip(form_, "sst", {}, {"One", "Two"});
  Label two(form_, "lblTwo", {});
  Label one(form_, "lblOne", {});
  strip.Hold(1, two);
  strip.Hold(0, one);
  form_.Show();
  strip.Select(1);
  EXPECT_EQ(Told(), (Lines{"frmTest.sst current: 1", "frmTest.lblOne visible: false",
                           "frmTest.lblTwo visible: true"}));
}

TEST_F(TabStripTest, RunsItsHandlerForAnotherPageFromCodeAndByTheUser) {
  TabStrip strip(form_, "sst", {}, {"One", "Two"});
  strip.on_change = Count();
  strip.set_current(0);
  EXPECT_EQ(runs_, 0);
  strip.set_current(1);
  strip.set_current(1);
  EXPECT_EQ(runs_, 1);
  strip.Select(0);
  EXPECT_EQ(runs_, 2);
}

TEST_F(TabStripTest, IgnoresPagesItDoesNotHaveAndTheUserWhenDisabled) {
  TabStrip strip(form_, "sst", {}, {"One", "Two"});
  strip.on_change = Count();
  strip.set_current(2);
  strip.set_current(-1);
  strip.set_enabled(false);
  strip.Select(1);
  EXPECT_EQ(strip.current(), 0);
  EXPECT_EQ(runs_, 0);
}

}  // namespace
}  // namespace quarvel::platform
