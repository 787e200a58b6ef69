#include "simplify/forecast.h"

#include <filesystem>

#include "mps/read_file.h"
#include "tests/simplify/simplify_helpers.h"
#include "tests/support/real_models.h"

namespace quarvel::simplify {
namespace {

using platform::MsgBoxResult;

Forecast Of(SimplifySession& session) { return ForecastOf(session.model.store()); }

TEST(Forecast, IsNoneForAModelWithNothingToTake) {
  SimplifySession session;
  session.Build()
      .Row("A", 'L', 1)
      .Column("X")
      .Column("Y")
      .Element("X", "A", 1)
      .Element("Y", "A", 2);
  EXPECT_TRUE(Of(session).none());
}

TEST(Forecast, CountsWhatBothPassesTake) {
  SimplifySession session;
  session.Build().Row("OBJ", 'N').Row("BOUND", 'L', 6).Row("NONE", 'G', 0);
  session.Build().Column("X").Column("Y").Column("EMPTY").Column("ONLY");
  session.Build().Element("X", "OBJ", 1).Element("Y", "OBJ", 1).Element("X", "BOUND", 2);
  session.Build().Row("LAST", 'L', 4).Element("ONLY", "LAST", 1);
  const Forecast forecast = Of(session);
  EXPECT_EQ(forecast.converted_rows, 2);
  EXPECT_EQ(forecast.asked_rows, 0);
  EXPECT_EQ(forecast.empty_columns, 2);  // ONLY has no row but a converted one
  EXPECT_EQ(forecast.empty_rows, 1);
  EXPECT_EQ(session.model.NumberOfRows(), 4);
  session.Simplify();
  EXPECT_EQ(session.model.NumberOfRows(), 1);
  EXPECT_EQ(session.model.NumberOfColumns(), 2);
}

TEST(Forecast, KnowsTheBoundsThatEarlierRowsLeave) {
  SimplifySession session;
  session.Build().Row("OBJ", 'N').Column("X").Element("X", "OBJ", 1);
  session.Build().Row("A", 'L', 6).Row("B", 'E', 7).Element("X", "A", 1).Element("X", "B", 1);
  const Forecast forecast = Of(session);
  EXPECT_EQ(forecast.converted_rows, 1);
  EXPECT_EQ(forecast.asked_rows, 1);  // 7 is above the bound that A has become
}

TEST(Forecast, LeavesRowsThatNoRuleIsFor) {
  SimplifySession session;
  session.Build().Row("OBJ", 'N').Column("X", 2, 9).Element("X", "OBJ", 1);
  session.Build().Row("A", 'G', 1).Element("X", "A", 1);
  session.Build().Row("B", 'L', 10).Element("X", "B", 1);
  EXPECT_TRUE(Of(session).none());
}

TEST(Forecast, EndsWhereTheRunWouldFail) {
  SimplifySession session;
  session.Build().Row("OBJ", 'N').Column("X").Column("EMPTY").Element("X", "OBJ", 1);
  session.Build().Row("A", 'L', 6).Row("B", 'L', 5).Element("X", "A", 1).Element("X", "B", 0);
  const Forecast forecast = Of(session);
  EXPECT_EQ(forecast.failing_row, 3);
  EXPECT_EQ(forecast.converted_rows, 1);
  EXPECT_EQ(forecast.empty_columns, 0);
  EXPECT_FALSE(forecast.none());
  EXPECT_EQ(session.FailureOfSimplify(), 11);
}

using ForecastOnRealModels = OnRealModels;

TEST_F(ForecastOnRealModels, IsWhatASimplificationTakes) {
  int changed = 0;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(*DataFolder())) {
    if (entry.path().extension() != ".mps") continue;
    SimplifySession session;
    const std::string path = entry.path().generic_string();
    if (mps::ReadFile(path, {}, session.model.store()).outcome != mps::ReadOutcome::kRead) continue;
    session.model.store().settings().FileLocation = session.folder.File("model.mps");
    const Forecast forecast = Of(session);
    ASSERT_EQ(forecast.failing_row, 0) << path;
    const std::int32_t rows = session.model.NumberOfRows();
    const std::int32_t columns = session.model.NumberOfColumns();
    session.answers.resize(static_cast<std::size_t>(forecast.asked_rows), MsgBoxResult::kYes);
    session.Simplify();
    EXPECT_EQ(rows - session.model.NumberOfRows(),
              forecast.converted_rows + forecast.asked_rows + forecast.empty_rows)
        << path;
    if (forecast.asked_rows == 0) {
      EXPECT_EQ(columns - session.model.NumberOfColumns(), forecast.empty_columns) << path;
    }
    if (!forecast.none()) ++changed;
  }
  EXPECT_GT(changed, 3);
}

}  // namespace
}  // namespace quarvel::simplify
