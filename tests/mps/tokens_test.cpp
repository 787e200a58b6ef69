#include "mps/tokens.h"

#include <algorithm>
#include <cstddef>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "text/encoding.h"
#include "text/upper_case.h"

namespace quarvel::mps {
namespace {

using Words = std::vector<std::string>;

// A line as it stands in a reader's buffer: between other lines.
class BufferedLine {
 public:
  explicit BufferedLine(const std::string& text)
      : buffer_(std::string(kBefore) + text + std::string(kAfter)), size_(text.size()) {
    line_.text = buffer_.data() + kBefore.size();
    line_.size = size_;
    line_.ascii = text::IsAscii(text);
  }

  Line& line() { return line_; }
  // What stands before and behind the line is as it was.
  bool NeighboursAreUntouched() const {
    return buffer_.starts_with(kBefore) && buffer_.substr(kBefore.size() + size_) == kAfter;
  }

 private:
  static constexpr std::string_view kBefore = "line before\n";
  static constexpr std::string_view kAfter = "\nnext line in lower case\nand one more\n";
  std::string buffer_;
  std::size_t size_;
  Line line_;
};

Words SplitWords(const std::string& text) {
  const auto tokens = SplitLine(text);
  return {tokens.begin(), tokens.end()};
}

struct Case {
  std::string line;
  Words words;  // as they are
};

const Case kCases[] = {
    {"", {}},
    {" ", {}},
    {"          ", {}},
    {"a", {"a"}},
    {" a", {"a"}},
    {"a ", {"a"}},
    {"   a   ", {"a"}},
    {"a b", {"a", "b"}},
    {"a  b", {"a", "b"}},
    {"    X01       X48               .301   R09                -1.",
     {"X01", "X48", ".301", "R09", "-1."}},
    {"a\tb c", {"a\tb", "c"}},
    {"\t", {"\t"}},
    {"a\vb\fc\xC2\xA0z", {"a\vb\fc\xC2\xA0z"}},
    {std::string("a\0b c", 5), {std::string("a\0b", 3), "c"}},
    {"1 2 3 4 5 6 7 8", {"1", "2", "3", "4", "5", "6", "7", "8"}},
    {"r\xC3\xA4um caf\xC3\xA9", {"r\xC3\xA4um", "caf\xC3\xA9"}},
};

TEST(SplitLine, FindsTheRunsBetweenSpacesAlone) {
  for (const Case& c : kCases) EXPECT_EQ(SplitWords(c.line), c.words) << c.line;
}

void ExpectTokens(const std::string& text) {
  const Words words = SplitWords(text);
  BufferedLine buffered(text);
  Tokens tokens;
  tokens.Split(buffered.line());
  ASSERT_EQ(tokens.count(), words.size()) << text;
  const std::size_t kept = std::min(words.size(), Tokens::kKept);
  for (std::size_t i = 0; i < kept; ++i) {
    EXPECT_EQ(tokens[i + 1], text::UpperCase(words[i])) << text;
  }
  EXPECT_TRUE(buffered.NeighboursAreUntouched()) << text;
}

TEST(Tokens, AreTheWordsOfTheLineInUpperCase) {
  for (const Case& c : kCases) ExpectTokens(c.line);
}

TEST(Tokens, CountEveryWordButKeepTheFirst) {
  std::string text;
  for (std::size_t count = 0; count <= 40; ++count) {
    BufferedLine buffered(text);
    Tokens tokens;
    tokens.Split(buffered.line());
    EXPECT_EQ(tokens.count(), count);
    const std::size_t last_kept = std::min(count, Tokens::kKept);
    for (std::size_t i = 1; i <= last_kept; ++i) EXPECT_EQ(tokens[i], "W" + std::to_string(i));
    text += " w" + std::to_string(count + 1);
  }
}

TEST(Tokens, MayHaveAnyLengthAndPlace) {
  for (std::size_t length = 1; length <= 140; ++length) {
    for (std::size_t spaces = 0; spaces < 9; ++spaces) {
      const std::string text = std::string(spaces, ' ') + std::string(length, 'q');
      ExpectTokens(text);
      ExpectTokens(text + std::string(spaces + 1, ' ') + "tail" + std::string(spaces, ' '));
    }
  }
}

TEST(Tokens, ChangeOnlyTheLettersOfAscii) {
  std::string line = "A";
  for (char c = 1; c > 0 && c < 127; ++c) {
    if (c != '\n' && c != '\r') line += c;
  }
  ExpectTokens(line);
}

TEST(Tokens, AreUpperCaseBeyondAscii) {
  BufferedLine buffered("r\xC3\xA4um \xD0\xBF\xD1\x83\xD1\x82\xD1\x8C");
  Tokens tokens;
  tokens.Split(buffered.line());
  ASSERT_EQ(tokens.count(), 2u);
  EXPECT_EQ(tokens[1], "R\xC3\x84UM");
  EXPECT_EQ(tokens[2], "\xD0\x9F\xD0\xA3\xD0\xA2\xD0\xAC");
}

TEST(Tokens, OfOneLineReplaceThoseOfTheLineBefore) {
  Tokens tokens;
  BufferedLine first("one two three \xC3\xA4");
  tokens.Split(first.line());
  BufferedLine second("four");
  tokens.Split(second.line());
  ASSERT_EQ(tokens.count(), 1u);
  EXPECT_EQ(tokens[1], "FOUR");
  BufferedLine empty("");
  tokens.Split(empty.line());
  EXPECT_EQ(tokens.count(), 0u);
}

TEST(Tokens, AgreeWithThePlainSplittingForRandomLines) {
  std::mt19937 random(3);
  const std::string alphabet = "aZz{`@[ \t.-1    ";
  for (int i = 0; i < 5000; ++i) {
    std::string text;
    for (auto size = random() % 90; size > 0; --size) text += alphabet[random() % alphabet.size()];
    if (i % 10 == 0) text += "\xC3\xA4 b";
    ExpectTokens(text);
  }
}

}  // namespace
}  // namespace quarvel::mps
