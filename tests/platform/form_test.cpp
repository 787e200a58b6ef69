#include "platform/form.h"

#include <memory>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "platform/menu.h"
#include "tests/support/form_fixture.h"

namespace quarvel::platform {
namespace {

TEST_F(FormTest, LoadsOnceUntilUnloaded) {
  form_.Load();
  form_.Load();
  EXPECT_TRUE(form_.IsLoaded());
  EXPECT_FALSE(form_.IsShowing());
  EXPECT_TRUE(form_.Unload());
  EXPECT_FALSE(form_.IsLoaded());
  form_.Load();
  EXPECT_EQ(form_.life, (Lines{"load", "query code", "unload", "load"}));
}

TEST_F(FormTest, UnloadingWhatIsNotLoadedAsksNothing) {
  EXPECT_TRUE(form_.Unload());
  EXPECT_EQ(form_.life, Lines{});
}

TEST_F(FormTest, IsLoadedDrawnActivatedAndClosedInThatOrder) {
  form_.on_load = [&] { form_.set_caption("loading is not drawn"); };
  form_.on_activate = [&] { form_.set_caption("active"); };
  desktop_.on_idle = [&](Form& form) {
    form_.life.push_back("idle");
    form.RequestClose();
  };
  form_.ShowModal();
  EXPECT_EQ(form_.life, (Lines{"load", "activate", "idle", "query user", "unload"}));
  EXPECT_EQ(desktop_.transcript(),
            (Lines{"show modal frmTest", "caption frmTest: active", "close frmTest"}));
  EXPECT_FALSE(form_.IsShowing());
  EXPECT_FALSE(form_.IsLoaded());
}

TEST_F(FormTest, IsActivatedOnceForEachShowing) {
  desktop_.on_idle = [](Form& form) { form.Unload(); };
  form_.ShowModal();
  form_.ShowModal();
  EXPECT_EQ(form_.life, (Lines{"load", "activate", "query code", "unload", "load", "activate",
                               "query code", "unload"}));
}

TEST_F(FormTest, IsNotActivatedAgainWhenBroughtToTheFront) {
  frmTest other(desktop_, "frmOther");
  form_.Show();
  other.Show();
  EXPECT_EQ(desktop_.shown(), (std::vector<Form*>{&form_, &other}));
  form_.Show();
  EXPECT_EQ(desktop_.shown(), (std::vector<Form*>{&other, &form_}));
  EXPECT_EQ(form_.life, (Lines{"load", "activate"}));
}

TEST_F(FormTest, CannotBeShownModallyWhileItShows) {
  form_.Show();
  EXPECT_EQ(FailureOf([&] { form_.ShowModal(); }), 400);
  EXPECT_TRUE(form_.IsShowing());
  form_.Unload();
  int inside = 0;
  desktop_.on_idle = [&](Form& form) {
    inside = FailureOf([&] { form.ShowModal(); });
    form.Unload();
  };
  form_.ShowModal();
  EXPECT_EQ(inside, 400);
}

TEST_F(FormTest, TakesTheWindowAwayBeforeItsUnloadHandlerRuns) {
  bool loaded = false;
  form_.on_unload = [&] {
    desktop_.Beep();
    loaded = form_.IsLoaded();
    EXPECT_FALSE(form_.IsShowing());
  };
  form_.Show();
  form_.Unload();
  EXPECT_TRUE(loaded);
  EXPECT_EQ(desktop_.transcript(), (Lines{"show frmTest", "close frmTest", "beep"}));
}

TEST_F(FormTest, ReturnsAtOnceWhenUnloadedInItsActivation) {
  form_.on_activate = [&] {
    form_.Unload();
    desktop_.Beep();
  };
  form_.ShowModal();
  EXPECT_EQ(desktop_.transcript(), (Lines{"show modal frmTest", "close frmTest", "beep"}));
}

TEST_F(FormTest, MayBeShownAgainInsideItsOwnHandler) {
  int showings = 0;
  form_.on_activate = [&] {
    const int number = ++showings;
    if (number == 1) {
      form_.Unload();
      form_.ShowModal();
      desktop_.Beep();
    }
  };
  desktop_.on_idle = [&](Form& form) {
    EXPECT_EQ(showings, 2);
    form.Unload();
  };
  form_.ShowModal();
  EXPECT_EQ(desktop_.transcript(), (Lines{"show modal frmTest", "close frmTest",
                                          "show modal frmTest", "close frmTest", "beep"}));
}

TEST_F(FormTest, EarlierModalCallReturnsWhileALaterShowingStays) {
  form_.cmdGo.on_click = [&] {
    form_.Unload();
    form_.Show();
  };
  desktop_.on_idle = [&](Form&) { form_.cmdGo.Click(); };
  form_.ShowModal();
  EXPECT_TRUE(form_.IsShowing());
  EXPECT_EQ(desktop_.transcript(), (Lines{"show modal frmTest", "close frmTest", "show frmTest"}));
}

TEST_F(FormTest, ModalFormsNest) {
  frmTest inner(desktop_, "frmInner");
  form_.cmdGo.on_click = [&] {
    inner.ShowModal();
    desktop_.Beep();
    form_.Unload();
  };
  desktop_.on_idle = [&](Form& top) {
    if (&top == &form_) {
      form_.cmdGo.Click();
    } else {
      EXPECT_EQ(&top, &inner);
      top.RequestClose();
    }
  };
  form_.ShowModal();
  EXPECT_EQ(desktop_.transcript(), (Lines{"show modal frmTest", "show modal frmInner",
                                          "close frmInner", "beep", "close frmTest"}));
}

TEST_F(FormTest, OuterModalFormMayBeClosedWhileAnInnerOneWaits) {
  frmTest inner(desktop_, "frmInner");
  form_.cmdGo.on_click = [&] { inner.ShowModal(); };
  int turn = 0;
  desktop_.on_idle = [&](Form&) {
    ++turn;
    if (turn == 1) form_.cmdGo.Click();
    if (turn == 2) form_.Unload();
    if (turn == 3) inner.Unload();
  };
  form_.ShowModal();
  EXPECT_EQ(desktop_.transcript(), (Lines{"show modal frmTest", "show modal frmInner",
                                          "close frmTest", "close frmInner"}));
}

TEST_F(FormTest, StaysWhenClosingIsRefused) {
  int refusals = 0;
  form_.on_query = [&](UnloadReason reason) {
    return reason == UnloadReason::kCode || ++refusals == 3;
  };
  desktop_.on_idle = [&](Form& form) {
    EXPECT_TRUE(form.IsShowing());
    form.RequestClose();
  };
  form_.ShowModal();
  EXPECT_EQ(refusals, 3);
  EXPECT_EQ(desktop_.transcript(), (Lines{"show modal frmTest", "close frmTest"}));
}

TEST_F(FormTest, RefusalIsTheAnswerOfUnload) {
  form_.on_query = [](UnloadReason) { return false; };
  form_.Show();
  EXPECT_FALSE(form_.Unload());
  EXPECT_TRUE(form_.IsLoaded());
  EXPECT_TRUE(form_.IsShowing());
}

TEST_F(FormTest, EscapePressesTheCancelButtonOrClosesAModalForm) {
  int cancelled = 0;
  const auto press_escape = [this] {
    desktop_.on_idle = [](Form& form) {
      form.PressEscape();
      if (form.IsShowing()) form.Unload();
    };
    form_.life.clear();
    form_.ShowModal();
  };
  press_escape();
  EXPECT_EQ(form_.life, (Lines{"load", "activate", "query user", "unload"}));
  form_.cmdGo.is_cancel = true;
  form_.cmdGo.on_click = [&] { ++cancelled; };
  press_escape();
  EXPECT_EQ(cancelled, 1);
  EXPECT_EQ(form_.life, (Lines{"load", "activate", "query code", "unload"}));
  form_.cmdGo.set_enabled(false);
  press_escape();
  EXPECT_EQ(form_.life, (Lines{"load", "activate", "query code", "unload"}));
}

TEST_F(FormTest, EscapeLeavesAWindowWithMenusOrOneThatIsNotModal) {
  form_.Show();
  EXPECT_FALSE(form_.PressEscape());
  EXPECT_TRUE(form_.IsShowing());
  form_.Unload();
  MenuItem item(form_, "mnuFile", nullptr);
  bool used = true;
  desktop_.on_idle = [&](Form& form) {
    used = form.PressEscape();
    form.Unload();
  };
  form_.ShowModal();
  EXPECT_FALSE(used);
}

TEST_F(FormTest, ClosingTwiceAsksOnce) {
  form_.on_query = [&](UnloadReason) {
    form_.RequestClose();
    EXPECT_FALSE(form_.Unload());
    return true;
  };
  form_.on_unload = [&] { EXPECT_FALSE(form_.Unload()); };
  form_.Show();
  form_.RequestClose();
  form_.RequestClose();
  EXPECT_EQ(form_.life, (Lines{"load", "activate", "query user", "unload"}));
  EXPECT_EQ(desktop_.transcript(), (Lines{"show frmTest", "close frmTest"}));
}

TEST_F(FormTest, CannotBeShownByItsUnloadHandler) {
  int failure = 0;
  form_.on_unload = [&] { failure = FailureOf([&] { form_.Show(); }); };
  form_.Show();
  EXPECT_TRUE(form_.Unload());
  EXPECT_EQ(failure, 5);
  EXPECT_FALSE(form_.IsShowing());
}

TEST_F(FormTest, EventsOfItsActivationMayCloseIt) {
  desktop_.on_events = [&](std::int64_t) { form_.RequestClose(); };
  form_.on_activate = [&] {
    desktop_.DoEvents();
    EXPECT_FALSE(form_.IsShowing());
  };
  form_.ShowModal();
  EXPECT_EQ(form_.life, (Lines{"load", "activate", "query user", "unload"}));
}

TEST_F(FormTest, DestructionClosesAShowingForm) {
  {
    frmTest gone(desktop_, "frmGone");
    gone.Show();
  }
  EXPECT_EQ(desktop_.transcript(), (Lines{"show frmGone", "close frmGone"}));
  EXPECT_EQ(desktop_.shown(), std::vector<Form*>{});
}

TEST_F(FormTest, MayBeDestroyedInsideItsOwnHandler) {
  auto gone = std::make_unique<frmTest>(desktop_, "frmGone");
  gone->cmdGo.on_click = [&] { gone.reset(); };
  desktop_.on_idle = [&](Form&) { gone->cmdGo.Click(); };
  gone->ShowModal();
  EXPECT_EQ(gone, nullptr);
  EXPECT_EQ(desktop_.transcript(), (Lines{"show modal frmGone", "close frmGone"}));
}

}  // namespace
}  // namespace quarvel::platform
