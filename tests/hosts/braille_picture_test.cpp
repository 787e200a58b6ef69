#include "hosts/braille_picture.h"

#include <sstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "component/lp_model.h"
#include "platform/scripted/scripted_desktop.h"
#include "tests/support/model_builder.h"
#include "text/encoding.h"

namespace quarvel::hosts {
namespace {

class Braille : public ::testing::Test {
 protected:
  // So many rows and columns with elements on the diagonal.
  void BuildDiagonal(int rows, int columns) {
    ModelBuilder builder(model_);
    for (int r = 0; r < rows; ++r) builder.Row("R" + std::to_string(r), 'L');
    for (int c = 0; c < columns; ++c) {
      const std::string name = "C" + std::to_string(c);
      builder.Column(name).Element(
          name, "R" + std::to_string(static_cast<std::int64_t>(c) * rows / columns), 1);
    }
  }
  std::string Draw(const BrailleRoom& room) { return BraillePicture(model_.store(), room); }
  std::vector<std::string> Lines(const BrailleRoom& room) {
    std::istringstream text(Draw(room));
    std::vector<std::string> lines;
    for (std::string line; std::getline(text, line);) lines.push_back(line);
    return lines;
  }

  platform::ScriptedDesktop desktop_;
  LPModel model_{desktop_};
};

TEST_F(Braille, DrawsEachElementOfASmallMatrixLarge) {
  BuildDiagonal(2, 3);
  EXPECT_EQ(Draw({}),
            "      columns 0 to 2\n"
            "     \u250C\u2500\u2500\u2500\u2500\u2500\u2500\u2510\n"
            "   0 \u2502\u28FF\u28FF\u28FF\u28FF\u2800\u2800\u2502\n"
            "   1 \u2502\u2800\u2800\u2800\u2800\u28FF\u28FF\u2502\n"
            "     \u2514\u2500\u2500\u2500\u2500\u2500\u2500\u2518\n");
}

TEST_F(Braille, PutsEightDotsIntoALetter) {
  BuildDiagonal(40, 40);
  const std::vector<std::string> lines = Lines({.width = 27, .height = 10});
  ASSERT_EQ(lines.size(), 13u);
  EXPECT_EQ(lines[0], "      0     columns     39");
  EXPECT_TRUE(lines[2].starts_with("   0 \u2502\u2811\u2884\u2800")) << lines[2];
  EXPECT_TRUE(lines[7].starts_with("rows \u2502")) << lines[7];
  EXPECT_TRUE(lines[11].starts_with("  39 \u2502")) << lines[11];
}

TEST_F(Braille, NamesTheColumnsInWordsWhereTheFirstAndLastHaveNoRoom) {
  BuildDiagonal(60, 60);
  EXPECT_EQ(Lines({.width = 23, .height = 10})[0], "      0   columns   59");
  EXPECT_EQ(Lines({.width = 22, .height = 10})[0], "      columns 0 to 59");
}

TEST_F(Braille, FillsTheWidthAndNoMore) {
  BuildDiagonal(3000, 9000);
  for (const int width : {20, 40, 80, 200}) {
    const std::vector<std::string> lines = Lines({.width = width, .height = 30});
    for (std::size_t i = 1; i + 1 < lines.size(); ++i) {
      EXPECT_EQ(text::CharacterCount(lines[i]), static_cast<std::size_t>(width)) << lines[i];
    }
    EXPECT_LE(lines.size(), 34u);
  }
  EXPECT_EQ(Lines({}).back(), "A dot is up to 63 rows by 62 columns; the fullest has 62 elements.");
}

TEST_F(Braille, KeepsToTheHeight) {
  BuildDiagonal(5000, 50);
  EXPECT_EQ(Lines({.width = 80, .height = 6}).size(), 10u);
}

TEST_F(Braille, ShadesOnlyWhereItIsToldTo) {
  BuildDiagonal(300, 300);
  ModelBuilder builder(model_);
  for (int c = 0; c < 60; ++c) builder.Element("C" + std::to_string(c), "R0", 1);
  const Pen plain(ColorChoice::kNever, {});
  const Pen colored(ColorChoice::kAlways, {});
  EXPECT_EQ(Draw({40, 10, plain}).find('\x1B'), std::string::npos);
  const std::string shaded = Draw({40, 10, colored});
  EXPECT_NE(shaded.find("\x1B[1m"), std::string::npos);
  EXPECT_NE(shaded.find("\x1B[0m"), std::string::npos);
}

TEST_F(Braille, DrawsAnEmptyMatrix) {
  ModelBuilder(model_).Row("R", 'L').Column("X");
  EXPECT_NE(Draw({}).find("\u2800"), std::string::npos);
}

}  // namespace
}  // namespace quarvel::hosts
