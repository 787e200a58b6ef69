#include "inspect/problem_lines.h"

#include <gtest/gtest.h>

#include "tests/support/test_paths.h"

namespace quarvel::inspect {
namespace {

using mps::FileProblem;
using LineNumbers = std::vector<std::int64_t>;
using Code = mps::FileProblemCode;

constexpr std::string_view kManyLines =
    "ROWS\n N c\n G a\n E b\nCOLUMNS\n x a 1 b 2\n y c 1\n x a 3 c 4\n x a 5\n a c 1\nRHS\n"
    " R a -1e10 b 2\nRANGES\n R b -3\nBOUNDS\n LO B x 5\n UP B x 6\n UP B x 4\n UP B a 1e30\nENDATA\n";

LineNumbers LinesOf(FileProblem problem) {
  const TemporaryFolder folder;
  WriteWholeFile(folder.File("m.mps"), kManyLines);
  model::ModelStore store;
  std::vector<FileProblem> problems = {std::move(problem)};
  FindProblemLines(folder.File("m.mps"), {}, store, problems);
  return problems[0].lines;
}

TEST(ProblemLines, AreThoseThatSetTheBounds) {
  EXPECT_EQ(LinesOf({.code = Code::kColumnBoundsReversed, .item = "X"}), (LineNumbers{16, 18}));
  EXPECT_EQ(LinesOf({.code = Code::kRowBoundsReversed, .item = "B"}), (LineNumbers{12, 14}));
  EXPECT_EQ(LinesOf({.code = Code::kRowTypeLost, .item = "A"}), (LineNumbers{12}));
  EXPECT_EQ(LinesOf({.code = Code::kBeyondLimit, .item = "A"}), (LineNumbers{12, 19}));
}

TEST(ProblemLines, AreThoseOfEachCoefficientOfAPair) {
  EXPECT_EQ(LinesOf({.code = Code::kPairTwice, .item = "X", .read = "A"}), (LineNumbers{6, 8, 9}));
}

TEST(ProblemLines, AreTheFirstOfANameInOtherLetters) {
  EXPECT_EQ(LinesOf({.code = Code::kOtherLetters, .item = "A", .made = "one row"}), LineNumbers{3});
  EXPECT_EQ(LinesOf({.code = Code::kOtherLetters, .item = "A", .made = "one column"}),
            LineNumbers{10});
}

TEST(ProblemLines, AreNoneOfARecordThatIsNotThere) {
  EXPECT_EQ(LinesOf({.code = Code::kPairTwice, .item = "Z", .read = "A"}), LineNumbers{});
  EXPECT_EQ(LinesOf({.code = Code::kColumnBoundsReversed, .item = "Y"}), LineNumbers{});
}

TEST(ProblemLines, StayUnknownWhereTheFileIsGone) {
  const TemporaryFolder folder;
  model::ModelStore store;
  std::vector<FileProblem> problems = {{.code = Code::kColumnBoundsReversed, .item = "X"}};
  FindProblemLines(folder.File("none.mps"), {}, store, problems);
  EXPECT_EQ(problems[0].lines, LineNumbers{});
}

TEST(ProblemLines, AreLookedForWhereARecordIsMeant) {
  EXPECT_TRUE(HasLinesOfItsRecord(Code::kPairTwice));
  EXPECT_FALSE(HasLinesOfItsRecord(Code::kParallelRows));
  EXPECT_FALSE(HasLinesOfItsRecord(Code::kNoSuchRow));
}

}  // namespace
}  // namespace quarvel::inspect
