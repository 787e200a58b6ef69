// Forms that hold work of the user's: a failing handler does not close them.
#include "tests/support/form_fixture.h"

namespace quarvel::platform {
namespace {

class frmSurviving : public frmTest {
 public:
  explicit frmSurviving(Desktop& desktop) : frmTest(desktop, "frmSurviving") { SurviveFailures(); }
};

class FormSurvivalTest : public ::testing::Test {
 protected:
  // Shows the form modally and does `steps` in it one after the other, then closes it.
  void Show(std::vector<std::function<void()>> steps) {
    std::size_t next = 0;
    desktop_.on_idle = [&, steps](Form&) {
      if (next < steps.size()) return steps[next++]();
      form_.Unload();
    };
    form_.ShowModal();
  }

  ScriptedDesktop desktop_;
  frmSurviving form_{desktop_};
};

const ShownBox kBox = {"Division by zero", MsgBoxStyle::kOk, std::string(kDefaultTitle)};

TEST_F(FormSurvivalTest, FailureOfAHandlerIsOneBoxAndTheFormGoesOn) {
  form_.cmdGo.on_click = Fail;
  int turns = 0;
  Show({[&] { form_.cmdGo.Click(); },
        [&] {
          ++turns;
          EXPECT_TRUE(form_.IsShowing());
        }});
  EXPECT_EQ(desktop_.boxes(), std::vector<ShownBox>{kBox});
  EXPECT_EQ(turns, 1);
}

TEST_F(FormSurvivalTest, FailureOfTheClosingQuestionKeepsTheFormOpen) {
  form_.on_query = [](UnloadReason) -> bool {
    Fail();
    return true;
  };
  Show({[&] { form_.RequestClose(); },
        [&] {
          EXPECT_TRUE(form_.IsShowing());
          form_.on_query = [](UnloadReason) { return true; };
        }});
  EXPECT_EQ(desktop_.boxes(), std::vector<ShownBox>{kBox});
}

TEST_F(FormSurvivalTest, FailureAfterAHandlerHasClosedTheFormIsRaised) {
  form_.cmdGo.on_click = [&] {
    form_.Unload();
    Fail();
  };
  EXPECT_EQ(FailureOf([&] { Show({[&] { form_.cmdGo.Click(); }}); }), 11);
  EXPECT_EQ(desktop_.boxes(), std::vector<ShownBox>{});
}

TEST_F(FormSurvivalTest, FailureInTheActivationStillClosesAndIsRaised) {
  form_.on_activate = Fail;
  EXPECT_EQ(FailureOf([&] { form_.ShowModal(); }), 11);
  EXPECT_FALSE(form_.IsShowing());
}

TEST_F(FormSurvivalTest, FailureOfAFormThatIsNotShowingGoesToTheCaller) {
  form_.cmdGo.on_click = Fail;
  EXPECT_EQ(FailureOf([&] { form_.cmdGo.Click(); }), 11);
}

}  // namespace
}  // namespace quarvel::platform
