#include "mps/mps_writer.h"

#include <string>

#include <gtest/gtest.h>

#include "model/model_check.h"
#include "platform/automation_error.h"
#include "tests/mps/write_helpers.h"
#include "tests/support/model_builder.h"

namespace quarvel::mps {
namespace {

class MpsText : public ::testing::Test, protected HandMadeModel {};

// --- whole files ---

TEST_F(MpsText, HasEverySectionInOrder) {
  build.Name("PLANT")
      .Description("A plant with two machines.\r\n\r\n Hours are those of a week.\r\n")
      .Row("COST", 'N')
      .Row("DEMAND", 'G', 12)
      .Row("HOURS", 'L', 40.75)
      .Row("BALANCE", 'E')
      .Row("IDLE", 'E', -7)
      .Ranged("WINDOW", -2, 6)
      .Ranged("UNUSED", 1, 1)
      .Row("SPARE", 'N');
  build.Column("X1", -5, 5)
      .Integer("X2")
      .Column("X3", 3, 3)
      .Integer("X4", 1, 99999999.5)
      .Column("X5")
      .Column("X6", 0, 0);
  build.Element("X1", "COST", 1)
      .Element("X1", "DEMAND", 2.5)
      .Element("X2", "HOURS", 3)
      .Element("X3", "HOURS", -0.25)
      .Element("X3", "COST", 1234567.125)
      .Element("X3", "BALANCE", 1)
      .Element("X3", "WINDOW", 10)
      .Element("X4", "WINDOW", -4)
      .Element("X4", "COST", 0.5)
      .Element("X5", "BALANCE", -1);
  EXPECT_EQ(model::CheckModelData(model.store()), "");
  const WrittenModel written = Write();
  EXPECT_EQ(written.text, GoldenFile("every_section.mps"));
  EXPECT_TRUE(written.standard);
}

TEST_F(MpsText, LeavesTheFixedColumnsForLongNamesAndValues) {
  build.Row("OBJECTIVE", 'N')
      .Row("EIGHTROW", 'L', 12345678901.5)
      .Row("NINEROWSX", 'G', 4)
      .Ranged("WIDE", -10000000000.5, 1);
  build.Column("NINECOLSX", 1, 7.25)
      .Column("EIGHTCOL", -1e20, 123456789012.5)
      .Column("LONGFIXEDX", 0.5, 0.5)
      .Column("FREE", -model::BoundLimit, model::BoundLimit)
      .Column("NOLOWER", -model::BoundLimit, 9);
  build.Element("NINECOLSX", "OBJECTIVE", 1)
      .Element("NINECOLSX", "EIGHTROW", -3.5)
      .Element("EIGHTCOL", "EIGHTROW", 1)
      .Element("EIGHTCOL", "NINEROWSX", 2)
      .Element("EIGHTCOL", "WIDE", -1234567890.5);
  const WrittenModel written = Write();
  EXPECT_EQ(written.text, GoldenFile("long_fields.mps"));
  EXPECT_FALSE(written.standard);
}

TEST_F(MpsText, CountsCharactersAndNotBytes) {
  const std::string nine = "\u00C9\u00C9\u00C9\u00C9\u00C9\u00C9\u00C9\u00C9\u00C9";
  const std::string eight = nine.substr(0, 16);
  const std::string apples = "\u00C4PFEL";
  const std::string symbols = "\u0392\u20AC\U0001D4B3";
  build.Name("MOD\u00C8LE").Description("co\u00FBt en \u20AC");
  build.Row("CO\u00DBT", 'N').Row(eight, 'L', 10).Row(nine, 'L', 20);
  build.Column(apples, 0, 4).Column(symbols, 1, 1);
  build.Element(apples, "CO\u00DBT", 1.5)
      .Element(apples, eight, 2)
      .Element(apples, nine, 3)
      .Element(symbols, eight, 4);
  const WrittenModel written = Write();
  EXPECT_EQ(written.text, GoldenFile("characters.mps"));
  EXPECT_FALSE(written.standard);
}

TEST_F(MpsText, KeepsHeadersOfSectionsWithoutEntries) {
  build.Row("COST", 'N').Column("X").Element("X", "COST", 1);
  const WrittenModel written = Write();
  EXPECT_EQ(written.text, GoldenFile("bare_sections.mps"));
  EXPECT_TRUE(written.standard);
}

TEST_F(MpsText, IsOnlyTheEndOfAModelWithNothing) {
  const WrittenModel written = Write();
  EXPECT_EQ(written.text, "ENDATA\r\n");
  EXPECT_TRUE(written.standard);
}

TEST_F(MpsText, HasNoRowSectionsWithoutRows) {
  build.Column("X", 0, 5);
  EXPECT_EQ(Write().text,
            "COLUMNS\r\nBOUNDS\r\n UP BOUND     X                   5.\r\nENDATA\r\n");
}

TEST_F(MpsText, HasNoColumnSectionsWithoutColumns) {
  build.Row("R", 'L', 5);
  EXPECT_EQ(Write().text, "ROWS\r\nRHS\r\n    RHS       R                   5.\r\nENDATA\r\n");
}

TEST_F(MpsText, HidesThePlaceholderRecordsOfANewModel) {
  model.MakeNewModel();
  EXPECT_EQ(Write().text, "ENDATA\r\n");
}

TEST_F(MpsText, IsWholeWhenItIsLongerThanAnyBuffer) {
  constexpr int kColumns = 20000;
  build.Row("R", 'N');
  for (int j = 0; j < kColumns; ++j) build.Column("C" + std::to_string(j));
  for (int j = 0; j < kColumns; ++j) model.store().AddElement(1, j + 1, j);
  const Lines lines = Write().Section("COLUMNS");
  ASSERT_EQ(lines.size(), static_cast<std::size_t>(kColumns));
  for (int j = 0; j < kColumns; ++j) {
    const std::string name = "C" + std::to_string(j);
    const std::string value = std::to_string(j) + ".";
    ASSERT_EQ(lines[static_cast<std::size_t>(j)],
              "    " + name + std::string(10 - name.size(), ' ') + "R         " +
                  std::string(12 - value.size(), ' ') + value);
  }
}

TEST_F(MpsText, IsRefusedForACoefficientAtARowThatIsNotStored) {
  build.Row("R", 'N').Column("X").Element("X", "R", 1);
  ChangeFields(model, [&](model::ModelData& data) { data.Columns[1].Elements[1].Index = 2; });
  try {
    Write();
    FAIL() << "written";
  } catch (const AutomationError& error) {
    EXPECT_EQ(error.number(), 9);
  }
}

// --- description ---

TEST_F(MpsText, HasACommentLineForEachLineOfTheDescription) {
  const struct {
    std::string description;
    std::string written;
  } cases[] = {
      {"one", "* one\r\n"},
      {"one\r\n", "* one\r\n"},
      {"one\r\ntwo", "* one\r\n* two\r\n"},
      {"one\r\n\r\ntwo", "* one\r\n* \r\n* two\r\n"},
      {"\r\none", "* \r\n* one\r\n"},
      {"one\r\n   ", "* one\r\n"},
      {"one\r\n\r\n  \r\n", "* one\r\n"},
      {" one \r\n  two ", "*  one \r\n*   two \r\n"},
      {"   ", "*    \r\n"},
      {"\r\n", "* \r\n"},
      {"one\ntwo", "* one\ntwo\r\n"},
  };
  for (const auto& [description, written] : cases) {
    build.Description(description);
    EXPECT_EQ(Write().text, written + "ENDATA\r\n") << "description: " << description;
  }
}

// --- rows ---

TEST_F(MpsText, LeavesOutRowsWithoutElements) {
  build.Row("OBJ", 'N').Row("USED", 'L').Row("EMPTY", 'G', 3).Ranged("RANGED", 2, 5);
  build.Column("X").Element("X", "USED", 1);
  const WrittenModel written = Write();
  EXPECT_EQ(written.Section("ROWS"), (Lines{" L  USED"}));
  EXPECT_EQ(written.Section("RHS"), (Lines{"    RHS       EMPTY               3.",
                                           "    RHS       RANGED              2."}));
  EXPECT_EQ(written.Section("RANGES"), (Lines{"    RANGE     RANGED              3."}));
}

TEST_F(MpsText, WritesRowNamesAsTheyAre) {
  build.Row("A-VERY-LONG-ROW-NAME", 'E')
      .RowWithin("UNTYPED", ModelBuilder::kNoType, 0, 0)
      .Column("X");
  build.Element("X", "A-VERY-LONG-ROW-NAME", 1).Element("X", "UNTYPED", 1);
  EXPECT_EQ(Write().Section("ROWS"), (Lines{" E  A-VERY-LONG-ROW-NAME", "   UNTYPED"}));
}

// --- columns ---

TEST_F(MpsText, GroupsIntegerColumnsAtTheEndInsideOneMarkerPair) {
  build.Row("R", 'L').Integer("FIRST").Column("SECOND").Integer("THIRD").Column("FOURTH");
  for (const char* column : {"FIRST", "SECOND", "THIRD", "FOURTH"}) build.Element(column, "R", 1);
  EXPECT_EQ(Write().Section("COLUMNS"),
            (Lines{"    SECOND    R                   1.", "    FOURTH    R                   1.",
                   "    INT       'MARKER'                 'INTORG'",
                   "    FIRST     R                   1.", "    THIRD     R                   1.",
                   "    INTEND    'MARKER'                 'INTEND'"}));
}

TEST_F(MpsText, HasMarkersForIntegerColumnsWithoutElements) {
  build.Row("R", 'L').Column("X").Integer("EMPTY").Element("X", "R", 1);
  EXPECT_EQ(Write().Section("COLUMNS"), (Lines{"    X         R                   1.",
                                               "    INT       'MARKER'                 'INTORG'",
                                               "    INTEND    'MARKER'                 'INTEND'"}));
}

TEST_F(MpsText, TakesEveryTypeButIntegerAsContinuous) {
  build.Row("R", 'L').Column("BINARY", 0, model::BoundLimit, 'B');
  build.Column("NONE", 0, model::BoundLimit, ModelBuilder::kNoType);
  build.Element("BINARY", "R", 1).Element("NONE", "R", 2);
  EXPECT_EQ(Write().Section("COLUMNS"), (Lines{"    BINARY    R                   1.",
                                               "    NONE      R                   2."}));
}

TEST_F(MpsText, KeepsElementsInTheOrderOfTheirColumn) {
  build.Row("A", 'L').Row("B", 'L').Column("X");
  build.Element("X", "B", 1).Element("X", "A", 2).Element("X", "B", 3);
  EXPECT_EQ(Write().Section("COLUMNS"),
            (Lines{"    X         B                   1.", "    X         A                   2.",
                   "    X         B                   3."}));
}

TEST_F(MpsText, HasAllElementsOfALongColumn) {
  build.Column("X");
  Lines expected;
  for (int i = 10; i < 60; ++i) {
    const std::string name = "R" + std::to_string(i);
    build.Row(name, 'L').Element("X", name, i);
    expected.push_back("    X         " + name + "                " + std::to_string(i) + ".");
  }
  EXPECT_EQ(Write().Section("COLUMNS"), expected);
}

TEST(MpsElementLine, KeepsFixedColumnsWhereNamesAndValueFit) {
  const struct {
    const char* column;
    const char* row;
    double value;
    std::string line;
    bool standard;
  } cases[] = {
      {"X", "R", 3, "    X         R                   3.", true},
      {"X", "R", -2.25, "    X         R                -2.25", true},
      {"\u00C4", "R", 3, "    \u00C4         R                   3.", true},
      {"X", "\u00C4", -2.25, "    X         \u00C4                -2.25", true},
      {"EIGHTCOL", "EIGHTROW", 0.5, "    EIGHTCOL  EIGHTROW           0.5", true},
      {"NINECOLSX", "R", 1, "    NINECOLSX  R  1.", false},
      {"X", "NINEROWSX", 1, "    X  NINEROWSX  1.", false},
      {"X", "R", 1e10, "    X         R         10000000000.", true},
      {"X", "R", -1e10, "    X  R  -10000000000.", false},
      {"X", "R", 1234567890.5, "    X         R         1234567890.5", true},
      {"X", "R", -1234567890.5, "    X  R  -1234567890.5", false},
      {"X", "R", 0, "    X         R                   0.", true},
      {"X", "R", -0.0, "    X         R                   0.", true},
      {"X", "R", 1.0 / 3, "    X         R         0.3333333333", true},
      {"X", "R", -1.0 / 3, "    X  R  -0.3333333333", false},
      {"X", "R", 1e-11, "    X         R                   0.", true},
      {"X", "R", 1e300, "    X  R  1" + std::string(300, '0') + ".", false},
  };
  for (const auto& [column, row, value, line, standard] : cases) {
    HandMadeModel made;
    made.build.Row(row, 'N').Column(column).Element(column, row, value);
    const WrittenModel written = made.Write();
    EXPECT_EQ(written.Section("COLUMNS"), (Lines{line}));
    EXPECT_EQ(written.standard, standard) << line;
  }
}

}  // namespace
}  // namespace quarvel::mps
