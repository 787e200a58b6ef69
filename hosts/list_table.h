// Lines of text with columns that stand below each other, mostly two blanks apart.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace quarvel::hosts {

struct ListColumn {
  std::string_view heading;
  bool is_left = true;    // its cells stand at the left
  std::size_t width = 0;  // of its cells at least, in cells of a terminal
  // Its cells may be cut when a line is too long: to no less than this; 0 for never.
  std::size_t least = 0;
};

class ListTable {
 public:
  explicit ListTable(std::vector<ListColumn> columns);

  // Has columns stand one blank apart instead of two.
  void Tighten() { gap_ = " "; }
  // Makes a column as wide as this cell.
  void Widen(std::size_t column, std::string_view cell);
  // Narrows the columns that may be cut, the widest first, until a line has no more than so many
  // cells, or all are at their least. Columns then stand one blank apart where two are too many.
  void FitInto(std::size_t cells);
  std::size_t width(std::size_t column) const { return columns_[column].width; }
  // Where the last column begins.
  std::size_t StartOfLast() const;

  // With line ends, and without blanks before them. One cell for each column.
  std::string Heading() const;
  std::string Line(const std::vector<std::string>& cells) const;

 private:
  std::vector<ListColumn> columns_;
  bool is_fitted_ = false;
  std::string_view gap_ = "  ";
};

}  // namespace quarvel::hosts
