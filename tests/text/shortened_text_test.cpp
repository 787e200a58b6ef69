#include "text/shortened_text.h"

#include <gtest/gtest.h>

namespace quarvel::text {
namespace {

TEST(Shortened, LeavesOutTheMiddleOfALongText) {
  EXPECT_EQ(Shortened("", 4), "");
  EXPECT_EQ(Shortened("abcdefgh", 8), "abcdefgh");
  EXPECT_EQ(Shortened("abcdefghi", 8), "abcdef...hi");
  EXPECT_EQ(Shortened(std::string(400000, 'x'), 100).size(), 103U);
}

TEST(Shortened, CutsBetweenCharacters) {
  EXPECT_EQ(Shortened("\u00e4\u00f6\u00fc\u00df", 4), "\u00e4\u00f6\u00fc\u00df");
  EXPECT_EQ(Shortened("\u00e4\u00f6\u00fc\u00df\u00c4\u00d6", 4), "\u00e4\u00f6\u00fc...\u00d6");
}

}  // namespace
}  // namespace quarvel::text
