// A picture as SVG: one path for each shade, of one stroke for each run of points.

#include <algorithm>

#include "hosts/picture_file.h"
#include "hosts/picture_layout.h"
#include "hosts/printing.h"
#include "text/numbers.h"

namespace quarvel::hosts {
namespace {

std::string Number(std::int32_t number) { return text::IntegerText(number); }

std::string Attribute(std::string_view name, std::int32_t value) {
  return std::string(" ").append(name).append("=\"").append(Number(value)).append("\"");
}

// Of the shade: "M3 5h2" from the point at column 3, line 5, two points on.
std::string PathOf(const inspect::MatrixPicture& points, const inspect::PictureShades& shades,
                   int shade) {
  std::string path;
  for (std::int32_t y = 0; y < points.height(); ++y) {
    for (std::int32_t x = 0; x < points.width();) {
      const std::int32_t start = x;
      while (x < points.width() && shades.At(x, y) == shade) ++x;
      if (x > start) {
        path += 'M' + Number(start) + ' ' + Number(y) + 'h' + Number(x - start);
      } else {
        ++x;
      }
    }
  }
  return path;
}

std::string Text(std::int32_t x, std::int32_t y, std::string_view anchor, std::string_view words) {
  if (words.empty()) return "";
  return "<text" + Attribute("x", x) + Attribute("y", y) + " text-anchor=\"" + std::string(anchor) +
         "\">" + std::string(words) + "</text>\n";
}

std::string Labels(const PictureLayout& layout) {
  const std::int32_t above = layout.top - 8;
  const std::int32_t beside = layout.left - 8;
  std::string text = Text(layout.left, above, "start", "0");
  text += Text(layout.left + layout.matrix_width / 2, above, "middle", layout.columns_word);
  text += Text(layout.left + layout.matrix_width, above, "end", layout.last_column);
  text += Text(beside, layout.top + 12, "end", "0");
  text += Text(beside, layout.top + layout.matrix_height / 2 + 5, "end", layout.rows_word);
  text += Text(beside, layout.top + layout.matrix_height, "end", layout.last_row);
  return text;
}

constexpr std::string_view kStyle =
    "<style>\n"
    "text{font:15px sans-serif;fill:#222}.ground{fill:#fff}"
    ".frame{fill:none;stroke:#888}.points{stroke:#08306b;shape-rendering:crispEdges}\n"
    "@media (prefers-color-scheme:dark){text{fill:#ddd}.ground{fill:#181818}"
    ".points{stroke:#9ecbff}}\n"
    "</style>\n";

std::string Points(const PictureLayout& layout) {
  std::string text = "<g class=\"points\" transform=\"translate(" + Number(layout.left) + ' ' +
                     Number(layout.top) + ") scale(" + Number(layout.point_width) + ' ' +
                     Number(layout.point_height) + ") translate(0 .5)\">\n";
  const inspect::PictureShades shades(layout.points, kPictureShades);
  for (int shade = 1; shade <= kPictureShades; ++shade) {
    const std::string path = PathOf(layout.points, shades, shade);
    if (path.empty()) continue;
    // From a third on, so that a single element is seen.
    const int percent = 34 + 66 * (shade - 1) / (kPictureShades - 1);
    text += "<path stroke-opacity=\"" + Number(percent) + "%\" d=\"" + path + "\"/>\n";
  }
  return text + "</g>\n";
}

}  // namespace

std::string SvgPicture(const model::ModelStore& store, const PictureRoom& room) {
  const PictureLayout layout(store, room);
  std::string svg = "<svg xmlns=\"http://www.w3.org/2000/svg\"" + Attribute("width", layout.width) +
                    Attribute("height", layout.height) + " viewBox=\"0 0 " + Number(layout.width) +
                    ' ' + Number(layout.height) + "\">\n<title>" +
                    Counted(layout.points.rows(), "row") + ", " +
                    Counted(layout.points.columns(), "column") + ", " +
                    Counted(store.NumberOfElements(), "element") + "; the fullest point has " +
                    Counted(layout.points.most(), "element") + "</title>\n";
  svg += kStyle;
  svg += "<rect class=\"ground\"" + Attribute("width", layout.width) +
         Attribute("height", layout.height) + "/>\n" + Labels(layout) + Points(layout);
  svg += "<rect class=\"frame\"" + Attribute("x", layout.left - 1) +
         Attribute("y", layout.top - 1) + Attribute("width", layout.matrix_width + 2) +
         Attribute("height", layout.matrix_height + 2) + "/>\n</svg>\n";
  return svg;
}

}  // namespace quarvel::hosts
