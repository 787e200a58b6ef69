#include "mps/text_block.h"

#include <cstring>
#include <string>

#include <gtest/gtest.h>

namespace quarvel::mps {
namespace {

TEST(TextBlock, GathersWhatIsAppended) {
  TextBlock block(4);
  EXPECT_EQ(block.view(), "");
  block += "abc";
  block += 'd';
  block += std::string_view();
  block.append(3, ' ');
  EXPECT_EQ(block.view(), "abcd   ");
  EXPECT_EQ(block.size(), 7u);
}

TEST(TextBlock, TakesWhatWasWrittenInPlace) {
  TextBlock block(2);
  block += "x";
  char* const room = block.Room(20);
  std::memcpy(room, "12345", 5);
  block.Take(2);
  EXPECT_EQ(block.view(), "x12");
  block += "y";
  EXPECT_EQ(block.view(), "x12y");
}

TEST(TextBlock, IsUsedAgain) {
  TextBlock block(2);
  block += std::string(1000, 'a');
  block.clear();
  EXPECT_EQ(block.view(), "");
  block += "b";
  EXPECT_EQ(block.view(), "b");
}

}  // namespace
}  // namespace quarvel::mps
