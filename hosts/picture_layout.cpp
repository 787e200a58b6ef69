#include "hosts/picture_layout.h"

#include <algorithm>

#include "text/numbers.h"

namespace quarvel::hosts {
namespace {

constexpr std::int32_t kLeastPixels = 120;  // of a side, as far as points may grow
constexpr std::int32_t kSmallestPoint = 2;  // a single pixel is hard to see
constexpr std::int32_t kLargestPoint = 24;
constexpr std::int32_t kMargin = 16;
constexpr std::int32_t kLineOfText = 24;
constexpr std::int32_t kDigit = 12;

inspect::PictureSize FitPoints(const model::ModelStore& store, const PictureRoom& room) {
  const inspect::PictureSize most = {std::max(room.width / kSmallestPoint, 1),
                                     std::max(room.height / kSmallestPoint, 1)};
  return inspect::FitPicture(store.NumberOfRows(), store.NumberOfColumns(), most,
                             kLeastPixels / kSmallestPoint);
}

// Points are squares, unless that made a side of the picture too short.
std::int32_t PixelsOf(std::int32_t points, std::int32_t square) {
  if (points == 0) return square;
  const std::int32_t stretched = kLeastPixels / points;
  return std::max(square, std::min(stretched, kLargestPoint));
}

std::int32_t Square(const inspect::MatrixPicture& points, const PictureRoom& room) {
  const std::int32_t wide = room.width / std::max(points.width(), 1);
  const std::int32_t high = room.height / std::max(points.height(), 1);
  return std::clamp(std::min(wide, high), kSmallestPoint, kLargestPoint);
}

// Empty for a single record, which is 0.
std::string LastNumber(std::int32_t count) {
  return count > 1 ? text::IntegerText(count - 1) : std::string();
}

}  // namespace

PictureLayout::PictureLayout(const model::ModelStore& store, const PictureRoom& room)
    : points(store, FitPoints(store, room)),
      point_width(PixelsOf(points.width(), Square(points, room))),
      point_height(PixelsOf(points.height(), Square(points, room))),
      matrix_width(points.width() * point_width),
      matrix_height(points.height() * point_height),
      last_row(LastNumber(points.rows())),
      last_column(LastNumber(points.columns())) {
  if (matrix_height >= 3 * kLineOfText) rows_word = "rows";
  constexpr std::string_view kColumns = "columns";
  const auto letters = static_cast<std::int32_t>(2 * last_column.size() + kColumns.size());
  if (matrix_width > letters * kDigit + 2 * kMargin) columns_word = kColumns;
  const auto digits = static_cast<std::int32_t>(std::max<std::size_t>(last_row.size(), 4));
  left = kMargin + digits * kDigit + kMargin / 2;
  top = kMargin + kLineOfText;
  width = left + matrix_width + kMargin;
  height = top + matrix_height + kMargin;
}

}  // namespace quarvel::hosts
