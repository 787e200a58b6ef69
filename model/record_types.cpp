#include "model/record_types.h"

#include <algorithm>

namespace quarvel::model {
namespace {

// A type is the place of its line.
template <class Table>
constexpr bool IsInOrder(const Table& table) {
  for (std::size_t i = 0; i < table.size(); ++i) {
    if (static_cast<std::size_t>(table[i].type) != i) return false;
  }
  return true;
}
static_assert(IsInOrder(kRowTypes));
static_assert(IsInOrder(kColumnTypes));

// The first line is that of no type, which has no letter.
template <class Table>
auto FindLetter(const Table& table, std::string_view letter) {
  if (letter.size() != 1) return table.front().type;
  const auto found = std::find_if(table.begin() + 1, table.end(), [letter](const auto& line) {
    return line.letter.front() == letter.front();
  });
  return found == table.end() ? table.front().type : found->type;
}

void AppendWithBar(std::string& text, std::string_view letter) {
  if (!text.empty()) text += '|';
  text += letter;
}

}  // namespace

RowType RowTypeOf(std::string_view letter) { return FindLetter(kRowTypes, letter); }

RowType RowTypeOf(double lower, double upper) {
  if (HasLower(lower) && HasUpper(upper)) {
    return lower == upper ? RowType::kEqual : RowType::kRanged;
  }
  if (HasUpper(upper)) return RowType::kLess;
  return HasLower(lower) ? RowType::kGreater : RowType::kFree;
}

ColumnType ColumnTypeOf(std::string_view letter) { return FindLetter(kColumnTypes, letter); }

std::string RowTypeLetters() {
  std::string letters;
  for (const RowTypeTraits& row : kRowTypes) {
    if (row.type != RowType::kNone) AppendWithBar(letters, row.letter);
  }
  return letters;
}

std::string ColumnTypeLetters() {
  std::string letters;
  for (const ColumnTypeTraits& column : kColumnTypes) {
    if (column.settable) AppendWithBar(letters, column.letter);
  }
  return letters;
}

}  // namespace quarvel::model
