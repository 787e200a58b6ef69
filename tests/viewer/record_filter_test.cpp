#include "viewer/record_filter.h"

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "component/lp_model.h"
#include "platform/scripted/scripted_desktop.h"
#include "tests/support/model_builder.h"

namespace quarvel::viewer {
namespace {

struct KeepCase {
  int position;
  std::string kept;  // of the types of the records
};

class FilterEntriesTest : public testing::Test {
 protected:
  // The types of the rows, and of the columns, that the entry at that position keeps; "-" for no type.
  std::string KeptRows(int position, std::string_view types) {
    std::string kept;
    for (const char type : types) {
      ChangeFields(model_, [&](model::ModelData& data) {
        data.Rows[1].Type = model::RowTypeOf(std::string_view(&type, 1));
      });
      if (Keeps(kRowFilters, position, model_, 0)) kept += type;
    }
    return kept;
  }
  std::string KeptColumns(int position, std::string_view types) {
    std::string kept;
    for (const char type : types) {
      ChangeFields(model_, [&](model::ModelData& data) {
        data.Columns[1].Type = model::ColumnTypeOf(std::string_view(&type, 1));
      });
      if (Keeps(kColumnFilters, position, model_, 0)) kept += type;
    }
    return kept;
  }

  platform::ScriptedDesktop desktop_;
  LPModel model_{desktop_};
};

TEST_F(FilterEntriesTest, KeepTheTypesOfRowsThatTheyName) {
  ModelBuilder(model_).Row("A", 'N');
  const KeepCase cases[] = {{-1, ""}, {0, "NLGRE-"}, {1, "N"}, {2, "LGRE-"}, {3, "L"},
                            {4, "G"}, {5, "R"},      {6, "E"}, {7, ""}};
  for (const KeepCase& c : cases) EXPECT_EQ(KeptRows(c.position, "NLGRE-"), c.kept) << c.position;
}

TEST_F(FilterEntriesTest, CountARowWithoutTypeAsConstraint) {
  model_.AddRow("FRESH");
  ASSERT_EQ(model_.RowType(0), "");
  EXPECT_TRUE(Keeps(kRowFilters, 0, model_, 0));
  EXPECT_FALSE(Keeps(kRowFilters, 1, model_, 0));
  EXPECT_TRUE(Keeps(kRowFilters, 2, model_, 0));
}

TEST_F(FilterEntriesTest, KeepTheTypesOfColumnsAndBinaryOnesWithoutAnEntry) {
  ModelBuilder(model_).Column("X");
  const KeepCase cases[] = {{-1, ""}, {0, "RIB-"}, {1, "R"}, {2, "I"}, {3, "B"}, {4, ""}};
  for (const KeepCase& c : cases) EXPECT_EQ(KeptColumns(c.position, "RIB-"), c.kept) << c.position;
}

bool IsEven(std::int32_t number) { return number % 2 == 0; }

std::vector<std::int32_t> Shown(const RecordFilter& filter) {
  std::vector<std::int32_t> shown;
  for (int i = 0; i < filter.count(); ++i) shown.push_back(*filter.At(i));
  return shown;
}

TEST(RecordFilter, ShowsTheKeptNumbersInOrder) {
  RecordFilter filter;
  filter.Run(7, false, IsEven);
  EXPECT_EQ(Shown(filter), (std::vector<std::int32_t>{0, 2, 4, 6}));
}

TEST(RecordFilter, InvertedShowsExactlyTheOthers) {
  RecordFilter filter;
  filter.Run(7, true, IsEven);
  EXPECT_EQ(Shown(filter), (std::vector<std::int32_t>{1, 3, 5}));
  filter.Run(7, true, [](std::int32_t) { return true; });
  EXPECT_EQ(filter.count(), 0);
}

TEST(RecordFilter, FindsThePlaceOfANumberAndNoneForAHiddenOne) {
  RecordFilter filter;
  filter.Run(7, false, IsEven);
  EXPECT_EQ(filter.PlaceOf(0), 0);
  EXPECT_EQ(filter.PlaceOf(6), 3);
  EXPECT_EQ(filter.PlaceOf(3), std::nullopt);
  EXPECT_EQ(filter.PlaceOf(8), std::nullopt);
}

TEST(RecordFilter, HasNothingOutsideItsPlaces) {
  RecordFilter filter;
  EXPECT_EQ(filter.At(0), std::nullopt);
  filter.Run(3, false, IsEven);
  EXPECT_EQ(filter.At(-1), std::nullopt);
  EXPECT_EQ(filter.At(2), std::nullopt);
}

TEST(RecordFilter, ForgetsTheLastRun) {
  RecordFilter filter;
  filter.Run(7, false, IsEven);
  filter.Run(0, false, IsEven);
  EXPECT_EQ(filter.count(), 0);
  filter.Run(3, false, IsEven);
  filter.Clear();
  EXPECT_EQ(filter.count(), 0);
}

}  // namespace
}  // namespace quarvel::viewer
