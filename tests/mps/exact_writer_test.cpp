#include "mps/exact_writer.h"

#include <string>

#include <gtest/gtest.h>

#include "mps/read_file.h"
#include "tests/mps/data_files.h"
#include "tests/mps/odd_models.h"
#include "tests/mps/write_helpers.h"
#include "tests/support/real_models.h"
#include "tests/support/test_paths.h"

namespace quarvel::mps {
namespace {

struct Exact {
  std::string text;
  bool fits;
};

Exact Write(const model::ModelStore& store, const FileFacts& facts = {}) {
  ExactWriter writer(store, facts);
  std::string text;
  writer.Write([&text](std::string_view piece) { text += piece; });
  return {text, !writer.long_field()};
}

constexpr const char* kSmallExact =
    "NAME          SMALL\r\n"
    "* One.\r\n"
    "* \r\n"
    "* Three.\r\n"
    "* The constant of the objective is minus its right-hand side.\r\n"
    "OBJSENSE\r\n"
    "    MAX\r\n"
    "ROWS\r\n"
    " N  COST\r\n"
    " G  G\r\n"
    " L  L\r\n"
    " E  E\r\n"
    " G  RG\r\n"
    " L  EMPTY\r\n"
    "COLUMNS\r\n"
    "    X         COST               0.1\r\n"
    "    X         G                1e-12\r\n"
    "    MARKER    'MARKER'                 'INTORG'\r\n"
    "    I         L                   -1\r\n"
    "    BIN       COST                 0\r\n"
    "    MARKER    'MARKER'                 'INTEND'\r\n"
    "    FREE      E         0.3333333333333333\r\n"
    "    FREE      E                    2\r\n"
    "    NONE      COST                 0\r\n"
    "    FIX       COST                 0\r\n"
    "    NEG       RG                   1\r\n"
    "RHS\r\n"
    "    B1        COST              -7.5\r\n"
    "    B1        G                -3.25\r\n"
    "    B1        E                1e+09\r\n"
    "    B1        RG                   2\r\n"
    "    B1        EMPTY                4\r\n"
    "RANGES\r\n"
    "    RANGE     RG                   3\r\n"
    "BOUNDS\r\n"
    " PL BOUND     I\r\n"
    " UP BOUND     BIN                  1\r\n"
    " FR BOUND     FREE\r\n"
    " MI BOUND     NONE\r\n"
    " UP BOUND     NONE                -2\r\n"
    " FX BOUND     FIX                  3\r\n"
    " LO BOUND     NEG                 -5\r\n"
    " UP BOUND     NEG                  7\r\n"
    "ENDATA\r\n";

TEST(ExactWriter, WritesEverySectionAsItsHeaderSays) {
  HandMadeModel made;
  made.build.Name("SMALL").Description("One.\r\n\r\nThree.");
  made.build.Row("COST", 'N').Row("G", 'G', -3.25).Row("L", 'L').Row("E", 'E', 1e9);
  made.build.Ranged("RG", 2, 5).Row("EMPTY", 'L', 4);
  made.build.Column("X")
      .Integer("I")
      .Integer("BIN", 0, 1)
      .Column("FREE", -model::BoundLimit, model::BoundLimit);
  made.build.Column("NONE", -model::BoundLimit, -2).Column("FIX", 3, 3).Column("NEG", -5, 7);
  made.build.Element("X", "COST", 0.1).Element("X", "G", 1e-12).Element("I", "L", -1);
  made.build.Element("FREE", "E", 1.0 / 3).Element("FREE", "E", 2).Element("NEG", "RG", 1);
  FileFacts facts;
  facts.sense = ObjectiveSense::kMaximize;
  facts.objective_constant = 7.5;
  facts.rhs_set = "B1";
  const Exact exact = Write(made.model.store(), facts);
  EXPECT_EQ(exact.text, kSmallExact);
  EXPECT_FALSE(exact.fits);  // a third has 16 digits
}

TEST(ExactWriter, LeavesFixedColumnsOnlyWhereSomethingDoesNotFit) {
  HandMadeModel made;
  made.build.Row("R", 'L', 4)
      .Column(
          "\xC3\x84"
          "BCDEFGH")
      .Element(
          "\xC3\x84"
          "BCDEFGH",
          "R", -0.1234567891);
  const Exact fits = Write(made.model.store());
  EXPECT_TRUE(fits.fits);
  EXPECT_NE(fits.text.find("    \xC3\x84"
                           "BCDEFGH  R         -.1234567891\r\n"),
            std::string::npos);
  made.build.Integer("LONGCOLUMN").Element("LONGCOLUMN", "R", 2);
  const Exact longer = Write(made.model.store());
  EXPECT_FALSE(longer.fits);
  EXPECT_NE(longer.text.find("    LONGCOLUMN  R                    2\r\n"), std::string::npos);
  EXPECT_NE(longer.text.find(" PL BOUND     LONGCOLUMN\r\n"), std::string::npos);
}

TEST(ExactWriter, SaysReversedBoundsSoThatNoReaderFreesTheLowerOne) {
  HandMadeModel made;
  made.build.Row("R", 'L', 4).Column("X", 0, -5).Element("X", "R", 1);
  EXPECT_NE(
      Write(made.model.store())
          .text.find(
              " UP BOUND     X                   -5\r\n LO BOUND     X                    0\r\n"),
      std::string::npos);
}

// Its sign is kept, and may say to a reader what that of any negative one does.
TEST(ExactWriter, SaysTheLowerBoundUnderAnUpperOneOfMinusZero) {
  HandMadeModel made;
  made.build.Row("R", 'L', 4).Column("X", 0, -0.0).Column("Y", -0.0, 0).Element("X", "R", 1);
  const std::string text = Write(made.model.store()).text;
  EXPECT_EQ(text.substr(text.find("BOUNDS")),
            "BOUNDS\r\n"
            " UP BOUND     X                   -0\r\n"
            " LO BOUND     X                    0\r\n"
            " UP BOUND     Y                    0\r\n"
            " LO BOUND     Y                   -0\r\n"
            "ENDATA\r\n");
}

TEST(ExactWriter, SaysOfEachBoundAloneWhereTheOtherIsNone) {
  constexpr double kAbsent = model::BoundLimit;
  HandMadeModel made;
  made.build.Row("R", 'L', 4).Column("A", kAbsent, kAbsent).Integer("B", kAbsent, kAbsent);
  made.build.Column("C", -kAbsent, -kAbsent).Column("D", 2e10, kAbsent).Column("E", 1e30, 1e30);
  made.build.Element("A", "R", 1);
  const std::string text = Write(made.model.store()).text;
  EXPECT_EQ(text.substr(text.find("BOUNDS")),
            "BOUNDS\r\n"
            " LO BOUND     A                1e+10\r\n"
            " LO BOUND     B                1e+10\r\n"
            " PL BOUND     B\r\n"
            " MI BOUND     C\r\n"
            " UP BOUND     C               -1e+10\r\n"
            " LO BOUND     D                2e+10\r\n"
            " FX BOUND     E                1e+30\r\n"
            "ENDATA\r\n");
}

TEST(ExactWriter, HasTheHeaderThatEndsTheColumnsForSomeReaders) {
  HandMadeModel made;
  made.build.Row("R", 'L').Column("X").Element("X", "R", 1);
  EXPECT_TRUE(Write(made.model.store())
                  .text.ends_with("    X         R                    1\r\nRHS\r\nENDATA\r\n"));
}

TEST(ExactWriter, GivesMarkersANameOfTheirOwn) {
  HandMadeModel made;
  made.build.Row("R", 'L', 4).Integer("MARKER", 0, 1).Column("MARKER1").Element("MARKER", "R", 1);
  EXPECT_NE(
      Write(made.model.store()).text.find("    MARKER2   'MARKER'                 'INTORG'\r\n"),
      std::string::npos);
}

TEST(ExactWriter, LeavesTheFirstPlaceToTheObjective) {
  HandMadeModel made;
  made.build.Row("OTHER", 'N').Row("COST", 'N').Column("X").Element("X", "COST", 1);
  FileFacts facts;
  facts.objective = "COST";
  const std::string text = Write(made.model.store(), facts).text;
  EXPECT_NE(text.find("ROWS\r\n G  OTHER\r\n N  COST\r\n"), std::string::npos);
  EXPECT_NE(text.find("    RHS       OTHER           -1e+10\r\n"), std::string::npos);
}

TEST(ExactWriter, NamesSetsByTheUsualNamesWhereTheirOwnHaveBlanks) {
  HandMadeModel made;
  made.build.Row("R", 'L', 4).Column("X", 0, 5).Element("X", "R", 1);
  FileFacts facts;
  facts.rhs_set = "MY RHS";
  facts.bounds_set = "MY BND";
  const std::string free = Write(made.model.store(), facts).text;
  EXPECT_NE(free.find("    RHS       R                    4\r\n"), std::string::npos);
  EXPECT_NE(free.find(" UP BOUND     X "), std::string::npos);
  EXPECT_FALSE(NeedsFixedColumns(made.model.store().data()));
  made.build.Column("Y Z").Element("Y Z", "R", 1);
  EXPECT_TRUE(NeedsFixedColumns(made.model.store().data()));
  const std::string fixed = Write(made.model.store(), facts).text;
  EXPECT_NE(fixed.find("    MY RHS    R                    4\r\n"), std::string::npos);
}

TEST(ExactWriter, AddsALineThatIsNoPartOfTheDescription) {
  const struct {
    std::string before;
    const char* after;
  } cases[] = {{"", ""},
               {"One.", "One."},
               {std::string(kConstantNote), ""},
               {"One.\r\n" + std::string(kConstantNote), "One."},
               {"One. " + std::string(kConstantNote), nullptr},
               {std::string(kConstantNote) + "\r\nOne.", nullptr}};
  for (const auto& c : cases) {
    std::string description = c.before;
    DropConstantNote(description);
    EXPECT_EQ(description, c.after != nullptr ? c.after : c.before);
  }
}

class ExactData : public OnRealModels {};

// Also when it is written a second time.
TEST_F(ExactData, GivesEveryFileBackBitForBit) {
  const TemporaryFolder folder;
  const std::string path = folder.File("a.mps");
  for (const std::string& file : DataFiles()) {
    model::ModelStore before;
    const FileRead read = ReadFile(PathOf(file), {}, before);
    const std::string text = Write(before, read.facts).text;
    WriteWholeFile(path, text);
    model::ModelStore after;
    const FileRead again = ReadFile(path, {}, after);
    ASSERT_FALSE(again.problems.CountOf(ProblemWeight::kError) >
                 read.problems.CountOf(ProblemWeight::kError))
        << file;
    ASSERT_TRUE(Everything(before.data()) == Everything(after.data())) << file;
    ASSERT_TRUE(Write(after, again.facts).text == text) << file;
    EXPECT_EQ(again.facts.objective, read.facts.objective) << file;
    EXPECT_EQ(again.facts.objective_constant, read.facts.objective_constant) << file;
    EXPECT_EQ(again.facts.sense, read.facts.sense) << file;
  }
}

}  // namespace
}  // namespace quarvel::mps
