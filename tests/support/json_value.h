// Reads JSON for tests of what is printed as such.
#pragma once

#include <cstddef>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace quarvel {

// A value of JSON as its reader has it. What is not there is a null.
class JsonValue {
 public:
  enum class Kind { kNull, kTruth, kNumber, kText, kArray, kObject };

  // Throws std::invalid_argument, with the place, for a text that is not one value.
  static JsonValue Parse(std::string_view text);

  Kind kind() const { return kind_; }
  bool is_null() const { return kind_ == Kind::kNull; }
  // The text of a text; a number or truth as it stands in the file.
  const std::string& text() const { return text_; }
  double number() const;
  std::size_t size() const { return items_.size() + members_.size(); }
  bool Has(std::string_view key) const { return !(*this)[key].is_null(); }
  const JsonValue& operator[](std::string_view key) const;
  const JsonValue& operator[](std::size_t index) const;
  const std::vector<JsonValue>& items() const { return items_; }

 private:
  friend class JsonReader;

  Kind kind_ = Kind::kNull;
  std::string text_;
  std::vector<JsonValue> items_;
  std::map<std::string, JsonValue, std::less<>> members_;
};

}  // namespace quarvel
