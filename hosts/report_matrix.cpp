// The picture of the matrix on the page of a report.

#include "hosts/base64.h"
#include "hosts/html.h"
#include "hosts/picture_layout.h"
#include "hosts/png_file.h"
#include "hosts/printing.h"
#include "hosts/report_page.h"
#include "hosts/short_equation.h"
#include "text/numbers.h"

namespace quarvel::hosts {
namespace {

constexpr PictureRoom kRoom = {.width = 1000, .height = 700};

std::string Grouped(std::int64_t count, std::string_view noun) {
  return GroupedText(count) + ' ' + std::string(noun) + (count == 1 ? "" : "s");
}

std::string SizeWords(const PictureLayout& layout) {
  return Grouped(layout.points.rows(), "row") + " by " + Grouped(layout.points.columns(), "column");
}

std::string Scale(const inspect::MatrixPicture& points) {
  const std::int32_t rows = (points.rows() + points.height() - 1) / points.height();
  const std::int32_t columns = (points.columns() + points.width() - 1) / points.width();
  if (rows == 1 && columns == 1) return "Each point is one coefficient.";
  return "A point is up to " + Grouped(rows, "row") + " by " + Grouped(columns, "column") +
         ", and is darker (on a dark page, brighter) the more coefficients stand there; the fullest "
         "has " +
         GroupedText(points.most()) + ".";
}

std::string Axis(std::string_view where, const std::string& word, const std::string& last) {
  std::string axis =
      "<div class=\"" + std::string(where) + "\" aria-hidden=\"true\"><span>0</span>";
  if (!word.empty()) axis += "<span>" + word + "</span>";
  if (!last.empty()) axis += "<span>" + last + "</span>";
  return axis + "</div>";
}

std::string Image(const PictureLayout& layout, std::string_view ground, std::string_view png) {
  return "<img class=\"" + std::string(ground) + "\" src=\"data:image/png;base64," + Base64(png) +
         "\" alt=\"Where the coefficients of the matrix stand: " + SizeWords(layout) +
         "\" style=\"aspect-ratio:" + text::IntegerText(layout.matrix_width) + '/' +
         text::IntegerText(layout.matrix_height) + "\">";
}

}  // namespace

std::string MatrixPart(const model::ModelStore& store) {
  if (store.NumberOfRows() == 0 || store.NumberOfColumns() == 0) {
    return HtmlPart("matrix", "The matrix",
                    "<p>There is none: the model has no rows, or no columns.</p>\n");
  }
  if (!CanWritePng()) {
    return HtmlPart("matrix", "The matrix",
                    "<p>This program was built without zlib, which the picture needs.</p>\n");
  }
  const PictureLayout layout(store, kRoom);
  const PointsInPng points = PngPoints(layout.points);
  return HtmlPart("matrix", "The matrix",
                  "<figure class=\"matrix\">\n<div class=\"axes\" style=\"max-width:calc(" +
                      text::IntegerText(layout.matrix_width) + "px + 5em)\">" +
                      Axis("top", layout.columns_word, layout.last_column) +
                      Axis("left", layout.rows_word, layout.last_row) + "<div>" +
                      Image(layout, "light", points.light) + Image(layout, "dark", points.dark) +
                      "</div>" + "</div>\n<figcaption>" + Scale(layout.points) +
                      "</figcaption>\n</figure>\n");
}

}  // namespace quarvel::hosts
