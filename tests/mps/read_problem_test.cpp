#include "mps/read_problem.h"

#include <set>
#include <string_view>

#include <gtest/gtest.h>

namespace quarvel::mps {
namespace {

TEST(ReadProblem, NamesItsLineItsItemOrItsFailureInWords) {
  const struct {
    ReadProblem problem;
    const char* text;
  } cases[] = {
      {{ReadProblemCode::kRowTokens, 7}, "MPS file read error: insufficent tokens in line 7"},
      {{ReadProblemCode::kRowTwice, 8, "R"},
       "MPS file read error: row name appears for a second time (8)"},
      {{ReadProblemCode::kLineTooLong, 9},
       "MPS file read error: a line is longer than 1048576 bytes (line 9)"},
      {{ReadProblemCode::kNoColumns}, "Quarvel.dll error: no columns"},
      {{ReadProblemCode::kRowBoundsReversed, 0, "LIM"},
       "Quarvel.dll error: bounds reversed on row LIM"},
      {{ReadProblemCode::kFailure, 0, "", AutomationError(7, "", "Out of memory")},
       "Out of memory"},
  };
  for (const auto& c : cases) EXPECT_EQ(TextOf(c.problem), c.text);
}

TEST(ReadProblem, HasANameOfItsOwnForEachCode) {
  constexpr auto kCodes = static_cast<int>(ReadProblemCode::kFailure) + 1;
  std::set<std::string_view> names;
  for (int code = 0; code < kCodes; ++code)
    names.insert(NameOf(static_cast<ReadProblemCode>(code)));
  EXPECT_EQ(names.size(), std::size_t{kCodes});
  EXPECT_FALSE(names.contains(""));
}

}  // namespace
}  // namespace quarvel::mps
