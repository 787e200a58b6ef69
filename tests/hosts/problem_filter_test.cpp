#include "hosts/problem_filter.h"

#include <gtest/gtest.h>

#include "hosts/streams.h"

namespace quarvel::hosts {
namespace {

using enum mps::FileProblemCode;

ProblemFilter Filter(std::vector<std::string> only, std::vector<std::string> ignore = {}) {
  Arguments arguments;
  arguments.only = std::move(only);
  arguments.ignore = std::move(ignore);
  return ProblemFilter(arguments);
}

TEST(ProblemFilter, TakesEverythingUnlessToldOtherwise) {
  const ProblemFilter filter = Filter({});
  for (const mps::FileProblemTraits& traits : mps::FileProblemTable()) {
    EXPECT_TRUE(filter.Takes(traits.code)) << traits.id;
  }
}

TEST(ProblemFilter, TakesIdsNamesAndStartsOfIds) {
  for (const char* const word : {"E110", "e110", "no-such-row", "E11", "E"}) {
    EXPECT_TRUE(Filter({word}).Takes(kNoSuchRow)) << word;
    EXPECT_FALSE(Filter({word}).Takes(kEmptyRow)) << word;
  }
  const ProblemFilter several = Filter({"E110", "W5"});
  EXPECT_TRUE(several.Takes(kNoSuchRow) && several.Takes(kEmptyRow) && several.Takes(kNotKept));
  EXPECT_FALSE(several.Takes(kMissingEndata) || several.Takes(kNoSuchColumn));
}

TEST(ProblemFilter, LeavesOutWhatIsIgnored) {
  const ProblemFilter filter = Filter({"E"}, {"no-such-row", "W"});
  EXPECT_FALSE(filter.Takes(kNoSuchRow) || filter.Takes(kEmptyRow));
  EXPECT_TRUE(filter.Takes(kNoSuchColumn));
  EXPECT_FALSE(Filter({}, {"E2"}).Takes(kNoRows));
}

TEST(ProblemFilter, NamesAWordThatIsNoProblem) {
  for (const char* const word : {"X", "E999", "no-such", "E1100", "EMPTY-ROW"}) {
    try {
      Filter({"E110", word});
      FAIL() << word;
    } catch (const CommandError& error) {
      EXPECT_EQ(error.status(), kUsage);
      EXPECT_NE(error.text().find(" " + std::string(word) + ";"), std::string::npos);
    }
  }
}

}  // namespace
}  // namespace quarvel::hosts
