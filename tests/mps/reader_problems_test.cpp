// What a read asks about lines it cannot use, and how it goes on.

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "mps/line_reader.h"
#include "tests/mps/read_helpers.h"

namespace quarvel::mps {
namespace {

using Texts = std::vector<std::string>;

struct LineCase {
  std::string text;     // the whole file
  std::string problem;  // the one question besides those at the end
};

// Each of these statements ends with its line.
std::string NumberAtTheEnd(std::string statement) {
  if (statement.ends_with(')')) statement.pop_back();
  return statement.substr(statement.find_last_not_of("0123456789") + 1);
}

class LineProblems : public ::testing::TestWithParam<LineCase> {};

TEST_P(LineProblems, AreAskedWithTheirLine) {
  ReadSession session;
  session.Read(GetParam().text);
  const Texts problems = session.Problems();
  ASSERT_FALSE(problems.empty());
  EXPECT_EQ(problems[0], Question(GetParam().problem));
  EXPECT_EQ(session.desktop.boxes()[0].title, "Error.  Continue Reading MPS File?");
  EXPECT_EQ(session.desktop.boxes()[0].style, platform::MsgBoxStyle::kYesNo);
  const platform::Box& box = session.desktop.box_data()[0];
  EXPECT_EQ(box.kind, platform::BoxKind::kReadProblem);
  EXPECT_EQ(box.statement, GetParam().problem);
  EXPECT_EQ(std::to_string(box.line), NumberAtTheEnd(GetParam().problem));
}

INSTANTIATE_TEST_SUITE_P(
    MpsReader, LineProblems,
    ::testing::Values(
        LineCase{"ROWS\n L\n", "MPS file read error: insufficent tokens in line 2"},
        LineCase{"ROWS\n L A B\n", "MPS file read error: insufficent tokens in line 2"},
        LineCase{"ROWS\n R A\n", "MPS file read error: improper row type (line 2)"},
        LineCase{"ROWS\n L A\n G a\n",
                 "MPS file read error: row name appears for a second time (3)"},
        LineCase{"ROWS\n L A\nCOLUMNS\n X A\n",
                 "MPS file read error: improper number of tokens (line 4)"},
        LineCase{"ROWS\n L A\nCOLUMNS\n X A 1 A\n",
                 "MPS file read error: improper number of tokens (line 4)"},
        LineCase{"ROWS\n L A\nCOLUMNS\n X A 1 A 2 A\n",
                 "MPS file read error: improper number of tokens (line 4)"},
        LineCase{"COLUMNS\n X A 1\n",
                 "MPS file read error: no rows yet, but reading columns (line 2)"},
        LineCase{"ROWS\n L A\nCOLUMNS\n X A one\n",
                 "MPS file read error: needs numeric value (line 4)"},
        LineCase{"ROWS\n L A\nCOLUMNS\n X A inf\n",
                 "MPS file read error: needs numeric value (line 4)"},
        LineCase{"ROWS\n L A\nCOLUMNS\n X A nan\n",
                 "MPS file read error: needs numeric value (line 4)"},
        LineCase{"ROWS\n L A\nCOLUMNS\n X A 0x1F\n",
                 "MPS file read error: needs numeric value (line 4)"},
        LineCase{"ROWS\n L A\nCOLUMNS\n X A 1e999\n",
                 "MPS file read error: needs numeric value (line 4)"},
        LineCase{"ROWS\n L A\nCOLUMNS\n X B 1\n",
                 "MPS file read error: no match for row name (line 4)"},
        LineCase{"ROWS\n L A\nCOLUMNS\n X A 1\nRHS\n S A\n",
                 "MPS file read error: improper number of tokens (line 6)"},
        LineCase{"RHS\n S A 1\n", "MPS file read error: no rows yet, but reading RHSs (line 2)"},
        LineCase{"ROWS\n L A\nCOLUMNS\n X A 1\nRHS\n S A z\n",
                 "MPS file read error: needs numeric value (line 6)"},
        LineCase{"ROWS\n L A\nCOLUMNS\n X A 1\nRHS\n S B 1\n",
                 "MPS file read error: no match for row name (line 6)"},
        LineCase{"ROWS\n L A\nCOLUMNS\n X A 1\nRANGES\n S A\n",
                 "MPS file read error: improper number of tokens (line 6)"},
        LineCase{"RANGES\n S A 1\n",
                 "MPS file read error: no rows yet, but reading ranges (line 2)"},
        LineCase{"ROWS\n L A\nCOLUMNS\n X A 1\nRANGES\n S A z\n",
                 "MPS file read error: needs numeric value (line 6)"},
        LineCase{"ROWS\n L A\nCOLUMNS\n X A 1\nRANGES\n S B 1\n",
                 "MPS file read error: no match for row name (line 6)"},
        LineCase{"BOUNDS\n UP S X 1\n",
                 "MPS file read error: no variables yet, but reading bounds (line 2)"},
        LineCase{"ROWS\n L A\nCOLUMNS\n X A 1\nBOUNDS\n FR S\n",
                 "MPS file read error: improper number of tokens (line 6)"},
        LineCase{"ROWS\n L A\nCOLUMNS\n X A 1\nBOUNDS\n BV S X\n",
                 "MPS file read error: improper bounds code (line 6)"},
        LineCase{"ROWS\n L A\nCOLUMNS\n X A 1\nBOUNDS\n UP S X\n",
                 "MPS file error: too few tokens (line 6)"},
        LineCase{"ROWS\n L A\nCOLUMNS\n X A 1\nBOUNDS\n LO S X 1 2\n",
                 "MPS file error: too few tokens (line 6)"},
        LineCase{"ROWS\n L A\nCOLUMNS\n X A 1\nBOUNDS\n FX S X 1 2\n",
                 "MPS file error: too few tokens (line 6)"},
        LineCase{"ROWS\n L A\nCOLUMNS\n X A 1\nBOUNDS\n UP S X z\n",
                 "MPS file read error: needs numeric value (line 6)"},
        LineCase{"ROWS\n L A\nCOLUMNS\n X A 1\nBOUNDS\n UP S Z 1\n",
                 "MPS file read error: no match for variable name (line 6)"},
        LineCase{"ROWS\n L A\nCOLUMNS\n X A 1\nBOUNDS\n FR S Z\n",
                 "MPS file read error: no match for variable name (line 6)"}));

struct CodeCase {
  std::string text;  // the whole file
  std::string code;  // of the first question
};

const CodeCase kCodeCases[] = {
    {"ROWS\n L\n", "row-tokens"},
    {"ROWS\n R A\n", "row-type"},
    {"ROWS\n L A\n G A\n", "row-twice"},
    {"ROWS\n L A\nCOLUMNS\n X A\n", "tokens"},
    {"COLUMNS\n X A 1\n", "columns-before-rows"},
    {"RHS\n S A 1\n", "rhs-before-rows"},
    {"RANGES\n S A 1\n", "ranges-before-rows"},
    {"ROWS\n L A\nCOLUMNS\n X A one\n", "not-numeric"},
    {"ROWS\n L A\nCOLUMNS\n X B 1\n", "no-such-row"},
    {"BOUNDS\n UP S X 1\n", "bounds-before-columns"},
    {"ROWS\n L A\nCOLUMNS\n X A 1\nBOUNDS\n BV S X\n", "bound-code"},
    {"ROWS\n L A\nCOLUMNS\n X A 1\nBOUNDS\n UP S X\n", "bound-without-value"},
    {"ROWS\n L A\nCOLUMNS\n X A 1\nBOUNDS\n UP S Z 1\n", "no-such-column"},
    {"", "no-rows"},
    {"ROWS\n L A\n", "no-columns"},
    {"ROWS\n L A\nCOLUMNS\n X A 1\nBOUNDS\n UP S X -1\n", "column-bounds-reversed"},
};

TEST(MpsReader, AsksAboutEachProblemWithItsCode) {
  for (const CodeCase& c : kCodeCases) {
    ReadSession session;
    session.Read(c.text);
    ASSERT_FALSE(session.desktop.box_data().empty()) << c.code;
    EXPECT_EQ(session.desktop.box_data()[0].code, c.code) << c.text;
  }
}

TEST(MpsReader, AsksAboutAnOverlongLineWithoutKeepingIt) {
  ReadSession session;
  session.Read("ROWS\n L R\n" + std::string(LineReader::kLongestLine + 1, 'x') +
               "\nCOLUMNS\n X R 1\nENDATA\n");
  EXPECT_EQ(session.Problems(),
            Texts{Question("MPS file read error: a line is longer than 1048576 bytes (line 3)")});
  EXPECT_EQ(session.desktop.box_data()[0].code, "line-too-long");
  EXPECT_EQ(session.model.NumberOfElements(), 1);
}

TEST(MpsReader, SkipsOnlyTheBadPairAfterYes) {
  ReadSession session;
  session.Read("ROWS\n L A\n L B\nCOLUMNS\n X A bad B 2\n Y NONE 1 A 3\nENDATA\n");
  EXPECT_EQ(session.Problems(),
            (Texts{Question("MPS file read error: needs numeric value (line 5)"),
                   Question("MPS file read error: no match for row name (line 6)")}));
  EXPECT_EQ(session.model.NumberOfElements(), 2);
  EXPECT_EQ(session.model.ElementValue(1, 0), 2);
  EXPECT_EQ(session.model.ElementValue(0, 1), 3);
}

TEST(MpsReader, AsksForEachBadPairOfALine) {
  ReadSession session;
  session.Read("ROWS\n L A\nCOLUMNS\n X Q 1 A z\n X A 1\nENDATA\n");
  EXPECT_EQ(session.Problems().size(), 2u);
}

TEST(MpsReader, AddsNoRowForARepeatedName) {
  ReadSession session;
  session.Read("ROWS\n L A\n G A\nCOLUMNS\n X A 1\nENDATA\n");
  EXPECT_EQ(session.model.NumberOfRows(), 1);
  EXPECT_EQ(session.model.RowType(0), "L");
  EXPECT_EQ(session.model.ReadMPSFileErr(), -1);
}

TEST(MpsReader, CreatesTheColumnOfALineWhoseOnlyPairIsBad) {
  ReadSession session;
  session.Read("ROWS\n L A\nCOLUMNS\n X A 1\n Y Q 1\nENDATA\n");
  EXPECT_EQ(session.model.NumberOfColumns(), 2);
}

TEST(MpsReader, StopsAtTheSecondPairWhenTheFirstIsAnsweredNo) {
  ReadSession session;
  session.problem_answers = {kNo};
  EXPECT_EQ(session.Read("ROWS\n L A\nCOLUMNS\n X A z A q\n X A 1\nENDATA\n"), 0);
  EXPECT_EQ(session.Problems().size(), 1u);
}

}  // namespace
}  // namespace quarvel::mps
