#include "inspect/violations.h"

#include <limits>
#include <random>
#include <string>
#include <string_view>

#include <gtest/gtest.h>

#include "model/name_key.h"
#include "text/numbers.h"

namespace quarvel::inspect {
namespace {

constexpr std::size_t kEvery = std::numeric_limits<std::size_t>::max();

std::int32_t AddRow(model::ModelStore& store, std::string_view name, double lower, double upper) {
  const std::int32_t row = store.AddRow(model::NameKey::Of(name), name);
  store.RowBounds(row) = {lower, upper};
  return row;
}

std::int32_t AddColumn(model::ModelStore& store, std::string_view name, double lower, double upper,
                       model::ColumnType type = model::ColumnType::kContinuous) {
  const std::int32_t column = store.AddColumn(model::NameKey::Of(name), name);
  store.ColumnBounds(column) = {lower, upper};
  store.SetColumnType(column, type);
  return column;
}

// 2 X + 3 Y between 4 and 10, X from 0 to 3, Y whole from -1E+10 on.
void MakeModel(model::ModelStore& store) {
  const std::int32_t row = AddRow(store, "R", 4, 10);
  AddRow(store, "FREE", -model::BoundLimit, model::BoundLimit);
  const std::int32_t x = AddColumn(store, "X", 0, 3);
  const std::int32_t y =
      AddColumn(store, "Y", -model::BoundLimit, model::BoundLimit, model::ColumnType::kInteger);
  store.AddElement(row, x, 2);
  store.AddElement(row, y, 3);
}

std::string TextOf(const Violations& found) {
  std::string text;
  for (const Violation& violation : found.worst) {
    constexpr char kKinds[] = {'r', 'b', 'i'};
    text += kKinds[static_cast<std::size_t>(violation.kind)];
    text += text::IntegerText(violation.number) + ' ' + text::GeneralText(violation.value) + ' ' +
            text::GeneralText(violation.limit) + ' ' + text::GeneralText(violation.amount) + '\n';
  }
  return text;
}

std::string Find(const std::vector<double>& point, const FeasibilityTolerance& tolerance = {},
                 int digits = 0, std::size_t kept = kEvery) {
  model::ModelStore store;
  MakeModel(store);
  return TextOf(FindViolations(store, point, tolerance, digits, kept));
}

TEST(Violations, FindsNoneAtAPointThatKeepsAll) {
  EXPECT_EQ(Find({2, 0}), "");
  EXPECT_EQ(Find({0.5, 3}), "");
  EXPECT_EQ(Find({3, -0}), "");
}

TEST(Violations, FindsRowsBoundsAndIntegersWorstFirst) {
  EXPECT_EQ(Find({5, 1.75}), "r1 15.25 10 5.25\nb1 5 3 2\ni2 1.75 2 0.25\n");
  EXPECT_EQ(Find({-2, 0}), "r1 -4 4 8\nb1 -2 0 2\n");
}

TEST(Violations, PutsRowsBeforeBoundsBeforeIntegersOfTheSameSize) {
  model::ModelStore store;
  const std::int32_t row = AddRow(store, "R", 0, 3);
  const std::int32_t x = AddColumn(store, "X", 0, 3, model::ColumnType::kInteger);
  AddColumn(store, "Y", 0, 3);
  store.AddElement(row, x, 1);
  const Violations found = FindViolations(store, std::vector<double>{3.5, 3.5}, {}, 0, kEvery);
  EXPECT_EQ(TextOf(found), "r1 3.5 3 0.5\nb1 3.5 3 0.5\nb2 3.5 3 0.5\ni1 3.5 4 0.5\n");
}

TEST(Violations, CountsAllAndKeepsTheWorst) {
  model::ModelStore store;
  std::vector<double> point;
  for (int i = 0; i < 100; ++i) {
    AddColumn(store, "X" + std::to_string(i), 0, 1);
    point.push_back(2 + (i * 37) % 100);
  }
  for (const std::size_t kept : {std::size_t{0}, std::size_t{1}, std::size_t{7}, kEvery}) {
    const Violations found = FindViolations(store, point, {}, 0, kept);
    EXPECT_EQ(found.bounds, 100);
    EXPECT_EQ(found.count(), 100);
    ASSERT_EQ(found.worst.size(), std::min<std::size_t>(kept, 100));
    for (std::size_t i = 0; i < found.worst.size(); ++i) {
      EXPECT_EQ(found.worst[i].amount, 100 - static_cast<double>(i));
    }
  }
}

TEST(Violations, PassesOverWhatIsWithinTheTolerance) {
  EXPECT_EQ(Find({3.0000005, 0}), "");
  EXPECT_EQ(Find({3.000002, 0}), "b1 3.000002 3 1.99999999983547E-06\n");
  EXPECT_EQ(Find({3.5, 0}, {.absolute = 0.5, .relative = 0}), "");
  EXPECT_EQ(Find({3.75, 0}, {.absolute = 0.5, .relative = 0}), "b1 3.75 3 0.75\n");
  EXPECT_EQ(Find({3.75, 0}, {.absolute = 0, .relative = 0.25}), "");
  EXPECT_EQ(Find({3.875, 0}, {.absolute = 0, .relative = 0.25}), "b1 3.875 3 0.875\n");
  // A limit of 0 has no relative part.
  EXPECT_EQ(Find({-0.25, 2}, {.absolute = 0, .relative = 0.25}), "b1 -0.25 0 0.25\n");
  // Whole numbers are told by the absolute part alone.
  EXPECT_EQ(Find({0, 2.25}, {.absolute = 0.25, .relative = 0}), "");
  EXPECT_EQ(Find({0, 2.25}, {.absolute = 0.125, .relative = 1}), "i2 2.25 2 0.25\n");
}

TEST(Violations, KeepsExactLimitsWithNoToleranceAtAll) {
  EXPECT_EQ(Find({3, 0}, {.absolute = 0, .relative = 0}), "");
  EXPECT_EQ(Find({2, 2}, {.absolute = 0, .relative = 0}), "");
  EXPECT_EQ(Find({3.0000005, 0}, {.absolute = 0, .relative = 0}),
            "b1 3.0000005 3 5.00000000069889E-07\n");
}

TEST(Violations, CountsWhatRoundedDigitsExplain) {
  model::ModelStore store;
  const std::int32_t row = AddRow(store, "R", 1000, 1000);
  const std::int32_t x = AddColumn(store, "X", 0, 3);
  store.AddElement(row, x, 750);
  // 4/3 to six digits.
  const std::vector<double> point = {1.33333};
  const Violations exact = FindViolations(store, point, {}, 0, kEvery);
  EXPECT_EQ(exact.rows, 1);
  EXPECT_EQ(exact.rounded, 0);
  const Violations rounded = FindViolations(store, point, {}, 6, kEvery);
  EXPECT_EQ(rounded.count(), 0);
  EXPECT_EQ(rounded.rounded, 1);
  // Half a unit of the seventh digit is too little.
  EXPECT_EQ(FindViolations(store, point, {}, 7, kEvery).rows, 1);
  // The nearest value of six digits is no excuse for the one beside it.
  EXPECT_EQ(FindViolations(store, std::vector<double>{1.33332}, {}, 6, kEvery).rows, 1);
}

TEST(Violations, TakesBoundsBeyondTheLimitForNone) {
  model::ModelStore store;
  AddColumn(store, "X", -2e10, 2e10);
  EXPECT_EQ(FindViolations(store, std::vector<double>{1e12}, {}, 0, kEvery).count(), 0);
}

TEST(Violations, ReportsBothBoundsOfReversedOnes) {
  model::ModelStore store;
  AddColumn(store, "X", 5, 1);
  EXPECT_EQ(TextOf(FindViolations(store, std::vector<double>{2}, {}, 0, kEvery)),
            "b1 2 5 3\nb1 2 1 1\n");
}

std::string SumOf(const RowTerms& sum) {
  std::string text;
  for (const RowTerm& term : sum.terms) {
    text += text::GeneralText(term.coefficient) + "*#" + text::IntegerText(term.column) + '(' +
            text::GeneralText(term.value) + ") ";
  }
  return text + "others " + text::IntegerText(sum.others) + ' ' +
         text::GeneralText(sum.sum_of_others) + " zeros " + text::IntegerText(sum.zeros);
}

TEST(Violations, GivesTheLargestTermsOfARowInItsOrder) {
  model::ModelStore store;
  const std::int32_t row = AddRow(store, "R", 0, 1);
  for (const char* const name : {"A", "B", "C", "D", "E"}) AddColumn(store, name, 0, 1);
  const double coefficients[] = {1, -8, 4, 2, 4};
  for (std::int32_t c = 1; c <= 5; ++c) store.AddElement(row, c, coefficients[c - 1]);
  const std::vector<double> point = {3, 0, 1, 2, -1};
  EXPECT_EQ(SumOf(TermsOf(store, row, point, 10)),
            "1*#1(3) 4*#3(1) 2*#4(2) 4*#5(-1) others 0 0 zeros 1");
  EXPECT_EQ(SumOf(TermsOf(store, row, point, 2)), "4*#3(1) 2*#4(2) others 2 -1 zeros 1");
  EXPECT_EQ(SumOf(TermsOf(store, row, point, 0)), "others 4 7 zeros 1");
}

}  // namespace
}  // namespace quarvel::inspect
