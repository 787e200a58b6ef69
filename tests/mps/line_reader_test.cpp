#include "mps/line_reader.h"

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "platform/files.h"
#include "tests/support/test_paths.h"

namespace quarvel::mps {
namespace {

constexpr std::size_t kLongest = LineReader::kLongestLine;

// A line as it was handed out, copied before the next one was read.
struct CopiedLine {
  std::string text;
  std::size_t characters = 0;
  bool too_long = false;
};

std::vector<CopiedLine> ReadLines(std::string_view bytes) {
  const TemporaryFolder folder;
  WriteWholeFile(folder.File("lines.txt"), bytes);
  LineReader reader{platform::InputFile(folder.File("lines.txt"))};
  EXPECT_EQ(reader.file_size(), bytes.size());
  std::vector<CopiedLine> lines;
  Line line;
  while (reader.Next(line)) {
    // An overlong line is handed out without its text.
    lines.push_back(
        {line.too_long ? "" : std::string(line.view()), line.characters, line.too_long});
  }
  EXPECT_FALSE(reader.Next(line)) << "the end is final";
  return lines;
}

std::vector<std::string> TextsOf(std::string_view bytes) {
  std::vector<std::string> texts;
  for (const CopiedLine& line : ReadLines(bytes)) texts.push_back(line.text);
  return texts;
}

using Strings = std::vector<std::string>;

TEST(LineReader, SplitsAtEveryKindOfLineEnd) {
  struct Case {
    std::string bytes;
    Strings lines;
  };
  const Case cases[] = {
      {"", {}},
      {"a", {"a"}},
      {"a\n", {"a"}},
      {"a\r", {"a"}},
      {"a\r\n", {"a"}},
      {"a\nb", {"a", "b"}},
      {"a\rb", {"a", "b"}},
      {"a\r\nb", {"a", "b"}},
      {"\n", {""}},
      {"\r", {""}},
      {"\r\n", {""}},
      {"\n\n", {"", ""}},
      {"\r\r", {"", ""}},
      {"\n\r", {"", ""}},
      {"\r\n\r\n", {"", ""}},
      {"\r\r\n", {"", ""}},
      {"a\n\rb\r\n\nc", {"a", "", "b", "", "c"}},
      {"  a b \n", {"  a b "}},
      {"a long line of text\nanother one", {"a long line of text", "another one"}},
  };
  for (const Case& c : cases)
    EXPECT_EQ(TextsOf(c.bytes), c.lines) << ::testing::PrintToString(c.bytes);
}

TEST(LineReader, TakesNulBytesAndControlCharactersForText) {
  const std::string text("a\0b\x1A\v\f\x7F\tc", 9);
  EXPECT_EQ(TextsOf(text + "\n" + text), (Strings{text, text}));
}

TEST(LineReader, SkipsAByteOrderMarkAtTheStartAlone) {
  const std::string mark = "\xEF\xBB\xBF";
  EXPECT_EQ(TextsOf(mark), Strings{});
  EXPECT_EQ(TextsOf(mark + "a\n"), Strings{"a"});
  EXPECT_EQ(TextsOf(mark + "\n"), Strings{""});
  EXPECT_EQ(TextsOf(mark + mark + "a"), Strings{mark + "a"});
  EXPECT_EQ(TextsOf("a\n" + mark + "b"), (Strings{"a", mark + "b"}));
  EXPECT_EQ(ReadLines("a\n" + mark + "b")[1].characters, 2u);
}

TEST(LineReader, TakesPartOfAByteOrderMarkForWindows1252) {
  EXPECT_EQ(TextsOf("\xEF"), Strings{"\xC3\xAF"});
  EXPECT_EQ(TextsOf("\xEF\xBB"), Strings{"\xC3\xAF\xC2\xBB"});
  EXPECT_EQ(TextsOf("\xEF\xBB\n\xBF"), (Strings{"\xC3\xAF\xC2\xBB", "\xC2\xBF"}));
}

TEST(LineReader, DecidesTheEncodingLineByLine) {
  const std::vector<CopiedLine> lines = ReadLines("r\xC3\xA4um\nr\xE4um\r\n\x80\rplain\n\xC3\n");
  const CopiedLine expected[] = {{"r\xC3\xA4um", 4, false},
                                 {"r\xC3\xA4um", 4, false},
                                 {"\xE2\x82\xAC", 1, false},
                                 {"plain", 5, false},
                                 {"\xC3\x83", 1, false}};
  ASSERT_EQ(lines.size(), std::size(expected));
  for (std::size_t i = 0; i < lines.size(); ++i) {
    EXPECT_EQ(lines[i].text, expected[i].text) << i;
    EXPECT_EQ(lines[i].characters, expected[i].characters) << i;
  }
}

TEST(LineReader, CountsCharactersOfEveryLength) {
  for (std::size_t length = 0; length < 40; ++length) {
    std::string umlauts;
    for (std::size_t i = 0; i < length; ++i) umlauts += "\xC3\xA4";
    const auto lines = ReadLines(std::string(length, 'x') + "\n" + umlauts + "\n");
    ASSERT_EQ(lines.size(), 2u);
    EXPECT_EQ(lines[0].characters, length);
    EXPECT_EQ(lines[1].characters, length);
    EXPECT_EQ(lines[1].text, umlauts);
  }
}

// --- where one piece of the file ends and the next begins ---

// The file holds the same short line over and over behind `shift` bytes, so that with as many
// shifts as the line has bytes every byte of it comes to stand last in a piece.
void ExpectSameLines(const std::string& line_with_end, const std::string& text,
                     std::size_t characters) {
  constexpr std::size_t kMoreThanOnePiece = 3 * kLongest / 2;
  for (std::size_t shift = 0; shift < line_with_end.size(); ++shift) {
    std::string bytes = std::string(shift, '-') + "\n";
    std::size_t count = 0;
    for (; bytes.size() < kMoreThanOnePiece; ++count) bytes += line_with_end;
    const std::vector<CopiedLine> lines = ReadLines(bytes);
    ASSERT_EQ(lines.size(), count + 1) << shift;
    const auto other = std::find_if(lines.begin() + 1, lines.end(), [&](const CopiedLine& line) {
      return line.text != text || line.characters != characters;
    });
    if (other == lines.end()) continue;
    FAIL() << "line " << other - lines.begin() << " with shift " << shift << ": " << other->text;
  }
}

TEST(LineReader, FindsLineEndsSplitBetweenPieces) {
  ExpectSameLines("some\r\n", "some", 4);
  ExpectSameLines("\r\n", "", 0);
}

TEST(LineReader, FindsACarriageReturnAtTheEndOfAPiece) { ExpectSameLines("some\r", "some", 4); }

TEST(LineReader, KeepsCharactersSplitBetweenPieces) {
  ExpectSameLines("\xE2\x82\xAC 5\n", "\xE2\x82\xAC 5", 3);
  ExpectSameLines("\xE4\xE4\n", "\xC3\xA4\xC3\xA4", 2);
}

// --- long lines ---

TEST(LineReader, HandsOutALineOfTheGreatestLength) {
  for (const std::string end : {"\n", "\r", "\r\n", ""}) {
    const auto lines = ReadLines("first\n" + std::string(kLongest, 'x') + end);
    ASSERT_EQ(lines.size(), 2u);
    EXPECT_FALSE(lines[1].too_long);
    EXPECT_EQ(lines[1].characters, kLongest);
    EXPECT_TRUE(lines[1].text == std::string(kLongest, 'x'));
  }
}

TEST(LineReader, CallsALineWithOneByteMoreTooLong) {
  for (const std::string end : {"\n", "\r", "\r\n"}) {
    const auto lines = ReadLines("first\n" + std::string(kLongest + 1, 'x') + end + "next" + end);
    ASSERT_EQ(lines.size(), 3u);
    EXPECT_TRUE(lines[1].too_long);
    EXPECT_EQ(lines[1].characters, kLongest + 1);
    EXPECT_FALSE(lines[2].too_long);
    EXPECT_EQ(lines[2].text, "next");
  }
}

TEST(LineReader, MeasuresTheGreatestLengthInBytes) {
  std::string umlauts;
  for (std::size_t i = 0; i < kLongest / 2; ++i) umlauts += "\xC3\xA4";
  EXPECT_FALSE(ReadLines(umlauts)[0].too_long);
  EXPECT_EQ(ReadLines(umlauts)[0].characters, kLongest / 2);
  EXPECT_TRUE(ReadLines(umlauts + "x")[0].too_long);
  // Half as many bytes more once they are UTF-8.
  const auto converted = ReadLines(std::string(kLongest, '\xE4'));
  EXPECT_FALSE(converted[0].too_long);
  EXPECT_TRUE(converted[0].text == umlauts + umlauts);
}

TEST(LineReader, GoesOnAfterAnOverlongLineOfAnyLength) {
  // Lengths around the pieces that a file is read in.
  constexpr std::size_t kPiece = kLongest + (std::size_t{1} << 18);
  for (std::size_t length = kPiece - 2; length <= kPiece + 2; ++length) {
    const auto lines = ReadLines(std::string(length, 'x') + "\r\nnext\r\n\r\nlast");
    ASSERT_EQ(lines.size(), 4u) << length;
    EXPECT_TRUE(lines[0].too_long);
    EXPECT_EQ(lines[0].characters, length);
    EXPECT_EQ(lines[1].text, "next");
    EXPECT_EQ(lines[2].text, "");
    EXPECT_EQ(lines[3].text, "last");
  }
}

TEST(LineReader, FindsTheEndOfTheFileInAnOverlongLine) {
  for (const std::size_t length : {kLongest + 1, 2 * kLongest, 5 * kLongest + 77}) {
    for (const std::string end : {"", "\n", "\r", "\r\n"}) {
      const auto lines = ReadLines("a\n" + std::string(length, 'x') + end);
      ASSERT_EQ(lines.size(), 2u) << length;
      EXPECT_TRUE(lines[1].too_long);
      EXPECT_EQ(lines[1].characters, length);
    }
  }
}

TEST(LineReader, ReadsSeveralOverlongLinesInARow) {
  const std::string line(kLongest + 100, 'x');
  const auto lines = ReadLines(line + "\n" + line + "\r" + line + "\r\nend");
  ASSERT_EQ(lines.size(), 4u);
  for (int i = 0; i < 3; ++i) EXPECT_EQ(lines[static_cast<std::size_t>(i)].characters, line.size());
  EXPECT_EQ(lines[3].text, "end");
}

}  // namespace
}  // namespace quarvel::mps
