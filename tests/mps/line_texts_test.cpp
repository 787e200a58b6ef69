#include "mps/line_texts.h"

#include <memory>
#include <string>

#include <gtest/gtest.h>

#include "tests/support/test_paths.h"

namespace quarvel::mps {
namespace {

auto OpenerOf(const std::string& path) {
  return [path] { return std::make_unique<platform::FileBytes>(platform::InputFile(path)); };
}

TEST(LineTexts, AreThoseOfTheFileAtItsPlaces) {
  const TemporaryFolder folder;
  WriteWholeFile(folder.File("m.mps"), "first\r\n  x Zeile\xC3\xA4 rest\r\nlast");
  FileProblems problems;
  problems.Add({.code = FileProblemCode::kTokens, .line = 3});
  problems.Add({.code = FileProblemCode::kNoSuchRow, .line = 2, .column = 5, .length = 6});
  problems.Add({.code = FileProblemCode::kNoRows});
  problems.Add({.code = FileProblemCode::kTokens, .line = 9});
  ShowLines(OpenerOf(folder.File("m.mps")), problems);
  EXPECT_EQ(problems.kept()[0].text, "last");
  EXPECT_EQ(problems.kept()[1].text, "  x Zeile\xC3\xA4 rest");
  EXPECT_EQ(problems.kept()[1].read, "Zeile\xC3\xA4");
  EXPECT_EQ(problems.kept()[2].text, "");
  EXPECT_EQ(problems.kept()[3].text, "");
}

TEST(LineTexts, StayAsTheyAreWhereTheFileIsGone) {
  const TemporaryFolder folder;
  FileProblems problems;
  problems.Add({.code = FileProblemCode::kTokens, .line = 1, .text = "AS READ"});
  ShowLines(OpenerOf(folder.File("none.mps")), problems);
  ShowLines([] { return nullptr; }, problems);
  EXPECT_EQ(problems.kept()[0].text, "AS READ");
}

// As the problems come, so many of them behind the last.
TEST(LineTexts, BeginAgainForLinesBehindThemAFewTimes) {
  const TemporaryFolder folder;
  WriteWholeFile(folder.File("m.mps"), "one\ntwo\nthree\n");
  LineTexts texts(OpenerOf(folder.File("m.mps")));
  std::string shown;
  for (int i = 0; i < 12; ++i) {
    for (const std::int64_t line : {3, 1}) {
      FileProblem problem{.code = FileProblemCode::kTokens, .line = line, .text = "-"};
      texts.Show(problem);
      shown += problem.text.substr(0, 1);
    }
  }
  EXPECT_EQ(shown, "tototototototot-t-t-t-t-");
}

TEST(LineTexts, EndBetweenCharacters) {
  const std::string line(399, 'x');
  EXPECT_EQ(ShownOf(line + "\xC3\xA4"), line);
  EXPECT_EQ(ShownOf(line + "yz"), line + "y");
  EXPECT_EQ(ShownOf("short"), "short");
}

}  // namespace
}  // namespace quarvel::mps
