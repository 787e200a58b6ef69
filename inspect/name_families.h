// Families of names: names that differ in numbers and index texts alone are of one family, which is
// called by a pattern.
//
//   FLOW[3,17]   FLOW[#,#]    digits become "#"
//   COST(BREAD)  COST(*)      an index within brackets that is not all digits becomes "*"
//   X_03_A       X_#_A        elsewhere texts stay ...
//   X_03_LYON    X_#_*        ... but for a part between separators (_ . - : / | ~ blank), not the first
//                             one, that has more than kFewTexts texts where all else is the same
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace quarvel::inspect {

class NameFamilies {
 public:
  static constexpr int kFewTexts = 6;

  // The number of a name's pattern, from 0 in the order in which they come. Parts between separators
  // stay in it: see Join.
  std::int32_t Add(std::string_view name);
  // The pattern as Add counts them.
  static std::string PatternOf(std::string_view name);
  std::int32_t count() const { return static_cast<std::int32_t>(patterns_.size()); }

  // What is left when index texts between separators are replaced too: the patterns, and for each one of
  // Add the number of the one it has become.
  struct Joined {
    std::vector<std::string> patterns;
    std::vector<std::int32_t> family_of;
  };
  // A few passes over the patterns.
  Joined Join() const;

 private:
  std::vector<std::string> patterns_;
  std::unordered_map<std::string, std::int32_t> numbers_;
  std::string last_;  // the pattern that came last, which most often comes again
  std::int32_t last_number_ = -1;
};

}  // namespace quarvel::inspect
