#include <stdexcept>
#include <string>

#include <gtest/gtest.h>

#include "tests/api/api_model.h"
#include "tests/support/run_quarvel.h"

namespace quarvel {
namespace {

using testing::ErrorOf;
using testing::SmallApiModel;

constexpr std::string_view kNoBounds = "ROWS\n N R1\n L R2\nCOLUMNS\n X R1 1 R2 2\nENDATA\n";

TEST(ApiReading, ReadsAFileInPlaceOfWhatThereIs) {
  const HostFolder folder;
  const std::string path = folder.Write("a.mps", kSmallModel);
  Model model = SmallApiModel();
  const ReadResult read = ReadFile(path, model);
  EXPECT_EQ(read.outcome, ReadOutcome::kRead);
  EXPECT_TRUE(read.is_good());
  EXPECT_EQ(read.problems.size(), 0u);
  EXPECT_TRUE(read.has_endata);
  EXPECT_EQ(read.lines, 13);
  EXPECT_EQ(model.path(), path);
  EXPECT_EQ(model.name(), "SMALL");
  EXPECT_EQ(model.FindColumn("Y"), 1);
  EXPECT_EQ(model.facts().objective, "R1");
  EXPECT_EQ(model.facts().bounds_set, "BOUND");
}

TEST(ApiReading, ListsProblemsWithTheirPlaces) {
  Model model;
  const ReadResult read =
      ReadText("ROWS\n N R1\n L R2\nCOLUMNS\n X R1 1 R9 2\n X R2 ABC\n X R2 5\nENDATA\n", model);
  EXPECT_TRUE(read.is_read());
  EXPECT_FALSE(read.is_good());
  EXPECT_EQ(read.errors, 2);
  ASSERT_EQ(read.problems.size(), 2u);
  const Problem& first = read.problems[0];
  EXPECT_EQ(first.code, "E110");
  EXPECT_EQ(first.name, "no-such-row");
  EXPECT_EQ(first.severity, Severity::kError);
  EXPECT_EQ(first.line, 5);
  EXPECT_EQ(first.text, " X R1 1 R9 2");
  EXPECT_EQ(first.column, 9);
  EXPECT_EQ(first.length, 2);
  EXPECT_EQ(first.message, "no row of this name: R9");
  EXPECT_EQ(read.problems[1].line, 6);
  EXPECT_EQ(model.Coefficient(1, 0), 5);
  EXPECT_EQ(model.path(), "");
}

TEST(ApiReading, CountsWhatItDoesNotKeep) {
  std::string text = "ROWS\n N R1\n L R2\nCOLUMNS\n X R1 1 R2 1\n";
  for (int i = 0; i < 30; ++i) text += " X R9 1\n";
  Model model;
  const ReadResult read = ReadText(text, model, {.kept_of_each = 3});
  EXPECT_EQ(read.errors, 30);
  EXPECT_EQ(read.warnings, 1);  // no ENDATA
  EXPECT_EQ(read.problems.size(), 4u);
  EXPECT_FALSE(read.has_endata);
}

TEST(ApiReading, SaysWhyAFileWasNotRead) {
  Model model = SmallApiModel();
  const ReadResult read = ReadFile("/no/such/folder/file.mps", model);
  EXPECT_EQ(read.outcome, ReadOutcome::kFailed);
  EXPECT_FALSE(read.is_read());
  ASSERT_EQ(read.problems.size(), 1u);
  EXPECT_NE(read.problems[0].message, "");
  EXPECT_EQ(model.row_count(), 0);
  EXPECT_EQ(model.path(), "");
}

TEST(ApiReading, TakesOptions) {
  Model model;
  ReadText(kNoBounds, model, {.infinite_default_bounds = true});
  EXPECT_FALSE(model.BoundsOfColumn(0).has_lower());
  ReadText(kNoBounds, model);
  EXPECT_EQ(model.BoundsOfColumn(0).lower, 0);
  constexpr std::string_view kTwoFree =
      "ROWS\n N A\n N B\n L R\nCOLUMNS\n X A 1 B 1\n X R 2\nENDATA\n";
  ReadText(kTwoFree, model, {.objective = "B"});
  EXPECT_EQ(model.facts().objective, "B");
  constexpr std::string_view kNegative =
      "ROWS\n N A\n L R\nCOLUMNS\n X A 1 R 1\nBOUNDS\n UP B X -3\nENDATA\n";
  ReadText(kNegative, model, {.negative_upper_frees_lower = true});
  EXPECT_EQ(model.BoundsOfColumn(0), (Bounds{-kNoBound, -3}));
  constexpr std::string_view kSense =
      "OBJSENSE\n MAX\nROWS\n N A\n L R\nCOLUMNS\n X A 1 R 1\nENDATA\n";
  EXPECT_TRUE(ReadText(kSense, model).is_good());
  EXPECT_EQ(model.facts().sense, ObjectiveSense::kMaximize);
  ReadText(kSense, model, {.dialect = Dialect::kComponent});
  EXPECT_EQ(model.facts().sense, ObjectiveSense::kNotSaid);
}

TEST(ApiReading, LooksForRisksWhereThatIsAskedFor) {
  constexpr std::string_view kInteger =
      "ROWS\n N R1\n L R2\nCOLUMNS\n M 'MARKER' 'INTORG'\n X R1 1 R2 2\n N 'MARKER' "
      "'INTEND'\nRHS\n RHS R2 3\nENDATA\n";
  Model model;
  EXPECT_EQ(ReadText(kInteger, model).warnings, 0);
  const ReadResult read = ReadText(kInteger, model, {.lint = true});
  ASSERT_EQ(read.warnings, 1);
  EXPECT_EQ(read.problems[0].name, "integer-without-upper");
  EXPECT_EQ(read.problems[0].item, "X");
}

TEST(ApiReading, CanBeEndedByItsCaller) {
  Model model;
  const std::string bad = "ROWS\n N R1\n L R2\nCOLUMNS\n X R9 1\n X R1 1 R2 1\nENDATA\n";
  int heard = 0;
  const auto refuse = [&](const Problem& problem) {
    ++heard;
    return problem.line != 5;
  };
  EXPECT_EQ(ReadText(bad, model, {.on_problem = refuse}).outcome, ReadOutcome::kRefused);
  EXPECT_EQ(heard, 1);
  EXPECT_EQ(model.row_count(), 0);
  std::string large = "ROWS\n N R1\n L R2\nCOLUMNS\n";
  for (int i = 0; i < 20000; ++i) large += " X" + std::to_string(i) + " R1 1 R2 1\n";
  std::uint64_t seen = 0;
  const auto stop = [&](std::uint64_t done, std::uint64_t all) {
    EXPECT_EQ(all, large.size());
    seen = done;
    return false;
  };
  EXPECT_EQ(ReadText(large, model, {.on_progress = stop}).outcome, ReadOutcome::kStopped);
  EXPECT_GT(seen, 0u);
}

TEST(ApiReading, PassesOnWhatIsThrownAndTheModelIsNotForEdits) {
  Model model = SmallApiModel();
  const std::string bad = "ROWS\n N R1\nCOLUMNS\n X R9 1\n X R1 1\nENDATA\n";
  const auto fail = [](const Problem&) -> bool { throw std::logic_error("mine"); };
  EXPECT_THROW(ReadText(bad, model, {.on_problem = fail}), std::logic_error);
  EXPECT_EQ(model.row_count(), 0);
  const auto edit = [&](const Problem&) {
    model.AddRow("NEW");
    return true;
  };
  EXPECT_EQ(ErrorOf([&] { ReadText(bad, model, {.on_problem = edit}); }), ErrorCode::kBusy);
  model.AddRow("NEW");
  EXPECT_EQ(model.row_count(), 1);
}

TEST(ApiReading, ReadsNothingFromAnEmptyText) {
  Model model;
  const ReadResult read = ReadText("", model);
  EXPECT_GT(read.errors, 0);
  EXPECT_FALSE(read.is_good());
  EXPECT_EQ(model.row_count(), 0);
}

}  // namespace
}  // namespace quarvel
