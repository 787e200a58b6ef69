// Where controls stand, what they are called and which key leads to them.
#include "platform/control.h"

#include <gtest/gtest.h>

#include "platform/basic_controls.h"
#include "tests/support/form_fixture.h"

namespace quarvel::platform {
namespace {

class frmSized : public Form {
 public:
  explicit frmSized(Desktop& desktop) : Form(desktop, "frmSized") { SetSize(400, 300, true); }
};

TEST(ControlPlace, FollowsTheWindowByHundredthsOfItsGrowth) {
  const struct {
    Follow follow;
    Place in_500_by_360;
  } cases[] = {
      {{0, 0, 0, 0}, {10, 20, 100, 50, {}}},      {{0, 0, 100, 0}, {10, 20, 200, 50, {}}},
      {{100, 0, 100, 0}, {110, 20, 100, 50, {}}}, {{0, 0, 50, 100}, {10, 20, 150, 110, {}}},
      {{50, 0, 100, 0}, {60, 20, 150, 50, {}}},   {{0, 100, 0, 100}, {10, 80, 100, 50, {}}},
      {{50, 50, 50, 50}, {60, 50, 100, 50, {}}},  {{0, 60, 0, 100}, {10, 56, 100, 74, {}}},
  };
  ScriptedDesktop desktop;
  for (const auto& c : cases) {
    frmSized form(desktop);
    const Label label(form, "lbl", {10, 20, 100, 50, c.follow});
    Place expected = c.in_500_by_360;
    expected.follow = c.follow;
    EXPECT_EQ(label.PlaceIn(500, 360), expected);
    EXPECT_EQ(label.PlaceIn(400, 300), label.place());
  }
}

TEST(ControlPlace, NeighboursKeepTheirDistance) {
  ScriptedDesktop desktop;
  frmSized form(desktop);
  const Label left(form, "lblLeft", {10, 0, 180, 20, {0, 0, 50, 0}});
  const Label right(form, "lblRight", {200, 0, 190, 20, {50, 0, 100, 0}});
  for (int width = 400; width < 450; ++width) {
    const Place a = left.PlaceIn(width, 300);
    const Place b = right.PlaceIn(width, 300);
    EXPECT_EQ(b.x - (a.x + a.width), 10) << width;
    EXPECT_EQ(width - (b.x + b.width), 10) << width;
  }
}

TEST(MarkedCaption, MarksTheAccessKeyAndDoublesTheMark) {
  const struct {
    const char* caption;
    char key;
    const char* marked;
  } cases[] = {{"Save As...", 'A', "S&ave As..."},
               {"Save", 0, "Save"},
               {"Exit", 'x', "E&xit"},
               {"A & B", 'B', "A && &B"},
               {"Save", 'q', "Save"},
               {"New", 'n', "&New"},
               {"R&D", '&', "R&&&D"},
               {"Bound", 'B', "&Bound"}};
  ScriptedDesktop desktop;
  for (const auto& c : cases) {
    Form form(desktop, "frmTest");
    Label label(form, "lbl", {});
    label.set_caption(c.caption);
    label.access_key = c.key;
    EXPECT_EQ(MarkedCaption(label, '&'), c.marked);
  }
}

using FormKeysTest = FormTest;

TEST_F(FormKeysTest, FocusIsTheControlThatCodeChoseLast) {
  EXPECT_EQ(form_.focus(), nullptr);
  form_.cmdGo.Focus();
  EXPECT_EQ(form_.focus(), &form_.cmdGo);
  form_.Show();
  form_.cmdGo.Focus();
  EXPECT_EQ(desktop_.transcript(), (Lines{"show frmTest", "frmTest.cmdGo focus"}));
}

TEST_F(FormKeysTest, EnterAndEscapePressTheirButtons) {
  int ok = 0;
  int cancel = 0;
  Button cmdOK(form_, "cmdOK", {});
  Button cmdCancel(form_, "cmdCancel", {});
  cmdOK.is_default = true;
  cmdOK.on_click = [&] { ++ok; };
  cmdCancel.is_cancel = true;
  cmdCancel.on_click = [&] { ++cancel; };
  EXPECT_TRUE(form_.PressDefaultButton());
  EXPECT_TRUE(form_.PressCancelButton());
  EXPECT_EQ(ok, 1);
  EXPECT_EQ(cancel, 1);
}

TEST_F(FormKeysTest, EnterAndEscapeDoNothingWithoutAButtonToPress) {
  EXPECT_FALSE(form_.PressDefaultButton());
  EXPECT_FALSE(form_.PressCancelButton());
  form_.cmdGo.is_default = true;
  form_.cmdGo.is_cancel = true;
  form_.cmdGo.set_enabled(false);
  EXPECT_FALSE(form_.PressDefaultButton());
  form_.cmdGo.set_enabled(true);
  form_.cmdGo.set_visible(false);
  EXPECT_FALSE(form_.PressCancelButton());
}

}  // namespace
}  // namespace quarvel::platform
