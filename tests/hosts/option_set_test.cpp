#include "hosts/option_set.h"

#include <gtest/gtest.h>

namespace quarvel::hosts {
namespace {

TEST(OptionSet, HoldsEachOf128) {
  OptionSet all = 0;
  for (unsigned i = 0; i < 128; ++i) {
    const OptionSet one = OptionSet{1} << i;
    EXPECT_NE(one, 0) << i;
    EXPECT_EQ(all & one, 0) << i;
    all |= one;
    EXPECT_EQ(all & one, one) << i;
    EXPECT_EQ(~all & one, 0) << i;
  }
  EXPECT_EQ(~all, 0);
}

TEST(OptionSet, MovesWhatGoesOverTheMiddle) {
  EXPECT_EQ(OptionSet{0xFF} << 60, (OptionSet{0xF} << 60) | (OptionSet{0xF} << 64));
  EXPECT_EQ(OptionSet{3} << 0, OptionSet{3});
  EXPECT_EQ((OptionSet{1} << 63) << 1, OptionSet{1} << 64);
}

TEST(OptionSet, StandsInSomeOrder) {
  EXPECT_LT(OptionSet{1}, OptionSet{2});
  EXPECT_NE(OptionSet{1}, OptionSet{1} << 64);
  const OptionSet high = OptionSet{1} << 64;
  EXPECT_TRUE((OptionSet{1} < high) != (high < OptionSet{1}));
}

}  // namespace
}  // namespace quarvel::hosts
