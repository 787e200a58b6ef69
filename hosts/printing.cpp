#include "hosts/printing.h"

#include <algorithm>
#include <cmath>

#include "model/model_data.h"
#include "text/encoding.h"
#include "text/numbers.h"

namespace quarvel::hosts {
namespace {

constexpr bool IsControl(char c) {
  const auto code = static_cast<unsigned char>(c);
  return code < 0x20 || code == 0x7F;
}

// The control characters beyond ASCII, U+0080 to U+009F.
bool StartsHighControl(std::string_view text) {
  return text.size() >= 2 && text[0] == '\xC2' && static_cast<unsigned char>(text[1]) <= 0x9F;
}

std::size_t BlanksFor(std::string_view text, std::size_t width) {
  const std::size_t characters = text::CharacterCount(text);
  return characters < width ? width - characters : 0;
}

struct Escape {
  char c;
  std::string_view escaped;
};
constexpr Escape kEscapes[] = {{'"', "\\\""}, {'\\', "\\\\"}, {'\n', "\\n"}, {'\r', "\\r"},
                               {'\t', "\\t"}, {'\b', "\\b"},  {'\f', "\\f"}};

void AppendEscaped(std::string& json, char c) {
  constexpr std::string_view kHex = "0123456789abcdef";
  const auto* const escape = std::find_if(std::begin(kEscapes), std::end(kEscapes),
                                          [c](const Escape& known) { return known.c == c; });
  if (escape != std::end(kEscapes)) {
    json += escape->escaped;
  } else if (IsControl(c)) {
    json += "\\u00";
    json += kHex[static_cast<unsigned char>(c) >> 4];
    json += kHex[static_cast<unsigned char>(c) & 0xF];
  } else {
    json += c;
  }
}

}  // namespace

std::string OneLine(std::string_view text) {
  std::string line;
  line.reserve(text.size());
  for (std::size_t i = 0; i < text.size(); ++i) {
    const char c = text[i];
    if (c == '\r' || c == '\n') {
      if (c == '\r' && i + 1 < text.size() && text[i + 1] == '\n') ++i;
      line += ' ';
    } else if (StartsHighControl(text.substr(i))) {
      line += '?';
      ++i;
    } else {
      line += IsControl(c) ? '?' : c;
    }
  }
  return line;
}

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

std::string Counted(std::int64_t count, std::string_view noun) {
  std::string counted = text::IntegerText(count);
  counted.append(" ").append(noun);
  return count == 1 ? counted : counted + 's';
}

void AppendJson(std::string& json, std::string_view text) {
  if (!text::IsValidUtf8(text)) return AppendJson(json, text::Windows1252ToUtf8(text));
  json += '"';
  for (const char c : text) AppendEscaped(json, c);
  json += '"';
}

void AppendJson(std::string& json, double number) {
  if (std::isfinite(number)) {
    text::AppendGeneralText(json, number);
  } else {
    json += "null";
  }
}

void AppendJson(std::string& json, std::int32_t number) { json += text::IntegerText(number); }

}  // namespace quarvel::hosts
