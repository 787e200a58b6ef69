#include "text/visible_text.h"

#include <string>

#include <gtest/gtest.h>

namespace quarvel::text {
namespace {

TEST(VisibleText, ShowsWhatSteersATerminalAsEscapes) {
  const struct {
    std::string_view text;
    const char* shown;
  } cases[] = {
      {"", ""},
      {"plain ~ text \\ 'MARKER'", "plain ~ text \\ 'MARKER'"},
      {"\x1b]0;title\a", "\\x1B]0;title\\x07"},
      {{"a\0b", 3}, "a\\x00b"},
      {"\t\x7f", "\\x09\\x7F"},
      {"\xC2\x80|\xC2\x9B"
       "31m|\xC2\x9F|\xC2\xA0",
       "\\u0080|\\u009B31m|\\u009F|\xC2\xA0"},
      {"\xD8\x9B\xD8\x9C\xD8\x9D", "\xD8\x9B\\u061C\xD8\x9D"},
      {"\xE2\x80\x8D\xE2\x80\x8E\xE2\x80\x8F\xE2\x80\x90",
       "\xE2\x80\x8D\\u200E\\u200F\xE2\x80\x90"},
      {"\xE2\x80\xA7\xE2\x80\xA8\xE2\x80\xA9", "\xE2\x80\xA7\\u2028\\u2029"},
      {"\xE2\x80\xAA\xE2\x80\xAE\xE2\x80\xAF", "\\u202A\\u202E\xE2\x80\xAF"},
      {"\xE2\x81\xA5\xE2\x81\xA6\xE2\x81\xA9\xE2\x81\xAA",
       "\xE2\x81\xA5\\u2066\\u2069\xE2\x81\xAA"},
      {"\xC3\x84 \xF0\x9D\x94\x98", "\xC3\x84 \xF0\x9D\x94\x98"},
      {"\x9B", "\\x9B"},
      {"\xC3", "\\xC3"},
      {"\xC3(", "\\xC3("},
      {"\xE2\x80", "\\xE2\\x80"},
      {"\xC0\x9B", "\\xC0\\x9B"},
      {"\xED\xA0\x80", "\\xED\\xA0\\x80"},
      {"\xF5\x80\x80\x80", "\\xF5\\x80\\x80\\x80"},
      {"one\r\ntwo\nthree\r", "one\\x0D\\x0Atwo\\x0Athree\\x0D"},
  };
  for (const auto& c : cases) EXPECT_EQ(VisibleText(c.text), c.shown) << c.shown;
}

TEST(VisibleText, TreatsLineEndsAsItIsTold) {
  constexpr std::string_view kText = "a\r\n\r\nb\n\rc\r\x1b";
  EXPECT_EQ(VisibleText(kText, LineEnds::kBlank), "a  b\\x0A\\x0Dc\\x0D\\x1B");
  EXPECT_EQ(OneLine(kText), "a  b\\x0A\\x0Dc\\x0D\\x1B");
  EXPECT_EQ(VisibleText(kText, LineEnds::kKept), "a\n\nb\n\nc\n\\x1B");
  EXPECT_EQ(VisibleText("\xC2\x85\xE2\x80\xA8", LineEnds::kKept), "\\u0085\\u2028");
}

// Whatever comes in, what goes out is UTF-8 without a character that steers.
TEST(VisibleText, LetsNothingThrough) {
  std::uint32_t state = 7;
  for (int round = 0; round < 20000; ++round) {
    std::string noise;
    for (int i = 0; i < 12; ++i) {
      state = state * 1664525u + 1013904223u;
      const auto byte = static_cast<char>(state >> 24);
      noise += (state >> 8) % 3 == 0 ? "\xE2\x80\xC2"[(state >> 16) % 3] : byte;
    }
    std::string shown = VisibleText(noise, LineEnds::kBlank);
    for (std::string_view rest = shown; !rest.empty();) {
      const Character character = FirstCharacter(rest);
      ASSERT_TRUE(character.valid) << shown;
      ASSERT_FALSE(IsSteering(character.code)) << shown;
      rest.remove_prefix(character.size);
    }
  }
}

}  // namespace
}  // namespace quarvel::text
