// Whole pictures of `quarvel spy`.
#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>

#include <gtest/gtest.h>

#include "hosts/png_file.h"
#include "tests/support/inflate.h"
#include "tests/support/kept_text.h"
#include "tests/support/run_quarvel.h"

namespace quarvel {
namespace {

// "3*0 5": three times 0, then 5.
std::string Runs(std::string_view values) {
  std::string text;
  for (std::size_t i = 0; i < values.size();) {
    const std::size_t end = std::min(values.find_first_not_of(values[i], i), values.size());
    if (!text.empty()) text += ' ';
    if (end - i > 1) text += std::to_string(end - i) + '*';
    text += std::to_string(static_cast<unsigned char>(values[i]));
    i = end;
  }
  return text;
}

// The bytes before the pixels, and each line of pixels, with how often it stands there: which bytes a packer
// makes of them is its own affair.
std::string TextOfPng(std::string_view png) {
  constexpr std::size_t kWidthAt = 19;  // the last byte of four; two are enough here
  const std::size_t data = png.find("IDAT") + 4;
  const std::string lines = testing::Inflate(png.substr(data, png.find("IEND") - 8 - data));
  const auto byte = [&png](std::size_t at) { return static_cast<unsigned char>(png[at]); };
  const std::size_t width = 1 + 256U * byte(kWidthAt - 1) + byte(kWidthAt);
  std::string text = Runs(png.substr(0, data - 8)) + '\n';
  std::size_t times = 0;
  for (std::size_t at = 0; at + width <= lines.size(); at += width) {
    const std::string_view line = std::string_view(lines).substr(at, width);
    ++times;
    if (std::string_view(lines).substr(at + width, width) == line) continue;
    text += std::to_string(times) + " times " + Runs(line) + '\n';
    times = 0;
  }
  return text;
}

std::string PictureOf(const HostFolder& folder, const std::string& name) {
  const std::string model =
      folder.Write("model.mps", ProjectFile("tests/transcripts/models/sizes.mps"));
  EXPECT_EQ(RunQuarvel({"spy", model, "--output", folder.Path(name)}).status, 0);
  return folder.Read(name);
}

TEST(KeptPictures, PngIsTheOneThatWasLookedAt) {
  if (!hosts::CanWritePng()) GTEST_SKIP() << "built without zlib";
  const HostFolder folder;
  ExpectKept("sizes_png.txt", TextOfPng(PictureOf(folder, "sizes.png")));
}

TEST(KeptPictures, SvgIsTheOneThatWasLookedAt) {
  const HostFolder folder;
  ExpectKept("sizes.svg", PictureOf(folder, "sizes.svg"));
}

}  // namespace
}  // namespace quarvel
