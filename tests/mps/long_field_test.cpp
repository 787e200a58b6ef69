#include "mps/long_field.h"

#include <string>

#include <gtest/gtest.h>

#include "mps/model_writer.h"
#include "tests/mps/write_helpers.h"

namespace quarvel::mps {
namespace {

TEST(LongField, IsSaidInWords) {
  EXPECT_EQ(TextOf({LongFieldKind::kName, "PRODUCTION"}), "the name PRODUCTION");
  EXPECT_EQ(TextOf({LongFieldKind::kCoefficient, "X", "COST"}), "the coefficient of X in COST");
  EXPECT_EQ(TextOf({LongFieldKind::kRightHandSide, "R"}), "the right-hand side of R");
  EXPECT_EQ(TextOf({LongFieldKind::kRange, "R"}), "the range of R");
  EXPECT_EQ(TextOf({LongFieldKind::kBound, "X"}), "the bound of X");
}

std::string LongFieldIn(const HandMadeModel& made, FileLayout layout) {
  const FileFacts facts;
  ModelWriter writer(made.model.store(), layout, facts);
  writer.Write([](std::string_view) {});
  return writer.long_field() ? TextOf(*writer.long_field()) : "";
}

void ExpectLong(const HandMadeModel& made, const std::string& field) {
  EXPECT_EQ(LongFieldIn(made, FileLayout::kFixed), field);
  EXPECT_EQ(LongFieldIn(made, FileLayout::kFree), field);
}

constexpr double kLong = 0.1234567890123;

TEST(LongField, IsNoneInAFileThatTheComponentCallsNotStandardForItsBounds) {
  HandMadeModel made;
  made.build.Row("R", 'L', 4).Column("FREE", -model::BoundLimit, model::BoundLimit);
  made.build.Column("LOW", -model::BoundLimit, 5).Element("FREE", "R", 1).Element("LOW", "R", 2);
  EXPECT_FALSE(made.Write().standard);
  ExpectLong(made, "");
}

TEST(LongField, IsTheFirstNameOrValueThatTakesTooMuch) {
  HandMadeModel row;
  row.build.Row("LONGROWNAME", 'L', 4).Column("LONGCOLUMN").Element("LONGCOLUMN", "LONGROWNAME", 1);
  ExpectLong(row, "the name LONGROWNAME");
  HandMadeModel column;
  column.build.Row("R", 'L', kLong).Column("LONGCOLUMN").Element("LONGCOLUMN", "R", 1);
  ExpectLong(column, "the name LONGCOLUMN");
  HandMadeModel coefficient;
  coefficient.build.Row("R", 'L', 4).Column("X").Element("X", "R", -kLong * 1e9);
  ExpectLong(coefficient, "the coefficient of X in R");
  HandMadeModel right;
  right.build.Row("R", 'L', -kLong * 1e9).Column("X").Element("X", "R", 1);
  ExpectLong(right, "the right-hand side of R");
  HandMadeModel range;
  range.build.Ranged("R", 0, kLong * 1e9).Column("X").Element("X", "R", 1);
  ExpectLong(range, "the range of R");
  HandMadeModel bound;
  bound.build.Row("R", 'L', 4).Column("X", -kLong, 7).Element("X", "R", 1);
  ExpectLong(bound, "the bound of X");
}

TEST(LongField, MayBeTheNameInABoundAlone) {
  HandMadeModel made;
  made.build.Row("R", 'L', 4).Column("X").Element("X", "R", 1);
  made.build.Column("LONGCOLUMN", -model::BoundLimit, model::BoundLimit);
  ExpectLong(made, "the name LONGCOLUMN");
}

}  // namespace
}  // namespace quarvel::mps
