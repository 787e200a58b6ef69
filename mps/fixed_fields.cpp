#include "mps/fixed_fields.h"

#include <algorithm>

namespace quarvel::mps {
namespace {

// Without the blanks around it; an empty one keeps its place.
std::string_view Trimmed(std::string_view text) {
  const std::size_t first = std::min(text.find_first_not_of(' '), text.size());
  text.remove_prefix(first);
  return text.substr(0, text.find_last_not_of(' ') + 1);
}

// Hands out a text by columns, each a character.
class ByColumns {
 public:
  explicit ByColumns(std::string_view text) : text_(text) {}

  // What stands from where the last call ended up to that column.
  std::string_view UpTo(std::size_t column) {
    const std::size_t begin = offset_;
    for (; column_ < column && offset_ < text_.size(); ++column_) {
      ++offset_;
      while (offset_ < text_.size() && IsTrail(text_[offset_])) ++offset_;
    }
    return Trimmed(text_.substr(begin, offset_ - begin));
  }
  std::string_view Rest() const { return Trimmed(text_.substr(offset_)); }
  // The word that stands on both sides of where the last call ended; empty when there is none.
  std::string_view Across() const {
    if (offset_ == 0 || offset_ == text_.size()) return {};
    if (text_[offset_ - 1] == ' ' || text_[offset_] == ' ') return {};
    const std::size_t begin = text_.find_last_of(' ', offset_) + 1;
    return text_.substr(begin, std::min(text_.find(' ', offset_), text_.size()) - begin);
  }

 private:
  static bool IsTrail(char byte) { return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U; }

  std::string_view text_;
  std::size_t offset_ = 0;
  std::size_t column_ = 0;  // columns before it
};

}  // namespace

FixedFields::FixedFields(std::string_view text) {
  ByColumns columns(text);
  fields_.fill(text.substr(text.size()));
  for (std::size_t field = 1; field <= kFieldCount; ++field) {
    const std::string_view before = columns.UpTo(kFieldPlaces[field].first - 1);
    if (between_.empty()) between_ = before;
    const std::string_view found = columns.UpTo(kFieldPlaces[field].last);
    if ((field == 3 || field == 5) && found.starts_with('$')) return;
    fields_[field] = found;
  }
  behind_ = columns.Rest();
  across_ = columns.Across();
}

}  // namespace quarvel::mps
