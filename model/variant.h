// The value of a property write as a host hands it over, and its conversion. Null, and text that is
// not numeric where a number is wanted, is the run-time failure 13 (type mismatch).
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <variant>

namespace quarvel::model {

class Variant {
 public:
  struct Null {
    bool operator==(const Null&) const = default;
  };

  Variant() = default;  // empty: 0 as a number, "" as text
  // Implicit, so that a write takes whatever a host has: SetColUpperBound(3, 7.5).
  // NOLINTBEGIN(google-explicit-constructor)
  Variant(Null) : value_(Null{}) {}
  Variant(bool value) : value_(value) {}
  Variant(int value) : value_(static_cast<std::int64_t>(value)) {}
  Variant(std::int64_t value) : value_(value) {}
  Variant(double value) : value_(value) {}
  Variant(const char* value) : value_(std::string(value)) {}
  Variant(std::string_view value) : value_(std::string(value)) {}
  Variant(std::string value) : value_(std::move(value)) {}
  // NOLINTEND(google-explicit-constructor)

  // True is -1, text must pass the numeric test.
  double ToDouble() const;
  // True is "True", numbers are their general text.
  std::string ToText() const;

 private:
  std::variant<std::monostate, Null, bool, std::int64_t, double, std::string> value_;
};

}  // namespace quarvel::model
