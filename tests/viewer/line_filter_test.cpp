#include "viewer/line_filter.h"

#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace quarvel {
namespace {

struct KeepCase {
  int position;
  std::string kept;  // of the letters below
};

std::string Kept(bool (*keeps)(int, std::string_view), int position, std::string_view letters) {
  std::string kept;
  for (const char letter : letters) {
    if (keeps(position, std::string_view(&letter, 1))) kept += letter;
  }
  return kept;
}

TEST(RowFilter, KeepsTheTypesOfEachEntry) {
  const KeepCase cases[] = {{-1, ""}, {0, "NLGREnX"}, {1, "N"}, {2, "LGREnX"}, {3, "L"},
                            {4, "G"}, {5, "R"},       {6, "E"}, {7, ""}};
  for (const KeepCase& c : cases) {
    EXPECT_EQ(Kept(KeepsRow, c.position, "NLGREnX"), c.kept) << c.position;
  }
}

TEST(RowFilter, CountsARowWithoutTypeAsConstraint) {
  EXPECT_TRUE(KeepsRow(0, ""));
  EXPECT_FALSE(KeepsRow(1, ""));
  EXPECT_TRUE(KeepsRow(2, ""));
}

TEST(ColumnFilter, KeepsTheTypesOfEachEntryAndBinaryOnesWithoutAnEntry) {
  const KeepCase cases[] = {{-1, ""}, {0, "RIBx"}, {1, "R"}, {2, "I"}, {3, "B"}, {4, ""}};
  for (const KeepCase& c : cases) {
    EXPECT_EQ(Kept(KeepsColumn, c.position, "RIBx"), c.kept) << c.position;
  }
}

bool IsEven(std::int32_t number) { return number % 2 == 0; }

std::vector<std::int32_t> Shown(const LineFilter& filter) {
  std::vector<std::int32_t> shown;
  for (int i = 0; i < filter.count(); ++i) shown.push_back(*filter.At(i));
  return shown;
}

TEST(LineFilter, ShowsTheKeptNumbersInOrder) {
  LineFilter filter;
  filter.Run(7, false, IsEven);
  EXPECT_EQ(Shown(filter), (std::vector<std::int32_t>{0, 2, 4, 6}));
}

TEST(LineFilter, InvertedShowsExactlyTheOthers) {
  LineFilter filter;
  filter.Run(7, true, IsEven);
  EXPECT_EQ(Shown(filter), (std::vector<std::int32_t>{1, 3, 5}));
  filter.Run(7, true, [](std::int32_t) { return true; });
  EXPECT_EQ(filter.count(), 0);
}

TEST(LineFilter, FindsThePlaceOfANumberAndNoneForAHiddenOne) {
  LineFilter filter;
  filter.Run(7, false, IsEven);
  EXPECT_EQ(filter.PlaceOf(0), 0);
  EXPECT_EQ(filter.PlaceOf(6), 3);
  EXPECT_EQ(filter.PlaceOf(3), std::nullopt);
  EXPECT_EQ(filter.PlaceOf(8), std::nullopt);
}

TEST(LineFilter, HasNothingOutsideItsPlaces) {
  LineFilter filter;
  EXPECT_EQ(filter.At(0), std::nullopt);
  filter.Run(3, false, IsEven);
  EXPECT_EQ(filter.At(-1), std::nullopt);
  EXPECT_EQ(filter.At(2), std::nullopt);
}

TEST(LineFilter, ForgetsTheLastRun) {
  LineFilter filter;
  filter.Run(7, false, IsEven);
  filter.Run(0, false, IsEven);
  EXPECT_EQ(filter.count(), 0);
  filter.Run(3, false, IsEven);
  filter.Clear();
  EXPECT_EQ(filter.count(), 0);
}

}  // namespace
}  // namespace quarvel
