// Pictures as PNG files, with a palette.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace quarvel::hosts {

using Color = std::array<std::uint8_t, 3>;  // red, green, blue

// Pixels line by line from the top, each the number of a color.
class Raster {
 public:
  Raster(std::int32_t width, std::int32_t height);

  std::int32_t width() const { return width_; }
  std::int32_t height() const { return height_; }
  // What lies outside the picture is left out.
  void Set(std::int32_t x, std::int32_t y, std::uint8_t color);
  void Fill(std::int32_t x, std::int32_t y, std::int32_t width, std::int32_t height,
            std::uint8_t color);
  std::string_view Line(std::int32_t y) const;

 private:
  std::size_t Position(std::int32_t x, std::int32_t y) const {
    return static_cast<std::size_t>(y) * static_cast<std::size_t>(width_) +
           static_cast<std::size_t>(x);
  }

  std::int32_t width_;
  std::int32_t height_;
  std::string pixels_;
};

// False in a build without zlib, which packs the pixels.
bool CanWritePng();
// Its pixels as files have them, whatever the colors are.
struct PackedPixels {
  std::int32_t width;
  std::int32_t height;
  std::string lines;
};
PackedPixels PackPixels(const Raster& raster);
// The bytes of the file. At most 256 colors, and each pixel one of them.
std::string PngBytes(const PackedPixels& pixels, const std::vector<Color>& palette);

}  // namespace quarvel::hosts
