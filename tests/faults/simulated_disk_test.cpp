// The simulated disk finds what a careless way of saving leaves, and nothing in a careful one.
#include "tests/faults/simulated_disk.h"

#include <set>
#include <stdexcept>

#include <fcntl.h>
#include <gtest/gtest.h>

namespace quarvel::faults {
namespace {

constexpr int kCreate = O_WRONLY | O_CREAT | O_TRUNC;

RecordedCall Opening(const std::string& path, int flags) {
  return {.kind = "open", .result = 3, .number = flags, .path = path};
}

RecordedCall Writing(const std::string& bytes, int place = 0) {
  return {.kind = "write", .result = 1, .descriptor = 3, .number = place, .bytes = bytes};
}

RecordedCall On(const std::string& kind, const std::string& path = "",
                const std::string& new_path = "") {
  return {.kind = kind, .descriptor = 3, .path = path, .new_path = new_path};
}

// The contents that the file may have after the calls; "-" for none.
std::set<std::string> Contents(const std::vector<RecordedCall>& calls) {
  SimulatedDisk disk;
  disk.Put("f", "old!");
  for (const RecordedCall& call : calls) disk.Apply(call);
  std::set<std::string> contents;
  disk.ForEachState(
      [&](const DiskState& state) { contents.insert(state.contains("f") ? state.at("f") : "-"); });
  return contents;
}

using Found = std::set<std::string>;

TEST(SimulatedDisk, MayHoldAnyPartOfWhatWasNotFlushed) {
  EXPECT_EQ(Contents({}), Found{"old!"});
  EXPECT_EQ(Contents({Opening("f", kCreate)}), (Found{"old!", ""}));
  const std::string length(4, '\0');
  EXPECT_EQ(Contents({Opening("f", kCreate), Writing("new!")}),
            (Found{"old!", "new!", "ne", length}));
  EXPECT_EQ(Contents({Opening("f", kCreate), Writing("new!"), On("sync")}), Found{"new!"});
}

TEST(SimulatedDisk, MayKnowANameBeforeWhatItHolds) {
  const std::vector<RecordedCall> careless = {Opening("t", kCreate), Writing("new!"),
                                              On("rename", "t", "f")};
  EXPECT_TRUE(Contents(careless).contains(""));
  const std::vector<RecordedCall> careful = {Opening("t", kCreate), Writing("new!"), On("sync"),
                                             On("close"), On("rename", "t", "f")};
  EXPECT_EQ(Contents(careful), (Found{"old!", "new!"}));
}

TEST(SimulatedDisk, KnowsANameOnceItsFolderIsFlushed) {
  const std::vector<RecordedCall> calls = {Opening("t", kCreate),
                                           Writing("new!"),
                                           On("sync"),
                                           On("close"),
                                           On("rename", "t", "f"),
                                           Opening("", O_RDONLY | O_DIRECTORY),
                                           On("sync")};
  EXPECT_EQ(Contents(calls), Found{"new!"});
}

TEST(SimulatedDisk, ForgetsNamesInTheirOrderOnly) {
  const std::vector<RecordedCall> calls = {On("link", "f", "backup"), On("unlink", "f")};
  SimulatedDisk disk;
  disk.Put("f", "old!");
  for (const RecordedCall& call : calls) disk.Apply(call);
  disk.ForEachState(
      [](const DiskState& state) { EXPECT_TRUE(state.contains("f") || state.contains("backup")); });
  EXPECT_EQ(disk.Seen(), (DiskState{{"backup", "old!"}}));
}

TEST(SimulatedDisk, WantsToKnowEveryCall) {
  SimulatedDisk disk;
  EXPECT_THROW(disk.Apply(On("copy")), std::runtime_error);
}

}  // namespace
}  // namespace quarvel::faults
