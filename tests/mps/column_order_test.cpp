#include "mps/column_order.h"

#include <string>

#include <gtest/gtest.h>

#include "tests/mps/wide_reading.h"

namespace quarvel::mps {
namespace {

// Of COLUMNS from line 5 on.
std::string OrderProblems(const std::string& columns, const ReadOptions& options = {}) {
  return WideReading("ROWS\n N  COST\n L  LIM\nCOLUMNS\n" + columns + "ENDATA\n", options)
      .Problems();
}

constexpr char kBegin[] = "    M  'MARKER'  'INTORG'\n";
constexpr char kEnd[] = "    M  'MARKER'  'INTEND'\n";

TEST(ColumnOrder, TellsColumnsTakenUpAgainOnceEachTime) {
  EXPECT_EQ(OrderProblems("    X  COST  1\n    X  LIM  1\n    Y  COST  1\n"), "");
  EXPECT_EQ(OrderProblems(
                "    X  COST  1\n    Y  COST  1\n    X  LIM  1\n    X  LIM  1\n    Y  LIM  1\n"),
            "W419 7:5+1 'X'; W419 9:5+1 'Y'");
  EXPECT_EQ(OrderProblems(
                "    X  COST  1\n    Y  COST  1\n    Z  COST  1\n    X  LIM  1\n    W  LIM  1\n"),
            "W419 8:5+1 'X'");
}

TEST(ColumnOrder, TellsMarkersBetweenLinesOfOneColumn) {
  const std::string begin = kBegin;
  const std::string end = kEnd;
  EXPECT_EQ(OrderProblems("    X  COST  1\n" + begin + "    X  LIM  1\n" + end), "W420 7:5+1 'X'");
  EXPECT_EQ(OrderProblems(begin + "    X  COST  1\n" + end + "    X  LIM  1\n"), "W420 8:5+1 'X'");
  EXPECT_EQ(OrderProblems("    X  COST  1\n" + begin + end + "    X  LIM  1\n"), "");
  EXPECT_EQ(OrderProblems("    X  COST  1\n" + begin + "    Y  COST  1\n    X  LIM  1\n" + end),
            "W419 8:5+1 'X'; W420 8:5+1 'X'");
}

TEST(ColumnOrder, TellsMarkersThatAreNoPair) {
  const std::string begin = kBegin;
  const std::string end = kEnd;
  const std::string x = "    X  COST  1  LIM  1\n";
  EXPECT_EQ(OrderProblems(begin + x + end), "");
  EXPECT_EQ(OrderProblems(end + x), "W421 5:18+8 ''INTEND''");
  EXPECT_EQ(OrderProblems(begin + begin + x + end), "W421 6:18+8 ''INTORG''");
  EXPECT_EQ(OrderProblems(x + begin + "    Y  COST  1\n"), "W421 6:18+8 ''INTORG''");
}

// A marker with the name of a column is a line of that column.
TEST(ColumnOrder, LooksAtMarkersAlone) {
  EXPECT_EQ(OrderProblems("    X  COST  1  LIM  1\n    X  'MARKER'  'INTORG'\n"),
            "E109 6:18+8 ''INTORG''");
}

TEST(ColumnOrder, IsNotLookedAtInTheComponentsDialect) {
  EXPECT_EQ(OrderProblems("    X  COST  1\n    Y  COST  1\n    X  LIM  1\n" + std::string(kBegin),
                          {.dialect = FileDialect::kComponent}),
            "");
}

}  // namespace
}  // namespace quarvel::mps
