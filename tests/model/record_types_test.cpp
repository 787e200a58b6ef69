#include "model/record_types.h"

#include <string>
#include <utility>

#include <gtest/gtest.h>

#include "model/bound_code.h"
#include "model/model_data.h"

namespace quarvel::model {
namespace {

using Bounds = std::pair<double, double>;

TEST(RowTypes, AreFoundByTheirLettersAlone) {
  for (const RowTypeTraits& row : kRowTypes) EXPECT_EQ(RowTypeOf(row.letter), row.type);
  for (const char* text : {"", "n", "X", "NG", " N", "RR"}) {
    EXPECT_EQ(RowTypeOf(text), RowType::kNone) << text;
  }
}

TEST(RowTypes, GiveTheirLetterAndNoneForNoType) {
  EXPECT_EQ(TypeText(RowType::kNone), "");
  EXPECT_EQ(TypeText(RowType::kRanged), "R");
  EXPECT_EQ(RowTypeLetters(), "N|G|L|E|R");
}

TEST(RowTypes, StandInFilesButForRanges) {
  std::string letters;
  for (const RowTypeTraits& row : kRowTypes) {
    if (row.in_files()) letters += row.letter;
  }
  EXPECT_EQ(letters, "NGLE");
  EXPECT_EQ(TraitsOf(RowType::kRanged).file_letter, "G");
}

TEST(RowTypes, FollowFromBounds) {
  const struct {
    double lower, upper;
    RowType type;
  } cases[] = {{-1e10, 1e10, RowType::kFree}, {-2e10, 2e10, RowType::kFree},
               {0, 1e10, RowType::kGreater},  {-1e10, 0, RowType::kLess},
               {3, 3, RowType::kEqual},       {3, 4, RowType::kRanged},
               {4, 3, RowType::kRanged},      {-1e10, -1e10, RowType::kLess}};
  for (const auto& c : cases) {
    EXPECT_EQ(RowTypeOf(c.lower, c.upper), c.type) << c.lower << ' ' << c.upper;
  }
}

// The bounds that a fresh row of a type has in a file give the type back.
TEST(RowTypes, OfFreshBoundsAreThoseOfTheRow) {
  for (const RowTypeTraits& row : kRowTypes) {
    if (!row.in_files()) continue;
    EXPECT_EQ(RowTypeOf(row.FreshLower(), row.FreshUpper()), row.type) << row.letter;
  }
}

TEST(RowTypes, TakeTheirRightHandSideEachInItsWay) {
  const struct {
    RowType type;
    Bounds bounds;
  } cases[] = {{RowType::kNone, {1, 2}},     {RowType::kFree, {1, 2}},  {RowType::kGreater, {5, 2}},
               {RowType::kLess, {-1e10, 5}}, {RowType::kEqual, {5, 5}}, {RowType::kRanged, {1, 2}}};
  for (const auto& c : cases) {
    RowRecord row;
    row.LowerBound = 1;
    row.UpperBound = 2;
    TraitsOf(c.type).right_hand_side.Apply(row, 5);
    EXPECT_EQ(Bounds(row.LowerBound, row.UpperBound), c.bounds) << TypeText(c.type);
  }
}

TEST(RowTypes, AllBindButFreeRows) {
  for (const RowTypeTraits& row : kRowTypes) {
    EXPECT_EQ(row.binds, row.type != RowType::kFree) << row.letter;
  }
}

TEST(RowTypes, HaveASignExactlyWhenTheyHaveABound) {
  for (const RowTypeTraits& row : kRowTypes) {
    EXPECT_EQ(!row.sign.empty(), row.has_lower || row.has_upper) << row.letter;
  }
}

TEST(ColumnTypes, AreFoundByTheirLettersAlone) {
  for (const ColumnTypeTraits& column : kColumnTypes) {
    EXPECT_EQ(ColumnTypeOf(column.letter), column.type);
  }
  for (const char* text : {"", "r", "i", "RI", "N"}) {
    EXPECT_EQ(ColumnTypeOf(text), ColumnType::kNone) << text;
  }
}

TEST(ColumnTypes, GiveTheirLetterAndNoneForNoType) {
  EXPECT_EQ(TypeText(ColumnType::kNone), "");
  EXPECT_EQ(TypeText(ColumnType::kBinary), "B");
  EXPECT_EQ(ColumnTypeLetters(), "R|I");
}

TEST(RecordTypes, TakeOneByteOfARecord) {
  EXPECT_EQ(sizeof(RowRecord::Type), 1u);
  EXPECT_EQ(sizeof(ColumnRecord::Type), 1u);
  EXPECT_EQ(sizeof(RowRecord), sizeof(ColumnRecord));
}

TEST(BoundCodes, ChangeTheBoundsTheyName) {
  const struct {
    const char* letters;
    Bounds bounds;
  } cases[] = {{"LO", {5, 2}},        {"UP", {1, 5}},     {"FX", {5, 5}},
               {"FR", {-1e10, 1e10}}, {"MI", {-1e10, 2}}, {"PL", {1, 1e10}}};
  for (const auto& c : cases) {
    const BoundCodeTraits* const code = FindBoundCode(c.letters);
    ASSERT_NE(code, nullptr) << c.letters;
    ColumnRecord column;
    column.LowerBound = 1;
    column.UpperBound = 2;
    code->change.Apply(column, 5);
    EXPECT_EQ(Bounds(column.LowerBound, column.UpperBound), c.bounds) << c.letters;
  }
  EXPECT_EQ(std::size(cases), kBoundCodes.size());
}

TEST(BoundCodes, AreFoundByTheirLettersAlone) {
  for (const BoundCodeTraits& known : kBoundCodes) {
    EXPECT_EQ(FindBoundCode(known.letters), &known);
    EXPECT_EQ(&TraitsOf(known.code), &known);
  }
  for (const char* text : {"", "lo", "BV", "LOW"}) EXPECT_EQ(FindBoundCode(text), nullptr) << text;
  EXPECT_EQ(BoundCodeLetters(), "LO|UP|FX|FR|MI|PL");
}

TEST(BoundCodes, NeedAValueExactlyWhenABoundTakesIt) {
  for (const BoundCodeTraits& known : kBoundCodes) {
    const bool takes =
        known.change.lower == BoundChange::kGiven || known.change.upper == BoundChange::kGiven;
    EXPECT_EQ(known.needs_value, takes) << known.letters;
  }
}

}  // namespace
}  // namespace quarvel::model
