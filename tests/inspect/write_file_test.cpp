#include "inspect/write_file.h"

#include <cstdint>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "mps/read_file.h"
#include "tests/support/run_quarvel.h"

namespace quarvel::inspect {
namespace {

using enum WriteOutcome;

constexpr const char* kLossy =
    "ROWS\n N R1\n L R2\n L EMPTY\nCOLUMNS\n X R1 1 R2 0.12345678912345\nENDATA\n";

class WriteFileTest : public ::testing::Test {
 protected:
  FileWrite Write(std::string_view model, const WriteOptions& options) {
    const mps::FileFacts facts = mps::ReadFile(folder_.Write("a.mps", model), {}, store_).facts;
    return WriteFile(store_, facts, folder_.Path("b.mps"), options);
  }

  HostFolder folder_;
  model::ModelStore store_;
};

TEST_F(WriteFileTest, GivesAReceiptOfWhatStandsInTheFile) {
  const FileWrite write = Write(kSmallModel, {});
  EXPECT_EQ(write.outcome, kWritten);
  EXPECT_TRUE(write.receipt.is_whole());
  EXPECT_EQ(write.long_field, "");
  EXPECT_EQ(store_.settings().FileLocation, folder_.Path("b.mps"));
  model::ModelStore back;
  EXPECT_EQ(mps::ReadFile(folder_.Path("b.mps"), {}, back).problems.kept().size(), 0U);
  EXPECT_EQ(back.NumberOfElements(), 3);
}

TEST_F(WriteFileTest, LeavesTheOldFileWhereALossIsNotAllowed) {
  folder_.Write("b.mps", "precious");
  using mps::FileLayout;
  EXPECT_EQ(Write(kLossy, {.layout = FileLayout::kFixed, .strict = true}).outcome, kLosses);
  EXPECT_EQ(folder_.Read("b.mps"), "precious");
  EXPECT_EQ(Write(kLossy, {.layout = FileLayout::kFixed}).outcome, kWritten);
  EXPECT_NE(folder_.Read("b.mps"), "precious");
  EXPECT_EQ(Write(kLossy, {.layout = FileLayout::kFree, .strict = true}).outcome, kWritten);
  constexpr const char* kChanged =
      "ROWS\n L R\nCOLUMNS\n X R 1\nBOUNDS\n MI B X\n UP B X 5\nENDATA\n";
  folder_.Write("b.mps", "precious");
  EXPECT_EQ(Write(kChanged, {.layout = FileLayout::kFixed}).outcome, kLosses);
  EXPECT_EQ(folder_.Read("b.mps"), "precious");
  EXPECT_EQ(Write(kChanged, {.layout = FileLayout::kFixed, .allow_changes = true}).outcome,
            kWritten);
}

TEST_F(WriteFileTest, SaysWhyItWasNotWritten) {
  EXPECT_EQ(Write("ROWS\n L R\nENDATA\n", {}).outcome, kNothing);
  const mps::FileFacts facts;
  mps::ReadFile(folder_.Write("a.mps", kSmallModel), {}, store_);
  const FileWrite write = WriteFile(store_, facts, folder_.Path("no/b.mps"), {});
  EXPECT_EQ(write.outcome, kFailed);
  ASSERT_TRUE(write.failure.has_value());
  EXPECT_EQ(write.failure->run_time_error(), RunTimeError::kPathNotFound);
}

// The facts speak of a constant, and there is no objective that has it.
TEST_F(WriteFileTest, LeavesTheOldFileWhereAnotherModelIsReadAgain) {
  mps::ReadFile(folder_.Write("a.mps", "ROWS\n L R\nCOLUMNS\n X R 1\nENDATA\n"), {}, store_);
  folder_.Write("b.mps", "precious");
  mps::FileFacts facts;
  facts.objective_constant = 5;
  const FileWrite write = WriteFile(store_, facts, folder_.Path("b.mps"), {});
  EXPECT_EQ(write.outcome, kNotSame);
  EXPECT_EQ(write.receipt.unexpected,
            (std::vector<std::string>{"another constant of the objective"}));
  EXPECT_EQ(folder_.Read("b.mps"), "precious");
}

class KeptText : public platform::ByteSink {
 public:
  void Write(std::string_view bytes) override { text += bytes; }
  std::string text;
};

TEST_F(WriteFileTest, GivesAStreamWhatItWouldWrite) {
  ASSERT_EQ(Write(kSmallModel, {}).outcome, kWritten);
  KeptText kept;
  const FileWrite write = WriteStream(store_, {}, kept, {});
  EXPECT_EQ(write.outcome, kWritten);
  EXPECT_TRUE(write.receipt.is_whole());
  EXPECT_EQ(kept.text, folder_.Read("b.mps"));
}

TEST_F(WriteFileTest, GivesAStreamALargeModelWhole) {
  std::string model = "ROWS\n N C\nCOLUMNS\n";
  for (int i = 1; i <= 30'000; ++i) model += " X" + std::to_string(i) + " C 1\n";
  ASSERT_EQ(Write(model + "ENDATA\n", {}).outcome, kWritten);
  KeptText kept;
  const FileWrite write = WriteStream(store_, {}, kept, {});
  EXPECT_EQ(write.outcome, kWritten);
  EXPECT_GT(kept.text.size(), 500'000U);
  EXPECT_TRUE(kept.text == folder_.Read("b.mps"));
}

TEST_F(WriteFileTest, GivesAStreamNothingThatLosesSomething) {
  ASSERT_EQ(Write(kLossy, {}).outcome, kWritten);
  KeptText kept;
  const WriteOptions strict = {.layout = mps::FileLayout::kFixed, .strict = true};
  EXPECT_EQ(WriteStream(store_, {}, kept, strict).outcome, kLosses);
  EXPECT_EQ(WriteStream(model::ModelStore(), {}, kept, {}).outcome, kNothing);
  EXPECT_EQ(kept.text, "");
}

TEST_F(WriteFileTest, TellsHowFarItIs) {
  std::vector<WriteStage> stages;
  double part = 0;
  std::uint64_t written = 0;
  WriteOptions options;
  options.on_progress = [&](const WriteProgress& progress) {
    if (progress.stage == WriteStage::kWriting) written = progress.bytes;
    if (stages.empty() || stages.back() != progress.stage) stages.push_back(progress.stage);
    part = progress.part;
    EXPECT_GE(part, 0);
    EXPECT_LE(part, 1);
    return true;
  };
  std::string model = "ROWS\n N C\nCOLUMNS\n";
  for (int i = 0; i < 20'000; ++i) model += " X" + std::to_string(i) + " C 1\n";
  EXPECT_EQ(Write(model + "ENDATA\n", options).outcome, kWritten);
  EXPECT_EQ(stages, (std::vector<WriteStage>{WriteStage::kWriting, WriteStage::kVerifying}));
  EXPECT_GT(part, 0.5);
  EXPECT_EQ(written, folder_.Read("b.mps").size());
}

TEST_F(WriteFileTest, LeavesTheOldFileWhenItIsStopped) {
  std::string model = "ROWS\n N C\nCOLUMNS\n";
  for (int i = 0; i < 20'000; ++i) model += " X" + std::to_string(i) + " C 1\n";
  model += "ENDATA\n";
  for (const WriteStage last : {WriteStage::kWriting, WriteStage::kVerifying}) {
    folder_.Write("b.mps", "precious");
    WriteOptions options;
    options.on_progress = [last](const WriteProgress& progress) { return progress.stage != last; };
    EXPECT_NE(Write(model, options).outcome, kWritten);
    EXPECT_EQ(folder_.Read("b.mps"), "precious");
    KeptText kept;
    EXPECT_NE(WriteStream(store_, {}, kept, options).outcome, kWritten);
    EXPECT_EQ(kept.text, "");
  }
}

}  // namespace
}  // namespace quarvel::inspect
