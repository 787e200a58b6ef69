// A picture of a matrix as the bytes of a file: SVG or PNG, with a frame, the words rows and columns and
// their numbers from 0, and darker points where more elements stand.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "inspect/matrix_picture.h"
#include "model/model_store.h"

namespace quarvel::hosts {

struct PictureRoom {
  // Pixels for the matrix itself.
  std::int32_t width = 1000;
  std::int32_t height = 1000;
  // Of the whole picture, which is just so wide or high where that leaves room for a matrix. Points are then
  // as large as that takes, and the margins take what is left over.
  std::optional<std::int32_t> whole_width = {};
  std::optional<std::int32_t> whole_height = {};
};

// Of the whole picture, in pixels.
inspect::PictureSize PictureSizeOf(const model::ModelStore& store, const PictureRoom& room);

std::string SvgPicture(const model::ModelStore& store, const PictureRoom& room);
std::string PngPicture(const model::ModelStore& store, const PictureRoom& room);
// The points alone, a pixel each, on a light and on a dark ground.
struct PointsInPng {
  std::string light;
  std::string dark;
};
PointsInPng PngPoints(const inspect::MatrixPicture& points);

}  // namespace quarvel::hosts
