#include "mps/header_order.h"

#include <string>

#include <gtest/gtest.h>

#include "tests/mps/wide_reading.h"

namespace quarvel::mps {
namespace {

// Of headers from line 7 on, each told with the line that it goes by.
std::string HeaderProblems(const std::string& sections) {
  const WideReading reading("NAME  m\nROWS\n N  COST\n L  LIM\nCOLUMNS\n    X  COST  1  LIM  1\n" +
                            sections + "ENDATA\n");
  std::string told;
  for (const FileProblem& problem : reading.read.problems.kept()) {
    if (!told.empty()) told += "; ";
    told += std::string(TraitsOf(problem.code).id) + " " + std::to_string(problem.line) + " " +
            problem.item + " " + problem.made;
    for (const std::int64_t line : problem.lines) told += " <" + std::to_string(line);
  }
  return told;
}

TEST(HeaderOrder, IsThatOfTheSections) {
  EXPECT_EQ(HeaderProblems("RHS\nRANGES\nBOUNDS\n"), "");
  EXPECT_EQ(HeaderProblems("RHS\nBOUNDS\n"), "");
  EXPECT_EQ(HeaderProblems("BOUNDS\nRHS\n"), "W418 8 RHS its lines are read as ever <7");
  EXPECT_EQ(HeaderProblems("RHS\nBOUNDS\nRANGES\n"), "W418 9 RANGES its lines are read as ever <8");
}

TEST(HeaderOrder, TellsHeadersThatStandThereAgain) {
  EXPECT_EQ(HeaderProblems("RHS\nROWS\nRHS\n"),
            "W417 8 ROWS its lines are read as ever <2; W417 9 RHS its lines are read as ever <7");
  EXPECT_EQ(HeaderProblems("COLUMNS\nCOLUMNS\n"),
            "W417 7 COLUMNS its lines are read as ever <5; "
            "W417 8 COLUMNS its lines are read as ever <7");
  EXPECT_EQ(HeaderProblems("NAME n\n"), "W417 7 NAME the last name counts <1");
  EXPECT_EQ(HeaderProblems("OBJNAME COST\nOBJNAME COST\n").substr(0, 40),
            "W417 8 OBJNAME the last name counts <7; ");
  EXPECT_EQ(HeaderProblems("OBJSENSEMAX\nOBJSENSE\n").substr(0, 42),
            "W417 8 OBJSENSE the last sense counts <7; ");
}

TEST(HeaderOrder, LetsRowsOfASpecialKindStandAnywhere) {
  EXPECT_EQ(HeaderProblems("RHS\nLAZYCONS\nUSERCUTS\n"),
            "A315 8 LAZYCONS rows like those of ROWS; A315 9 USERCUTS rows like those of ROWS");
}

}  // namespace
}  // namespace quarvel::mps
