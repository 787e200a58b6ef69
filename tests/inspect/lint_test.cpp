#include "inspect/lint.h"

#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "component/lp_model.h"
#include "mps/read_file.h"
#include "platform/scripted/scripted_desktop.h"
#include "tests/support/model_builder.h"
#include "tests/support/test_paths.h"

namespace quarvel::inspect {
namespace {

using mps::FileProblem;
using mps::FileProblemCode;
using mps::FileProblems;

class LintTest : public ::testing::Test {
 protected:
  // The problems of one code as sentences, without the words that all of them begin with.
  std::vector<std::string> Find(FileProblemCode code) {
    FileProblems problems;
    Lint(model_.store(), facts_, problems);
    std::vector<std::string> found;
    for (const FileProblem& problem : problems.kept()) {
      if (problem.code == code) found.push_back(problem.item + "; " + problem.made);
    }
    return found;
  }
  std::int64_t CountAll() {
    FileProblems problems;
    Lint(model_.store(), facts_, problems);
    return static_cast<std::int64_t>(problems.kept().size());
  }

  platform::ScriptedDesktop desktop_;
  LPModel model_{desktop_};
  ModelBuilder build_{model_};
  mps::FileFacts facts_;
};

using Sentences = std::vector<std::string>;
constexpr double kInf = model::BoundLimit;

TEST_F(LintTest, FindsNothingInAGoodModel) {
  build_.Row("COST", 'N').Row("NEED", 'G', 2).Column("X").Integer("Y", 0, 7);
  build_.Element("X", "COST", 1).Element("X", "NEED", 3).Element("Y", "NEED", -5);
  EXPECT_EQ(CountAll(), 0);
}

TEST_F(LintTest, FindsNothingInNoModel) { EXPECT_EQ(CountAll(), 0); }

TEST_F(LintTest, FindsPairsThatAreGivenAgain) {
  build_.Row("R", 'L').Row("S", 'L').Column("X").Column("Y");
  build_.Element("X", "R", 1).Element("X", "S", 2).Element("X", "R", 3).Element("X", "R", 4.5);
  build_.Element("Y", "R", 1);
  constexpr std::string_view kRest =
      "; both stay, and add up; other readers keep one or refuse the file";
  EXPECT_EQ(Find(FileProblemCode::kPairTwice),
            (Sentences{std::string("X; in row R: 1, then 3").append(kRest),
                       std::string("X; in row R: 3, then 4.5").append(kRest)}));
}

TEST_F(LintTest, FindsWhatIsBeyondTheLimitOnEitherSide) {
  build_.RowWithin("R", 'G', 1e12, kInf).RowWithin("S", 'R', -1e30, 1e30).Row("N", 'N');
  build_.RowWithin("FREE", 'N', -1e30, 1e30);
  build_.Column("A", -kInf, kInf).Column("B", -2e10, 5).Column("C", kInf, kInf);
  build_.Column("D", 0, -kInf);
  EXPECT_EQ(Find(FileProblemCode::kBeyondLimit),
            (Sentences{"B; the lower one, -20000000000, counts as none",
                       "C; the lower one, 10000000000, is kept as it is",
                       "D; the upper one, -10000000000, is kept as it is",
                       "R; the lower one, 1000000000000, is kept as it is",
                       "S; the lower one, -1E+30, counts as none; the upper one, 1E+30, counts as "
                       "none"}));
}

TEST_F(LintTest, FindsIntegersThatReadersBoundDifferently) {
  build_.Integer("A").Integer("B", 0, 9).Integer("C", -4).Column("D");
  EXPECT_EQ(
      Find(FileProblemCode::kIntegerWithoutUpper),
      (Sentences{"A; any value from 0 on is allowed here; to other readers the upper bound is 1",
                 "C; any value from -4 on is allowed here; to other readers the upper bound "
                 "is 1"}));
  facts_.SayUpper(1);
  EXPECT_EQ(Find(FileProblemCode::kIntegerWithoutUpper).size(), 1U);
}

// The columns that a file with such BOUNDS of five integer columns leaves to its reader.
std::string UnboundedBy(const std::string& bounds, const mps::ReadOptions& options = {}) {
  const TemporaryFolder folder;
  WriteWholeFile(folder.File("m.mps"),
                 "ROWS\n N C\n L R\nCOLUMNS\n M 'MARKER' 'INTORG'\n U R 1\n V R 2\n W R 3\n X R 4\n"
                 " Y R 5\n N 'MARKER' 'INTEND'\nBOUNDS\n" +
                     bounds + "ENDATA\n");
  model::ModelStore store;
  mps::FileRead read = mps::ReadFile(folder.File("m.mps"), options, store);
  FileProblems problems;
  Lint(store, read.facts, problems);
  std::string names;
  for (const FileProblem& problem : problems.kept()) {
    if (problem.code == FileProblemCode::kIntegerWithoutUpper) names += problem.item;
  }
  return names;
}

TEST(LintOfFiles, TellsOfIntegersWhoseUpperBoundNoLineOfBoundsSettles) {
  EXPECT_EQ(UnboundedBy(" PL B U\n FR B V\n UP B W 1e30\n UP B X 4\n FX B Y 2\n"), "");
  EXPECT_EQ(UnboundedBy(" LI B U 0\n LI B V 2\n UI B W inf\n UP B X inf\n SI B Y\n"), "");
  EXPECT_EQ(UnboundedBy(" LO B U 5\n MI B V\n LO B W 0\n LO B X -inf\n"), "UVWXY");
  // To a reader of the first set alone the others say nothing.
  EXPECT_EQ(UnboundedBy(" PL B U\n PL OTHER V\n PL OTHER W\n"), "VWXY");
  EXPECT_EQ(UnboundedBy(" PL B U\n LO B V 3\n", {.dialect = mps::FileDialect::kComponent}), "VWXY");
}

TEST_F(LintTest, CountsLongNamesInOneProblem) {
  build_.Row("EIGHT888", 'L').Row("NINE99999", 'L').Row("TEN1010101", 'L').Column("LONGCOLUMN1");
  build_.Column("\xC3\x84\xC3\x84\xC3\x84\xC3\x84\xC3\x84\xC3\x84");  // six characters
  EXPECT_EQ(Find(FileProblemCode::kLongNames),
            Sentences{"NINE99999; row names: 2, column names: 1, the longest of 11; fixed columns "
                      "do not hold them"});
}

TEST_F(LintTest, FindsSizesThatAreFarApart) {
  build_.Row("R", 'L').Row("S", 'L').Column("X").Column("Y");
  build_.Element("X", "R", 0.001).Element("Y", "R", -1000001);
  build_.Element("X", "S", 1000000).Element("Y", "S", 1);
  EXPECT_EQ(Find(FileProblemCode::kRowScale), Sentences{"R; from 0.001 to 1000001"});
  EXPECT_EQ(Find(FileProblemCode::kColumnScale), Sentences{});
  EXPECT_EQ(Find(FileProblemCode::kModelScale),
            Sentences{"; from 0.001 to 1000001, in the columns X and Y"});
}

TEST_F(LintTest, TakesSizesOfAHundredMillionForGranted) {
  build_.Row("R", 'L').Row("S", 'L').Column("X");
  build_.Element("X", "R", 0.001).Element("X", "S", 1000000);
  EXPECT_EQ(Find(FileProblemCode::kColumnScale), Sentences{});
  build_.Row("T", 'L').Element("X", "T", 1000001);
  EXPECT_EQ(Find(FileProblemCode::kColumnScale), Sentences{"X; from 0.001 to 1000001"});
  EXPECT_EQ(Find(FileProblemCode::kModelScale),
            Sentences{"; from 0.001 to 1000001, in the column X"});
}

TEST_F(LintTest, FindsRowsThatAreMultiplesWhateverTheirOrder) {
  build_.Row("A", 'L').Row("B", 'G').Row("C", 'E').Row("D", 'L').Row("FREE", 'N').Row("ONE", 'L');
  build_.Row("TWO", 'L').Row("E", 'L');
  build_.Column("X").Column("Y").Column("Z");
  build_.Element("X", "A", 0.1).Element("Y", "A", 0.3);
  build_.Element("Y", "B", -3).Element("X", "B", -1);
  build_.Element("X", "C", 1).Element("Y", "C", 3.000001);
  build_.Element("X", "D", 1).Element("Z", "D", 3);
  build_.Element("X", "FREE", 1).Element("Y", "FREE", 3);
  build_.Element("X", "ONE", 1).Element("X", "TWO", 2);
  build_.Element("X", "E", 7).Element("Y", "E", 21);
  EXPECT_EQ(Find(FileProblemCode::kParallelRows), (Sentences{"B; -10 times A", "E; 70 times A"}));
}

// 2.1 / 0.7 is a little more than 3.
TEST_F(LintTest, FindsMultiplesWhoseQuotientsAreRounded) {
  build_.Row("A", 'L').Row("B", 'G').Column("X").Column("Y");
  build_.Element("X", "A", 1).Element("Y", "A", 3);
  build_.Element("X", "B", 0.7).Element("Y", "B", 2.1);
  EXPECT_EQ(Find(FileProblemCode::kParallelRows), Sentences{"B; 0.7 times A"});
}

TEST_F(LintTest, FindsColumnsThatAreMultiples) {
  build_.Row("A", 'L').Row("FREE", 'N').Column("X").Column("Y").Column("Z").Column("ONE");
  build_.Element("X", "A", 2).Element("X", "FREE", 4);
  build_.Element("Y", "FREE", 2).Element("Y", "A", 1);
  build_.Element("Z", "A", 2).Element("Z", "FREE", 5).Element("ONE", "A", 1);
  EXPECT_EQ(Find(FileProblemCode::kParallelColumns), Sentences{"Y; 0.5 times X"});
}

// So many that most of them are told apart by their fingerprints' first look.
TEST_F(LintTest, FindsTheMultiplesAmongManyColumns) {
  build_.Row("A", 'L').Row("B", 'L');
  Sentences expected;
  for (int j = 1; j <= 3000; ++j) {
    const std::string name = "C" + std::to_string(j);
    const bool repeats = j % 250 == 0;
    const double ratio = repeats ? j - 1 : j;
    const double factor = repeats ? 4 : 1;
    build_.Column(name).Element(name, "A", factor).Element(name, "B", factor * ratio);
    if (repeats) expected.push_back(name + "; 4 times C" + std::to_string(j - 1));
  }
  EXPECT_EQ(expected.size(), 12U);
  EXPECT_EQ(Find(FileProblemCode::kParallelColumns), expected);
}

TEST_F(LintTest, TellsOfEachKindOfLossOnce) {
  build_.Row("A", 'L').Column("X").Column("Y");
  build_.Element("X", "A", 0.123456789012345).Element("Y", "A", 0.3333333333333333);
  EXPECT_EQ(Find(FileProblemCode::kNotKept),
            Sentences{"X; the column has the element 0.123456789012345 at row A, which reads back "
                      "as 0.123456789; 2 of this kind"});
}

TEST_F(LintTest, TellsWhatOfTheFileTheFixedLayoutDoesNotKeep) {
  build_.Row("A", 'N').Column("X").Element("X", "A", 1);
  facts_.rhs_set = "RHS";
  facts_.bounds_set = "BND";
  EXPECT_EQ(Find(FileProblemCode::kNotKept), Sentences{});
  EXPECT_EQ(Find(FileProblemCode::kSetRenamed), Sentences{"BND; the set BND is called BOUND"});
  facts_.sense = mps::ObjectiveSense::kMaximize;
  EXPECT_EQ(Find(FileProblemCode::kNotKept),
            Sentences{"; the objective is to be maximized, which the file does not say; --layout "
                      "free does"});
}

TEST_F(LintTest, DescribesOnlyWhatIsWanted) {
  for (int i = 0; i < 50; ++i) build_.Integer("C" + std::to_string(i));
  std::int64_t described = 0;
  std::int64_t heard = 0;
  Lint(model_.store(), facts_,
       {[&](FileProblemCode) { return heard < 3; },
        [&](const FileProblem& problem) {
          if (!problem.item.empty()) ++described;
          if (problem.code == FileProblemCode::kIntegerWithoutUpper) ++heard;
        }});
  EXPECT_EQ(heard, 50);
  EXPECT_EQ(described, 3);
}

TEST(LintOfFiles, HearsOfRowsThatLimitNothingAnyMore) {
  const TemporaryFolder folder;
  WriteWholeFile(
      folder.File("m.mps"),
      "ROWS\n G a\n L b\n E c\n E d\n N e\n G f\n L g\nCOLUMNS\n x a 1 b 2\n x c 1 d 1\n"
      " x e 1 f 1\n x g 1\nRHS\n RHS a -1e10 b 1e11\n RHS c 1e10 d 4\n RHS e 1e10 f 1e9\n"
      " RHS g 3\nRANGES\n RNG d 5 g 2\nENDATA\n");
  model::ModelStore store;
  const mps::FileRead read = mps::ReadFile(folder.File("m.mps"), {}, store);
  Sentences found;
  for (const FileProblem& problem : read.problems.kept()) found.push_back(mps::SentenceOf(problem));
  EXPECT_EQ(
      found,
      (Sentences{"a right-hand side of the objective: E; -10000000000 is added to the objective",
                 "the row's limit counts as none: A; the type G becomes N, which limits nothing",
                 "the row's limit counts as none: B; the type L becomes N, which limits nothing",
                 "the row's limit counts as none: C; the type E becomes G"}));
}

}  // namespace
}  // namespace quarvel::inspect
