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

struct Sides {
  PictureSide across;
  PictureSide down;
};

// Points are squares, unless that made a side of the picture too short.
std::int32_t PixelsOf(std::int32_t points, std::int32_t square) {
  if (points == 0) return square;
  const std::int32_t stretched = kLeastPixels / points;
  return std::max(square, std::min(stretched, kLargestPoint));
}

// The matrix keeps its shape as far as the room lets it.
Sides FittedSides(std::int32_t rows, std::int32_t columns, const PictureRoom& room) {
  const inspect::PictureSize most = {std::max(room.width / kSmallestPoint, 1),
                                     std::max(room.height / kSmallestPoint, 1)};
  const inspect::PictureSize points =
      inspect::FitPicture(rows, columns, most, kLeastPixels / kSmallestPoint);
  const std::int32_t wide = room.width / std::max(points.width, 1);
  const std::int32_t high = room.height / std::max(points.height, 1);
  const std::int32_t square = std::clamp(std::min(wide, high), kSmallestPoint, kLargestPoint);
  return {{points.width, PixelsOf(points.width, square)},
          {points.height, PixelsOf(points.height, square)}};
}

// A side that takes all of its room, but for less than a pixel a point.
PictureSide FilledSide(std::int32_t records, std::int32_t room) {
  const std::int32_t points = std::min(records, std::max(room / kSmallestPoint, 1));
  return {points, std::max(room / std::max(points, 1), kSmallestPoint)};
}

// The side beside one of that length, so that the matrix keeps its shape within the room.
PictureSide SideBeside(const PictureSide& other, std::int32_t others, std::int32_t records,
                       std::int32_t room) {
  const double wanted = static_cast<double>(other.length()) * records / std::max(others, 1);
  const double least = std::min(kLeastPixels, room);
  return FilledSide(records, static_cast<std::int32_t>(std::clamp<double>(wanted, least, room)));
}

std::int32_t LeftOf(std::string_view last_row) {
  const auto digits = static_cast<std::int32_t>(std::max<std::size_t>(last_row.size(), 4));
  return kMargin + digits * kDigit + kMargin / 2;
}

constexpr std::int32_t kTop = kMargin + kLineOfText;

Sides SidesOf(std::int32_t rows, std::int32_t columns, const PictureRoom& room, std::int32_t left) {
  Sides sides;
  if (room.whole_width) {
    sides.across = FilledSide(columns, *room.whole_width - left - kMargin);
    sides.down = SideBeside(sides.across, columns, rows, std::max(room.height, *room.whole_width));
  }
  if (!room.whole_height) return room.whole_width ? sides : FittedSides(rows, columns, room);
  sides.down = FilledSide(rows, *room.whole_height - kTop - kMargin);
  if (!room.whole_width)
    sides.across = SideBeside(sides.down, rows, columns, std::max(room.width, *room.whole_height));
  return sides;
}

// Empty for a single record, which is 0.
std::string LastNumber(std::int32_t count) {
  return count > 1 ? text::IntegerText(count - 1) : std::string();
}

// What a picture of a given size has left over goes to both margins.
PictureFrame FrameOf(const model::ModelStore& store, const PictureRoom& room) {
  const std::int32_t rows = store.NumberOfRows();
  const std::int32_t left = LeftOf(LastNumber(rows));
  const Sides sides = SidesOf(rows, store.NumberOfColumns(), room, left);
  const std::int32_t least_width = left + sides.across.length() + kMargin;
  const std::int32_t least_height = kTop + sides.down.length() + kMargin;
  const std::int32_t width = std::max(room.whole_width.value_or(0), least_width);
  const std::int32_t height = std::max(room.whole_height.value_or(0), least_height);
  return {.across = sides.across,
          .down = sides.down,
          .left = left + (width - least_width) / 2,
          .top = kTop + (height - least_height) / 2,
          .width = width,
          .height = height};
}

}  // namespace

inspect::PictureSize PictureSizeOf(const model::ModelStore& store, const PictureRoom& room) {
  const PictureFrame frame = FrameOf(store, room);
  return {frame.width, frame.height};
}

PictureLayout::PictureLayout(const model::ModelStore& store, const PictureRoom& room)
    : PictureLayout(store, FrameOf(store, room)) {}

PictureLayout::PictureLayout(const model::ModelStore& store, const PictureFrame& frame)
    : points(store, {frame.across.points, frame.down.points}),
      point_width(frame.across.pixels),
      point_height(frame.down.pixels),
      left(frame.left),
      top(frame.top),
      matrix_width(frame.across.length()),
      matrix_height(frame.down.length()),
      width(frame.width),
      height(frame.height),
      last_row(LastNumber(points.rows())),
      last_column(LastNumber(points.columns())) {
  if (matrix_height >= 3 * kLineOfText) rows_word = "rows";
  constexpr std::string_view kColumns = "columns";
  const auto letters = static_cast<std::int32_t>(2 * last_column.size() + kColumns.size());
  if (matrix_width > letters * kDigit + 2 * kMargin) columns_word = kColumns;
}

}  // namespace quarvel::hosts
