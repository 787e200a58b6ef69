// Whether a text is one value of JSON, as its grammar has it.
#pragma once

#include <cstddef>
#include <string_view>

namespace quarvel::fuzz {

class JsonText {
 public:
  // Blanks around the value are allowed.
  static bool IsValid(std::string_view text) {
    JsonText json(text);
    return json.Value(0) && json.AtEnd();
  }

 private:
  explicit JsonText(std::string_view text) : rest_(text) {}

  void SkipBlanks() {
    while (!rest_.empty() && std::string_view(" \t\r\n").find(rest_[0]) != rest_.npos) Drop(1);
  }
  bool AtEnd() {
    SkipBlanks();
    return rest_.empty();
  }
  void Drop(std::size_t count) { rest_.remove_prefix(count); }
  bool Take(std::string_view word) {
    SkipBlanks();
    if (!rest_.starts_with(word)) return false;
    Drop(word.size());
    return true;
  }

  bool Value(int depth) {
    constexpr int kDeepest = 20;
    if (depth > kDeepest) return false;
    if (Take("{")) return Members(depth);
    if (Take("[")) return Items(depth);
    if (Take("\"")) return TextEnd();
    return Take("true") || Take("false") || Take("null") || Number();
  }
  bool Members(int depth) {
    if (Take("}")) return true;
    do {
      if (!Take("\"") || !TextEnd() || !Take(":") || !Value(depth + 1)) return false;
    } while (Take(","));
    return Take("}");
  }
  bool Items(int depth) {
    if (Take("]")) return true;
    do {
      if (!Value(depth + 1)) return false;
    } while (Take(","));
    return Take("]");
  }
  // Behind the opening quote.
  bool TextEnd() {
    constexpr unsigned char kFirstPlain = 0x20;
    while (!rest_.empty()) {
      const char c = rest_[0];
      Drop(1);
      if (c == '"') return true;
      if (static_cast<unsigned char>(c) < kFirstPlain) return false;
      if (c == '\\' && !Escape()) return false;
    }
    return false;
  }
  bool Escape() {
    if (rest_.empty()) return false;
    const char c = rest_[0];
    Drop(1);
    if (c != 'u') return std::string_view("\"\\/bfnrt").find(c) != rest_.npos;
    constexpr std::size_t kDigits = 4;
    const std::string_view digits = rest_.substr(0, kDigits);
    if (digits.size() < kDigits) return false;
    Drop(kDigits);
    return digits.find_first_not_of("0123456789abcdefABCDEF") == rest_.npos;
  }
  std::size_t Digits() {
    const std::size_t count = rest_.size() - TrimmedOfDigits().size();
    Drop(count);
    return count;
  }
  std::string_view TrimmedOfDigits() const {
    const std::size_t end = rest_.find_first_not_of("0123456789");
    return end == rest_.npos ? std::string_view() : rest_.substr(end);
  }
  bool Number() {
    Take("-");
    const bool leads_with_zero = rest_.starts_with('0');
    const std::size_t digits = Digits();
    if (digits == 0 || (leads_with_zero && digits > 1)) return false;
    if (Take(".") && Digits() == 0) return false;
    if (!Take("E") && !Take("e")) return true;
    if (!Take("+")) Take("-");
    return Digits() > 0;
  }

  std::string_view rest_;
};

}  // namespace quarvel::fuzz
