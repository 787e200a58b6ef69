#include "inspect/quoted_lines.h"

#include <gtest/gtest.h>

#include "tests/support/test_paths.h"

namespace quarvel::inspect {
namespace {

std::function<std::unique_ptr<platform::ByteSource>()> Opener(const std::string& path) {
  return [path] { return std::make_unique<platform::FileBytes>(platform::InputFile(path)); };
}

using Quotes = std::map<std::int64_t, std::string>;

TEST(QuotedLines, GivesTheWantedLinesAsTheyStand) {
  const TemporaryFolder folder;
  WriteWholeFile(folder.File("f"), "a b\r\n\r C\nlast");
  EXPECT_EQ(QuotedLines(Opener(folder.File("f")), {1, 2, 4}),
            (Quotes{{1, "a b"}, {2, ""}, {4, "last"}}));
}

TEST(QuotedLines, LeavesOutWhatIsNotThere) {
  const TemporaryFolder folder;
  WriteWholeFile(folder.File("f"), "one\ntwo\n");
  EXPECT_EQ(QuotedLines(Opener(folder.File("f")), {-1, 0, 2, 3}), (Quotes{{2, "two"}}));
  EXPECT_EQ(QuotedLines(Opener(folder.File("f")), {}), Quotes());
  EXPECT_EQ(QuotedLines(Opener(folder.File("missing")), {1}), Quotes());
  EXPECT_EQ(QuotedLines([] { return nullptr; }, {1}), Quotes());
}

TEST(QuotedLines, ShortensLongLinesAndLeavesOutTooLongOnes) {
  const TemporaryFolder folder;
  WriteWholeFile(folder.File("f"),
                 std::string(1000, 'x') + "\n" + std::string((1 << 20) + 1, 'y') + "\nz\n");
  EXPECT_EQ(QuotedLines(Opener(folder.File("f")), {1, 2, 3}),
            (Quotes{{1, std::string(400, 'x')}, {3, "z"}}));
}

}  // namespace
}  // namespace quarvel::inspect
