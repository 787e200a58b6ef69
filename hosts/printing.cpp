#include "hosts/printing.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "model/model_data.h"
#include "text/cell_width.h"
#include "text/encoding.h"
#include "text/numbers.h"
#include "text/visible_text.h"

namespace quarvel::hosts {
namespace {

std::size_t BlanksFor(std::string_view text, std::size_t width) {
  const std::size_t cells = text::CellCount(text);
  return cells < width ? width - cells : 0;
}

struct Escape {
  char c;
  std::string_view escaped;
};
constexpr Escape kEscapes[] = {{'"', "\\\""}, {'\\', "\\\\"}, {'\n', "\\n"}, {'\r', "\\r"},
                               {'\t', "\\t"}, {'\b', "\\b"},  {'\f', "\\f"}};

// Appends what stands at the front of valid UTF-8 and gives its size.
std::size_t AppendEscaped(std::string& json, std::string_view text) {
  const auto* const escape =
      std::find_if(std::begin(kEscapes), std::end(kEscapes),
                   [&text](const Escape& known) { return known.c == text.front(); });
  if (escape != std::end(kEscapes)) {
    json += escape->escaped;
    return 1;
  }
  const text::Character character = text::FirstCharacter(text);
  if (text::IsSteering(character.code)) {
    text::AppendCodeEscape(json, character.code);
  } else {
    json += text.substr(0, character.size);
  }
  return character.size;
}

}  // namespace

void AppendLeft(std::string& line, std::string_view text, std::size_t width) {
  line += text;
  line.append(BlanksFor(text, width), ' ');
}

void AppendRight(std::string& line, std::string_view text, std::size_t width) {
  line.append(BlanksFor(text, width), ' ');
  line += text;
}

std::string BoundText(double bound) {
  if (bound == model::BoundLimit) return "inf";
  if (bound == -model::BoundLimit) return "-inf";
  return text::GeneralText(bound);
}

std::string ExactLowerText(double bound) {
  return bound <= -model::BoundLimit ? "-inf" : text::RoundTripText(bound);
}

std::string ExactUpperText(double bound) {
  return bound >= model::BoundLimit ? "inf" : text::RoundTripText(bound);
}

std::string Counted(std::int64_t count, std::string_view noun) {
  std::string counted = text::IntegerText(count);
  counted.append(" ").append(noun);
  return count == 1 ? counted : counted + 's';
}

void AppendJson(std::string& json, std::string_view text) {
  if (!text::IsValidUtf8(text)) return AppendJson(json, text::Windows1252ToUtf8(text));
  json += '"';
  while (!text.empty()) text.remove_prefix(AppendEscaped(json, text));
  json += '"';
}

void AppendJson(std::string& json, double number) {
  if (std::isnan(number)) {
    json += "\"nan\"";
  } else if (std::isinf(number)) {
    json += number < 0 ? "\"-inf\"" : "\"inf\"";
  } else {
    json += text::RoundTripText(number);
  }
}

void AppendJson(std::string& json, Bound bound) {
  constexpr double kInfinity = std::numeric_limits<double>::infinity();
  const bool is_none = !model::HasLower(bound.value) || !model::HasUpper(bound.value);
  AppendJson(json, is_none ? std::copysign(kInfinity, bound.value) : bound.value);
}

void AppendJson(std::string& json, std::int32_t number) { json += text::IntegerText(number); }
void AppendJson(std::string& json, std::int64_t number) { json += text::IntegerText(number); }

void AppendJsonObject(std::string& json, std::string_view key, std::string_view value) {
  if (!json.empty() && json.back() != '{') json += ',';
  AppendJson(json, key);
  json.append(":").append(value);
}

}  // namespace quarvel::hosts
