#include "hosts/answers.h"

#include <optional>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "hosts/printing.h"
#include "hosts/session.h"

namespace quarvel::hosts {
namespace {

using platform::Box;
using platform::BoxKind;
using platform::MsgBoxResult;
using platform::MsgBoxStyle;
using Texts = std::vector<std::string>;

class AnswersTest : public ::testing::Test {
 protected:
  AnswersTest() {
    answers_.file = "m.mps";
    answers_.on_note = [this](std::string_view text) { notes_.emplace_back(text); };
  }

  void Give(const std::vector<std::string>& options) { arguments_ = ParseArguments(options); }

  std::optional<MsgBoxResult> Answer(const Box& box) {
    bool print = true;
    const auto answer = answers_.AnswerBox(box, print);
    EXPECT_FALSE(print) << "the program says itself what there is to say";
    return answer;
  }

  static Box Problem(std::optional<RunTimeError> failure = std::nullopt) {
    return {.kind = BoxKind::kReadProblem,
            .statement = "It is bad.",
            .question = "Go on?",
            .style = MsgBoxStyle::kYesNo,
            .line = 3,
            .failure = failure};
  }

  Arguments arguments_;
  Answers answers_{arguments_};
  Texts notes_;
};

TEST_F(AnswersTest, TellsNotesAndKeepsRefusals) {
  Answer(platform::Note("One."));
  Answer(platform::Refusal("Two."));
  Answer(platform::Failure(AutomationError(61, "", "Disk full")));
  EXPECT_EQ(notes_, Texts{"m.mps: One."});
  EXPECT_EQ(answers_.refusals, (Texts{"Two.", "Disk full"}));
}

TEST_F(AnswersTest, GoesOnAtAProblemOnlyWhereToldSo) {
  EXPECT_EQ(Answer(Problem()), MsgBoxResult::kNo);
  Give({"--on-error", "continue"});
  EXPECT_EQ(Answer(Problem()), MsgBoxResult::kYes);
  EXPECT_EQ(notes_, (Texts{"m.mps: It is bad.", "m.mps: It is bad."}));
}

TEST_F(AnswersTest, TellsTheFirstOfAKindThatIsPassedOverAndCountsTheRest) {
  Give({"--on-error", "continue"});
  Box odd = Problem();
  odd.code = "odd";
  for (int i = 0; i < 25; ++i) EXPECT_EQ(Answer(odd), MsgBoxResult::kYes);
  Answer(Problem());
  EXPECT_EQ(notes_.size(), 21U);
  answers_.TellRest();
  EXPECT_EQ(notes_.size(), 22U);
  EXPECT_EQ(notes_.back(),
            "m.mps: 5 more problems of the kind odd; \"quarvel check --limit all\" lists them");
  answers_.TellRest();
  EXPECT_EQ(notes_.size(), 22U) << "they are told once";
}

TEST_F(AnswersTest, TellsWhatTheUserHasPassedOverAsWhatAnOptionPassesOver) {
  Box odd = Problem();
  odd.code = "odd";
  for (int i = 0; i < 25; ++i) EXPECT_TRUE(answers_.TellPassedOver(odd));
  EXPECT_EQ(notes_.size(), 20U);
  EXPECT_EQ(notes_.front(), "m.mps: It is bad.");
  answers_.TellRest();
  EXPECT_EQ(notes_.back(),
            "m.mps: 5 more problems of the kind odd; \"quarvel check --limit all\" lists them");
  EXPECT_TRUE(answers_.TellPassedOver(
      {.kind = BoxKind::kConflict, .statement = "They clash.", .question = "What now?"}));
  EXPECT_EQ(notes_.back(), "m.mps: They clash.  Removed.");
  EXPECT_FALSE(answers_.TellPassedOver(Question(BoxKind::kConfirmDeletion, "Delete it?")));
}

TEST_F(AnswersTest, LeavesAProblemToAUserWhoCanBeAsked) {
  answers_.can_ask = true;
  EXPECT_EQ(Answer(Problem()), std::nullopt);
  EXPECT_EQ(notes_, Texts{});
}

TEST_F(AnswersTest, EndsTheReadOfAFileThatFailsWhateverTheOptionsSay) {
  Give({"--on-error", "continue"});
  EXPECT_EQ(Answer(Problem(RunTimeError::kOverflow)), MsgBoxResult::kYes);
  EXPECT_FALSE(answers_.file_failed);
  EXPECT_EQ(Answer(Problem(RunTimeError::kDeviceIoError)), MsgBoxResult::kNo);
  EXPECT_TRUE(answers_.file_failed);
}

TEST_F(AnswersTest, KnowsNoBoxByItsWords) {
  Give({"--on-error", "continue"});
  Box box = Problem();
  box.statement = Describe(RunTimeError::kDeviceIoError);
  EXPECT_EQ(Answer(box), MsgBoxResult::kYes);
  EXPECT_EQ(Answer(platform::Refusal("No simplifications were made.")), MsgBoxResult::kOk);
  EXPECT_EQ(answers_.refusals, Texts{"No simplifications were made."});
}

TEST_F(AnswersTest, FollowsItsOptionsAtConflictsAndOffers) {
  const Box conflict = {.kind = BoxKind::kConflict,
                        .statement = "They clash.",
                        .question = "What now?",
                        .style = MsgBoxStyle::kYesNoCancelExclamation};
  EXPECT_EQ(Answer(conflict), MsgBoxResult::kCancel);
  Give({"--on-conflict", "remove"});
  EXPECT_EQ(Answer(conflict), MsgBoxResult::kYes);
  EXPECT_EQ(notes_, (Texts{"m.mps: They clash.  Stopped converting rows.",
                           "m.mps: They clash.  Removed."}));
  EXPECT_EQ(Answer(Question(BoxKind::kOfferToSimplify, "Simplify?")), MsgBoxResult::kNo);
  Give({"--simplify"});
  EXPECT_EQ(Answer(Question(BoxKind::kOfferToSimplify, "Simplify?")), MsgBoxResult::kYes);
  EXPECT_EQ(Answer(Question(BoxKind::kOfferLog, "See it?")), MsgBoxResult::kYes);
}

TEST_F(AnswersTest, LeavesTheOfferToSimplifyToAUserWhoWantsToBeAsked) {
  const Box offer = Question(BoxKind::kOfferToSimplify, "Simplify?");
  answers_.can_ask = true;
  EXPECT_EQ(Answer(offer), MsgBoxResult::kNo);
  Give({"--ask"});
  EXPECT_EQ(Answer(offer), std::nullopt);
  Give({"--ask", "--simplify"});
  EXPECT_EQ(Answer(offer), MsgBoxResult::kYes);
  answers_.can_ask = false;
  Give({"--ask"});
  EXPECT_EQ(Answer(offer), MsgBoxResult::kNo);
}

TEST_F(AnswersTest, GivesTheCautiousAnswerToAQuestionItDoesNotKnowAndRemembersIt) {
  answers_.can_ask = true;
  EXPECT_EQ(answers_.unanswered, std::nullopt);
  EXPECT_EQ(Answer(Question(BoxKind::kConfirmDeletion, "Delete it?")), MsgBoxResult::kNo);
  EXPECT_EQ(Answer(Question(BoxKind::kOfferToSave, "Save?", MsgBoxStyle::kYesNoCancelExclamation)),
            MsgBoxResult::kCancel);
  EXPECT_EQ(Answer(Question(static_cast<BoxKind>(99), "Really?")), MsgBoxResult::kNo);
  ASSERT_TRUE(answers_.unanswered);
  EXPECT_EQ(answers_.unanswered->text(), "Delete it?");
}

}  // namespace
}  // namespace quarvel::hosts
