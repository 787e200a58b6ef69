#include "hosts/edit_words.h"

#include <cstdint>
#include <random>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "hosts/streams.h"
#include "tests/support/test_length.h"
#include "text/visible_text.h"

namespace quarvel {
namespace {

using Words = std::vector<std::string>;

TEST(SplitWords, KnowsBlanksAndQuotes) {
  const struct {
    const char* line;
    Words words;
  } cases[] = {
      {"", {}},
      {" \t\r", {}},
      {"  # all of it \"", {}},
      {"a #b", {"a", "#b"}},
      {" a\tb  c\r", {"a", "b", "c"}},
      {"a \"b c\" \"\"", {"a", "b c", ""}},
      {"x\"y z\"w", {"xy zw"}},
      {"\"\\\"\\\\\\nx\"", {"\"\\\nx"}},
      {"\"\\u0041\\u00e4\\u2028z\"", {"A\u00e4\u2028z"}},
      {"\\u0041", {"\\u0041"}},
      {"a\\b 'c d'", {"a\\b", "'c", "d'"}},
  };
  for (const auto& c : cases) EXPECT_EQ(hosts::SplitWords(c.line), c.words) << c.line;
}

TEST(SplitWords, RefusesAnOpenQuote) {
  EXPECT_THROW(hosts::SplitWords("a \"b"), hosts::CommandError);
  EXPECT_THROW(hosts::SplitWords("\"\\"), hosts::CommandError);
}

TEST(SplitWords, RefusesAnEscapeThatIsNone) {
  for (const char* line : {"\"\\r\"", "\"C:\\x\"", "a \"b\\ c\"", "\"\\N\""}) {
    EXPECT_THROW(hosts::SplitWords(line), hosts::CommandError) << line;
  }
}

TEST(SplitWords, RefusesACodeOfNoCharacter) {
  for (const char* line :
       {"\"\\u\"", "\"\\u12\"", "\"\\u12G4\"", "\"\\uD800\"", "\"\\u004", "\"\\u-001\""}) {
    EXPECT_THROW(hosts::SplitWords(line), hosts::CommandError) << line;
  }
}

TEST(QuotedWord, QuotesOnlyWhatNeedsIt) {
  const struct {
    const char* word;
    const char* quoted;
  } cases[] = {
      {"R1", "R1"},
      {"", "\"\""},
      {"#1", "\"#1\""},
      {"A#1", "A#1"},
      {"A B", "\"A B\""},
      {"A\\B", "A\\B"},
      {"A\\ B", "\"A\\\\ B\""},
      {"5\"", "\"5\\\"\""},
      {"A\nB\r", "\"A\\nB\\u000D\""},
      {"\x1B[2J", "\"\\u001B[2J\""},
      {"\u00e4\u2028", "\"\u00e4\\u2028\""},
  };
  for (const auto& c : cases) EXPECT_EQ(hosts::QuotedWord(c.word), c.quoted);
}

TEST(QuotedWord, GivesEveryWordBack) {
  const char* const kPieces[] = {
      "A",  "1",  " ",     "\"",     "\\",   "#",      "\n",
      "\r", "\t", "u0041", "\u00e4", "\x7f", "\u2066", "\xF0\x9F\x98\x80"};
  std::mt19937 random(1);
  const auto draw = [&random](std::size_t count) { return random() % count; };
  for (int i = 0; i < TestLength(5000); ++i) {
    std::string word;
    for (std::size_t k = draw(6); k > 0; --k) word += kPieces[draw(std::size(kPieces))];
    const std::string quoted = hosts::QuotedWord(word);
    ASSERT_EQ(hosts::SplitWords("set " + quoted + " x"), (Words{"set", word, "x"})) << quoted;
    ASSERT_EQ(text::VisibleText(quoted), quoted);
  }
}

}  // namespace
}  // namespace quarvel
