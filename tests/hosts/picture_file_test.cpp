#include "hosts/picture_file.h"

#include <algorithm>
#include <utility>

#include <gtest/gtest.h>

#include "component/lp_model.h"
#include "hosts/picture_layout.h"
#include "hosts/png_file.h"
#include "platform/scripted/scripted_desktop.h"
#include "tests/support/inflate.h"
#include "tests/support/model_builder.h"

namespace quarvel::hosts {
namespace {

class PictureFile : public ::testing::Test {
 protected:
  void Build(int rows, int columns) {
    ModelBuilder builder(model_);
    for (int r = 0; r < rows; ++r) builder.Row("R" + std::to_string(r), 'L');
    for (int c = 0; c < columns; ++c) {
      const std::string name = "C" + std::to_string(c);
      builder.Column(name).Element(name, "R" + std::to_string(c % rows), 1);
    }
  }
  PictureLayout Layout(const PictureRoom& room) { return {model_.store(), room}; }

  platform::ScriptedDesktop desktop_;
  LPModel model_{desktop_};
};

TEST_F(PictureFile, MakesPointsOfASmallMatrixLarge) {
  Build(4, 6);
  const PictureLayout layout = Layout({600, 600});
  EXPECT_EQ(layout.point_width, 24);
  EXPECT_EQ(layout.point_height, 24);
  EXPECT_EQ(layout.matrix_width, 144);
  EXPECT_EQ(layout.last_column, "5");
}

TEST_F(PictureFile, LeavesOutWordsWithoutRoom) {
  Build(1, 2);
  const PictureLayout narrow = Layout({600, 600});
  EXPECT_EQ(narrow.last_row, "");
  EXPECT_EQ(narrow.last_column, "1");
  EXPECT_EQ(narrow.rows_word, "");
  EXPECT_EQ(narrow.columns_word, "");
}

TEST_F(PictureFile, KeepsToTheRoom) {
  Build(30, 900);
  const PictureLayout layout = Layout({500, 400});
  EXPECT_EQ(layout.matrix_width, 500);
  EXPECT_EQ(layout.points.height(), 30);
  EXPECT_EQ(layout.points.width(), 250);
  EXPECT_EQ(layout.point_width, 2);
  EXPECT_EQ(layout.point_height, 4);  // few rows are stretched
  EXPECT_EQ(layout.width, layout.left + 500 + 16);
}

TEST_F(PictureFile, IsAsWideOrHighAsAsked) {
  Build(6, 6);
  const PictureLayout wide = Layout({.whole_width = 600});
  EXPECT_EQ(wide.width, 600);
  EXPECT_EQ(wide.point_width, 85);
  EXPECT_EQ(wide.point_height, 85);
  EXPECT_EQ(wide.matrix_width, 510);
  EXPECT_GE(wide.left + wide.matrix_width + 16, 599);
  const PictureLayout high = Layout({.whole_height = 300});
  EXPECT_EQ(high.height, 300);
  EXPECT_EQ(high.matrix_width, high.matrix_height);
  const PictureLayout both = Layout({.whole_width = 400, .whole_height = 200});
  EXPECT_EQ(both.width, 400);
  EXPECT_EQ(both.height, 200);
  EXPECT_GT(both.matrix_width, both.matrix_height);
  // What no whole points fill is shared by both sides.
  EXPECT_EQ(Layout({.whole_height = 300}).top, 42);
  EXPECT_EQ(Layout({.whole_height = 301}).top, 42);
  EXPECT_EQ(Layout({.whole_height = 301}).matrix_height, 240);
  const inspect::PictureSize size = PictureSizeOf(model_.store(), {.whole_width = 400});
  EXPECT_EQ(size.width, 400);
}

TEST_F(PictureFile, IsAsWideAsAskedWhateverTheShape) {
  for (const auto& [rows, columns] : {std::pair(3, 900), {900, 300}, {1, 1}}) {
    model_.store().Clear();
    Build(rows, columns);
    for (const int width : {200, 333, 1000, 3000}) {
      const PictureLayout layout = Layout({.whole_width = width});
      EXPECT_EQ(layout.width, width) << rows << ' ' << columns;
      EXPECT_LE(layout.left + layout.matrix_width + 16, width);
      EXPECT_LE(layout.matrix_height, std::max(1000, width));
    }
  }
}

TEST_F(PictureFile, IsLargerWhereTheNumbersTakeMore) {
  Build(6, 6);
  const PictureLayout layout = Layout({.whole_width = 50, .whole_height = 10});
  EXPECT_EQ(layout.points.width(), 1);
  EXPECT_EQ(layout.width, layout.left + 2 + 16);
  EXPECT_EQ(layout.height, layout.top + 2 + 16);
}

TEST_F(PictureFile, DrawsSvg) {
  Build(2, 3);
  const std::string small = SvgPicture(model_.store(), {100, 100});
  EXPECT_EQ(small.find(">rows<"), std::string::npos);
  EXPECT_NE(small.find("<title>2 rows, 3 columns, 3 elements; the fullest point has 1 element<"),
            std::string::npos);
  EXPECT_NE(small.find("d=\"M0 0h1M2 0h1M1 1h1\""), std::string::npos) << small;
  EXPECT_TRUE(small.ends_with("</svg>\n"));
}

TEST_F(PictureFile, SaysWhatRunsWhere) {
  Build(40, 30);
  const std::string svg = SvgPicture(model_.store(), {300, 300});
  EXPECT_TRUE(svg.starts_with("<svg xmlns=\"http://www.w3.org/2000/svg\" width=")) << svg;
  EXPECT_NE(svg.find(">columns</text>"), std::string::npos);
  EXPECT_NE(svg.find(">rows</text>"), std::string::npos);
  EXPECT_TRUE(svg.ends_with("</svg>\n"));
}

TEST_F(PictureFile, DrawsPngOfTheSamePoints) {
  if (!CanWritePng()) GTEST_SKIP() << "built without zlib";
  Build(2, 3);
  const PictureLayout layout = Layout({100, 100});
  const std::string png = PngPicture(model_.store(), {100, 100});
  const std::size_t data = png.find("IDAT") + 4;
  const std::string pixels =
      quarvel::testing::Inflate(png.substr(data, png.find("IEND") - 8 - data));
  const auto at = [&](std::int32_t x, std::int32_t y) {
    const auto line = static_cast<std::size_t>(layout.top + y * layout.point_height + 1);
    const auto place = static_cast<std::size_t>(layout.left + x * layout.point_width + 1);
    return static_cast<int>(pixels[line * static_cast<std::size_t>(layout.width + 1) + 1 + place]);
  };
  constexpr int kDarkest = 3 + kPictureShades - 1;
  for (int y = 0; y < 2; ++y) {
    for (int x = 0; x < 3; ++x) EXPECT_EQ(at(x, y), x % 2 == y ? kDarkest : 0) << x << ' ' << y;
  }
}

TEST_F(PictureFile, DrawsAModelWithoutElements) {
  ModelBuilder(model_).Row("R", 'L').Column("X");
  EXPECT_TRUE(SvgPicture(model_.store(), {}).ends_with("</svg>\n"));
  EXPECT_GT(PngPicture(model_.store(), {}).size(), 100u);
}

}  // namespace
}  // namespace quarvel::hosts
