#include "hosts/printing.h"

#include <algorithm>
#include <cmath>

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

std::string NoBoundText(Bound bound) { return bound.side == Bound::Side::kLower ? "-inf" : "inf"; }

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

bool Bound::IsNone() const {
  return side == Side::kLower ? !model::HasLower(value) : !model::HasUpper(value);
}

std::string BoundText(Bound bound) {
  return bound.IsNone() ? NoBoundText(bound) : text::GeneralText(bound.value);
}

std::string ExactBoundText(Bound bound) {
  return bound.IsNone() ? NoBoundText(bound) : text::RoundTripText(bound.value);
}

std::string NumberText(double number) {
  if (std::isnan(number)) return "nan";
  if (std::isinf(number)) return number < 0 ? "-inf" : "inf";
  return text::GeneralText(number);
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
  if (!bound.IsNone()) return AppendJson(json, bound.value);
  AppendJson(json, std::string_view(NoBoundText(bound)));
}

void AppendJson(std::string& json, std::int32_t number) { json += text::IntegerText(number); }
void AppendJson(std::string& json, std::int64_t number) { json += text::IntegerText(number); }

void AppendJsonObject(std::string& json, std::string_view key, std::string_view value) {
  if (!json.empty() && json.back() != '{') json += ',';
  AppendJson(json, key);
  json.append(":").append(value);
}

}  // namespace quarvel::hosts
