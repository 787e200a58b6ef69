#include "hosts/questions.h"

#include <set>
#include <string>
#include <string_view>

#include <gtest/gtest.h>

#include "hosts/arguments.h"

namespace quarvel::hosts {
namespace {

using platform::BoxKind;

std::string JoinedWords(const QuestionOption& option) {
  std::string words;
  for (const GivenAnswer& answer : option.answers) {
    if (!words.empty()) words += '|';
    words += answer.word;
  }
  return words;
}

TEST(Questions, HaveOptionsThatSayWhatTheyTake) {
  OptionSet seen = 0;
  for (const QuestionOption& option : QuestionOptions()) {
    SCOPED_TRACE(option.name);
    EXPECT_EQ(option.id & ~kQuestions, 0u);
    EXPECT_EQ(option.id & seen, 0u);
    seen |= option.id;
    EXPECT_EQ(JoinedWords(option), option.values);
    EXPECT_GE(option.answers.size(), 2u);
  }
}

TEST(Questions, AreNeverLeftOpenWhereNobodyCanBeAsked) {
  for (const QuestionOption& option : QuestionOptions()) {
    for (const GivenAnswer& answer : option.answers) {
      if (answer.answer) continue;
      const GivenAnswer* const unasked = FindAnswer(option, option.unasked);
      ASSERT_NE(unasked, nullptr) << option.name;
      EXPECT_TRUE(unasked->answer) << option.name;
    }
  }
}

TEST(Questions, OfWindowsAreUnknownToTheCommandLine) {
  for (const BoxKind kind : {BoxKind::kOfferToSave, BoxKind::kConfirmStop,
                             BoxKind::kConfirmDeletion, static_cast<BoxKind>(99)}) {
    EXPECT_EQ(DecisionOn(kind).manner, Manner::kUnknown) << static_cast<int>(kind);
  }
}

TEST(Questions, ThatAreAnsweredHaveAnOption) {
  for (const BoxKind kind : {BoxKind::kReadProblem, BoxKind::kEmptyItem, BoxKind::kConflict,
                             BoxKind::kOfferToSimplify, BoxKind::kOfferLog}) {
    const Decision decision = DecisionOn(kind);
    EXPECT_EQ(decision.manner, Manner::kAnswered);
    EXPECT_NE(decision.option, nullptr) << static_cast<int>(kind);
  }
}

}  // namespace
}  // namespace quarvel::hosts
