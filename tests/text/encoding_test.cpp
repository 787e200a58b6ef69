#include "text/encoding.h"

#include <cstddef>
#include <string>
#include <string_view>

#include <gtest/gtest.h>

namespace quarvel {
namespace {

using text::CharacterCount;
using text::IsAscii;
using text::IsValidUtf8;
using text::Utf16ToUtf8;
using text::Utf8ToUtf16;
using text::Windows1252ToUtf8;

TEST(IsValidUtf8, AcceptsWellFormedText) {
  for (const std::string_view text :
       {std::string_view(""), std::string_view("plain"), std::string_view("a\0b", 3),
        std::string_view("\xC2\x80"), std::string_view("\xDF\xBF"),
        std::string_view("\xE0\xA0\x80"), std::string_view("\xED\x9F\xBF"),
        std::string_view("\xEE\x80\x80"), std::string_view("\xEF\xBF\xBF"),
        std::string_view("\xF0\x90\x80\x80"), std::string_view("\xF4\x8F\xBF\xBF"),
        std::string_view("größe € 漢 \xF0\x9F\x98\x80 of a line longer than eight")}) {
    EXPECT_TRUE(IsValidUtf8(text)) << text;
  }
}

TEST(IsValidUtf8, RefusesStrayAndMissingBytes) {
  for (const char* text : {"\x80", "\xBF", "a\x80", "\xC3", "\xC3z", "\xE2\x82", "\xE2\x82z",
                           "\xF0\x9F\x98", "\xC3\xA4\xA4", "\xFE", "\xFF"}) {
    EXPECT_FALSE(IsValidUtf8(text)) << text;
  }
}

TEST(IsValidUtf8, RefusesOverlongForms) {
  for (const char* text : {"\xC0\x80", "\xC0\xAF", "\xC1\xBF", "\xE0\x80\x80", "\xE0\x9F\xBF",
                           "\xF0\x80\x80\x80", "\xF0\x8F\xBF\xBF"}) {
    EXPECT_FALSE(IsValidUtf8(text)) << text;
  }
}

TEST(IsValidUtf8, RefusesSurrogates) {
  EXPECT_FALSE(IsValidUtf8("\xED\xA0\x80"));
  EXPECT_FALSE(IsValidUtf8("\xED\xBF\xBF"));
}

TEST(IsValidUtf8, RefusesCodesAboveUnicode) {
  for (const char* text : {"\xF4\x90\x80\x80", "\xF5\x80\x80\x80", "\xF8\x88\x80\x80\x80"}) {
    EXPECT_FALSE(IsValidUtf8(text)) << text;
  }
}

TEST(IsValidUtf8, SeesABadByteAtEveryPlaceOfALine) {
  for (std::size_t length = 1; length < 40; ++length) {
    for (std::size_t place = 0; place < length; ++place) {
      std::string line(length, 'x');
      ASSERT_TRUE(IsValidUtf8(line));
      line[place] = '\xE4';
      ASSERT_FALSE(IsValidUtf8(line)) << length << ' ' << place;
    }
  }
}

TEST(IsAscii, TellsAByteAbove127AtEveryPlace) {
  EXPECT_TRUE(IsAscii(""));
  for (std::size_t length = 1; length < 40; ++length) {
    for (std::size_t place = 0; place < length; ++place) {
      std::string line(length, '\x7F');
      ASSERT_TRUE(IsAscii(line));
      line[place] = '\x80';
      ASSERT_FALSE(IsAscii(line)) << length << ' ' << place;
    }
  }
}

TEST(Windows1252ToUtf8, KeepsAscii) {
  for (int code = 0; code < 0x80; ++code) {
    const std::string byte(1, static_cast<char>(code));
    EXPECT_EQ(Windows1252ToUtf8(byte), byte);
  }
}

TEST(Windows1252ToUtf8, ReadsTheUpperHalfAsLatin1) {
  for (int code = 0xA0; code <= 0xFF; ++code) {
    const std::u16string expected(1, static_cast<char16_t>(code));
    EXPECT_EQ(Utf8ToUtf16(Windows1252ToUtf8(std::string(1, static_cast<char>(code)))), expected);
  }
}

TEST(Windows1252ToUtf8, ReadsItsOwnCharacters) {
  EXPECT_EQ(Windows1252ToUtf8("\x80\x82\x83\x84\x85\x86\x87\x88\x89\x8A\x8B\x8C\x8E"),
            "€‚ƒ„…†‡ˆ‰Š‹ŒŽ");
  EXPECT_EQ(Windows1252ToUtf8("\x91\x92\x93\x94\x95\x96\x97\x98\x99\x9A\x9B\x9C\x9E\x9F"),
            "‘’“”•–—˜™š›œžŸ");
}

TEST(Windows1252ToUtf8, ReadsItsUndefinedCodesAsControlCharacters) {
  EXPECT_EQ(Windows1252ToUtf8("\x81\x8D\x8F\x90\x9D"), "\xC2\x81\xC2\x8D\xC2\x8F\xC2\x90\xC2\x9D");
}

TEST(CharacterCount, CountsCodePoints) {
  EXPECT_EQ(CharacterCount(""), 0u);
  EXPECT_EQ(CharacterCount("ROW1"), 4u);
  EXPECT_EQ(CharacterCount("größe"), 5u);
  EXPECT_EQ(CharacterCount("€漢"), 2u);
  EXPECT_EQ(CharacterCount("\xF0\x9F\x98\x80!"), 2u);
}

struct EncodingPair {
  std::string_view utf8;
  std::u16string_view utf16;
};

constexpr EncodingPair kPairs[] = {{"", u""},
                                   {"abc", u"abc"},
                                   {"\x7F\xC2\x80\xDF\xBF", u"\x7F\x80\x7FF"},
                                   {"\xE0\xA0\x80\xEF\xBF\xBF", u"\x800\xFFFF"},
                                   {"\xED\x9F\xBF\xEE\x80\x80", u"\xD7FF\xE000"},
                                   {"\xF0\x90\x80\x80", u"\xD800\xDC00"},
                                   {"a\xF0\x9F\x98\x80z", u"a\xD83D\xDE00z"},
                                   {"\xF4\x8F\xBF\xBF", u"\xDBFF\xDFFF"}};

TEST(Utf8ToUtf16, ConvertsEveryLengthOfSequence) {
  for (const EncodingPair& pair : kPairs) EXPECT_EQ(Utf8ToUtf16(pair.utf8), pair.utf16);
}

TEST(Utf16ToUtf8, ConvertsEveryLengthOfSequence) {
  for (const EncodingPair& pair : kPairs) EXPECT_EQ(Utf16ToUtf8(pair.utf16), pair.utf8);
}

TEST(Utf8ToUtf16, ReplacesEachIllFormedPart) {
  const EncodingPair cases[] = {{"a\x80z", u"a\xFFFDz"},
                                {"\xC3", u"\xFFFD"},
                                {"\xC3z", u"\xFFFDz"},
                                {"\xE2\x82z", u"\xFFFDz"},
                                {"\xF0\x9F\x98", u"\xFFFD"},
                                {"\xC0\xAF", u"\xFFFD\xFFFD"},
                                {"\xED\xA0\x80", u"\xFFFD\xFFFD\xFFFD"},
                                {"\xE2\x82\xE2\x82\xAC", u"\xFFFD\x20AC"}};
  for (const EncodingPair& c : cases) EXPECT_EQ(Utf8ToUtf16(c.utf8), c.utf16);
}

TEST(Utf16ToUtf8, ReplacesLoneSurrogates) {
  const EncodingPair cases[] = {{"\xEF\xBF\xBD", u"\xD800"},
                                {"\xEF\xBF\xBDz", u"\xDBFFz"},
                                {"z\xEF\xBF\xBD", u"z\xDC00"},
                                {"\xEF\xBF\xBD\xEF\xBF\xBD", u"\xDC00\xD800"},
                                {"\xEF\xBF\xBD\xF0\x90\x80\x80", u"\xD800\xD800\xDC00"}};
  for (const EncodingPair& c : cases) EXPECT_EQ(Utf16ToUtf8(c.utf16), c.utf8);
}

}  // namespace
}  // namespace quarvel
