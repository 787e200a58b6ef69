#include "hosts/folded_text.h"

#include <gtest/gtest.h>

namespace quarvel::hosts {
namespace {

TEST(FoldedLine, BreaksAtBlanks) {
  const std::string line = "one two three four five six seven";
  EXPECT_EQ(FoldedLine(line, 25, 2), "one two three four five\n  six seven");
  EXPECT_EQ(FoldedLine(line, 33, 2), line);
  EXPECT_EQ(FoldedLine(line, 32, 0), "one two three four five six\nseven");
  EXPECT_EQ(FoldedLine("a  b  " + std::string(20, 'c'), 23, 1), "a  b\n " + std::string(20, 'c'));
}

TEST(FoldedLine, KeepsLongWordsAndCountsWideLetters) {
  const std::string word(30, 'w');
  EXPECT_EQ(FoldedLine("a " + word + " b", 25, 4), "a\n    " + word + "\n    b");
  EXPECT_EQ(FoldedLine(word + ' ' + word, 22, 0), word + '\n' + word);
  EXPECT_EQ(FoldedLine("鋼板鋼板鋼板鋼板 鋼板 鋼板", 22, 0), "鋼板鋼板鋼板鋼板 鋼板\n鋼板");
}

TEST(FoldedLine, IsAsItWasWhereNobodyKnowsTheWidthOrThereIsNoRoom) {
  const std::string line(50, 'a');
  EXPECT_EQ(FoldedLine(line + " b", 0, 0), line + " b");
  EXPECT_EQ(FoldedLine(line + " b", 30, 11), line + " b");
}

TEST(FoldedHelp, FillsParagraphsAndEntriesThatAreTooLong) {
  const std::string help =
      "Usage: quarvel polish FILE\n\nA paragraph of two lines, of which\nthe second is short.\n"
      "\nOptions:\n  --wax N      so many layers, one over the\n               other\n"
      "  --dry        wait\n\nExamples:\n  # a remark that is rather long for this\n"
      "  quarvel polish floor --wax 3 --dry --soft\n";
  EXPECT_EQ(
      FoldedHelp(help, 36),
      "Usage: quarvel polish FILE\n\nA paragraph of two lines, of which\nthe second is short.\n"
      "\nOptions:\n  --wax N      so many layers, one\n               over the other\n"
      "  --dry        wait\n\nExamples:\n  # a remark that is rather long for\n  this\n"
      "  quarvel polish floor --wax 3 --dry --soft\n");
  EXPECT_EQ(FoldedHelp(help, 100), help);
  const std::string as_wide = "A short line\nand one that fills the screen.\n";
  EXPECT_EQ(FoldedHelp(as_wide, 30), as_wide);
  EXPECT_EQ(FoldedHelp(help, 0), help);
  EXPECT_EQ(FoldedHelp("A paragraph of two lines, of which\nthe second is short.\n", 30),
            "A paragraph of two lines, of\nwhich the second is short.\n");
}

}  // namespace
}  // namespace quarvel::hosts
