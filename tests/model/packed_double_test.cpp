#include "model/packed_double.h"

#include <cmath>
#include <limits>

#include <gtest/gtest.h>

#include "model/element_store.h"

namespace quarvel::model {
namespace {

TEST(PackedDouble, GivesBackEveryKindOfDouble) {
  for (const double value :
       {0.0, 1.0, -2.5, 1e300, std::numeric_limits<double>::denorm_min(),
        std::numeric_limits<double>::infinity(), -std::numeric_limits<double>::max()}) {
    const PackedDouble packed = value;
    EXPECT_EQ(packed, value);
  }
  EXPECT_TRUE(std::signbit(PackedDouble(-0.0)));
  EXPECT_TRUE(std::isnan(PackedDouble(std::numeric_limits<double>::quiet_NaN())));
}

TEST(PackedDouble, TakesTwelveBytesBesideANumber) { EXPECT_EQ(sizeof(ElementEntry), 12u); }

TEST(PackedDouble, ComparesAsADoubleInAnEntry) {
  EXPECT_EQ((ElementEntry{1, 0.0}), (ElementEntry{1, -0.0}));
  EXPECT_NE((ElementEntry{1, 2.0}), (ElementEntry{1, 3.0}));
  EXPECT_NE((ElementEntry{1, 2.0}), (ElementEntry{2, 2.0}));
}

}  // namespace
}  // namespace quarvel::model
