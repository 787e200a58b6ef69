#include "model/counted_marks.h"

#include <cstdint>
#include <random>
#include <vector>

#include <gtest/gtest.h>

namespace quarvel::model {
namespace {

void ExpectMarks(const CountedMarks& marks, const std::vector<bool>& expected) {
  ASSERT_EQ(marks.size(), static_cast<std::int32_t>(expected.size()));
  std::int32_t count = 0;
  for (std::int32_t position = 1; position <= marks.size(); ++position) {
    const bool is_marked = expected[static_cast<std::size_t>(position - 1)];
    if (is_marked) ++count;
    ASSERT_EQ(marks.Has(position), is_marked);
    ASSERT_EQ(marks.CountUpTo(position), count);
    if (is_marked) {
      ASSERT_EQ(marks.PositionOf(count), position);
    }
  }
  ASSERT_EQ(marks.count(), count);
}

TEST(CountedMarks, BeginWithNoPositions) {
  CountedMarks marks;
  ExpectMarks(marks, {});
  marks.Append(true);
  marks.Append(false);
  ExpectMarks(marks, {true, false});
  marks.Clear();
  ExpectMarks(marks, {});
}

TEST(CountedMarks, AMarkThatIsSetAlreadyCountsOnce) {
  CountedMarks marks;
  marks.MarkAll(3);
  marks.Mark(2);
  ExpectMarks(marks, {true, true, true});
  marks.Unmark(2);
  marks.Unmark(2);
  ExpectMarks(marks, {true, false, true});
}

TEST(CountedMarks, AgreeWithAListOfThem) {
  std::mt19937 random(9);
  for (int run = 0; run < 50; ++run) {
    CountedMarks marks;
    std::vector<bool> expected(random() % 70, true);
    marks.MarkAll(static_cast<std::int32_t>(expected.size()));
    for (int step = 0; step < 60; ++step) {
      if (expected.empty() || random() % 4 == 0) {
        expected.push_back(random() % 2 == 0);
        marks.Append(expected.back());
      } else if (random() % 8 == 0) {
        expected.pop_back();
        marks.RemoveLast();
      } else {
        const auto offset = random() % expected.size();
        const auto position = static_cast<std::int32_t>(offset) + 1;
        expected[offset] = random() % 2 == 0;
        expected[offset] ? marks.Mark(position) : marks.Unmark(position);
      }
      ASSERT_NO_FATAL_FAILURE(ExpectMarks(marks, expected));
    }
  }
}

}  // namespace
}  // namespace quarvel::model
