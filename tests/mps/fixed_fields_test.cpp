#include "mps/fixed_fields.h"

#include <string>

#include <gtest/gtest.h>

namespace quarvel::mps {
namespace {

std::string FieldBitsText(std::size_t field) {
  std::string text(64, ' ');
  for (std::size_t at = 0; at < 64; ++at) {
    if ((FieldBits(field) >> at & 1) != 0) text[at] = 'x';
  }
  return text.substr(0, text.find_last_not_of(' ') + 1);
}

std::uint64_t InsideBits(std::string_view text) {
  std::uint64_t bits = 0;
  for (std::size_t at = 0; at < text.size(); ++at) {
    if (text[at] != ' ') bits |= std::uint64_t{1} << at;
  }
  return bits;
}

TEST(FixedFields, AreTheColumnsWithTheBlanksWithin) {
  const FixedFields fields(" UP BND 1     A B       12.5           ROW 2     -7           more");
  EXPECT_EQ(fields[1], "UP");
  EXPECT_EQ(fields[2], "BND 1");
  EXPECT_EQ(fields[3], "A B");
  EXPECT_EQ(fields[4], "12.5");
  EXPECT_EQ(fields[5], "ROW 2");
  EXPECT_EQ(fields[6], "-7");
  EXPECT_EQ(fields.between(), "");
  EXPECT_EQ(fields.behind(), "more");
}

TEST(FixedFields, TellTextBetweenThem) {
  EXPECT_EQ(FixedFields("    A       x R").between(), "x");
  EXPECT_EQ(FixedFields("x   A").between(), "x");
  EXPECT_EQ(FixedFields("    ABCDEFGHIJ").between(), "IJ");
}

TEST(FixedFields, CountCharactersNotBytes) {
  const FixedFields fields("    \xC3\x84\xC3\x96        R1        5");
  EXPECT_EQ(fields[2], "\xC3\x84\xC3\x96");
  EXPECT_EQ(fields[3], "R1");
  EXPECT_EQ(fields[4], "5");
}

TEST(FixedFields, EndWhereADollarSignBeginsAFieldOfNames) {
  const FixedFields third("    A         $ all of this");
  EXPECT_EQ(third[2], "A");
  EXPECT_EQ(third[3], "");
  EXPECT_EQ(third.between(), "");
  const FixedFields fifth("    A         R1        5              $ a comment between fields");
  EXPECT_EQ(fifth[4], "5");
  EXPECT_EQ(fifth[5], "");
  EXPECT_EQ(FixedFields("    $A        R$1       5")[2], "$A");
}

TEST(FixedFields, OfAShortLineAreEmpty) {
  const FixedFields fields(" E");
  EXPECT_EQ(fields[1], "E");
  EXPECT_EQ(fields[2], "");
  EXPECT_EQ(fields[6], "");
  EXPECT_EQ(fields.behind(), "");
}

TEST(FixedFields, TellWhatTheEndOfTheLastOneCuts) {
  const std::string before(56, ' ');
  EXPECT_EQ(FixedFields(before + " 1234").across(), "");
  EXPECT_EQ(FixedFields(before + " 12345").across(), "12345");
  EXPECT_EQ(FixedFields(before + " 1234 5").across(), "");
  EXPECT_EQ(FixedFields(before + " 12345 note").across(), "12345");
  EXPECT_EQ(FixedFields(before + "     note").across(), "");
  EXPECT_EQ(FixedFields("    X         $      " + before + " 12345").across(), "");
}

TEST(FixedFields, HaveTheirBits) {
  EXPECT_EQ(FieldBitsText(1), " xx");
  EXPECT_EQ(FieldBitsText(2), "    xxxxxxxx");
  EXPECT_EQ(FieldBitsText(6), std::string(49, ' ') + "xxxxxxxxxxxx");
}

TEST(FixedFields, HoldWordsOfTheirOwnOnlyWhereEachHasOne) {
  EXPECT_TRUE((AreInOwnFields<1, 2>(InsideBits(" E  LIM"))));
  EXPECT_FALSE((AreInOwnFields<1, 2>(InsideBits(" E LIM"))));
  EXPECT_TRUE((AreInOwnFields<2, 3>(InsideBits("    X         R         5"))));
  EXPECT_FALSE((AreInOwnFields<2, 3>(InsideBits("    X 5       R"))));
  EXPECT_FALSE((AreInOwnFields<2, 3>(InsideBits("    X  R  5"))));
  EXPECT_FALSE((AreInOwnFields<2, 5>(InsideBits("    X         R         5"))));
}

}  // namespace
}  // namespace quarvel::mps
