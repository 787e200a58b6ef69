#include <array>
#include <vector>

#include <gtest/gtest.h>

#include "tests/api/api_model.h"

namespace quarvel {
namespace {

using testing::ErrorOf;
using testing::SmallApiModel;

TEST(ApiQueries, AnswerByNumberFromZero) {
  const Model model = SmallApiModel();
  EXPECT_EQ(model.row_count(), 3);
  EXPECT_EQ(model.column_count(), 2);
  EXPECT_EQ(model.element_count(), 5);
  EXPECT_EQ(model.NameOfRow(2), "RANGE");
  EXPECT_EQ(model.NameOfColumn(0), "X");
  EXPECT_EQ(model.ElementsInRow(1), 2);
  EXPECT_EQ(model.ElementsInColumn(1), 2);
  EXPECT_EQ(model.RowElement(0, 1), (Element{1, -2}));
  EXPECT_EQ(model.ColumnElement(0, 2), (Element{2, 1}));
  EXPECT_EQ(ElementsOfRow(model, 0), (std::vector<Element>{{0, 3}, {1, -2}}));
  EXPECT_EQ(ElementsOfColumn(model, 1), (std::vector<Element>{{0, -2}, {1, 1}}));
  EXPECT_EQ(model.Coefficient(0, 1), -2);
  EXPECT_EQ(model.Coefficient(2, 1), 0);
}

TEST(ApiQueries, FindByName) {
  const Model model = SmallApiModel();
  EXPECT_EQ(model.FindRow("LIMIT"), 1);
  EXPECT_EQ(model.FindColumn("Y"), 1);
  EXPECT_EQ(model.FindRow("limit"), std::nullopt);
  EXPECT_EQ(model.FindColumn(""), std::nullopt);
  EXPECT_EQ(Model().FindRow("LIMIT"), std::nullopt);
}

TEST(ApiQueries, GiveTypesAndBounds) {
  const Model model = SmallApiModel();
  EXPECT_EQ(model.TypeOfRow(0), RowType::kFree);
  EXPECT_EQ(model.TypeOfRow(1), RowType::kLess);
  EXPECT_EQ(model.TypeOfRow(2), RowType::kRanged);
  EXPECT_EQ(static_cast<char>(model.TypeOfRow(2)), 'R');
  EXPECT_EQ(model.TypeOfColumn(0), ColumnType::kContinuous);
  EXPECT_EQ(model.TypeOfColumn(1), ColumnType::kInteger);
  EXPECT_EQ(model.BoundsOfRow(1), (Bounds{-kNoBound, 4}));
  EXPECT_FALSE(model.BoundsOfRow(1).has_lower());
  EXPECT_TRUE(model.BoundsOfRow(1).has_upper());
  EXPECT_EQ(model.BoundsOfColumn(0), (Bounds{0, kNoBound}));
  EXPECT_FALSE(model.BoundsOfColumn(0).has_upper());
}

TEST(ApiQueries, ShowARowAsAnEquationAndAtAPoint) {
  const Model model = SmallApiModel();
  EXPECT_EQ(EquationOfRow(model, 1), " + 1*X + 1*Y  <=  4");
  EXPECT_EQ(ActivityOfRow(model, 0, std::array{2.0, 0.5}), 5);
  EXPECT_EQ(ErrorOf([&] { ActivityOfRow(model, 0, std::array{2.0}); }), ErrorCode::kIndex);
  Model single;
  single.AddRow("R", {.upper = 7});
  single.AddColumn("X");
  single.AddElement(0, 0, -2);
  EXPECT_EQ(EquationOfRow(single, 0), " - 2*X  <=  7");
  Model empty;
  empty.AddRow("R");
  EXPECT_NE(EquationOfRow(empty, 0), "");
  EXPECT_EQ(ActivityOfRow(empty, 0, {}), 0);
}

TEST(ApiQueries, ThrowForNumbersOfNone) {
  const Model model = SmallApiModel();
  for (const std::int32_t bad : {-1, 3, 2147483647, -2147483647 - 1}) {
    EXPECT_EQ(ErrorOf([&] { model.NameOfRow(bad); }), ErrorCode::kIndex) << bad;
    EXPECT_EQ(ErrorOf([&] { model.TypeOfRow(bad); }), ErrorCode::kIndex) << bad;
    EXPECT_EQ(ErrorOf([&] { model.BoundsOfRow(bad); }), ErrorCode::kIndex) << bad;
    EXPECT_EQ(ErrorOf([&] { model.ElementsInRow(bad); }), ErrorCode::kIndex) << bad;
    EXPECT_EQ(ErrorOf([&] { model.RowElement(bad, 0); }), ErrorCode::kIndex) << bad;
    EXPECT_EQ(ErrorOf([&] { model.RowElement(0, bad); }), ErrorCode::kIndex) << bad;
    EXPECT_EQ(ErrorOf([&] { model.NameOfColumn(bad); }), ErrorCode::kIndex) << bad;
    EXPECT_EQ(ErrorOf([&] { model.TypeOfColumn(bad); }), ErrorCode::kIndex) << bad;
    EXPECT_EQ(ErrorOf([&] { model.BoundsOfColumn(bad); }), ErrorCode::kIndex) << bad;
    EXPECT_EQ(ErrorOf([&] { model.ElementsInColumn(bad); }), ErrorCode::kIndex) << bad;
    EXPECT_EQ(ErrorOf([&] { model.ColumnElement(bad, 0); }), ErrorCode::kIndex) << bad;
    EXPECT_EQ(ErrorOf([&] { model.ColumnElement(1, bad); }), ErrorCode::kIndex) << bad;
    EXPECT_EQ(ErrorOf([&] { model.Coefficient(bad, 0); }), ErrorCode::kIndex) << bad;
    EXPECT_EQ(ErrorOf([&] { model.Coefficient(0, bad); }), ErrorCode::kIndex) << bad;
    EXPECT_EQ(ErrorOf([&] { ElementsOfRow(model, bad); }), ErrorCode::kIndex) << bad;
    EXPECT_EQ(ErrorOf([&] { ElementsOfColumn(model, bad); }), ErrorCode::kIndex) << bad;
    EXPECT_EQ(ErrorOf([&] { EquationOfRow(model, bad); }), ErrorCode::kIndex) << bad;
    EXPECT_EQ(ErrorOf([&] {
                ActivityOfRow(model, bad, std::array{1.0, 2.0});
              }),
              ErrorCode::kIndex)
        << bad;
  }
  EXPECT_EQ(ErrorOf([] { Model().NameOfRow(0); }), ErrorCode::kIndex);
  EXPECT_EQ(ErrorOf([] { Model().ColumnElement(0, 0); }), ErrorCode::kIndex);
}

}  // namespace
}  // namespace quarvel
