#include "hosts/stats_words.h"

#include <algorithm>
#include <charconv>
#include <numeric>

#include "hosts/printing.h"
#include "text/numbers.h"

namespace quarvel::hosts {
namespace {

using inspect::BoundShape;
using inspect::RecordFamily;
using inspect::ValueRange;

template <class Types>
std::string TypesText(const RecordFamily& family, const Types& types, Room room) {
  std::string text;
  for (const auto& type : types) {
    const std::int32_t count = family.types[static_cast<std::size_t>(type.type)];
    if (count == 0) continue;
    std::string letter = type.letter.empty() ? "none" : std::string(type.letter);
    if (count == family.count) return letter;
    if (!text.empty()) text += ' ';
    text.append(letter).append(room == Room::kUsual ? " " : "").append(text::IntegerText(count));
  }
  return text;
}

std::string_view Between(Room room) { return room == Room::kUsual ? " to " : ".."; }

// "1.5E7" of "1.5E+07".
std::string WithShortExponent(std::string text) {
  std::size_t sign = text.find('E');
  if (sign == std::string::npos) return text;
  ++sign;
  if (text[sign] == '+') text.erase(sign, 1);
  if (text[sign] == '-') ++sign;
  while (text[sign] == '0') text.erase(sign, 1);
  return text;
}

// "-inf" and "inf" where there is no bound.
std::string ShortBound(Bound bound, Room room) {
  return bound.IsNone() ? BoundText(bound) : ShortText(bound.value, room);
}

}  // namespace

std::string ShortText(double value, Room room) {
  std::array<char, 32> letters;
  const double shown = value + 0.0;  // a zero without a sign
  const auto end = std::to_chars(letters.data(), letters.data() + letters.size(), shown,
                                 std::chars_format::general, room == Room::kUsual ? 6 : 3);
  std::string text(letters.data(), end.ptr);
  std::replace(text.begin(), text.end(), 'e', 'E');
  return room == Room::kUsual ? text : WithShortExponent(std::move(text));
}

std::string RangeText(const ValueRange& range, Bound::Side side, Room room) {
  if (range.is_empty) return "";
  const std::string from = ShortBound({side, range.from}, room);
  const std::string to = ShortBound({side, range.to}, room);
  return from == to ? from : from + std::string(Between(room)) + to;
}

std::string CoefficientsText(const inspect::ElementRange& elements, Room room) {
  if (elements.count == 0) return "";
  std::string text = elements.values.to > 0 ? "+" : "";
  if (elements.values.from < 0) text += '-';
  const std::string from = ShortText(elements.sizes.from, room);
  const std::string to = ShortText(elements.sizes.to, room);
  return text + (from == to ? from : from + std::string(Between(room)) + to);
}

std::string RowTypesText(const RecordFamily& family, Room room) {
  return TypesText(family, model::kRowTypes, room);
}

std::string ColumnTypesText(const RecordFamily& family, Room room) {
  return TypesText(family, model::kColumnTypes, room);
}

std::string PlaceText(const model::ModelStore& store, const inspect::PlacedNumber& number) {
  std::string text;
  if (number.row != 0) text = store.Row(number.row).Name;
  if (number.row != 0 && number.column != 0) text += ", ";
  if (number.column != 0) text += store.Column(number.column).Name;
  return text;
}

std::string ForecastText(const model::ModelStore& store, const simplify::Forecast& forecast) {
  if (forecast.none()) return "nothing to take";
  std::string text;
  const auto add = [&text](std::int32_t count, std::string_view noun, std::string_view fate) {
    if (count == 0) return;
    if (!text.empty()) text += ", ";
    text += Counted(count, noun).append(fate);
  };
  add(forecast.converted_rows, "row", " into bounds");
  add(forecast.asked_rows, "row", " to be asked about");
  add(forecast.empty_columns, "empty column", " out");
  add(forecast.empty_rows, "empty row", " out");
  if (forecast.failing_row != 0) {
    if (!text.empty()) text += ", ";
    text += "then it fails at row " + store.Row(forecast.failing_row).Name;
  }
  return text;
}

const std::array<ShapeWord, inspect::kBoundShapes> kShapeWords = {{
    {BoundShape::kNonNegative, "0 or more"},
    {BoundShape::kLowerOnly, "lower bound alone"},
    {BoundShape::kUpperOnly, "upper bound alone"},
    {BoundShape::kZeroOne, "from 0 to 1"},
    {BoundShape::kBoxed, "both bounds"},
    {BoundShape::kFixed, "fixed"},
    {BoundShape::kFree, "free"},
    {BoundShape::kCrossed, "lower above upper"},
}};

std::int32_t CountOf(const std::array<std::int32_t, inspect::kBoundShapes>& shapes) {
  return std::accumulate(shapes.begin(), shapes.end(), std::int32_t{0});
}

std::array<NamedSizes, 4> SizesOf(const inspect::ModelStats& stats) {
  return {{{"coefficients", stats.coefficients},
           {"objective", stats.objective},
           {"right-hand sides", stats.right_hand_sides},
           {"bounds", stats.bounds}}};
}

}  // namespace quarvel::hosts
