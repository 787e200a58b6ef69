#include "hosts/png_file.h"

#include <algorithm>
#include <new>

#ifdef QUARVEL_HAS_ZLIB
#include <zlib.h>
#endif

namespace quarvel::hosts {
namespace {

void AppendNumber(std::string& bytes, std::uint32_t number) {
  for (int shift = 24; shift >= 0; shift -= 8) bytes += static_cast<char>(number >> shift);
}

#ifdef QUARVEL_HAS_ZLIB

constexpr bool kHasZlib = true;

const Bytef* BytesOf(std::string_view text) { return reinterpret_cast<const Bytef*>(text.data()); }

std::uint32_t SumOf(std::string_view bytes) {
  return static_cast<std::uint32_t>(crc32_z(0, BytesOf(bytes), bytes.size()));
}

std::string Packed(std::string_view bytes) {
  uLongf size = compressBound(static_cast<uLong>(bytes.size()));
  std::string packed(size, '\0');
  const int result = compress2(reinterpret_cast<Bytef*>(packed.data()), &size, BytesOf(bytes),
                               static_cast<uLong>(bytes.size()), Z_DEFAULT_COMPRESSION);
  if (result != Z_OK) throw std::bad_alloc();  // there is room: nothing else can fail
  packed.resize(size);
  return packed;
}

#else

constexpr bool kHasZlib = false;

// Nothing is drawn as PNG then.
std::uint32_t SumOf(std::string_view) { return 0; }
std::string Packed(std::string_view) { return {}; }

#endif

void AppendChunk(std::string& file, std::string_view type, std::string_view content) {
  AppendNumber(file, static_cast<std::uint32_t>(content.size()));
  std::string chunk(type);
  chunk += content;
  file += chunk;
  AppendNumber(file, SumOf(chunk));
}

}  // namespace

Raster::Raster(std::int32_t width, std::int32_t height)
    : width_(width),
      height_(height),
      pixels_(static_cast<std::size_t>(width) * static_cast<std::size_t>(height), '\0') {}

void Raster::Set(std::int32_t x, std::int32_t y, std::uint8_t color) {
  if (x < 0 || y < 0 || x >= width_ || y >= height_) return;
  pixels_[Position(x, y)] = static_cast<char>(color);
}

void Raster::Fill(std::int32_t x, std::int32_t y, std::int32_t width, std::int32_t height,
                  std::uint8_t color) {
  for (std::int32_t line = y; line < y + height; ++line) {
    for (std::int32_t place = x; place < x + width; ++place) Set(place, line, color);
  }
}

std::string_view Raster::Line(std::int32_t y) const {
  return std::string_view(pixels_).substr(Position(0, y), static_cast<std::size_t>(width_));
}

bool CanWritePng() { return kHasZlib; }

PackedPixels PackPixels(const Raster& raster) {
  std::string lines;
  for (std::int32_t y = 0; y < raster.height(); ++y) lines.append(1, '\0').append(raster.Line(y));
  return {raster.width(), raster.height(), Packed(lines)};
}

std::string PngBytes(const PackedPixels& pixels, const std::vector<Color>& palette) {
  std::string file = "\x89PNG\r\n\x1A\n";
  std::string header;
  AppendNumber(header, static_cast<std::uint32_t>(pixels.width));
  AppendNumber(header, static_cast<std::uint32_t>(pixels.height));
  // Eight bits a pixel, a palette, and the one way of packing that there is.
  header += std::string_view("\x08\x03\x00\x00\x00", 5);
  AppendChunk(file, "IHDR", header);
  std::string colors;
  for (const Color& color : palette) colors.append(color.begin(), color.end());
  AppendChunk(file, "PLTE", colors);
  AppendChunk(file, "IDAT", pixels.lines);
  AppendChunk(file, "IEND", "");
  return file;
}

}  // namespace quarvel::hosts
