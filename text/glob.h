// Patterns that names are matched against, without regard to case:
//
//   *        any characters, also none
//   ?        one character
//   [a-f_]   one of these; [!a-f_] one that is not. A "]" that comes first is one of them
//   \*       the character itself
//
// All else stands for itself, so does a "[" that is not closed. As names often hold brackets, as in
// FLOW[3,17], a pattern also matches the name that it spells.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace quarvel::text {

class Glob {
 public:
  explicit Glob(std::string_view pattern);

  // Cost: the length of the name times that of the pattern at most, mostly the length of the name.
  bool Matches(std::string_view name) const;
  // It has a "[" that is not closed, which stands for itself.
  bool has_open_bracket() const { return has_open_bracket_; }

 private:
  struct Range {
    char32_t first;
    char32_t last;
  };
  struct Part {
    bool any_number = false;  // "*"
    bool is_negated = false;
    std::vector<Range> ranges;  // the characters; none of them: any
  };

  static bool Fits(const Part& part, char32_t c);
  // Takes the class at the front of the pattern, "[" included; false when it is none.
  bool TakeClass(std::u32string_view& pattern);
  bool MatchesParts(std::u32string_view name) const;

  std::string spelled_;
  bool has_open_bracket_ = false;
  std::vector<Part> parts_;
};

}  // namespace quarvel::text
