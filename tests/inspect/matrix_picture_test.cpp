#include "inspect/matrix_picture.h"

#include <gtest/gtest.h>

#include "component/lp_model.h"
#include "platform/scripted/scripted_desktop.h"
#include "tests/support/model_builder.h"

namespace quarvel::inspect {
namespace {

// A model of so many rows and columns, R1 and C1 the first.
class MatrixPictureTest : public ::testing::Test {
 protected:
  ModelBuilder Build(int rows, int columns) {
    ModelBuilder builder(model_);
    for (int r = 1; r <= rows; ++r) builder.Row("R" + std::to_string(r), 'L');
    for (int c = 1; c <= columns; ++c) builder.Column("C" + std::to_string(c));
    return builder;
  }
  MatrixPicture Take(PictureSize size) { return MatrixPicture(model_.store(), size); }

  platform::ScriptedDesktop desktop_;
  LPModel model_{desktop_};
};

TEST_F(MatrixPictureTest, HasAPointForEachPairWhereThereIsRoom) {
  Build(2, 3).Element("C3", "R1", 5).Element("C1", "R2", 5);
  const MatrixPicture picture = Take({100, 100});
  EXPECT_EQ(picture.width(), 3);
  EXPECT_EQ(picture.height(), 2);
  EXPECT_EQ(picture.most(), 1);
  for (int y = 0; y < 2; ++y) {
    for (int x = 0; x < 3; ++x) {
      EXPECT_EQ(picture.At(x, y), (x == 2 && y == 0) || (x == 0 && y == 1) ? 1 : 0);
    }
  }
}

TEST_F(MatrixPictureTest, CountsWhatAPointStandsFor) {
  Build(4, 6).Element("C1", "R1", 1).Element("C3", "R2", 1).Element("C3", "R1", 0);
  Build(0, 0).Element("C4", "R1", 1).Element("C6", "R4", 1);
  const MatrixPicture picture = Take({2, 2});
  EXPECT_EQ(picture.At(0, 0), 3);
  EXPECT_EQ(picture.At(1, 0), 1);
  EXPECT_EQ(picture.At(0, 1), 0);
  EXPECT_EQ(picture.At(1, 1), 1);
  EXPECT_EQ(picture.most(), 3);
  const PictureShades shades(picture, 8);
  EXPECT_EQ(shades.At(0, 0), 8);
  EXPECT_EQ(shades.At(0, 1), 0);
  EXPECT_EQ(shades.At(1, 1), 4);
}

TEST_F(MatrixPictureTest, IsNothingWithoutRowsOrColumns) {
  EXPECT_EQ(Take({10, 10}).most(), 0);
  Build(3, 0);
  EXPECT_EQ(Take({10, 10}).width(), 0);
}

TEST(FitPicture, KeepsTheShapeWithinTheRoom) {
  const struct {
    int rows, columns;
    PictureSize room;
    int width, height;
  } cases[] = {
      {10, 20, {100, 100}, 20, 10},         // no larger than the matrix
      {1000, 2000, {100, 100}, 100, 50},    // the width decides
      {2000, 1000, {100, 100}, 50, 100},    // the height does
      {25, 10500, {1000, 1000}, 1000, 12},  // no side is too short:
      {500, 10500, {1000, 1000}, 1000, 48}, {20, 100000, {1000, 1000}, 1000, 12},
      {5, 100000, {1000, 1000}, 1000, 5},   {5, 100000, {4, 4}, 4, 4},
  };
  for (const auto& c : cases) {
    const PictureSize size = FitPicture(c.rows, c.columns, c.room, 12);
    EXPECT_EQ(size.width, c.width) << c.rows << ' ' << c.columns;
    EXPECT_EQ(size.height, c.height) << c.rows << ' ' << c.columns;
  }
}

TEST(ShadeOf, GrowsFromOneToTheDarkest) {
  EXPECT_EQ(ShadeOf(1, 1, 8), 8);
  EXPECT_EQ(ShadeOf(1, 1000000, 8), 1);
  int last = 1;
  for (int count = 1; count <= 1000; ++count) {
    const int shade = ShadeOf(count, 1000, 8);
    EXPECT_GE(shade, last);
    EXPECT_LE(shade, 8);
    last = shade;
  }
  EXPECT_EQ(last, 8);
}

}  // namespace
}  // namespace quarvel::inspect
