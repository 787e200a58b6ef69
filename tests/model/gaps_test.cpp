#include "model/gaps.h"

#include <cstdint>
#include <numeric>
#include <random>
#include <vector>

#include <gtest/gtest.h>

namespace quarvel::model {
namespace {

TEST(Gaps, NumbersArePositionsWhileTheyAreClosed) {
  const Gaps gaps;
  EXPECT_FALSE(gaps.open());
  EXPECT_EQ(gaps.PositionOf(5), 5);
  EXPECT_EQ(gaps.NumberOf(5), 5);
  EXPECT_EQ(gaps.PositionOf(-1), -1);
}

TEST(Gaps, NumbersOutsideStayOutside) {
  Gaps gaps;
  gaps.Open(4);
  gaps.Note(2);
  gaps.Note(4);
  EXPECT_EQ(gaps.PositionOf(0), 0);
  EXPECT_EQ(gaps.PositionOf(-3), -3);
  EXPECT_EQ(gaps.PositionOf(3), 5);
  EXPECT_EQ(gaps.NumberOf(5), 3);
  EXPECT_EQ(gaps.NumberOf(0), 0);
  EXPECT_FALSE(gaps.IsGone(0));
  EXPECT_FALSE(gaps.IsGone(5));
  EXPECT_EQ(gaps.first_gone(), 2);
}

TEST(Gaps, ClosingForgetsEverything) {
  Gaps gaps;
  gaps.Open(4);
  gaps.Note(1);
  gaps.Close();
  EXPECT_FALSE(gaps.open());
  EXPECT_EQ(gaps.PositionOf(1), 1);
  EXPECT_EQ(gaps.gone(), 0);
}

TEST(Gaps, AppendingIsTakenBackAsIfItHadNotBeen) {
  Gaps gaps;
  gaps.Open(4);
  gaps.Note(2);
  gaps.Append();
  EXPECT_EQ(gaps.PositionOf(4), 5);
  gaps.TakeBackAppend();
  EXPECT_EQ(gaps.stored(), 4);
  EXPECT_EQ(gaps.gone(), 1);
  EXPECT_EQ(gaps.first_gone(), 2);
  gaps.Append();
  gaps.Note(5);
  gaps.TakeBackAppend();
  EXPECT_EQ(gaps.gone(), 1);
  EXPECT_EQ(gaps.first_gone(), 2);
  EXPECT_EQ(gaps.PositionOf(3), 4);
  EXPECT_EQ(gaps.NumberOf(4), 3);
}

TEST(Gaps, TheFirstThatIsGoneMayBeTakenBack) {
  Gaps gaps;
  gaps.Open(1);
  gaps.Append();
  gaps.Note(2);
  EXPECT_EQ(gaps.first_gone(), 2);
  gaps.TakeBackAppend();
  EXPECT_EQ(gaps.first_gone(), 0);
  EXPECT_EQ(gaps.gone(), 0);
}

// Removals and new positions in any order, against the list of what is left.
TEST(Gaps, AgreesWithAListOfWhatIsLeft) {
  std::mt19937 random(7);
  for (int run = 0; run < 60; ++run) {
    Gaps gaps;
    auto stored = static_cast<std::int32_t>(random() % 40);
    gaps.Open(stored);
    std::vector<std::int32_t> left(static_cast<std::size_t>(stored));
    std::iota(left.begin(), left.end(), 1);
    for (int step = 0; step < 100; ++step) {
      if (left.empty() || random() % 3 == 0) {
        gaps.Append();
        left.push_back(++stored);
      } else {
        const auto offset = static_cast<std::ptrdiff_t>(random() % left.size());
        gaps.Note(left[static_cast<std::size_t>(offset)]);
        left.erase(left.begin() + offset);
      }
      ASSERT_EQ(gaps.stored(), stored);
      if (!left.empty()) {
        const std::size_t i = random() % left.size();
        ASSERT_EQ(gaps.PositionOf(static_cast<std::int32_t>(i) + 1), left[i]) << "run " << run;
      }
      if (random() % 2 == 0) continue;  // several changes between two looks at everything
      for (std::size_t i = 0; i < left.size(); ++i) {
        ASSERT_EQ(gaps.PositionOf(static_cast<std::int32_t>(i) + 1), left[i]) << "run " << run;
        ASSERT_EQ(gaps.NumberOf(left[i]), static_cast<std::int32_t>(i) + 1) << "run " << run;
        ASSERT_FALSE(gaps.IsGone(left[i]));
      }
    }
  }
}

}  // namespace
}  // namespace quarvel::model
