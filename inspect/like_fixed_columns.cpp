#include "inspect/like_fixed_columns.h"

#include <array>
#include <cstddef>

namespace quarvel::inspect {
namespace {

using mps::Section;

// Columns, counted from 0.
constexpr std::size_t kName = 4;
constexpr std::size_t kBehindName = 12;
constexpr std::size_t kSecond = 14;
constexpr std::size_t kBehindSecond = 22;

constexpr std::size_t kWords = 4;
constexpr std::size_t kNone = std::string_view::npos;

// Where the first words begin; kNone where there are no more.
std::array<std::size_t, kWords> BeginsOf(std::string_view text) {
  std::array<std::size_t, kWords> begins{};
  std::size_t at = 0;
  for (std::size_t& begin : begins) {
    begin = text.find_first_not_of(' ', at);
    at = begin == kNone ? text.size() : text.find(' ', begin);
  }
  return begins;
}

bool HasAt(std::string_view text, std::size_t column) {
  return column < text.size() && text[column] != ' ';
}

}  // namespace

bool LikeFixedColumns::Use(std::string_view text, Section section, bool is_marker) {
  if (is_free_ || text.find('\t') != kNone) return false;
  const std::array<std::size_t, kWords> begins = BeginsOf(text);
  // The name stands behind a code, or is the first word.
  const std::size_t name = section == Section::kRows || section == Section::kBounds ? 1 : 0;
  const bool has_name = begins[name] == kName;
  if (has_name && HasAt(text, kBehindName)) is_free_ = true;
  if (is_free_ || is_marker || section == Section::kRows) return false;
  const std::size_t second = begins[name + 1];
  if (has_name && second < kBehindName) return true;
  if (second != kSecond) return false;
  if (HasAt(text, kBehindSecond) || HasAt(text, kBehindSecond + 1)) {
    is_free_ = true;
    return false;
  }
  return begins[name + 2] < kBehindSecond;
}

}  // namespace quarvel::inspect
