#include "text/long_lines.h"

#include <algorithm>

#include <gtest/gtest.h>

namespace quarvel::text {
namespace {

std::u16string Terms(std::size_t units) {
  std::u16string text;
  while (text.size() < units) text += u" + 2 COLUMN";
  text.resize(units);
  return text;
}

TEST(LongLines, LeavesLinesOfUsualLengthWhole) {
  for (const std::u16string& text :
       {std::u16string(), std::u16string(u"\r\n"), std::u16string(u"one\r\n\r\ntwo\r\n"),
        Terms(4000) + u"\r\n" + Terms(4000)}) {
    EXPECT_EQ(LongLines(text, u"\r\n").broken(), text);
  }
}

TEST(LongLines, BreaksALongLineBehindBlanks) {
  const LongLines lines(u"a\r\n" + Terms(4001) + u"\r\nb", u"\r\n");
  std::u16string_view rest = lines.broken();
  std::size_t paragraphs = 0;
  for (std::size_t end = rest.find(u"\r\n"); end != rest.npos; end = rest.find(u"\r\n")) {
    EXPECT_LE(end, 500u);
    rest.remove_prefix(end + 2);
    ++paragraphs;
  }
  EXPECT_GT(paragraphs, 9u);
  EXPECT_EQ(rest, u"b");
  EXPECT_EQ(lines.broken().find(u"COLUMN\r\n +"), std::u16string::npos);
  EXPECT_NE(lines.broken().find(u" \r\n"), std::u16string::npos);
}

TEST(LongLines, BreaksAWordBetweenItsCharacters) {
  std::u16string word = u"x";
  for (int i = 0; i < 3000; ++i) word += u"\U0001F600";
  const LongLines lines(word, u"\n");
  EXPECT_NE(lines.broken(), word);
  EXPECT_EQ(lines.Between(0, lines.broken().size()), word);
  for (std::size_t at = lines.broken().find(u'\n'); at != std::u16string::npos;
       at = lines.broken().find(u'\n', at + 1)) {
    EXPECT_GE(lines.broken()[at - 1], 0xDC00);
  }
}

// Every range against the plain way: the units that are no break, one after the other.
TEST(LongLines, GivesAnyPartWithoutTheBreaks) {
  const std::u16string text = u"one\r\n" + Terms(4700) + u"\r\n\r\n" + Terms(10);
  const LongLines lines(text, u"\r\n");
  const std::u16string& broken = lines.broken();
  std::vector<std::size_t> kept_before = {0};
  for (std::size_t i = 0, in_text = 0; i < broken.size(); ++i) {
    const bool own = in_text < text.size() && broken[i] == text[in_text];
    in_text += own ? 1 : 0;
    kept_before.push_back(in_text);
  }
  ASSERT_EQ(kept_before.back(), text.size());
  for (std::size_t begin = 0; begin <= broken.size(); begin += 7) {
    for (const std::size_t length : {0u, 1u, 2u, 3u, 499u, 500u, 501u, 1200u, 9000u}) {
      const std::size_t end = std::min(begin + length, broken.size());
      const std::size_t from = kept_before[begin];
      ASSERT_EQ(lines.Between(begin, begin + length), text.substr(from, kept_before[end] - from))
          << begin << " to " << begin + length;
    }
  }
}

TEST(LongLines, TakesAPositionBehindTheEndForTheEnd) {
  const LongLines lines(u"abc", u"\n");
  EXPECT_EQ(lines.Between(1, 99), u"bc");
  EXPECT_EQ(lines.Between(7, 99), u"");
  EXPECT_EQ(lines.Between(2, 1), u"");
}

}  // namespace
}  // namespace quarvel::text
