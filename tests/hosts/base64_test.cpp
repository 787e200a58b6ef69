#include "hosts/base64.h"

#include <gtest/gtest.h>

namespace quarvel::hosts {
namespace {

TEST(Base64, WritesThreeBytesAsFourLetters) {
  EXPECT_EQ(Base64(""), "");
  EXPECT_EQ(Base64("f"), "Zg==");
  EXPECT_EQ(Base64("fo"), "Zm8=");
  EXPECT_EQ(Base64("foo"), "Zm9v");
  EXPECT_EQ(Base64("foobar"), "Zm9vYmFy");
  EXPECT_EQ(Base64(std::string_view("\xFF\xFE\0\x3E", 4)), "//4APg==");
}

}  // namespace
}  // namespace quarvel::hosts
