#include <stdexcept>
#include <string>

#include <gtest/gtest.h>

#include "tests/api/api_model.h"
#include "tests/support/run_quarvel.h"

namespace quarvel {
namespace {

using testing::ErrorOf;
using testing::SmallApiModel;

TEST(ApiWriting, GivesAReceiptAndWhatIsReadBackIsEqual) {
  const HostFolder folder;
  Model model = SmallApiModel();
  model.set_facts({.sense = ObjectiveSense::kMaximize, .objective_constant = -2.5});
  const Receipt receipt = WriteFile(model, folder.Path("a.mps"));
  EXPECT_TRUE(receipt.is_written()) << receipt.failure;
  EXPECT_TRUE(receipt.is_whole());
  EXPECT_TRUE(receipt.is_read_again);
  EXPECT_EQ(receipt.rows, 3);
  EXPECT_EQ(receipt.equal_columns, 2);
  EXPECT_EQ(receipt.equal_elements, 5);
  EXPECT_TRUE(receipt.fits_fixed_columns);
  EXPECT_EQ(model.path(), folder.Path("a.mps"));
  Model back;
  EXPECT_TRUE(ReadFile(folder.Path("a.mps"), back).is_good());
  EXPECT_EQ(Compare(model, back), 0);
}

TEST(ApiWriting, TellsWhatTheComponentsLayoutLoses) {
  Model model = SmallApiModel();
  model.SetCoefficient(0, 0, 0.12345678912345);
  std::string text;
  const Receipt receipt = WriteText(model, text, {.layout = Layout::kComponent});
  EXPECT_TRUE(receipt.is_written());
  EXPECT_FALSE(receipt.is_whole());
  ASSERT_EQ(receipt.losses.size(), 1u);
  EXPECT_EQ(receipt.losses[0].name, "digits");
  EXPECT_EQ(receipt.losses[0].weight, LossWeight::kNoted);
  EXPECT_EQ(receipt.losses[0].count, 1);
  ASSERT_EQ(receipt.losses[0].sentences.size(), 1u);
  EXPECT_NE(text.find("ENDATA"), std::string::npos);
  text = "kept";
  EXPECT_EQ(WriteText(model, text, {.layout = Layout::kComponent, .strict = true}).outcome,
            WriteOutcome::kLosses);
  EXPECT_EQ(text, "kept");
  EXPECT_EQ(model.path(), "");
}

TEST(ApiWriting, WritesChangesOnlyWhereTheyAreAllowed) {
  Model model = SmallApiModel();
  model.SetRowBounds(1, {.lower = 9, .upper = 8});
  std::string text;
  const Receipt refused = WriteText(model, text);
  EXPECT_EQ(refused.outcome, WriteOutcome::kLosses);
  EXPECT_EQ(refused.losses[0].weight, LossWeight::kChanges);
  EXPECT_TRUE(WriteText(model, text, {.allow_changes = true}).is_written());
}

TEST(ApiWriting, WritesNoModelWithoutElements) {
  Model model;
  std::string text = "kept";
  EXPECT_EQ(WriteText(model, text).outcome, WriteOutcome::kNothing);
  const HostFolder folder;
  EXPECT_EQ(WriteFile(model, folder.Path("a.mps")).outcome, WriteOutcome::kNothing);
  EXPECT_FALSE(folder.Has("a.mps"));
}

TEST(ApiWriting, SaysWhatTheSystemSays) {
  Model model = SmallApiModel();
  const Receipt receipt = WriteFile(model, "/no/such/folder/a.mps");
  EXPECT_EQ(receipt.outcome, WriteOutcome::kFailed);
  EXPECT_NE(receipt.failure, "");
  EXPECT_FALSE(receipt.is_whole());
}

TEST(ApiWriting, CanBeGivenUpAndPassesOnWhatIsThrown) {
  const HostFolder folder;
  const std::string path = folder.Write("a.mps", "precious");
  Model model = SmallApiModel();
  const auto stop = [](WriteStage, double) { return false; };
  EXPECT_EQ(WriteFile(model, path, {.on_progress = stop}).outcome, WriteOutcome::kFailed);
  const auto fail = [](WriteStage, double) -> bool { throw std::logic_error("mine"); };
  EXPECT_THROW(WriteFile(model, path, {.on_progress = fail}), std::logic_error);
  std::string text = "kept";
  EXPECT_THROW(WriteText(model, text, {.on_progress = fail}), std::logic_error);
  EXPECT_EQ(text, "kept");
  const auto edit = [&](WriteStage, double) {
    model.RemoveRow(0);
    return true;
  };
  EXPECT_EQ(ErrorOf([&] { WriteFile(model, path, {.on_progress = edit}); }), ErrorCode::kBusy);
  EXPECT_EQ(folder.Read("a.mps"), "precious");
  EXPECT_EQ(model.row_count(), 3);
}

}  // namespace
}  // namespace quarvel
