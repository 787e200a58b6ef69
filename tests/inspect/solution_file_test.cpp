#include "inspect/solution_file.h"

#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "inspect/solution_lines.h"
#include "platform/automation_error.h"
#include "platform/byte_source.h"
#include "platform/files.h"
#include "tests/support/given_bytes.h"
#include "tests/support/test_paths.h"
#include "text/numbers.h"

namespace quarvel::inspect {
namespace {

// Writes down what it is given: "3 X=2.5", with the line before it; "--" where a solution begins.
class TakenValues : public SolutionUser {
 public:
  void Begin(SolutionKind) override { text += "--\n"; }
  void Take(const SolutionValue& value) override {
    text += text::IntegerText(value.line) + ' ' +
            (value.number != 0 ? '#' + text::IntegerText(value.number) : std::string(value.name)) +
            '=' + text::GeneralText(value.value) + '\n';
  }

  std::string text;
};

struct ReadPoint {
  SolutionFile file;
  std::string values;
  std::string complaint;  // with its line before it
};

ReadPoint Read(std::string_view bytes) {
  const TemporaryFolder folder;
  WriteWholeFile(folder.File("point"), bytes);
  TakenValues taken;
  ReadPoint read;
  read.file = ReadSolutionFile(testing::BytesOf(folder.File("point")), taken);
  read.values = taken.text;
  if (read.file.complaint) {
    read.complaint =
        text::IntegerText(read.file.complaint->line) + ": " + read.file.complaint->text;
  }
  return read;
}

void ExpectRead(std::string_view bytes, SolutionKind kind, std::int64_t columns,
                std::string_view values) {
  const ReadPoint read = Read(bytes);
  EXPECT_EQ(TraitsOf(read.file.kind).id, TraitsOf(kind).id);
  EXPECT_EQ(read.file.columns, columns);
  EXPECT_EQ(read.values, values);
  EXPECT_EQ(read.complaint, "");
}

constexpr std::string_view kGlpsolReport =
    "Problem:    DIET\n"
    "Rows:       1\n"
    "Columns:    4 (1 integer, 0 binary)\n"
    "Non-zeros:  3\n"
    "Status:     OPTIMAL\n"
    "Objective:  COST = 1956.25 (MINimum)\n"
    "\n"
    "   No.   Row name   St   Activity     Lower bound   Upper bound    Marginal\n"
    "------ ------------ -- ------------- ------------- ------------- -------------\n"
    "     1 CALORIES     NL         15400         15400                        0.25 \n"
    "\n"
    "   No. Column name  St   Activity     Lower bound   Upper bound    Marginal\n"
    "------ ------------ -- ------------- ------------- ------------- -------------\n"
    "     1 BREAD        NU            35             0            35         -44.5 \n"
    "     2 A_VERY_LONG_COLUMN_NAME\n"
    "                    B        5.38158             0             7 \n"
    "     3 TWELVE_CHARS NL  -1.23457e-05             5                        2.75 \n"
    "     4 TWO WORDS    NF             0\n"
    "\n"
    "Karush-Kuhn-Tucker optimality conditions:\n"
    "\n"
    "KKT.PE: max.abs.err = 0.00e+00 on row 0\n"
    "\n"
    "End of output\n";

TEST(SolutionFile, ReadsNamesAndValues) {
  ExpectRead("\xEF\xBB\xBF# a point\r\n\r\n  X 4\r\n\tY = -2 \r\nA=B=1e3\n=obj= 12\nLAST .5",
             SolutionKind::kPairs, -1, "--\n3 X=4\n4 Y=-2\n5 A=B=1000\n7 LAST=0.5\n");
}

TEST(SolutionFile, ReadsAnEmptyFileAsNamesAndValues) {
  ExpectRead("", SolutionKind::kPairs, -1, "--\n");
}

TEST(SolutionFile, ReadsTheReportOfGlpsol) {
  ExpectRead(kGlpsolReport, SolutionKind::kGlpsolReport, 4,
             "--\n14 BREAD=35\n16 A_VERY_LONG_COLUMN_NAME=5.38158\n"
             "17 TWELVE_CHARS=-1.23457E-05\n18 TWO WORDS=0\n");
}

TEST(SolutionFile, ReadsTheReportOfGlpsolOnAnIntegerModel) {
  ExpectRead(
      "Problem:    MIXED\n"
      "Rows:       3\n"
      "Columns:    3 (1 integer, 0 binary)\n"
      "Status:     INTEGER OPTIMAL\n"
      "\n"
      "   No. Column name       Activity     Lower bound   Upper bound\n"
      "------ ------------    ------------- ------------- -------------\n"
      "     1 AVERYLONGCOLUMNNAME12345\n"
      "                    *              2             0             4 \n"
      "     2 I            *              3             0             4 \n"
      "     3 Y                          -1            -1             1 \n"
      "\n"
      "Integer feasibility conditions:\n",
      SolutionKind::kGlpsolReport, 3, "--\n9 AVERYLONGCOLUMNNAME12345=2\n10 I=3\n11 Y=-1\n");
}

TEST(SolutionFile, ReadsWhatGlpsolWrites) {
  constexpr std::string_view kHead = "c Problem:    DIET\nc Rows:       1\nc\n";
  const std::string head(kHead);
  ExpectRead(
      head + "s bas 1 2 f f 1956.25\ni 1 l 15400 0.25\nj 1 u 35 -44.5\nj 2 b 5.25 0\ne o f\n",
      SolutionKind::kGlpsolRaw, 2, "--\n6 #1=35\n7 #2=5.25\n");
  ExpectRead(head + "s mip 1 2 o -6\ni 1 1\nj 1 2\nj 2 -1\ne o f\n", SolutionKind::kGlpsolRaw, 2,
             "--\n6 #1=2\n7 #2=-1\n");
  ExpectRead("s ipt 1 1 o 1.5\ni 1 2 3\nj 1 35.0000000191152 -44.5\ne o f\n",
             SolutionKind::kGlpsolRaw, 1, "--\n3 #1=35.0000000191152\n");
}

TEST(SolutionFile, ReadsTheOutputOfLpSolve) {
  ExpectRead(
      "\n"
      "Value of objective function: 1956.25000000\n"
      "\n"
      "Actual values of the variables:\n"
      "BREAD                          35\n"
      "A_VERY_LONG_COLUMN_NAME_OF_MORE_THAN_FORTY_CHARACTERS       123357\n"
      "TWO WORDS                       0\n"
      "\n"
      "Actual values of the constraints:\n"
      "CALORIES                    15400\n"
      "\n"
      "Dual values with from - till limits:\n"
      "                           Dual value            From            Till\n"
      "BREAD                           -44.5           32.54           43.18\n",
      SolutionKind::kLpSolve, -1,
      "--\n--\n5 BREAD=35\n6 A_VERY_LONG_COLUMN_NAME_OF_MORE_THAN_FORTY_CHARACTERS=123357\n"
      "7 TWO WORDS=0\n");
}

TEST(SolutionFile, BeginsAnewWithEachSolutionOfLpSolve) {
  ExpectRead(
      "Improved solution\n\nActual values of the variables:\nX  1\nY  2\n\n"
      "Improved solution\n\nActual values of the variables:\nX  3\n",
      SolutionKind::kLpSolve, -1, "--\n--\n4 X=1\n5 Y=2\n--\n10 X=3\n");
}

TEST(SolutionFile, ReadsWhatCbcWrites) {
  ExpectRead(
      "Stopped on iterations - objective value 1956.25000000\n"
      "      0 BREAD                 35                   -44.5\n"
      "**    2 CHEESE         5.3815789                       0\n"
      "     12 TWO WORDS              0                       2\n",
      SolutionKind::kCbc, -1, "--\n2 BREAD=35\n3 CHEESE=5.3815789\n4 TWO WORDS=0\n");
}

TEST(SolutionFile, TakesTheLastBlockOfCbcForTheColumns) {
  ExpectRead(
      "Optimal - objective value 1956.25000000\n"
      "      0 CALORIES           15400                    0.25\n"
      "      1 PROTEIN        687.03947                       0\n"
      "      0 BREAD                 35                   -44.5\n"
      "      1 MILK                  70                      -5\n",
      SolutionKind::kCbc, -1,
      "--\n2 CALORIES=15400\n3 PROTEIN=687.03947\n--\n4 BREAD=35\n5 MILK=70\n");
}

TEST(SolutionFile, ReadsWhatHighsWrites) {
  ExpectRead(
      "Model status\nOptimal\n\n# Primal solution values\nFeasible\nObjective 23\n# Columns 2\nC0 5\n"
      "C1 0.1\n# Rows 1\nR0 2\n\n# Dual solution values\nFeasible\n# Columns 2\nC0 7\nC1 8\n# Rows 1\n"
      "R0 9\n\n# Basis\nHiGHS v1\nValid\n# Columns 2\n1 1\n# Rows 1\n0\n",
      SolutionKind::kHighs, 2, "--\n8 C0=5\n9 C1=0.1\n");
}

TEST(SolutionFile, ReadsTheSparseStyleOfHighs) {
  ExpectRead(
      "Model status\nOptimal\n\n# Primal solution values\nFeasible\nObjective 32\n# Columns -2\n"
      "C0 4 0\nC7 -1.5 7\n# Rows 0\n",
      SolutionKind::kHighs, -1, "--\n8 C0=4\n9 C7=-1.5\n");
}

TEST(SolutionFile, ReadsTheReportOfHighs) {
  constexpr std::string_view kTitles =
      "    Index Status        Lower        Upper       Primal         Dual";
  const std::string titles(kTitles);
  ExpectRead("Columns\n" + titles + "  Name\n" +
                 "        0     BS            0            1          0.5           -0  x\n"
                 "        1     UB         -inf          inf            1           -0  a b\n"
                 "Rows\n" +
                 titles + "  Name\n" +
                 "        0     UB         -inf          1.5          1.5            1  c1\n"
                 "\nModel status: Optimal\n",
             SolutionKind::kHighsReport, -1, "--\n3 x=0.5\n4 a b=1\n");
  ExpectRead(
      "Columns\n" + titles + "  Type      \n" +
          "        0                   0          inf            5               Integer   \n"
          "        1                   0          inf            3               Integer   \n"
          "Rows\n" +
          titles + "\n        0                   1          inf            2             \n",
      SolutionKind::kHighsReport, -1, "--\n3 #1=5\n4 #2=3\n");
}

TEST(SolutionFile, SaysWhatItCannotRead) {
  const std::string report(kGlpsolReport);
  const struct {
    std::string bytes;
    const char* complaint;
  } cases[] = {
      {"X 1\nY\n", "2: \"Y\" is not NAME VALUE or NAME=VALUE"},
      {"X 1 2\n", "1: \"1 2\" is not a number"},
      {"X=inf\nY\n", "1: \"inf\" is not a number"},
      {"Problem:    P\nRows:       0\nColumns:    0\n", "0: there are no columns"},
      {report.substr(0, report.find("                    B")) + "\n",
       "16: there is no value of A_VERY_LONG_COLUMN_NAME"},
      {report.substr(0, report.find("     2 A_")) + "                    B   1\n",
       "15: \"                    B   1\" is no line of a column"},
      {"s bas 1 2 f f 0\nj 3 b 1 0\n", "2: \"3\" is no number of a column"},
      {"s bas 1 2 f f 0\nj 0 b 1 0\n", "2: \"0\" is no number of a column"},
      {"s mip 1 2 o 0\nj 1 x\n", "2: \"x\" is not a number"},
      {"Value of objective function: 0\n", "0: there are no values of the variables"},
      {"\nThis problem is infeasible\n",
       "0: there is no solution in it: \"This problem is infeasible\""},
      {"set_XXXX: note\nThis problem is unbounded\nX 1\n",
       "0: there is no solution in it: \"This problem is unbounded\""},
      {"GLPK 5.0  - SENSITIVITY ANALYSIS REPORT      Page   1\n\nProblem:    m\n",
       "1: a sensitivity report holds no solution: glpsol writes one with --output or --write"},
      {"Actual values of the variables:\nX nan\n", "2: \"nan\" is not a number"},
      {"Optimal - objective value 1\nX 1\n", "2: \"X 1\" is no line of a column"},
      {"Optimal - objective value 1\n 0 X y 0\n", "2: \"y\" is not a number"},
      {"Model status\nInfeasible\n\n# Primal solution values\nNone\n",
       "0: there are no primal values"},
      {"Model status\nOptimal\n\n# Primal solution values\nFeasible\n# Columns 1\nX\n",
       "7: \"X\" is not a number"},
      {"Columns\n    Index Status        Lower        Upper       Primal         Dual  Name\nx\n",
       "3: \"x\" is no line of a column"},
      {std::string((1 << 20) + 1, 'x'), "1: the line is too long"},
      {"X 1\n" + std::string((1 << 20) + 1, 'x') + "\nY\n", "2: the line is too long"},
  };
  for (const auto& c : cases)
    EXPECT_EQ(Read(c.bytes).complaint, c.complaint) << c.bytes.substr(0, 99);
}

TEST(SolutionFile, TellsTheKindByTheFirstLinesOnly) {
  std::string late(kTellingLines, '\n');
  late += "Actual values of the variables:\nX 1\n";
  EXPECT_EQ(Read(late).complaint, "201: \"values of the variables:\" is not a number");
  late.erase(0, 1);
  EXPECT_EQ(Read(late).values, "--\n--\n201 X=1\n");
}

TEST(SolutionFile, ReadsMoreLinesThanItIsKnownBy) {
  std::string bytes;
  std::string values = "--\n";
  for (int i = 1; i <= 1000; ++i) {
    bytes += "X" + std::to_string(i) + " 1\n";
    values += std::to_string(i) + " X" + std::to_string(i) + "=1\n";
  }
  ExpectRead(bytes, SolutionKind::kPairs, -1, values);
}

TEST(SolutionFile, RaisesWhatOpeningRaises) {
  const TemporaryFolder folder;
  TakenValues taken;
  EXPECT_THROW(ReadSolutionFile(testing::BytesOf(folder.File("missing")), taken), AutomationError);
  EXPECT_EQ(taken.text, "");
}

}  // namespace
}  // namespace quarvel::inspect
