#include "platform/box.h"

#include <optional>
#include <vector>

#include <gtest/gtest.h>

namespace quarvel::platform {
namespace {

using enum MsgBoxResult;

TEST(BoxLook, HasWhatEachStyleSays) {
  struct Case {
    MsgBoxStyle style;
    std::vector<MsgBoxResult> buttons;
    bool exclamation;
    MsgBoxResult when_closed;
  };
  for (const Case& c :
       {Case{MsgBoxStyle::kOk, {kOk}, false, kOk},
        Case{MsgBoxStyle::kYesNo, {kYes, kNo}, false, kNo},
        Case{MsgBoxStyle::kYesNoExclamation, {kYes, kNo}, true, kNo},
        Case{MsgBoxStyle::kYesNoCancelExclamation, {kYes, kNo, kCancel}, true, kCancel}}) {
    SCOPED_TRACE(static_cast<int>(c.style));
    const BoxLook look = LookOf(c.style);
    EXPECT_EQ(std::vector(look.buttons.begin(), look.buttons.end()), c.buttons);
    EXPECT_EQ(look.exclamation, c.exclamation);
    EXPECT_EQ(look.when_closed, c.when_closed);
    EXPECT_EQ(look.asks(), c.style != MsgBoxStyle::kOk);
    EXPECT_EQ(look.Has(kCancel), c.when_closed == kCancel);
  }
}

TEST(Box, PutsItsQuestionBelowItsStatement) {
  Box box = Note("It is so.");
  EXPECT_EQ(box.text(), "It is so.");
  box.question = "Go on?";
  EXPECT_EQ(box.text(), "It is so.\r\nGo on?");
  box.statement.clear();
  EXPECT_EQ(box.text(), "Go on?");
}

TEST(Box, ThatTellsHasOneButtonAndTheProductsTitle) {
  for (const Box& box : {Refusal("No."), Note("No."), Failure(AutomationError(5, "", "No."))}) {
    EXPECT_EQ(box.text(), "No.");
    EXPECT_EQ(box.style, MsgBoxStyle::kOk);
    EXPECT_EQ(box.title, "Quarvel");
  }
}

TEST(Box, OfAFailureSaysWhichOne) {
  EXPECT_EQ(Failure(AutomationError(61, "", "Disk full")).failure, RunTimeError::kDiskFull);
  EXPECT_EQ(Failure(AutomationError(-2147220974, "LPModel", "Own")).failure, std::nullopt);
}

}  // namespace
}  // namespace quarvel::platform
