#include "api/streams.h"

#include <memory>
#include <string>
#include <utility>

#include <gtest/gtest.h>

#include "tests/api/api_model.h"
#include "tests/support/given_bytes.h"
#include "tests/support/run_quarvel.h"

namespace quarvel {
namespace {

using testing::SmallApiModel;

std::string Turned(std::string bytes) {
  for (char& c : bytes) c = static_cast<char>(~static_cast<unsigned char>(c));
  return bytes;
}

// Packs by turning every bit round.
class TurningSink : public platform::ByteSink {
 public:
  explicit TurningSink(platform::ByteSink& stored) : stored_(stored) {}
  void Write(std::string_view bytes) override { stored_.Write(Turned(std::string(bytes))); }
  void Finish() override { stored_.Finish(); }

 private:
  platform::ByteSink& stored_;
};

std::unique_ptr<platform::ByteSink> Turn(platform::ByteSink& stored) {
  return std::make_unique<TurningSink>(stored);
}

std::unique_ptr<platform::ByteSource> TurnBack(std::unique_ptr<platform::ByteSource> stored) {
  std::string bytes;
  char buffer[100];
  while (const std::size_t count = stored->Read(buffer, sizeof(buffer)))
    bytes.append(buffer, count);
  return std::make_unique<testing::GivenBytes>(Turned(std::move(bytes)));
}

TEST(ApiStreams, WriteAndReadWhatIsPackedAndNameItsFile) {
  const HostFolder folder;
  const std::string path = folder.Path("a.turned");
  Model model = SmallApiModel();
  const Receipt receipt = api::WritePacked(model, path, {Turn, TurnBack}, {});
  EXPECT_TRUE(receipt.is_whole()) << receipt.failure;
  EXPECT_EQ(model.path(), path);
  std::string text;
  ASSERT_TRUE(WriteText(model, text).is_written());
  EXPECT_EQ(Turned(folder.Read("a.turned")), text);
  Model back;
  const auto open = [&path] { return TurnBack(testing::BytesOf(path)); };
  EXPECT_TRUE(api::ReadOpened(open, path, back, {}).is_good());
  EXPECT_EQ(Compare(model, back), 0);
  EXPECT_EQ(back.path(), path);
}

TEST(ApiStreams, LeaveTheOldFileWhereWhatComesBackIsAnotherModelOrTheWriteIsGivenUp) {
  const HostFolder folder;
  const std::string path = folder.Write("a.turned", "old");
  Model model = SmallApiModel();
  const auto other = [](std::unique_ptr<platform::ByteSource>) {
    return std::make_unique<testing::GivenBytes>(std::string(kSmallModel));
  };
  EXPECT_EQ(api::WritePacked(model, path, {Turn, other}, {}).outcome, WriteOutcome::kNotSame);
  const WriteOptions give_up = {.on_progress = [](WriteStage, double) { return false; }};
  EXPECT_EQ(api::WritePacked(model, path, {Turn, TurnBack}, give_up).outcome,
            WriteOutcome::kFailed);
  EXPECT_EQ(folder.Read("a.turned"), "old");
  EXPECT_EQ(model.path(), "");
}

}  // namespace
}  // namespace quarvel
