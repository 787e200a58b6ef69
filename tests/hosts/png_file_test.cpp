#include "hosts/png_file.h"

#include <gtest/gtest.h>

#include "tests/support/inflate.h"

namespace quarvel::hosts {
namespace {

std::string Bytes(std::initializer_list<int> bytes) {
  std::string text;
  for (const int byte : bytes) text += static_cast<char>(byte);
  return text;
}

// The bytes of a chunk of the file, between its type and its sum.
std::string Chunk(const std::string& file, const std::string& type) {
  const std::size_t at = file.find(type);
  if (at == std::string::npos) return "none";
  std::size_t size = 0;
  for (std::size_t i = at - 4; i < at; ++i) size = size * 256 + static_cast<std::uint8_t>(file[i]);
  return file.substr(at + 4, size);
}

TEST(PngFile, HoldsSizePaletteAndPixels) {
  if (!CanWritePng()) GTEST_SKIP() << "built without zlib";
  Raster raster(3, 2);
  raster.Set(1, 0, 2);
  raster.Set(2, 1, 1);
  const std::string file = PngBytes(PackPixels(raster), {{255, 255, 255}, {1, 2, 3}, {4, 5, 6}});
  EXPECT_TRUE(file.starts_with(Bytes({0x89, 'P', 'N', 'G', '\r', '\n', 0x1A, '\n', 0, 0, 0, 13})));
  EXPECT_EQ(Chunk(file, "IHDR"), Bytes({0, 0, 0, 3, 0, 0, 0, 2, 8, 3, 0, 0, 0}));
  EXPECT_EQ(Chunk(file, "PLTE"), Bytes({255, 255, 255, 1, 2, 3, 4, 5, 6}));
  EXPECT_EQ(quarvel::testing::Inflate(Chunk(file, "IDAT")), Bytes({0, 0, 2, 0, 0, 0, 0, 1}));
  EXPECT_TRUE(file.ends_with(Bytes({0, 0, 0, 0, 'I', 'E', 'N', 'D', 0xAE, 0x42, 0x60, 0x82})));
}

TEST(Raster, LeavesOutWhatLiesOutside) {
  Raster raster(3, 2);
  raster.Fill(2, 1, 5, 5, 7);
  raster.Fill(-4, -4, 5, 5, 8);
  raster.Set(3, 0, 9);
  raster.Set(0, -1, 9);
  EXPECT_EQ(raster.Line(0), Bytes({8, 0, 0}));
  EXPECT_EQ(raster.Line(1), Bytes({0, 0, 7}));
}

}  // namespace
}  // namespace quarvel::hosts
