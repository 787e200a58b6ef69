#include <functional>
#include <limits>
#include <string>

#include <gtest/gtest.h>

#include "tests/api/api_model.h"

namespace quarvel {
namespace {

using testing::ErrorOf;
using testing::SmallApiModel;

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNan = std::numeric_limits<double>::quiet_NaN();

TEST(ApiEdits, AddRecordsAtTheEnd) {
  Model model = SmallApiModel();
  EXPECT_EQ(model.AddRow("EQUAL", {.lower = 2, .upper = 2}), 3);
  EXPECT_EQ(model.TypeOfRow(3), RowType::kEqual);
  EXPECT_EQ(model.AddRow("AT_LEAST", {.lower = 2}), 4);
  EXPECT_EQ(model.TypeOfRow(4), RowType::kGreater);
  EXPECT_EQ(model.AddColumn("Z", {}, ColumnType::kInteger), 2);
  EXPECT_EQ(model.BoundsOfColumn(2), Bounds{});
}

TEST(ApiEdits, GiveARowTheTypeOfItsBounds) {
  Model model = SmallApiModel();
  model.SetRowBounds(1, {.lower = 3});
  EXPECT_EQ(model.TypeOfRow(1), RowType::kGreater);
  model.SetRowBounds(1, {.lower = -kInfinity, .upper = kInfinity});
  EXPECT_EQ(model.TypeOfRow(1), RowType::kFree);
  EXPECT_EQ(model.BoundsOfRow(1), (Bounds{-kNoBound, kNoBound}));
  model.SetRowBounds(1, {.lower = 9, .upper = 8});
  EXPECT_EQ(model.BoundsOfRow(1), (Bounds{9, 8}));
}

TEST(ApiEdits, ChangeColumnsAndNames) {
  Model model = SmallApiModel();
  model.SetColumnBounds(0, {.lower = -5e10, .upper = 2});
  EXPECT_EQ(model.BoundsOfColumn(0), (Bounds{-kNoBound, 2}));
  model.SetColumnType(0, ColumnType::kInteger);
  EXPECT_EQ(model.TypeOfColumn(0), ColumnType::kInteger);
  model.RenameColumn(0, "N");
  EXPECT_EQ(model.FindColumn("N"), 0);
  EXPECT_EQ(model.FindColumn("X"), std::nullopt);
  model.RenameRow(2, "R");
  EXPECT_EQ(model.NameOfRow(2), "R");
}

TEST(ApiEdits, SetOrAddACoefficient) {
  Model model = SmallApiModel();
  model.SetCoefficient(0, 0, 30);
  model.SetCoefficient(2, 1, 0);
  EXPECT_EQ(model.Coefficient(0, 0), 30);
  EXPECT_EQ(model.element_count(), 6);
  EXPECT_EQ(model.ColumnElement(1, 2), (Element{2, 0}));
  model.AddElement(0, 0, 1);
  EXPECT_EQ(model.ElementsInRow(0), 3);
  EXPECT_EQ(model.Coefficient(0, 0), 30);
}

TEST(ApiEdits, RemoveRecordsWithTheirCoefficients) {
  Model model = SmallApiModel();
  model.RemoveRow(1);
  EXPECT_EQ(model.NameOfRow(1), "RANGE");
  EXPECT_EQ(model.element_count(), 3);
  model.RemoveColumn(0);  // RANGE has no other
  EXPECT_EQ(model.row_count(), 1);
  EXPECT_EQ(model.NameOfColumn(0), "Y");
  model.RemoveElement(0, 0);
  EXPECT_EQ(model.row_count(), 0);
  EXPECT_EQ(model.column_count(), 1);
  model.RemoveColumn(0);
  EXPECT_EQ(model.column_count(), 0);
}

TEST(ApiEdits, KeepTheObjectiveOfTheFactsTrue) {
  Model model = SmallApiModel();
  model.set_facts({.objective = "COST"});
  model.RenameRow(0, "PRICE");
  EXPECT_EQ(model.facts().objective, "PRICE");
  model.RemoveElement(1, 0);
  EXPECT_EQ(model.facts().objective, "PRICE");
  Model limited = model.Copy();
  limited.SetRowBounds(0, {.upper = 1});
  EXPECT_EQ(limited.facts().objective, "");
  model.RemoveRow(0);
  EXPECT_EQ(model.facts().objective, "");
}

struct Refused {
  const char* what;
  ErrorCode code;
  std::function<void(Model&)> edit;
};

// NOLINTNEXTLINE(cert-err58-cpp)
const Refused kRefused[] = {
    {"empty name", ErrorCode::kName, [](Model& m) { m.AddRow(""); }},
    {"blank in name", ErrorCode::kName, [](Model& m) { m.AddColumn("A B"); }},
    {"row's name in use", ErrorCode::kName, [](Model& m) { m.AddRow("COST"); }},
    {"column's name in use", ErrorCode::kName, [](Model& m) { m.AddColumn("X"); }},
    {"rename to own name", ErrorCode::kName, [](Model& m) { m.RenameRow(0, "COST"); }},
    {"rename column, in use", ErrorCode::kName, [](Model& m) { m.RenameColumn(0, "Y"); }},
    {"NaN as bound", ErrorCode::kValue, [](Model& m) { m.AddRow("R", {.lower = kNan}); }},
    {"NaN as upper", ErrorCode::kValue, [](Model& m) { m.SetRowBounds(1, {.upper = kNan}); }},
    {"lower of +inf", ErrorCode::kValue,
     [](Model& m) { m.SetColumnBounds(0, {.lower = kInfinity}); }},
    {"upper of -inf", ErrorCode::kValue, [](Model& m) { m.AddColumn("Z", {.upper = -kInfinity}); }},
    {"no type", ErrorCode::kValue,
     [](Model& m) { m.SetColumnType(0, static_cast<ColumnType>('?')); }},
    {"no type at first", ErrorCode::kValue,
     [](Model& m) { m.AddColumn("Z", {}, static_cast<ColumnType>('?')); }},
    {"infinite value", ErrorCode::kValue, [](Model& m) { m.AddElement(0, 0, kInfinity); }},
    {"NaN as value", ErrorCode::kValue, [](Model& m) { m.SetCoefficient(0, 0, kNan); }},
    {"element, no row", ErrorCode::kIndex, [](Model& m) { m.AddElement(3, 0, 1); }},
    {"element, no column", ErrorCode::kIndex, [](Model& m) { m.AddElement(0, 2, 1); }},
    {"set, no row", ErrorCode::kIndex, [](Model& m) { m.SetCoefficient(-1, 0, 1); }},
    {"set, no column", ErrorCode::kIndex, [](Model& m) { m.SetCoefficient(0, -1, 1); }},
    {"rename no row", ErrorCode::kIndex, [](Model& m) { m.RenameRow(3, "N"); }},
    {"rename no column", ErrorCode::kIndex, [](Model& m) { m.RenameColumn(2, "N"); }},
    {"bounds of no row", ErrorCode::kIndex, [](Model& m) { m.SetRowBounds(3, {}); }},
    {"bounds of no column", ErrorCode::kIndex, [](Model& m) { m.SetColumnBounds(2, {}); }},
    {"type of no column", ErrorCode::kIndex,
     [](Model& m) { m.SetColumnType(2, ColumnType::kInteger); }},
    {"remove no row", ErrorCode::kIndex, [](Model& m) { m.RemoveRow(3); }},
    {"remove no column", ErrorCode::kIndex, [](Model& m) { m.RemoveColumn(-1); }},
    {"remove in no row", ErrorCode::kIndex, [](Model& m) { m.RemoveElement(3, 0); }},
    {"remove no element", ErrorCode::kIndex, [](Model& m) { m.RemoveElement(2, 1); }},
};

TEST(ApiEdits, ThatAreRefusedChangeNothing) {
  const Model before = SmallApiModel();
  for (const Refused& refused : kRefused) {
    Model model = before.Copy();
    EXPECT_EQ(ErrorOf([&] { refused.edit(model); }), refused.code) << refused.what;
    EXPECT_EQ(Compare(before, model), 0) << refused.what;
    EXPECT_EQ(model.row_count(), 3) << refused.what;
  }
}

}  // namespace
}  // namespace quarvel
