#include "model/variant.h"

#include <gtest/gtest.h>

#include "platform/automation_error.h"

namespace quarvel::model {
namespace {

TEST(Variant, ConvertsToANumber) {
  EXPECT_EQ(Variant().ToDouble(), 0);
  EXPECT_EQ(Variant(true).ToDouble(), -1);
  EXPECT_EQ(Variant(false).ToDouble(), 0);
  EXPECT_EQ(Variant(-7).ToDouble(), -7);
  EXPECT_EQ(Variant(std::int64_t{1} << 40).ToDouble(), 1099511627776.0);
  EXPECT_EQ(Variant(2.5).ToDouble(), 2.5);
  EXPECT_EQ(Variant(" 1.5d2 ").ToDouble(), 150);
}

TEST(Variant, ConvertsToText) {
  EXPECT_EQ(Variant().ToText(), "");
  EXPECT_EQ(Variant(true).ToText(), "True");
  EXPECT_EQ(Variant(false).ToText(), "False");
  EXPECT_EQ(Variant(-7).ToText(), "-7");
  EXPECT_EQ(Variant(1e10).ToText(), "10000000000");
  EXPECT_EQ(Variant(1e15).ToText(), "1E+15");
  EXPECT_EQ(Variant("text").ToText(), "text");
}

std::int32_t NumberRaised(const Variant& value, bool to_text) {
  try {
    if (to_text) {
      value.ToText();
    } else {
      value.ToDouble();
    }
  } catch (const AutomationError& error) {
    return error.number();
  }
  return 0;
}

TEST(Variant, RaisesThirteenForWhatCannotBeConverted) {
  EXPECT_EQ(NumberRaised(Variant::Null{}, false), 13);
  EXPECT_EQ(NumberRaised(Variant::Null{}, true), 13);
  for (const char* text : {"", "abc", "1,5", "0x10", "inf", "1e999", "1 2"}) {
    EXPECT_EQ(NumberRaised(text, false), 13) << text;
  }
}

}  // namespace
}  // namespace quarvel::model
