#include "tests/support/json_value.h"

#include <stdexcept>

#include "text/encoding.h"

namespace quarvel {

class JsonReader {
 public:
  explicit JsonReader(std::string_view text) : all_(text), rest_(text) {}

  JsonValue Whole() {
    JsonValue value = Value();
    if (!rest_.empty()) Fail();
    return value;
  }

 private:
  using Kind = JsonValue::Kind;

  [[noreturn]] void Fail() const {
    throw std::invalid_argument("no JSON at byte " + std::to_string(all_.size() - rest_.size()));
  }
  void SkipBlanks() {
    while (!rest_.empty() && std::string_view(" \t\r\n").find(rest_[0]) != rest_.npos) {
      rest_.remove_prefix(1);
    }
  }
  bool Take(std::string_view word) {
    SkipBlanks();
    if (!rest_.starts_with(word)) return false;
    rest_.remove_prefix(word.size());
    SkipBlanks();
    return true;
  }
  void Need(std::string_view word) {
    if (!Take(word)) Fail();
  }

  JsonValue Value() {
    JsonValue value;
    if (Take("{")) {
      value.kind_ = Kind::kObject;
      if (!Take("}")) Members(value);
    } else if (Take("[")) {
      value.kind_ = Kind::kArray;
      if (!Take("]")) Items(value);
    } else if (rest_.starts_with('"')) {
      value.kind_ = Kind::kText;
      value.text_ = Text();
    } else if (!Take("null")) {
      Plain(value);
    }
    SkipBlanks();
    return value;
  }
  void Members(JsonValue& value) {
    do {
      const std::string key = Text();
      Need(":");
      if (!value.members_.emplace(key, Value()).second) Fail();
    } while (Take(","));
    Need("}");
  }
  void Items(JsonValue& value) {
    do {
      value.items_.push_back(Value());
    } while (Take(","));
    Need("]");
  }
  void Plain(JsonValue& value) {
    const std::size_t end = rest_.find_first_of(",]} \r\n\t");
    value.text_ = rest_.substr(0, end);
    const bool is_truth = value.text_ == "true" || value.text_ == "false";
    value.kind_ = is_truth ? Kind::kTruth : Kind::kNumber;
    if (!is_truth) value.number();
    rest_.remove_prefix(value.text_.size());
  }
  std::string Text() {
    if (!rest_.starts_with('"')) Fail();
    rest_.remove_prefix(1);
    std::string text;
    while (!rest_.starts_with('"')) {
      if (rest_.empty() || static_cast<unsigned char>(rest_[0]) < ' ') Fail();
      if (rest_[0] == '\\') {
        text += Escaped();
      } else {
        text += rest_[0];
        rest_.remove_prefix(1);
      }
    }
    rest_.remove_prefix(1);
    return text;
  }
  std::string Escaped() {
    constexpr std::string_view kLetters = "\"\\/bfnrt";
    constexpr std::string_view kMeant = "\"\\/\b\f\n\r\t";
    constexpr std::size_t kUnit = 6;
    if (rest_.size() < 2) Fail();
    const std::size_t letter = kLetters.find(rest_[1]);
    if (letter != kLetters.npos) {
      rest_.remove_prefix(2);
      return std::string(1, kMeant[letter]);
    }
    if (rest_[1] != 'u' || rest_.size() < kUnit) Fail();
    const int unit = std::stoi(std::string(rest_.substr(2, kUnit - 2)), nullptr, 16);
    rest_.remove_prefix(kUnit);
    return text::Utf16ToUtf8(std::u16string(1, static_cast<char16_t>(unit)));
  }

  std::string_view all_;
  std::string_view rest_;
};

JsonValue JsonValue::Parse(std::string_view text) { return JsonReader(text).Whole(); }

double JsonValue::number() const { return std::stod(text_); }

const JsonValue& JsonValue::operator[](std::string_view key) const {
  static const JsonValue kNone;
  const auto found = members_.find(key);
  return found == members_.end() ? kNone : found->second;
}

const JsonValue& JsonValue::operator[](std::size_t index) const {
  static const JsonValue kNone;
  return index < items_.size() ? items_[index] : kNone;
}

}  // namespace quarvel
