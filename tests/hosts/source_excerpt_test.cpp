#include "hosts/source_excerpt.h"

#include <gtest/gtest.h>

namespace quarvel::hosts {
namespace {

SourceExcerpt Excerpt(std::string text, std::int32_t column = 0, std::int32_t length = 0,
                      std::int32_t text_column = 1) {
  return ExcerptOf({.code = mps::FileProblemCode::kNoSuchRow,
                    .line = 1,
                    .column = column,
                    .length = length,
                    .text = std::move(text),
                    .text_column = text_column});
}

void ExpectExcerpt(const SourceExcerpt& excerpt, const std::string& text,
                   const std::string& marks) {
  EXPECT_EQ(excerpt.text, text);
  EXPECT_EQ(excerpt.marks, marks);
}

TEST(SourceExcerpt, MarksTheToken) {
  ExpectExcerpt(Excerpt("  x cost 1 ", 5, 4), "  x cost 1", "    ^^^^");
  ExpectExcerpt(Excerpt("x", 1, 1), "x", "^");
}

TEST(SourceExcerpt, MarksNothingForAWholeLine) { ExpectExcerpt(Excerpt(" Q"), " Q", ""); }

TEST(SourceExcerpt, MarksThePlaceOfATokenThatIsMissing) {
  ExpectExcerpt(Excerpt("ab", 3, 0), "ab", "  ^");
  ExpectExcerpt(Excerpt("ab", 6, 2), "ab", "     ^");
}

TEST(SourceExcerpt, CountsTabsWideLettersAndEscapes) {
  ExpectExcerpt(Excerpt("a\tb\tc", 5, 1), "a       b       c", "                ^");
  ExpectExcerpt(Excerpt("\xE4\xB8\xAD\xE6\x96\x87 x", 4, 1), "\xE4\xB8\xAD\xE6\x96\x87 x",
                "     ^");
  ExpectExcerpt(Excerpt("\xE4\xB8\xAD\tx", 3, 1), "\xE4\xB8\xAD      x", "        ^");
  ExpectExcerpt(Excerpt("e\xCC\x81 x", 4, 1), "e\xCC\x81 x", "  ^");
  ExpectExcerpt(Excerpt("a\x1B z", 2, 1), "a\\x1B z", " ^^^^");
  ExpectExcerpt(Excerpt("\xC3\xA4\xE2\x80\xAE z", 4, 1), "\xC3\xA4\\u202E z", "        ^");
}

TEST(SourceExcerpt, IsAsWideAsItMayBe) {
  mps::FileProblem problem = {.code = mps::FileProblemCode::kNoSuchRow, .line = 1};
  problem.text = std::string(80, 'a') + " tok";
  problem.column = 82;
  problem.length = 3;
  problem.text_column = 1;
  ExpectExcerpt(ExcerptOf(problem, 60), "..." + std::string(29, 'a') + " tok",
                std::string(33, ' ') + "^^^");
  ExpectExcerpt(ExcerptOf(problem, 84), problem.text, std::string(81, ' ') + "^^^");
}

TEST(SourceExcerpt, CutsALongLineAroundTheToken) {
  const std::string long_text(200, 'a');
  ExpectExcerpt(Excerpt(long_text + " tok " + long_text, 202, 3),
                "..." + std::string(29, 'a') + " tok " + std::string(52, 'a') + "...",
                std::string(33, ' ') + "^^^");
  ExpectExcerpt(Excerpt("tok " + long_text, 1, 3), "tok " + std::string(85, 'a') + "...", "^^^");
  ExpectExcerpt(Excerpt(long_text), std::string(89, 'a') + "...", "");
  const std::string fits(92, 'a');
  ExpectExcerpt(Excerpt(fits, 92, 1), fits, std::string(91, ' ') + '^');
}

TEST(SourceExcerpt, SaysThatASingleLetterIsLeftOut) {
  mps::FileProblem problem = {.code = mps::FileProblemCode::kNoSuchRow, .line = 1};
  problem.text = "b" + std::string(30, 'a') + "tok" + std::string(100, 'c');
  problem.column = 32;
  problem.length = 3;
  problem.text_column = 1;
  ExpectExcerpt(ExcerptOf(problem, 50),
                "..." + std::string(30, 'a') + "tok" + std::string(11, 'c') + "...",
                std::string(33, ' ') + "^^^");
}

TEST(SourceExcerpt, SaysThatTheLineBeginsBefore) {
  ExpectExcerpt(Excerpt("bc tok", 304, 3, 301), "...bc tok", "      ^^^");
}

TEST(SourceExcerpt, CutsATokenThatIsTooLong) {
  const SourceExcerpt excerpt = Excerpt(std::string(400, 'x'), 1, 400);
  ExpectExcerpt(excerpt, std::string(89, 'x') + "...", std::string(89, '^'));
}

}  // namespace
}  // namespace quarvel::hosts
