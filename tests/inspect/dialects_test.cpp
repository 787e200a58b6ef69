#include "inspect/dialects.h"

#include <filesystem>
#include <string>
#include <string_view>

#include <gtest/gtest.h>

#include "tests/support/test_paths.h"
#include "text/numbers.h"

namespace quarvel::inspect {
namespace {

// Of a whole file.
std::string FindAll(std::string_view bytes, std::size_t kept = 5) {
  const TemporaryFolder folder;
  WriteWholeFile(folder.File("f"), bytes);
  model::ModelStore store;
  std::string text;
  for (const DialectFinding& finding : FindDialects(folder.File("f"), {}, store, kept).found) {
    if (!text.empty()) text += ", ";
    text += TraitsOf(finding.point).id;
    for (const std::int64_t line : finding.lines) text += ' ' + text::IntegerText(line);
    if (finding.lines.size() != static_cast<std::size_t>(finding.count)) {
      text += " of " + text::IntegerText(finding.count);
    }
  }
  return text;
}

// Of what may have no NAME and no RHS, and whose words may stand anywhere: without telling of these.
std::string Find(std::string_view bytes, std::size_t kept = 5) {
  std::string rest;
  std::string all = FindAll(bytes, kept) + ", ";
  while (!all.empty()) {
    const std::string one = all.substr(0, all.find(", "));
    all.erase(0, one.size() + 2);
    if (one.starts_with("missing-name ") || one.starts_with("missing-rhs ") ||
        one.starts_with("like-fixed-columns ")) {
      continue;
    }
    rest.append(rest.empty() ? "" : ", ").append(one);
  }
  return rest;
}

// A file whose lines 3 to 9 are the same: rows COST, LIM and EQ, column X.
std::string File(std::string_view middle, std::string_view end = "ENDATA\n") {
  std::string text =
      "NAME F\nROWS\n N COST\n L LIM\n E EQ\nCOLUMNS\n X COST 1 LIM 1\n X EQ 1\n* nine\n";
  return text.append(middle).append(end);
}

TEST(Dialects, FindsNothingInAPlainFile) {
  EXPECT_EQ(Find(File("RHS\n RHS LIM 4 EQ 1\nRANGES\n RNG LIM 2\n RNG EQ -2\nBOUNDS\n"
                      " LO BND X -3\n UP BND X -2\n")),
            "");
}

TEST(Dialects, FindsEachThingInItsLine) {
  const struct {
    std::string bytes;
    const char* found;
  } cases[] = {
      {"OBJSENSE\n MAX\n" + File(""), "objective-sense 2"},
      {"OBJSENSE MAX\n" + File(""), "objective-sense 1"},
      {"ROWS\n N A\n N B\n L C\n N D\nCOLUMNS\n X C 1\nENDATA\n", "second-free-row 3 5"},
      {File(" M 'MARKER' 'INTORG'\n I LIM 1\n J LIM 1\n K LIM 1\n M 'MARKER' 'INTEND'\n Y LIM 1\n"
            "BOUNDS\n LO B J 1\n UP B K 9\n"),
       "integer-without-bounds 11, integer-with-lower-only 12"},
      {File(" Y LIM 1 LIM 2\n Z LIM 1\n Z EQ 1 LIM 3\n"), "pair-twice 10 12"},
      {File("RHS\n RHS COST 5 LIM 1\n"), "objective-constant 11"},
      {File("RHS\n RHS COST 0 LIM 1\n"), ""},
      {File("RHS\n RHS LIM 1 COST 5\n"), "objective-constant 11"},
      {File("RHS\n LIM 4\n RHS EQ 4\nRANGES\n LIM 4 EQ 3\n"), "set-without-name 11 14"},
      {File("BOUNDS\n UP X 4\n MI X\n"), "set-without-name 11 12"},
      {File("RHS\n A LIM 4\n B LIM 3\n A EQ 3\n C EQ 1\n"), "second-rhs-set 12 14"},
      {File("RANGES\n A LIM 4\n B LIM 3\n"), "second-ranges-set 12"},
      {File("BOUNDS\n UP A X 4\n UP B X 3\n FR C X\n"), "second-bounds-set 12 13"},
      {File("RANGES\n A COST 4\n"), "range-of-free-row 11"},
      {File("BOUNDS\n UP A X -4\n"), "negative-upper 11"},
      {File("BOUNDS\n UP A X -4\n LO A X -9\n UP A X -3\n"), "negative-upper 11, given-again 13"},
      {File("BOUNDS\n MI A X\n UP A X -4\n"), ""},
      {File("BOUNDS\n SC A X 4\n"), "semi-continuous 11"},
      {File(
           "RHS\n R LIM 1E10\n R EQ -2e12\n R LIM 9999999999\nBOUNDS\n LO B X -1E+10\n UP B X 1E9\n"),
       "large-number 11 12 15, given-again 13"},
      {File("RHS\n R LIM -1E10\n R COST 1E12\nBOUNDS\n LO B X 1E10\n LO B X -1\n UP B X -1E12\n"),
       "objective-constant 12, given-again 15"},
      {File("BOUNDS\n FX B X 1E10\n FX B X -1E10\n UP B X 1E10\n"),
       "large-number 11 12 13, given-again 12 13"},
      {File("", ""), "missing-endata 9"},
      {File("RHS\n R LIM 4\n R LIM 3\nBOUNDS\n FR B X\n UP B X 9\n"), "given-again 12 15"},
      {File("RHS\nRANGES\n R LIM 4\n R LIM 3 EQ 1\n"), "range-again 13"},
      {File("RHS\nNAME F\nRHS\n"), "header-again 11 12"},
      {"OBJNAME COST\nOBJNAME COST\n" + File(""), "objective-name 1 2"},
      {"OBJSENSE UP\nOBJSENSE MAX\nOBJSENSE MORE\n" + File(""), "objective-sense 1 2 3"},
      {File("BOUNDS\nRHS\n"), "section-order 11"},
      {File(" Y COST 1\n X LIM 1\n"), "pair-twice 11, column-again 11"},
      {File("Rhs\n"), "small-header 10"},
      {File("RHS\n R lim 4\nBOUNDS\n UP B x 3\n"), "other-letters 11 13"},
      {File("RHS\nRANGES\n R EQ 1E30\n R LIM 1e30\n"), "large-number 13, infinite-range 12"},
      {File("RHS\nRANGES\n R EQ -1E31\n"), "infinite-range 12"},
      {File("RHS\nRANGES\n R EQ 1E10\n S LIM 1E10\n"), "second-ranges-set 13, large-number 12"},
      {File("RHS\nRANGES\n R LIM 9999999999 EQ -1E9\n"), ""},
      {File("BOUNDS\n SI A X 4\n"), "semi-integer 11"},
      {File("BOUNDS\n UP A X inf\n"), "infinite-bound 11"},
      {File("RHS\n R LIM 1D1\nBOUNDS\n UP A X 3d0\n FR A X DAD\n"),
       "given-again 14, d-exponent 11 13"},
      {File(" Y LIM 1d0 EQ 2\nRHS\nRANGES\n R LIM 2D0\n"), "d-exponent 10 13"},
      {"ROWS\n n A\n L B\n g C\n x D\nCOLUMNS\n X B 1\nBOUNDS\n up B X 1\n xx B X 1\nENDATA\n",
       "small-code 2 4 9"},
      {File(" M 'MARKER' 'intorg'\n M 'marker' 'INTEND'\n"), "small-marker 10 11"},
      {File("Y LIM 1\nRHS\nR LIM 1\nRHS LIM 2\nBOUNDS\nUP B X 1\n"),
       "second-rhs-set 13, first-column 10 12 13 15"},
      {"ROWS\n N A\nL B\nCOLUMNS\n X B 1\nENDATA\n", "first-column 3"},
      {File(" Y\tLIM 1\nRHS\n R LIM \t 1\n"), "tab 10 12"},
      {"\n* first\n  \n" + File("\t\nRHS\n\n", "ENDATA\n\n"), "empty-line 1 3 13 15"},
      {"\xEF\xBB\xBF" + File(""), "byte-order-mark 1"},
      {"\xEF\xBB" + File(""), ""},
      {File("RHS\r\n R LIM 4\r"), "cr-line-end 11"},
      {File("RHS\r R LIM 4\r"), "cr-line-end 10"},
      {File("RHS\n R LIM 4\r\n", "ENDATA\r"), ""},
      {File("", "ENDATA\n text\r\rtext"), ""},
      {File("  * behind\n* before\nRHS\n R LIM 4 $ at the end\n * EQ 1\n * LIM 3 and EQ\n"),
       "second-rhs-set 14, blank-comment 10 15, end-comment 13"},
      {"NAME F\nROWS\n N COST\nLAZYCONS\n L LIM\nUSERCUTS\n L EQ\nCOLUMNS\n X LIM 1\nENDATA\n",
       "more-rows 4 6"},
      {"OBJNAME\n COST\n" + File("objname COST\n"), "small-header 12, objective-name 1 12"},
      {File(" M 'MARKER' 'INTORG'\n I LIM 1\n J LIM 1\n M 'MARKER' 'INTEND'\nBOUNDS\n UP B X 0.5\n"
            " UP B I 2.5\n LO B J -0.5\n UP B J 3\n"),
       "fractional-bound 16 17"},
      {File(" M 'MARKER' 'INTORG'\n I LIM 1\n J LIM 1\n M 'MARKER' 'INTEND'\nBOUNDS\n UI B I 0.5\n"
            " FX B J 1.5\n"),
       "fractional-bound 16"},
  };
  for (const auto& c : cases) EXPECT_EQ(Find(c.bytes), c.found) << c.bytes;
}

// To glpsol one of 1 where LO or MI stands alone, to none where LI does.
TEST(Dialects, FindsIntegerColumnsWhoseUpperBoundIsNotSaid) {
  const auto find = [](std::string_view bounds) {
    return Find(File(" M 'MARKER' 'INTORG'\n I LIM 1\n M 'MARKER' 'INTEND'\nBOUNDS\n" +
                     std::string(bounds)));
  };
  EXPECT_EQ(find(" LO B I 5\n"), "integer-with-lower-only 11");
  EXPECT_EQ(find(" LO B I -5\n"), "integer-with-lower-only 11");
  EXPECT_EQ(find(" MI B I\n"), "integer-with-lower-only 11");
  EXPECT_EQ(find(" MI B I\n UP B I 4\n"), "");
  EXPECT_EQ(find(" UP B X 3\n"), "integer-without-bounds 11");
  for (const char* code : {"LI B I 0", "LI B I 2", "PL B I", "FR B I", "BV B I", "UI B I 3"}) {
    EXPECT_EQ(find(" " + std::string(code) + "\n"), "") << code;
  }
}

TEST(Dialects, FindsThatThereIsNoNameOrNoRhs) {
  const std::string rows = "ROWS\n N COST\n L LIM\nCOLUMNS\n X COST 1 LIM 1\n";
  EXPECT_EQ(FindAll("NAME\n" + rows + "RHS\nENDATA\n"), "");
  EXPECT_EQ(FindAll("* first\nname F\n" + rows + "rhs\nENDATA\n"), "small-header 2 8");
  EXPECT_EQ(FindAll("* first\n" + rows + "RHS\nENDATA\n"), "missing-name 2");
  EXPECT_EQ(FindAll(" NAME F\n" + rows + "RHS\nENDATA\n"), "missing-name 2");
  EXPECT_EQ(FindAll(rows + "NAME F\nRHS\nENDATA\n"), "missing-name 1");
  EXPECT_EQ(FindAll("NAME F\n" + rows + "ENDATA\n"), "missing-rhs 7");
  EXPECT_EQ(FindAll("NAME F\n" + rows + "RANGES\n R LIM 2\nBOUNDS\nENDATA\n"), "missing-rhs 7");
}

TEST(Dialects, TakeNoCommentForData) {
  EXPECT_EQ(Find(File("RHS\n* three words\n R LIM 4\nBOUNDS\n* UP B X\n UP C X 4\n")), "");
}

TEST(Dialects, FindsSetsWithoutNamesInFixedColumns) {
  EXPECT_EQ(
      Find("ROWS\n N  COST\n L  AT MOST\nCOLUMNS\n"
           "    X         COST              1.     AT MOST           1.\n"
           "RHS\n              AT MOST           8.\nRANGES\n              AT MOST           3.\n"
           "BOUNDS\n UP           X                 4.\n MI           X\nENDATA\n"),
      "set-without-name 7 9 11 12, name-with-blanks 3 5 7 9");
}

TEST(Dialects, FindsNamesWithBlanksInFixedColumnsAlone) {
  const std::string rows = "ROWS\n N  COST\n L  AT MOST\nCOLUMNS\n";
  const std::string plain = "    X         COST              1.     AT MOST           1.\n";
  const std::string rest =
      "    X Y       COST              1.\nRHS\n    R         AT MOST           8.\n"
      "BOUNDS\n UP THE SET   X                 4.\nENDATA\n";
  EXPECT_EQ(Find(rows + plain + rest), "name-with-blanks 3 5 6 8 10");
  const std::string comments =
      "    Z         COST              1.     $ at the end\nRHS\n    R         $ no pair\n";
  EXPECT_EQ(Find(rows + plain + comments + "ENDATA\n"), "end-comment 6 8, name-with-blanks 3 5");
  EXPECT_EQ(Find("ROWS\n N  COST\n L  LIM\nCOLUMNS\n    X         COST      1.\nENDATA\n"), "");
}

TEST(Dialects, FindsWordsThatStandAsInFixedColumns) {
  const std::string start = "NAME T\nROWS\n N COST\n L R1\nCOLUMNS\n";
  const std::string line = "    X0  COST  -1\n";
  const std::string end = "RHS\n    RHS  R1  7\nENDATA\n";
  EXPECT_EQ(FindAll(start + line + end), "like-fixed-columns 6 8");
  EXPECT_EQ(FindAll(start + "    X0  R1  1\n" + line + end), "");
  EXPECT_EQ(FindAll("NAME T FREE\n" + start.substr(7) + line + end), "");
  EXPECT_EQ(FindAll("NAME T free\n" + start.substr(7) + line + end), "like-fixed-columns 6 8");
}

TEST(Dialects, CountsAllAndKeepsTheFirst) {
  std::string text = "RANGES\n";
  for (int i = 0; i < 20; ++i) text += " A COST 4 COST 5\n";
  EXPECT_EQ(Find(File(text), 3), "range-of-free-row 11 12 13 of 20");
  EXPECT_EQ(Find(File(text), 0), "range-of-free-row of 20");
}

TEST(Dialects, FindsNothingInWhatCannotBeRead) {
  const TemporaryFolder folder;
  model::ModelStore store;
  const DialectFindings findings = FindDialects(folder.File("missing"), {}, store);
  EXPECT_EQ(findings.read.outcome, mps::ReadOutcome::kFailed);
  EXPECT_TRUE(findings.found.empty());
}

TEST(Dialects, SurvivesLinesOfAnyShape) {
  std::string text;
  std::uint32_t state = 99;
  for (int i = 0; i < 4000; ++i) {
    constexpr std::string_view kWords[] = {"ROWS", "COLUMNS", "RHS",      "RANGES",   "BOUNDS",
                                           "\n",   "\n ",     "\n ",      "N",        "L",
                                           "X",    "Y",       "'MARKER'", "'INTORG'", "UP",
                                           "SC",   "1",       "-1e10",    "OBJSENSE", "\n"};
    state = state * 1664525U + 1013904223U;
    text.append(kWords[(state >> 16) % std::size(kWords)]).append(" ");
  }
  EXPECT_NE(Find(text), "nothing is raised");
}

}  // namespace
}  // namespace quarvel::inspect
