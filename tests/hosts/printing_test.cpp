#include "hosts/printing.h"

#include <limits>

#include <gtest/gtest.h>

#include "model/model_data.h"

namespace quarvel::hosts {
namespace {

TEST(Columns, CountCharactersNotBytes) {
  std::string line;
  AppendLeft(line, "\xC3\x84", 3);
  AppendRight(line, "\xC3\x84", 3);
  EXPECT_EQ(line, "\xC3\x84    \xC3\x84");
}

TEST(Columns, LeaveLongTextWhole) {
  std::string line;
  AppendLeft(line, "abcd", 3);
  AppendRight(line, "efgh", 3);
  EXPECT_EQ(line, "abcdefgh");
}

TEST(BoundText, SaysWhereThereIsNone) {
  EXPECT_EQ(BoundText(AsUpper(model::BoundLimit)), "inf");
  EXPECT_EQ(BoundText(AsLower(-model::BoundLimit)), "-inf");
  EXPECT_EQ(BoundText(AsUpper(1e15)), "inf");
  EXPECT_EQ(BoundText(AsLower(-1e15)), "-inf");
  EXPECT_EQ(BoundText(AsUpper(9999999999.0)), "9999999999");
  EXPECT_EQ(BoundText(AsUpper(1.0 / 3)), "0.333333333333333");
  EXPECT_EQ(ExactBoundText(AsUpper(1.0 / 3)), "0.3333333333333333");
  EXPECT_EQ(ExactBoundText(AsUpper(1e30)), "inf");
}

TEST(BoundText, IsANumberOnTheOtherSide) {
  EXPECT_EQ(BoundText(AsLower(model::BoundLimit)), "10000000000");
  EXPECT_EQ(BoundText(AsLower(1e15)), "1E+15");
  EXPECT_EQ(BoundText(AsUpper(-model::BoundLimit)), "-10000000000");
  EXPECT_EQ(ExactBoundText(AsLower(2e10)), "20000000000");
}

TEST(NumberText, IsThatOfJsonBeyondTheDoubles) {
  constexpr double kInfinity = std::numeric_limits<double>::infinity();
  EXPECT_EQ(NumberText(kInfinity), "inf");
  EXPECT_EQ(NumberText(-kInfinity), "-inf");
  EXPECT_EQ(NumberText(std::numeric_limits<double>::quiet_NaN()), "nan");
  EXPECT_EQ(NumberText(1e10), "10000000000");
}

TEST(Counted, HasASingular) {
  EXPECT_EQ(Counted(0, "row"), "0 rows");
  EXPECT_EQ(Counted(1, "row"), "1 row");
  EXPECT_EQ(Counted(2, "row"), "2 rows");
}

template <class Value>
std::string Json(const Value& value) {
  std::string json;
  AppendJson(json, value);
  return json;
}

TEST(Json, EscapesText) {
  EXPECT_EQ(Json(std::string_view("a\"b\\c\r\n\t\b\f\x01\x1f/")),
            "\"a\\\"b\\\\c\\r\\n\\t\\b\\f\\u0001\\u001F/\"");
  EXPECT_EQ(Json(std::string_view("\xC3\x84")), "\"\xC3\x84\"");
}

TEST(Json, EscapesWhatATerminalWouldNotShow) {
  EXPECT_EQ(Json(std::string_view("\x7f|\xC2\x80|\xC2\x9B|\xC2\xA0|\xD8\x9C")),
            "\"\\u007F|\\u0080|\\u009B|\xC2\xA0|\\u061C\"");
  EXPECT_EQ(Json(std::string_view("\xE2\x80\x8E\xE2\x80\xA8\xE2\x80\xAE\xE2\x81\xA9")),
            "\"\\u200E\\u2028\\u202E\\u2069\"");
  EXPECT_EQ(Json(std::string_view("\x9B")), "\"\xE2\x80\xBA\"") << "Windows-1252";
  EXPECT_EQ(Json(std::string_view("\x81")), "\"\\u0081\"") << "undefined in Windows-1252";
}

TEST(Json, HasTruths) {
  EXPECT_EQ(Json(true), "true");
  EXPECT_EQ(Json(false), "false");
}

TEST(Json, IsUtf8WhateverTheTextIs) { EXPECT_EQ(Json(std::string_view("\xE4")), "\"\xC3\xA4\""); }

TEST(Json, WritesNumbersWithAllTheirDigits) {
  EXPECT_EQ(Json(0.30000000000000004), "0.30000000000000004");
  EXPECT_EQ(Json(1e10), "10000000000");
  EXPECT_EQ(Json(-0.1), "-0.1");
  EXPECT_EQ(Json(1e300), "1E+300");
  EXPECT_EQ(Json(std::int32_t{-7}), "-7");
}

TEST(Json, HasTextsBeyondTheDoubles) {
  EXPECT_EQ(Json(std::numeric_limits<double>::infinity()), "\"inf\"");
  EXPECT_EQ(Json(-std::numeric_limits<double>::infinity()), "\"-inf\"");
  EXPECT_EQ(Json(std::numeric_limits<double>::quiet_NaN()), "\"nan\"");
}

TEST(Json, HasTextsForBoundsThatAreNone) {
  EXPECT_EQ(Json(AsUpper(1e10)), "\"inf\"");
  EXPECT_EQ(Json(AsLower(-1e10)), "\"-inf\"");
  EXPECT_EQ(Json(AsUpper(2e10)), "\"inf\"");
  EXPECT_EQ(Json(AsLower(1e10)), "10000000000");
  EXPECT_EQ(Json(AsUpper(-2e10)), "-20000000000");
  EXPECT_EQ(Json(AsUpper(9999999999.5)), "9999999999.5");
  EXPECT_EQ(Json(AsLower(-0.1)), "-0.1");
}

TEST(Json, SetsMembersApart) {
  std::string json = "{";
  AppendJsonMember(json, "a", std::int32_t{1});
  AppendJsonMember(json, "b", std::string("{"));
  AppendJsonMember(json, "c", 0.5);
  EXPECT_EQ(json, "{\"a\":1,\"b\":\"{\",\"c\":0.5");
}

}  // namespace
}  // namespace quarvel::hosts
