#include "mps/name_spellings.h"

#include <string>

#include <gtest/gtest.h>

#include "tests/mps/wide_reading.h"

namespace quarvel::mps {
namespace {

// Of COLUMNS from line 4 on.
std::string SpellingProblems(const std::string& columns) {
  return WideReading("ROWS\n N  cost\nCOLUMNS\n" + columns + "ENDATA\n").Problems();
}

TEST(NameSpellings, AreToldWhereTheyChange) {
  EXPECT_EQ(SpellingProblems("    x  cost  1\n    X  cost  2\n    X  cost  3\n    x  cost  4\n"),
            "W414 5:5+1 'X'; W414 7:5+1 'x'");
  EXPECT_EQ(SpellingProblems("    x  cost  1\n    X2  cost  2\n    x2  cost  3\n"),
            "W414 6:5+2 'x2'");
  EXPECT_EQ(SpellingProblems("    X  cost  1\n    Y  cost  2\n    x  cost  3\n    Z  cost  3\n"),
            "W414 6:5+1 'x'; W419 6:5+1 'x'");
}

TEST(NameSpellings, DoNotDependOnWhereTheNameStands) {
  EXPECT_EQ(SpellingProblems("    aB  cost  1\n  aB  cost  2\n\taB\tcost\t3\n"), "A303 6");
  EXPECT_EQ(SpellingProblems("    aB  cost  1\n\tAb\tcost\t3\n"), "A303 5; W414 5:2+2 'Ab'");
}

TEST(NameSpellings, AreComparedInLinesOfAllKinds) {
  const std::string blanks(70, ' ');
  EXPECT_EQ(SpellingProblems("    aB  cost  1" + blanks + "\n    AB  cost  2\n"),
            "W414 5:5+2 'AB'");
  EXPECT_EQ(SpellingProblems("    aB  cost  1\n    AB  cost  2 $ \xC3\xA4\n"),
            "A304 5:17+1 '$'; W414 5:5+2 'AB'");
  EXPECT_EQ(
      SpellingProblems("    a b       cost              1.\n    A b       cost              1.\n"),
      "A301 4; W414 5:5+3 'A b'");
}

TEST(NameSpellings, AreComparedWhereTheNameEndsInTheFirst63Bytes) {
  const auto told = [](std::size_t size) {
    const std::string name(size, 'n');
    const std::string other = name.substr(1) + "N";
    return SpellingProblems("    " + name + "  cost  1\n    " + other + "  cost  1\n");
  };
  EXPECT_EQ(told(59), "W414 5:5+59 '" + std::string(58, 'n') + "N'");
  EXPECT_EQ(told(60), "");
  const std::string name(60, 'n');
  EXPECT_EQ(SpellingProblems("    " + name + "  cost  1\n    " + name + "  COST  1\n"), "");
}

TEST(NameSpellings, AreToldOfRowsInEachSection) {
  const std::string rows =
      "ROWS\n N  cost\n L  most\n E  SAME\nCOLUMNS\n    z  cost  1  most  1\n    z  SAME  1\n";
  const auto problems = [&](const std::string& rest) {
    return WideReading(rows + rest + "ENDATA\n").Problems();
  };
  EXPECT_EQ(problems("    x  cost  1  MOST  1\n    x  SAME  2\n    y  MOST  1\n"),
            "W414 8:17+4 'MOST'");
  EXPECT_EQ(problems("    x  most  1  SAME  1\nRHS\n    RHS  MOST  1  SAME  1\n"),
            "W414 10:10+4 'MOST'");
  EXPECT_EQ(
      problems("    x  most  1\nRHS\n    Most  1\n    RHS  same  1  COST  2\n"),
      "A305 10; W414 10:5+4 'Most'; W414 11:10+4 'same'; W414 11:19+4 'COST'; A309 11:19+4 'COST'");
  EXPECT_EQ(problems("    x  most  1\nRHS\nRANGES\n    R  Same  1  cosT  1\n"),
            "W414 11:8+4 'Same'; W414 11:17+4 'cosT'; W408 11:17+4 'cosT'");
  EXPECT_EQ(problems("    x  most  1\nRHS\n\tR\tMost\t1\n"), "A303 10; W414 10:4+4 'Most'");
}

TEST(NameSpellings, AreToldOfColumnsInBounds) {
  const std::string file = "ROWS\n N  COST\nCOLUMNS\n    X  COST  1\n    y  COST  1\nBOUNDS\n";
  const auto problems = [&](const std::string& rest) {
    return WideReading(file + rest + "ENDATA\n").Problems();
  };
  EXPECT_EQ(problems(" UP B x 4\n LO B Y 1\n UP B Y 9\n"), "W414 7:7+1 'x'; W414 8:7+1 'Y'");
  EXPECT_EQ(problems(" BV B x\n MI Y\n"),
            "A306 7:2+2 'BV'; W414 7:7+1 'x'; A305 8; W414 8:5+1 'Y'");
  EXPECT_EQ(problems(" UP B X 4\n UP C x 4\n FR B y\n"), "W402 8:5+1 'C'");
}

TEST(NameSpellings, AreToldWhicheverLettersTheFirstRowHas) {
  for (const char* first : {"cost", "COST", "Cost", "1"}) {
    const std::string row = first;
    EXPECT_EQ(WideReading("ROWS\n N  " + row +
                          "\n L  top\n L  END\nCOLUMNS\n    x  top  1  END  1\n    x  " + row +
                          "  1\n    X  top  1\n    X  end  1\n    Y1  " + row +
                          "  1\nRHS\n    R  TOP  1\nBOUNDS\n UP B y1 2\nENDATA\n")
                  .Problems(),
              "W414 8:5+1 'X'; W414 9:8+3 'end'; W414 12:8+3 'TOP'; W414 14:7+2 'y1'")
        << row;
  }
}

// One name of a row, and one of a column, do not have to do with each other.
TEST(NameSpellings, TellRowsFromColumns) {
  WideReading reading("ROWS\n N  same\nCOLUMNS\n    SAME  same  1\nBOUNDS\n UP B SAME 1\nENDATA\n");
  EXPECT_EQ(reading.Problems(), "");
}

TEST(NameSpellings, AreNoSecondProblemOfARowThatStandsThereTwice) {
  EXPECT_EQ(WideReading("ROWS\n N  cost\n L  COST\nCOLUMNS\n    X  cost  1\nENDATA\n").Problems(),
            "E104 3:5+4 'COST'");
}

}  // namespace
}  // namespace quarvel::mps
