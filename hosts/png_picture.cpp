// A picture as PNG. It has no fonts to draw with, so the few letters that it needs stand here.

#include <algorithm>
#include <array>

#include "hosts/picture_file.h"
#include "hosts/picture_layout.h"
#include "hosts/png_file.h"

namespace quarvel::hosts {
namespace {

constexpr std::uint8_t kGround = 0;
constexpr std::uint8_t kInk = 1;
constexpr std::uint8_t kFrame = 2;
constexpr std::uint8_t kFirstShade = 3;

constexpr std::int32_t kGlyphWidth = 5;
constexpr std::int32_t kGlyphHeight = 7;
constexpr std::int32_t kScale = 2;
constexpr std::int32_t kAdvance = (kGlyphWidth + 1) * kScale;

// Lines from the top, the leftmost pixel in the highest of five bits.
struct Glyph {
  char letter;
  std::array<std::uint8_t, 7> lines;
};

constexpr Glyph kGlyphs[] = {
    {'0', {0x0E, 0x11, 0x11, 0x11, 0x11, 0x11, 0x0E}},
    {'1', {0x04, 0x0C, 0x04, 0x04, 0x04, 0x04, 0x0E}},
    {'2', {0x0E, 0x11, 0x01, 0x02, 0x04, 0x08, 0x1F}},
    {'3', {0x1F, 0x02, 0x04, 0x02, 0x01, 0x11, 0x0E}},
    {'4', {0x02, 0x06, 0x0A, 0x12, 0x1F, 0x02, 0x02}},
    {'5', {0x1F, 0x10, 0x1E, 0x01, 0x01, 0x11, 0x0E}},
    {'6', {0x06, 0x08, 0x10, 0x1E, 0x11, 0x11, 0x0E}},
    {'7', {0x1F, 0x01, 0x02, 0x04, 0x08, 0x08, 0x08}},
    {'8', {0x0E, 0x11, 0x11, 0x0E, 0x11, 0x11, 0x0E}},
    {'9', {0x0E, 0x11, 0x11, 0x0F, 0x01, 0x02, 0x0C}},
    {'c', {0x00, 0x00, 0x0E, 0x10, 0x10, 0x11, 0x0E}},
    {'l', {0x0C, 0x04, 0x04, 0x04, 0x04, 0x04, 0x0E}},
    {'m', {0x00, 0x00, 0x1A, 0x15, 0x15, 0x15, 0x15}},
    {'n', {0x00, 0x00, 0x16, 0x19, 0x11, 0x11, 0x11}},
    {'o', {0x00, 0x00, 0x0E, 0x11, 0x11, 0x11, 0x0E}},
    {'r', {0x00, 0x00, 0x16, 0x19, 0x10, 0x10, 0x10}},
    {'s', {0x00, 0x00, 0x0F, 0x10, 0x0E, 0x01, 0x1E}},
    {'u', {0x00, 0x00, 0x11, 0x11, 0x11, 0x13, 0x0D}},
    {'w', {0x00, 0x00, 0x11, 0x11, 0x15, 0x15, 0x0A}},
};

void DrawGlyph(Raster& raster, std::int32_t x, std::int32_t y, char letter) {
  const auto* const glyph =
      std::find_if(std::begin(kGlyphs), std::end(kGlyphs),
                   [letter](const Glyph& known) { return known.letter == letter; });
  if (glyph == std::end(kGlyphs)) return;
  for (std::int32_t line = 0; line < kGlyphHeight; ++line) {
    for (std::int32_t place = 0; place < kGlyphWidth; ++place) {
      const unsigned bits = glyph->lines[static_cast<std::size_t>(line)];
      if (((bits >> (kGlyphWidth - 1 - place)) & 1U) == 0) continue;
      raster.Fill(x + place * kScale, y + line * kScale, kScale, kScale, kInk);
    }
  }
}

std::int32_t WidthOf(std::string_view words) {
  return static_cast<std::int32_t>(words.size()) * kAdvance - kScale;
}

// From its top left.
void DrawText(Raster& raster, std::int32_t x, std::int32_t y, std::string_view words) {
  for (const char letter : words) {
    DrawGlyph(raster, x, y, letter);
    x += kAdvance;
  }
}

void DrawLabels(Raster& raster, const PictureLayout& layout) {
  constexpr std::int32_t kGap = 8;
  constexpr std::int32_t kHigh = kGlyphHeight * kScale;
  const std::int32_t above = layout.top - kGap - kHigh;
  const std::int32_t right = layout.left + layout.matrix_width;
  DrawText(raster, layout.left, above, "0");
  DrawText(raster, layout.left + (layout.matrix_width - WidthOf(layout.columns_word)) / 2, above,
           layout.columns_word);
  DrawText(raster, std::max(right - WidthOf(layout.last_column), layout.left + 2 * kAdvance), above,
           layout.last_column);
  const auto beside = [&](std::int32_t y, std::string_view words) {
    DrawText(raster, layout.left - kGap - WidthOf(words), y, words);
  };
  beside(layout.top, "0");
  beside(layout.top + (layout.matrix_height - kHigh) / 2, layout.rows_word);
  beside(layout.top + layout.matrix_height - kHigh, layout.last_row);
}

void DrawPoints(Raster& raster, const PictureLayout& layout) {
  const inspect::PictureShades shades(layout.points, kPictureShades);
  for (std::int32_t y = 0; y < layout.points.height(); ++y) {
    for (std::int32_t x = 0; x < layout.points.width(); ++x) {
      const int shade = shades.At(x, y);
      if (shade == 0) continue;
      raster.Fill(layout.left + x * layout.point_width, layout.top + y * layout.point_height,
                  layout.point_width, layout.point_height,
                  static_cast<std::uint8_t>(kFirstShade + shade - 1));
    }
  }
}

void DrawFrame(Raster& raster, const PictureLayout& layout) {
  const std::int32_t left = layout.left - 1;
  const std::int32_t top = layout.top - 1;
  const std::int32_t wide = layout.matrix_width + 2;
  const std::int32_t high = layout.matrix_height + 2;
  raster.Fill(left, top, wide, 1, kFrame);
  raster.Fill(left, top + high - 1, wide, 1, kFrame);
  raster.Fill(left, top, 1, high, kFrame);
  raster.Fill(left + wide - 1, top, 1, high, kFrame);
}

struct Shading {
  Color ground;
  Color ink;
  Color frame;
  // A single element is seen in the first, the fullest point is drawn in the second.
  Color few;
  Color many;
};
constexpr Shading kLight = {{0xFF, 0xFF, 0xFF},
                            {0x22, 0x22, 0x22},
                            {0x88, 0x88, 0x88},
                            {0x8F, 0xB4, 0xDC},
                            {0x08, 0x30, 0x6B}};
constexpr Shading kDark = {{0x16, 0x1A, 0x1E},
                           {0xDD, 0xDD, 0xDD},
                           {0x88, 0x88, 0x88},
                           {0x3A, 0x68, 0x9C},
                           {0xD6, 0xE9, 0xFF}};

std::vector<Color> PaletteOf(const Shading& shading) {
  std::vector<Color> palette = {shading.ground, shading.ink, shading.frame};
  for (int shade = 0; shade < kPictureShades; ++shade) {
    Color color = {};
    for (std::size_t part = 0; part < color.size(); ++part) {
      const int apart = shading.many[part] - shading.few[part];
      color[part] =
          static_cast<std::uint8_t>(shading.few[part] + apart * shade / (kPictureShades - 1));
    }
    palette.push_back(color);
  }
  return palette;
}

}  // namespace

std::string PngPicture(const model::ModelStore& store, const PictureRoom& room) {
  const PictureLayout layout(store, room);
  Raster raster(layout.width, layout.height);
  raster.Fill(0, 0, layout.width, layout.height, kGround);
  DrawLabels(raster, layout);
  DrawPoints(raster, layout);
  DrawFrame(raster, layout);
  return PngBytes(PackPixels(raster), PaletteOf(kLight));
}

PointsInPng PngPoints(const inspect::MatrixPicture& points) {
  const inspect::PictureShades shades(points, kPictureShades);
  Raster raster(points.width(), points.height());
  for (std::int32_t y = 0; y < points.height(); ++y) {
    for (std::int32_t x = 0; x < points.width(); ++x) {
      const int shade = shades.At(x, y);
      if (shade > 0) raster.Set(x, y, static_cast<std::uint8_t>(kFirstShade + shade - 1));
    }
  }
  const PackedPixels pixels = PackPixels(raster);
  return {PngBytes(pixels, PaletteOf(kLight)), PngBytes(pixels, PaletteOf(kDark))};
}

}  // namespace quarvel::hosts
