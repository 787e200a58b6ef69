// What a form does when its own code, or its desktop, fails.
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "tests/support/form_fixture.h"

namespace quarvel::platform {
namespace {

using FormFailureTest = FormTest;

TEST_F(FormFailureTest, IsNotLoadedWhenLoadingFails) {
  form_.on_load = Fail;
  EXPECT_EQ(FailureOf([&] { form_.Load(); }), 11);
  EXPECT_FALSE(form_.IsLoaded());
  EXPECT_EQ(FailureOf([&] { form_.ShowModal(); }), 11);
  EXPECT_EQ(desktop_.transcript(), Lines{});
}

TEST_F(FormFailureTest, FailureInTheActivationClosesWithoutAsking) {
  form_.on_activate = Fail;
  form_.on_query = [](UnloadReason) { return false; };
  EXPECT_EQ(FailureOf([&] { form_.ShowModal(); }), 11);
  EXPECT_EQ(FailureOf([&] { form_.Show(); }), 11);
  EXPECT_EQ(form_.life, (Lines{"load", "activate", "unload", "load", "activate", "unload"}));
  EXPECT_FALSE(form_.IsLoaded());
  EXPECT_EQ(desktop_.transcript(),
            (Lines{"show modal frmTest", "close frmTest", "show frmTest", "close frmTest"}));
}

TEST_F(FormFailureTest, FailureInTheActivationAfterClosingIsStillRaised) {
  form_.on_activate = [&] {
    form_.Unload();
    Fail();
  };
  EXPECT_EQ(FailureOf([&] { form_.ShowModal(); }), 11);
  EXPECT_EQ(form_.life, (Lines{"load", "activate", "query code", "unload"}));
}

TEST_F(FormFailureTest, FailureInAHandlerClosesAModalFormAndIsRaised) {
  form_.cmdGo.on_click = Fail;
  form_.on_query = [](UnloadReason) { return false; };
  desktop_.on_idle = [&](Form&) { form_.cmdGo.Click(); };
  EXPECT_EQ(FailureOf([&] { form_.ShowModal(); }), 11);
  EXPECT_EQ(form_.life, (Lines{"load", "activate", "unload"}));
  EXPECT_EQ(desktop_.boxes(), std::vector<ShownBox>{});
}

TEST_F(FormFailureTest, FailureOfAnInnerFormGoesThroughTheOuterOne) {
  frmTest inner(desktop_, "frmInner");
  inner.cmdGo.on_click = Fail;
  form_.cmdGo.on_click = [&] { inner.ShowModal(); };
  desktop_.on_idle = [](Form& top) { static_cast<frmTest&>(top).cmdGo.Click(); };
  EXPECT_EQ(FailureOf([&] { form_.ShowModal(); }), 11);
  EXPECT_FALSE(form_.IsShowing());
  EXPECT_FALSE(inner.IsShowing());
}

TEST_F(FormFailureTest, FailureInAModelessFormIsOneBoxAndTheFormStays) {
  form_.cmdGo.on_click = Fail;
  form_.Show();
  form_.cmdGo.Click();
  EXPECT_TRUE(form_.IsShowing());
  EXPECT_EQ(desktop_.boxes(),
            (std::vector<ShownBox>{{"Division by zero", MsgBoxStyle::kOk, "Quarvel"}}));
}

TEST_F(FormFailureTest, FailureInAFormThatIsNotShowingGoesToTheCaller) {
  form_.cmdGo.on_click = Fail;
  EXPECT_EQ(FailureOf([&] { form_.cmdGo.Click(); }), 11);
}

TEST_F(FormFailureTest, FailureIsToldOnceWhenTheUnloadHandlerFailsToo) {
  form_.cmdGo.on_click = Fail;
  form_.on_unload = [] { RaiseRunTimeError(RunTimeError::kTypeMismatch); };
  desktop_.on_idle = [&](Form&) { form_.cmdGo.Click(); };
  EXPECT_EQ(FailureOf([&] { form_.ShowModal(); }), 11);
  EXPECT_FALSE(form_.IsLoaded());
}

TEST_F(FormFailureTest, FailureOfTheUnloadHandlerLeavesTheFormUnloaded) {
  form_.on_unload = Fail;
  form_.Show();
  EXPECT_EQ(FailureOf([&] { form_.Unload(); }), 11);
  EXPECT_FALSE(form_.IsLoaded());
  EXPECT_FALSE(form_.IsShowing());
}

TEST_F(FormFailureTest, FailureOfTheClosingQuestionClosesAModalForm) {
  form_.on_query = [](UnloadReason) -> bool { throw std::runtime_error("no answer"); };
  desktop_.on_idle = [](Form& form) { form.RequestClose(); };
  EXPECT_THROW(form_.ShowModal(), std::runtime_error);
  EXPECT_EQ(form_.life, (Lines{"load", "activate", "query user", "unload"}));
}

TEST_F(FormFailureTest, HandlerFailingDuringTheClosingQuestionClosesOnce) {
  form_.cmdGo.on_click = Fail;
  form_.on_query = [&](UnloadReason) {
    form_.cmdGo.Click();
    return true;
  };
  desktop_.on_idle = [](Form& form) { form.RequestClose(); };
  EXPECT_EQ(FailureOf([&] { form_.ShowModal(); }), 11);
  EXPECT_EQ(form_.life, (Lines{"load", "activate", "query user", "unload"}));
}

TEST_F(FormFailureTest, FailureInAnEventOfItsActivationIsRaisedWhenThatReturns) {
  form_.cmdGo.on_click = Fail;
  desktop_.on_events = [&](std::int64_t) { form_.cmdGo.Click(); };
  bool went_on = false;
  form_.on_activate = [&] {
    desktop_.DoEvents();
    went_on = true;
  };
  EXPECT_EQ(FailureOf([&] { form_.ShowModal(); }), 11);
  EXPECT_TRUE(went_on);
}

TEST_F(FormFailureTest, IsClosedWhenTheDesktopFailsToWait) {
  EXPECT_THROW(form_.ShowModal(), std::logic_error);
  EXPECT_FALSE(form_.IsShowing());
  EXPECT_EQ(form_.life, (Lines{"load", "activate", "unload"}));
}

TEST_F(FormFailureTest, HandlerThatDestroysItsFormMayFail) {
  auto gone = std::make_unique<frmTest>(desktop_, "frmGone");
  gone->cmdGo.on_click = [&] {
    gone.reset();
    Fail();
  };
  desktop_.on_idle = [&](Form&) { gone->cmdGo.Click(); };
  EXPECT_EQ(FailureOf([&] { gone->ShowModal(); }), 11);
}

// A desktop whose windows run events, or fail, while they are drawn.
class DrawingDesktop : public ScriptedDesktop {
 public:
  std::function<void(Form&)> while_drawing;
  std::unique_ptr<FormPeer> Draw(Form& form, bool modal) override {
    auto peer = ScriptedDesktop::Draw(form, modal);
    while_drawing(form);
    return peer;
  }
};

TEST(FormDrawing, FormClosedWhileItIsDrawnIsNeverActivated) {
  DrawingDesktop desktop;
  desktop.while_drawing = [](Form& form) { form.RequestClose(); };
  frmTest form(desktop);
  form.ShowModal();
  EXPECT_EQ(form.life, (Lines{"load", "query user", "unload"}));
  EXPECT_EQ(desktop.shown(), std::vector<Form*>{});
}

TEST(FormDrawing, FormThatCannotBeDrawnIsUnloaded) {
  DrawingDesktop desktop;
  desktop.while_drawing = [](Form&) { Fail(); };
  frmTest form(desktop);
  EXPECT_EQ(FailureOf([&] { form.ShowModal(); }), 11);
  EXPECT_EQ(form.life, (Lines{"load", "unload"}));
  EXPECT_FALSE(form.IsShowing());
}

}  // namespace
}  // namespace quarvel::platform
