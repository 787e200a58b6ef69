#include "platform/focus_order.h"

#include <gtest/gtest.h>

#include "platform/form.h"
#include "platform/input_controls.h"
#include "platform/scripted/scripted_desktop.h"

namespace quarvel::platform {
namespace {

class frmStops : public Form {
 public:
  explicit frmStops(Desktop& desktop) : Form(desktop, "frmStops") {
    SetSize(400, 300, true);
    tabs.Hold(0, txtPage);
    tabs.Hold(0, cmdPage);
    tabs.Hold(1, chkOther);
  }
  Label lblName{*this, "lblName", {0, 0, 50, 20}};
  TextBox txtName{*this, "txtName", {50, 0, 100, 20}};
  OptionButton optA{*this, "optA", {0, 30, 50, 20}};
  OptionButton optB{*this, "optB", {50, 30, 50, 20}};
  TabStrip tabs{*this, "tabs", {0, 60, 400, 200}, {"One", "Two"}};
  TextBox txtPage{*this, "txtPage", {10, 90, 50, 20}};
  Button cmdPage{*this, "cmdPage", {70, 90, 50, 20}};
  CheckBox chkOther{*this, "chkOther", {10, 90, 50, 20}};
  Button cmdOK{*this, "cmdOK", {300, 270, 50, 20}};
};

class FocusOrder : public ::testing::Test {
 protected:
  // The names of the stops as Tab, or Shift+Tab, goes through them.
  std::vector<std::string> Stops(bool forward = true) const {
    std::vector<std::string> names;
    const Control* const first = NextStop(form_, nullptr, forward);
    for (const Control* stop = first; stop != nullptr && names.size() < 20;) {
      names.push_back(stop->name());
      stop = NextStop(form_, stop, forward);
      if (stop == first) break;
    }
    return names;
  }

  ScriptedDesktop desktop_;
  frmStops form_{desktop_};
};

using Names = std::vector<std::string>;

TEST_F(FocusOrder, IsThatOfCreationInARing) {
  EXPECT_EQ(Stops(), (Names{"txtName", "optA", "tabs", "txtPage", "cmdPage", "cmdOK"}));
  EXPECT_EQ(Stops(false), (Names{"cmdOK", "cmdPage", "txtPage", "tabs", "optA", "txtName"}));
}

TEST_F(FocusOrder, HasTheSelectedOptionForItsGroup) {
  form_.optB.Click();
  EXPECT_EQ(Stops(), (Names{"txtName", "optB", "tabs", "txtPage", "cmdPage", "cmdOK"}));
  EXPECT_EQ(NextStop(form_, &form_.optA, true), &form_.tabs);
  EXPECT_EQ(OpeningStop(form_, &form_.optA), &form_.optB);
  EXPECT_EQ(UsableGroup(form_, form_.optA), (std::vector<OptionButton*>{&form_.optA, &form_.optB}));
}

TEST_F(FocusOrder, PassesWhatIsDisabledOrHidden) {
  form_.txtName.set_enabled(false);
  form_.cmdOK.set_visible(false);
  form_.optA.set_enabled(false);
  EXPECT_EQ(Stops(), (Names{"optB", "tabs", "txtPage", "cmdPage"}));
  EXPECT_EQ(OpeningStop(form_, &form_.txtName), &form_.optB);
  EXPECT_EQ(OpeningStop(form_, nullptr), &form_.optB);
}

TEST_F(FocusOrder, BeginsWhereTheFormWants) {
  EXPECT_EQ(OpeningStop(form_, nullptr), &form_.txtName);
  EXPECT_EQ(OpeningStop(form_, &form_.cmdPage), &form_.cmdPage);
}

TEST_F(FocusOrder, HasNoStopInAFormWithoutUsableControls) {
  for (Control* control : form_.controls()) control->set_enabled(false);
  EXPECT_EQ(OpeningStop(form_, nullptr), nullptr);
  EXPECT_EQ(NextStop(form_, &form_.cmdOK, false), nullptr);
  EXPECT_EQ(Refuge(form_, form_.cmdOK), nullptr);
  EXPECT_FALSE(TurnPage(form_, true));
}

TEST_F(FocusOrder, FleesFromATurnedPageToItsTabs) {
  EXPECT_TRUE(TurnPage(form_, true));
  EXPECT_EQ(form_.tabs.current(), 1);
  EXPECT_EQ(Refuge(form_, form_.txtPage), &form_.tabs);
  EXPECT_TRUE(TurnPage(form_, true));
  EXPECT_EQ(form_.tabs.current(), 0);
  EXPECT_TRUE(TurnPage(form_, false));
  EXPECT_EQ(form_.tabs.current(), 1);
}

TEST_F(FocusOrder, FleesToNoBoxThatTakesText) {
  form_.cmdOK.set_enabled(false);
  EXPECT_EQ(Refuge(form_, form_.cmdOK), &form_.optA);
  form_.tabs.set_enabled(false);
  EXPECT_EQ(Refuge(form_, form_.tabs), &form_.cmdPage);
}

TEST_F(FocusOrder, AccessKeyLeadsFromWordsToWhatFollowsThem) {
  EXPECT_EQ(LedTo(form_, form_.lblName), &form_.txtName);
  EXPECT_EQ(LedTo(form_, form_.optB), &form_.optB);
  Label last(form_, "lblLast", {});
  EXPECT_EQ(LedTo(form_, last), nullptr);
}

TEST_F(FocusOrder, ArrowsGoRoundInTheGroupOfOptionsThatCanBeUsed) {
  OptionButton third(form_, "optC", {});
  OptionButton other(form_, "optOther", {}, 1);
  form_.Show();
  form_.optA.set_value(true);
  GoInGroup(form_.optA, 1);
  EXPECT_TRUE(form_.optB.value());
  EXPECT_EQ(form_.focus(), &form_.optB);
  form_.optA.set_enabled(false);
  GoInGroup(third, 1);
  EXPECT_TRUE(form_.optB.value());
  GoInGroup(form_.optB, -1);
  EXPECT_TRUE(third.value());
  EXPECT_EQ(form_.focus(), &third);
  EXPECT_FALSE(other.value());
}

}  // namespace
}  // namespace quarvel::platform
