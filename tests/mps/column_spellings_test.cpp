#include "mps/column_spellings.h"

#include <string>

#include <gtest/gtest.h>

#include "tests/mps/wide_reading.h"

namespace quarvel::mps {
namespace {

// Of COLUMNS from line 4 on.
std::string SpellingProblems(const std::string& columns) {
  return WideReading("ROWS\n N  cost\nCOLUMNS\n" + columns + "ENDATA\n").Problems();
}

TEST(ColumnSpellings, AreToldWhereTheyChange) {
  EXPECT_EQ(SpellingProblems("    x  cost  1\n    X  cost  2\n    X  COST  3\n    x  cost  4\n"),
            "W414 5:5+1 'X'; W414 7:5+1 'x'");
  EXPECT_EQ(SpellingProblems("    x  cost  1\n    X2  cost  2\n    x2  cost  3\n"),
            "W414 6:5+2 'x2'");
  EXPECT_EQ(SpellingProblems("    X  COST  1\n    Y  COST  2\n    x  COST  3\n    Z  COST  3\n"),
            "W414 6:5+1 'x'; W419 6:5+1 'x'");
}

TEST(ColumnSpellings, DoNotDependOnWhereTheNameStands) {
  EXPECT_EQ(SpellingProblems("    aB  cost  1\n  aB  cost  2\n\taB\tcost\t3\n"), "A303 6");
  EXPECT_EQ(SpellingProblems("    aB  cost  1\n\tAb\tcost\t3\n"), "A303 5; W414 5:2+2 'Ab'");
}

TEST(ColumnSpellings, AreComparedInLinesOfAllKinds) {
  const std::string blanks(70, ' ');
  EXPECT_EQ(SpellingProblems("    aB  cost  1" + blanks + "\n    AB  cost  2\n"),
            "W414 5:5+2 'AB'");
  EXPECT_EQ(SpellingProblems("    aB  cost  1\n    AB  cost  2 $ \xC3\xA4\n"),
            "A304 5:17+1 '$'; W414 5:5+2 'AB'");
  EXPECT_EQ(
      SpellingProblems("    a b       cost              1.\n    A b       cost              1.\n"),
      "A301 4; W414 5:5+3 'A b'");
}

TEST(ColumnSpellings, AreLookedAtInTheFirst63Bytes) {
  const std::string name(70, 'n');
  const std::string other = std::string(58, 'n') + "N" + std::string(11, 'n');
  const std::string late = std::string(59, 'n') + "N" + std::string(10, 'n');
  const std::string first = "    " + name + "  cost  1\n";
  EXPECT_EQ(SpellingProblems(first + "    " + other + "  cost  1\n"),
            "W414 5:5+70 '" + other + "'");
  EXPECT_EQ(SpellingProblems(first + "    " + late + "  cost  1\n"), "");
}

}  // namespace
}  // namespace quarvel::mps
