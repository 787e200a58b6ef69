#include "platform/console/console_text.h"

#include <gtest/gtest.h>

namespace quarvel::platform::console {
namespace {

TEST(ConsoleText, EndsLinesAsATerminalDoes) {
  EXPECT_EQ(AsLines("a\r\nb\rc"), "a\nb\nc\n");
  EXPECT_EQ(AsLines("a\r\n"), "a\n");
  EXPECT_EQ(AsLines(""), "\n");
}

TEST(ConsoleText, TakesTheMarksOfAccessKeysOut) {
  EXPECT_EQ(PlainCaption("&OK"), "OK");
  EXPECT_EQ(PlainCaption("Save && close"), "Save & close");
  EXPECT_EQ(PlainCaption("at the end&"), "at the end");
}

TEST(ConsoleText, ComparesTypedWords) {
  EXPECT_EQ(Trimmed(" \tyes\r\n"), "yes");
  EXPECT_EQ(Trimmed(" \t"), "");
  EXPECT_TRUE(SameWord("YES", "yes"));
  EXPECT_FALSE(SameWord("ye", "yes"));
}

}  // namespace
}  // namespace quarvel::platform::console
