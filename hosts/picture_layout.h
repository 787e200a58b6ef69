// Where the parts of a picture file stand, in pixels: the same for each format.
#pragma once

#include <cstdint>
#include <string>

#include "hosts/picture_file.h"
#include "inspect/matrix_picture.h"

namespace quarvel::hosts {

inline constexpr int kPictureShades = 8;

// One direction of the matrix.
struct PictureSide {
  std::int32_t points = 0;
  std::int32_t pixels = 1;  // of a point

  std::int32_t length() const { return points * pixels; }
};

// How large everything is, and where the matrix stands.
struct PictureFrame {
  PictureSide across;
  PictureSide down;
  std::int32_t left;
  std::int32_t top;
  std::int32_t width;
  std::int32_t height;
};

struct PictureLayout {
  PictureLayout(const model::ModelStore& store, const PictureRoom& room);

  inspect::MatrixPicture points;
  // Pixels of a point.
  std::int32_t point_width;
  std::int32_t point_height;
  // The matrix without its frame.
  std::int32_t left;
  std::int32_t top;
  std::int32_t matrix_width;
  std::int32_t matrix_height;
  // The whole picture.
  std::int32_t width;
  std::int32_t height;
  // The numbers at the ends, and the words between them; each empty where there is no room for it.
  std::string last_row;
  std::string last_column;
  std::string rows_word;
  std::string columns_word;

 private:
  PictureLayout(const model::ModelStore& store, const PictureFrame& frame);
};

}  // namespace quarvel::hosts
