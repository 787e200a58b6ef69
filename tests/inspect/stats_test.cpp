#include "inspect/stats.h"

#include <filesystem>
#include <string>

#include <gtest/gtest.h>

#include "component/lp_model.h"
#include "mps/read_file.h"
#include "platform/scripted/scripted_desktop.h"
#include "tests/support/model_builder.h"
#include "tests/support/real_models.h"

namespace quarvel::inspect {
namespace {

using model::BoundLimit;

class Stats : public ::testing::Test {
 protected:
  ModelBuilder Build() { return ModelBuilder(model_); }
  ModelStats Take() { return StatsOf(model_.store()); }

  platform::ScriptedDesktop desktop_;
  LPModel model_{desktop_};
};

template <class Type, class Counts>
std::int32_t Of(const Counts& counts, Type type) {
  return counts[static_cast<std::size_t>(type)];
}

TEST_F(Stats, OfAnEmptyModelAreZeros) {
  const ModelStats stats = Take();
  EXPECT_EQ(stats.rows, 0);
  EXPECT_EQ(stats.density, 0);
  EXPECT_EQ(stats.row_lengths.longest, 0);
  EXPECT_EQ(stats.row_lengths.mean, 0);
  EXPECT_TRUE(stats.row_families.empty());
  EXPECT_TRUE(stats.column_families.empty());
}

TEST_F(Stats, CountRowsByType) {
  Build().Row("A", 'N').Row("B", 'L', 1).Row("C", 'L', 1).Row("D", 'E', 1).Ranged("F", 1, 2);
  const ModelStats stats = Take();
  EXPECT_EQ(Of(stats.row_types, model::RowType::kFree), 1);
  EXPECT_EQ(Of(stats.row_types, model::RowType::kLess), 2);
  EXPECT_EQ(Of(stats.row_types, model::RowType::kGreater), 0);
  EXPECT_EQ(Of(stats.row_types, model::RowType::kEqual), 1);
  EXPECT_EQ(Of(stats.row_types, model::RowType::kRanged), 1);
}

TEST_F(Stats, KnowTheShapeOfBounds) {
  const struct {
    double lower;
    double upper;
    BoundShape shape;
  } cases[] = {
      {0, BoundLimit, BoundShape::kNonNegative},
      {0.5, BoundLimit, BoundShape::kLowerOnly},
      {-3, BoundLimit, BoundShape::kLowerOnly},
      {-BoundLimit, 3, BoundShape::kUpperOnly},
      {-BoundLimit, 0, BoundShape::kUpperOnly},
      {0, 1, BoundShape::kZeroOne},
      {0, 2, BoundShape::kBoxed},
      {-1, 1, BoundShape::kBoxed},
      {2, 2, BoundShape::kFixed},
      {0, 0, BoundShape::kFixed},
      {-BoundLimit, BoundLimit, BoundShape::kFree},
      {-2 * BoundLimit, 2 * BoundLimit, BoundShape::kFree},
      {1, 0, BoundShape::kCrossed},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(ShapeOf({c.lower, c.upper}), c.shape) << c.lower << ' ' << c.upper;
  }
}

TEST_F(Stats, CountColumnsByTypeAndShape) {
  Build().Column("A").Column("B", 0, 1).Integer("C", 0, 1).Integer("D", 0, 1).Integer("E");
  const ModelStats stats = Take();
  const auto& real = stats.column_types[static_cast<std::size_t>(model::ColumnType::kContinuous)];
  const auto& integer = stats.column_types[static_cast<std::size_t>(model::ColumnType::kInteger)];
  EXPECT_EQ(Of(real, BoundShape::kNonNegative), 1);
  EXPECT_EQ(Of(real, BoundShape::kZeroOne), 1);
  EXPECT_EQ(Of(integer, BoundShape::kZeroOne), 2);
  EXPECT_EQ(Of(integer, BoundShape::kNonNegative), 1);
}

TEST_F(Stats, TellSizesOfTheObjectiveFromThoseOfOtherRows) {
  Build().Row("COST", 'N').Row("R", 'L', -40).Ranged("G", 5, 600).Row("Z", 'E', 0);
  Build().Column("X", -7, 80).Column("Y");
  Build().Element("X", "COST", 1000).Element("X", "R", -0.5).Element("Y", "G", 30);
  const ModelStats stats = Take();
  EXPECT_EQ(stats.elements, 3);
  EXPECT_EQ(stats.density, 3.0 / 8);
  EXPECT_EQ(stats.objective.count(), 1);
  EXPECT_EQ(stats.coefficients.count(), 2);
  EXPECT_EQ(stats.coefficients.smallest().value, -0.5);
  EXPECT_EQ(stats.coefficients.smallest().row, 2);
  EXPECT_EQ(stats.coefficients.smallest().column, 1);
  EXPECT_EQ(stats.right_hand_sides.count(), 3);
  EXPECT_EQ(stats.right_hand_sides.zeros(), 1);  // an equality has one, not two
  EXPECT_EQ(stats.right_hand_sides.largest().value, 600);
  EXPECT_EQ(stats.right_hand_sides.largest().row, 3);
  EXPECT_EQ(stats.bounds.count(), 2);
  EXPECT_EQ(stats.bounds.zeros(), 1);
  EXPECT_EQ(stats.bounds.largest().column, 1);
}

TEST_F(Stats, MeasureLists) {
  Build().Row("A", 'N').Row("B", 'L').Row("C", 'L').Row("D", 'L').Column("X").Column("Y");
  Build().Element("X", "B", 1).Element("X", "C", 1).Element("Y", "C", 1);
  const ModelStats stats = Take();
  EXPECT_EQ(stats.row_lengths.empty, 2);
  EXPECT_EQ(stats.row_lengths.shortest, 1);
  EXPECT_EQ(stats.row_lengths.longest, 3);
  EXPECT_EQ(stats.row_lengths.mean, 0.75);
  EXPECT_EQ(stats.row_lengths.median, 0.5);
  EXPECT_EQ(stats.column_lengths.longest, 1);
  EXPECT_EQ(stats.column_lengths.median, 1.5);
}

TEST_F(Stats, FindPairsThatStandTwice) {
  Build().Row("A", 'L').Row("B", 'L').Column("X").Column("Y");
  Build().Element("X", "A", 1).Element("X", "B", 1).Element("Y", "B", 1).Element("Y", "A", 1);
  EXPECT_EQ(Take().duplicates, 0);
  Build().Element("Y", "B", 9).Element("Y", "B", 8);
  const ModelStats stats = Take();
  EXPECT_EQ(stats.duplicates, 2);
  EXPECT_EQ(stats.first_duplicate.row, 2);
  EXPECT_EQ(stats.first_duplicate.column, 2);
}

TEST_F(Stats, PutFamiliesTogether) {
  Build().Row("COST", 'N').Row("R1", 'L', 4).Row("R2", 'G', -2).Row("R3", 'L', 9);
  Build().Column("X[1]", 0, 5).Column("X[2]", -1, 3);
  Build().Element("X[1]", "R1", -0.25).Element("X[2]", "R1", 8).Element("X[2]", "R3", 2);
  const ModelStats stats = Take();
  ASSERT_EQ(stats.row_families.size(), 2u);
  const RecordFamily& rows = stats.row_families[0];
  EXPECT_EQ(rows.pattern, "R#");
  EXPECT_EQ(rows.count, 3);
  EXPECT_EQ(rows.first, 2);
  EXPECT_EQ(Of(rows.types, model::RowType::kLess), 2);
  EXPECT_EQ(Of(rows.types, model::RowType::kGreater), 1);
  EXPECT_EQ(rows.lower.from, -BoundLimit);
  EXPECT_EQ(rows.lower.to, -2);
  EXPECT_EQ(rows.upper.from, 4);
  EXPECT_EQ(rows.elements.count, 3);
  EXPECT_EQ(rows.elements.values.from, -0.25);
  EXPECT_EQ(rows.elements.sizes.from, 0.25);
  EXPECT_EQ(rows.elements.sizes.to, 8);
  EXPECT_TRUE(stats.row_families[1].elements.values.is_empty);
  ASSERT_EQ(stats.column_families.size(), 1u);
  EXPECT_EQ(stats.column_families[0].pattern, "X[#]");
  EXPECT_EQ(stats.column_families[0].lower.from, -1);
  EXPECT_EQ(stats.column_families[0].upper.to, 5);
}

using StatsOnRealModels = OnRealModels;

template <class Counts>
std::int64_t Sum(const Counts& counts) {
  std::int64_t sum = 0;
  for (const auto count : counts) sum += count;
  return sum;
}

std::int64_t InFamilies(const std::vector<RecordFamily>& families) {
  std::int64_t elements = 0;
  for (const RecordFamily& family : families) elements += family.elements.count;
  return elements;
}

void ExpectEachOnce(const ModelStats& stats, const std::string& path) {
  EXPECT_EQ(Sum(stats.row_types), stats.rows) << path;
  std::int64_t columns = 0;
  for (const auto& shapes : stats.column_types) columns += Sum(shapes);
  EXPECT_EQ(columns, stats.columns) << path;
  std::int64_t elements = 0;
  for (const NumberSizes* sizes : {&stats.coefficients, &stats.objective}) {
    elements += sizes->zeros();
    for (const NumberSizes::Bucket& bucket : sizes->Histogram()) elements += bucket.count;
  }
  EXPECT_EQ(elements, stats.elements) << path;
  EXPECT_EQ(InFamilies(stats.row_families), stats.elements) << path;
  EXPECT_EQ(InFamilies(stats.column_families), stats.elements) << path;
  EXPECT_NEAR(stats.row_lengths.mean * stats.rows, static_cast<double>(stats.elements), 1e-6);
}

TEST_F(StatsOnRealModels, CountEachRecordAndCoefficientOnce) {
  int models = 0;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(*DataFolder())) {
    if (entry.path().extension() != ".mps") continue;
    model::ModelStore store;
    const std::string path = entry.path().generic_string();
    if (mps::ReadFile(path, {}, store).outcome != mps::ReadOutcome::kRead) continue;
    ExpectEachOnce(StatsOf(store), path);
    ++models;
  }
  EXPECT_GT(models, 10);
}

}  // namespace
}  // namespace quarvel::inspect
