// What the numbers of a model are called, the same in a terminal and on a page.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

#include "hosts/printing.h"
#include "inspect/stats.h"
#include "model/model_store.h"
#include "simplify/forecast.h"

namespace quarvel::hosts {

// How much room texts may take.
enum class Room : std::uint8_t {
  kUsual,  // six digits, which are enough to look at
  kLittle  // three of them, and no blanks
};
std::string ShortText(double value, Room room = Room::kUsual);
// "2", "-inf to 4" for the lower or upper bounds of some records; empty for none. In little room "-inf..4".
std::string RangeText(const inspect::ValueRange& range, Bound::Side side, Room room = Room::kUsual);
// The sizes of coefficients behind their signs: "+-0.5 to 3"; empty for none.
std::string CoefficientsText(const inspect::ElementRange& elements, Room room = Room::kUsual);
// "E", or "E 500 L 20" for several, "E500 L20" in little room.
std::string RowTypesText(const inspect::RecordFamily& family, Room room = Room::kUsual);
std::string ColumnTypesText(const inspect::RecordFamily& family, Room room = Room::kUsual);
// The names of the row and the column where it stands.
std::string PlaceText(const model::ModelStore& store, const inspect::PlacedNumber& number);
// What simplification would take: "12 rows into bounds, 3 empty rows out".
std::string ForecastText(const model::ModelStore& store, const simplify::Forecast& forecast);

struct ShapeWord {
  inspect::BoundShape shape;
  std::string_view words;
};
extern const std::array<ShapeWord, inspect::kBoundShapes> kShapeWords;

std::int32_t CountOf(const std::array<std::int32_t, inspect::kBoundShapes>& shapes);

struct NamedSizes {
  std::string_view words;
  const inspect::NumberSizes& sizes;
};
// Coefficients, objective, right-hand sides and bounds.
std::array<NamedSizes, 4> SizesOf(const inspect::ModelStats& stats);

}  // namespace quarvel::hosts
