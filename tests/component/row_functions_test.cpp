// Row equations, gradients and activities.

#include <array>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "model/error_reports.h"
#include "tests/component/query_model.h"
#include "tests/support/model_builder.h"

namespace quarvel {
namespace {

struct EquationCase {
  model::RowType type;
  double lower, upper;
  std::string with_elements;
  std::string without_elements;
};

class RowEquations : public ::testing::TestWithParam<EquationCase> {};

TEST_P(RowEquations, ReadAsTheTypeSays) {
  const EquationCase& c = GetParam();
  QueryModel q;
  q.SetRow(1, c.type, c.lower, c.upper);
  q.SetRow(4, c.type, c.lower, c.upper);
  EXPECT_EQ(q.model.RowEquation(0), c.with_elements);
  EXPECT_EQ(q.model.RowEquation(3), c.without_elements);
}

INSTANTIATE_TEST_SUITE_P(
    RowEquation, RowEquations,
    ::testing::Values(
        EquationCase{
            model::RowType::kLess, -1e10, 10, " + 2*X1 - 3.5*X2  <=  10",
            "This row has no elements.  It is a less-than constraint row with upper bound 10."},
        EquationCase{
            model::RowType::kGreater, 1.5, 1e10, " + 2*X1 - 3.5*X2  >=  1.5",
            "This row has no elements.  It is a greater-than constraint row with lower bound "
            "1.5."},
        EquationCase{model::RowType::kEqual, 4, 4, " + 2*X1 - 3.5*X2  =  4",
                     "This row has no elements.  It is an equality constraint row equal to 4."},
        EquationCase{
            model::RowType::kRanged, -1, 1e10, "-1  >=   + 2*X1 - 3.5*X2  <=  10000000000",
            "This row has no elements.  It is a ranged constraint row with lower bound -1 and "
            "upper bound 10000000000."},
        EquationCase{model::RowType::kFree, -1e10, 1e10,
                     " + 2*X1 - 3.5*X2  (non-binding/objective)",
                     "This row has no elements.  It is a non-binding/objective row."},
        EquationCase{model::RowType::kNone, 0, 0, " + 2*X1 - 3.5*X2",
                     "This row has no elements.  "}));

TEST(RowEquation, WritesOneForAnObjectiveOfOneColumn) {
  QueryModel q;
  q.SetRow(2, model::RowType::kFree, -1e10, 1e10);
  EXPECT_EQ(q.model.RowEquation(1), " + 1*X3  (non-binding/objective)");
}

TEST(RowEquation, WritesZeroWithAPlus) {
  QueryModel q;
  q.model.SetRowElementValue(1, 0, 0);
  q.SetRow(2, model::RowType::kLess, 0, 0);
  EXPECT_EQ(q.model.RowEquation(1), " + 0*X3  <=  0");
}

TEST(RowEquation, RaisesForARowOutOfRange) {
  QueryModel q;
  EXPECT_EQ(RaisedBy([&] { q.model.RowEquation(4); }),
            Raised(model::kRowOutOfRange, "LPModel.PropertyGetRow()",
                   "Quarvel.dll error: row 4 is out of range.  \r\nRows range from 0 to 3."));
}

TEST(RowEquation, RaisesNineForAnElementOfNoColumn) {
  QueryModel q;
  ChangeFields(q.model, [&](model::ModelData& data) { data.Rows[1].Elements[1].Index = 99; });
  EXPECT_EQ(RaisedBy([&] { q.model.RowEquation(0); }), Raised(9, "", "Subscript out of range"));
}

// --- gradient ---

TEST(RowGradient, ZeroesEverySlotAndSetsTheColumnsOfTheRow) {
  QueryModel q;
  std::array<double, 6> gradient = {9, 9, 9, 9, 9, 9};
  EXPECT_EQ(q.model.RowGradient(1, gradient), -1);
  EXPECT_EQ(gradient, (std::array<double, 6>{0, 0, 1, 0, 0, 9}));
}

TEST(RowGradient, IsAllZeroForARowWithoutElements) {
  QueryModel q;
  std::array<double, 5> gradient = {9, 9, 9, 9, 9};
  EXPECT_EQ(q.model.RowGradient(3, gradient), -1);
  EXPECT_EQ(gradient, (std::array<double, 5>{}));
}

TEST(RowGradient, TakesTheLastOfRepeatedElements) {
  QueryModel q;
  q.model.AddElement(1, 2, 8);
  std::array<double, 5> gradient = {};
  q.model.RowGradient(1, gradient);
  EXPECT_EQ(gradient[2], 8);
}

TEST(RowGradient, RaisesNineForAnArrayTooShortToBeZeroed) {
  QueryModel q;
  std::array<double, 4> gradient = {9, 9, 9, 9};
  EXPECT_EQ(RaisedBy([&] { q.model.RowGradient(0, gradient); }),
            Raised(9, "", "Subscript out of range"));
  EXPECT_EQ(gradient, (std::array<double, 4>{}));  // zeroed as far as it went
}

TEST(RowGradient, CountsSlotsByTheArraysOwnNumbers) {
  QueryModel q;
  std::array<double, 8> gradient = {9, 9, 9, 9, 9, 9, 9, 9};
  EXPECT_EQ(q.model.RowGradient(1, gradient, -2), -1);
  EXPECT_EQ(gradient, (std::array<double, 8>{9, 9, 0, 0, 1, 0, 0, 9}));
}

TEST(RowGradient, RaisesNineForAnArrayWithoutASlotZero) {
  QueryModel q;
  std::array<double, 5> gradient = {9, 9, 9, 9, 9};
  EXPECT_EQ(RaisedBy([&] { q.model.RowGradient(1, gradient, 1); }),
            Raised(9, "", "Subscript out of range"));
  EXPECT_EQ(gradient, (std::array<double, 5>{9, 9, 9, 9, 9}));
}

TEST(RowGradient, RaisesNineForARowThatIsNotStoredAfterZeroing) {
  for (const std::int32_t row : {-1, 4, 2147483647}) {
    QueryModel q;
    std::array<double, 5> gradient = {9, 9, 9, 9, 9};
    EXPECT_EQ(RaisedBy([&] { q.model.RowGradient(row, gradient); }),
              Raised(9, "", "Subscript out of range"));
    EXPECT_EQ(gradient, (std::array<double, 5>{}));
  }
}

TEST(RowGradient, TellsAModelErrorAndGoesOnWithTheAssignment) {
  QueryModel q;
  ChangeFields(q.model, [&](model::ModelData& data) { data.Rows[1].Elements[1].Index = 7; });
  std::array<double, 8> gradient = {};
  EXPECT_EQ(q.model.RowGradient(0, gradient), 1);
  const platform::ShownBox expected = {"Error in Quarvel.dll model", platform::MsgBoxStyle::kOk,
                                       "Quarvel"};
  EXPECT_EQ(q.desktop.boxes(), std::vector<platform::ShownBox>{expected});
  EXPECT_EQ(gradient[6], 2);
  EXPECT_EQ(gradient[1], -3.5);
}

TEST(RowGradient, ReturnsZeroWhenAnElementLiesBeyondTheArray) {
  QueryModel q;
  ChangeFields(q.model, [&](model::ModelData& data) { data.Rows[1].Elements[2].Index = 9; });
  std::array<double, 5> gradient = {};
  EXPECT_EQ(q.model.RowGradient(0, gradient), 0);
  EXPECT_EQ(gradient[0], 2);  // what was written stays
  EXPECT_EQ(q.desktop.boxes().size(), 1u);
}

TEST(RowGradient, TakesThePlaceholderRowOfANewModel) {
  QueryModel q;
  q.model.MakeNewModel();
  std::array<double, 1> gradient = {9};
  EXPECT_EQ(q.model.RowGradient(0, gradient), -1);
  EXPECT_EQ(gradient[0], 9);  // no columns, so nothing to zero
  EXPECT_EQ(RaisedBy([&] { q.model.RowGradient(1, gradient); }),
            Raised(9, "", "Subscript out of range"));
}

// --- activity ---

TEST(RowBodyValue, SumsCoefficientsTimesThePoint) {
  QueryModel q;
  const std::array<double, 5> point = {3, 2, 0, 0, 0};
  double answer = 77;
  EXPECT_EQ(q.model.RowBodyValue(0, point, answer), -1);
  EXPECT_EQ(answer, 2 * 3 - 3.5 * 2);
}

TEST(RowBodyValue, IsZeroForARowWithoutElements) {
  QueryModel q;
  double answer = 77;
  EXPECT_EQ(q.model.RowBodyValue(3, {}, answer), -1);
  EXPECT_EQ(answer, 0);
}

TEST(RowBodyValue, CountsRepeatedElementsEachTime) {
  QueryModel q;
  q.model.AddElement(1, 2, 8);
  const std::array<double, 3> point = {0, 0, 2};
  double answer = 0;
  q.model.RowBodyValue(1, point, answer);
  EXPECT_EQ(answer, 18);
}

TEST(RowBodyValue, RaisesForAnElementBeyondTheColumnsKeepingTheSumSoFar) {
  QueryModel q;
  ChangeFields(q.model, [&](model::ModelData& data) { data.Rows[1].Elements[2].Index = 6; });
  const std::array<double, 9> point = {3, 3, 3, 3, 3, 3, 3, 3, 3};
  double answer = 77;
  EXPECT_EQ(RaisedBy([&] { q.model.RowBodyValue(0, point, answer); }),
            Raised(model::kTooFewElementsInPoint, "LPModel.rowBodyValue",
                   "Too few elements in input point"));
  EXPECT_EQ(answer, 6);
  EXPECT_EQ(model::kTooFewElementsInPoint, -2147220991);
}

TEST(RowBodyValue, RaisesNineForAPointTooShort) {
  QueryModel q;
  const std::array<double, 1> point = {3};
  double answer = 77;
  EXPECT_EQ(RaisedBy([&] { q.model.RowBodyValue(0, point, answer); }),
            Raised(9, "", "Subscript out of range"));
  EXPECT_EQ(answer, 6);
}

TEST(RowBodyValue, CountsSlotsByThePointsOwnNumbers) {
  QueryModel q;
  const std::array<double, 3> point = {5, 3, 2};
  double answer = 77;
  EXPECT_EQ(q.model.RowBodyValue(0, point, answer, -1), -1);
  EXPECT_EQ(answer, 2 * 3 - 3.5 * 2);
  EXPECT_EQ(q.model.RowBodyValue(1, point, answer, 2), -1);  // the row's only column is number 2
  EXPECT_EQ(answer, 5);
  EXPECT_EQ(RaisedBy([&] { q.model.RowBodyValue(1, point, answer, 3); }),
            Raised(9, "", "Subscript out of range"));
}

TEST(RowBodyValue, RaisesNineForARowThatIsNotStored) {
  for (const std::int32_t row : {-1, 4, 2147483647, -2147483647 - 1}) {
    QueryModel q;
    double answer = 77;
    EXPECT_EQ(RaisedBy([&] { q.model.RowBodyValue(row, {}, answer); }),
              Raised(9, "", "Subscript out of range"));
    EXPECT_EQ(answer, 0);
  }
}

}  // namespace
}  // namespace quarvel
