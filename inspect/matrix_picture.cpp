#include "inspect/matrix_picture.h"

#include <algorithm>
#include <cmath>

namespace quarvel::inspect {
namespace {

// The point for a number from 1 of so many, on a line of so many points.
std::int32_t PointOf(std::int32_t number, std::int32_t count, std::int32_t points) {
  return static_cast<std::int32_t>(std::int64_t{number - 1} * points / count);
}

}  // namespace

MatrixPicture::MatrixPicture(const model::ModelStore& store, PictureSize size)
    : rows_(store.NumberOfRows()),
      columns_(store.NumberOfColumns()),
      size_{std::min(size.width, columns_), std::min(size.height, rows_)} {
  const model::ModelData& data = store.data();
  counts_.resize(static_cast<std::size_t>(size_.width) * static_cast<std::size_t>(size_.height));
  if (counts_.empty()) return;
  model::OneBased<std::int32_t> point_of_row;
  point_of_row.Resize(rows_);
  for (std::int32_t r = 1; r <= rows_; ++r) point_of_row[r] = PointOf(r, rows_, size_.height);
  for (std::int32_t c = 1; c <= columns_; ++c) {
    const std::int32_t x = PointOf(c, columns_, size_.width);
    for (const model::ElementEntry& entry : data.Columns[c].Elements) {
      ++counts_[Position(x, point_of_row[entry.Index])];
    }
  }
  most_ = *std::max_element(counts_.begin(), counts_.end());
}

PictureShades::PictureShades(const MatrixPicture& picture, int levels)
    : picture_(picture), levels_(levels), of_few_(1) {
  constexpr std::int32_t kFew = 256;
  for (std::int32_t count = 1; count <= std::min(picture.most(), kFew); ++count) {
    of_few_.push_back(OfMany(count));
  }
}

int PictureShades::OfMany(std::int32_t count) const {
  return ShadeOf(count, picture_.most(), levels_);
}

PictureSize FitPicture(std::int32_t rows, std::int32_t columns, PictureSize room,
                       std::int32_t least) {
  const double scale = std::max(
      {1.0, static_cast<double>(columns) / room.width, static_cast<double>(rows) / room.height});
  const auto fit = [scale, least](std::int32_t count, std::int32_t most) {
    const auto scaled = static_cast<std::int32_t>(std::lround(count / scale));
    return std::min({std::max(scaled, least), count, most});
  };
  return {fit(columns, room.width), fit(rows, room.height)};
}

int ShadeOf(std::int32_t count, std::int32_t most, int levels) {
  const double part = std::log1p(count) / std::log1p(most);
  return std::clamp(static_cast<int>(std::ceil(part * levels)), 1, levels);
}

}  // namespace quarvel::inspect
