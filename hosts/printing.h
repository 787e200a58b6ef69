// Texts as the program prints them.
#pragma once

#include <concepts>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace quarvel::hosts {

// Appends `text` and blanks up to `width` cells of a terminal, or blanks before it.
void AppendLeft(std::string& line, std::string_view text, std::size_t width);
void AppendRight(std::string& line, std::string_view text, std::size_t width);

// A bound of a record, which may be none at all: a lower one of -1E+10 or less, an upper one of 1E+10 or
// more. On the other side such a number is one like any other.
struct Bound {
  enum class Side : std::uint8_t { kLower, kUpper };
  Side side;
  double value;

  bool IsNone() const;
};
constexpr Bound AsLower(double value) { return {Bound::Side::kLower, value}; }
constexpr Bound AsUpper(double value) { return {Bound::Side::kUpper, value}; }

// A bound for people: general text, "-inf" and "inf" where there is none.
std::string BoundText(Bound bound);
// The same with all its digits.
std::string ExactBoundText(Bound bound);

// A number for people: general text; "inf", "-inf" and "nan" where it is none, as in JSON.
std::string NumberText(double number);

// "1 row", "28 rows".
std::string Counted(std::int64_t count, std::string_view noun);

// A value of JSON, as docs/json.md tells. Text is quoted and escaped, which includes every character
// that a terminal would not show (text/visible_text.h); text that is not UTF-8 (a path may be anything)
// is taken as Windows-1252. A number has all its digits. What is infinite is the text "inf" or "-inf", as
// a bound that is none is, and what is no number "nan".
void AppendJson(std::string& json, std::string_view text);
void AppendJson(std::string& json, double number);
void AppendJson(std::string& json, Bound bound);
void AppendJson(std::string& json, std::int32_t number);
void AppendJson(std::string& json, std::int64_t number);
// Nothing else becomes one by itself.
void AppendJson(std::string& json, std::same_as<bool> auto truth) {
  json += truth ? "true" : "false";
}

// A member of an object whose value is JSON already.
void AppendJsonObject(std::string& json, std::string_view key, std::string_view value);

// A member of an object with the comma that sets it off from the one before.
template <class Value>
void AppendJsonMember(std::string& json, std::string_view key, const Value& value) {
  if (!json.empty() && json.back() != '{') json += ',';
  AppendJson(json, key);
  json += ':';
  AppendJson(json, value);
}

}  // namespace quarvel::hosts
