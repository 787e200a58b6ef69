// A table of texts for people, whose columns are as wide as their widest text: a ListTable (list_table.h)
// without a heading, which holds its lines until all are there.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "hosts/list_table.h"

namespace quarvel::hosts {

class TextTable {
 public:
  // kName: at the left, and cut where a line would be too long.
  enum class Align { kLeft, kRight, kName };

  explicit TextTable(std::vector<Align> columns) : columns_(std::move(columns)) {}

  // The texts of one line, at most as many as there are columns. Whatever would steer a terminal is
  // shown as escapes.
  void Add(const std::vector<std::string>& texts);
  // Has one blank between columns instead of two.
  void Tighten() { is_tight_ = true; }
  // Whether lines are no wider than so many cells, 0 for any number, when names are cut to so many.
  bool FitsInto(std::size_t width, std::size_t name_width) const;
  // A line each, with `indent` before it and no blanks at its end, in no more than so many cells where
  // cutting names makes it so; 0 for any number.
  std::string Text(std::string_view indent = "", std::size_t width = 0) const;

 private:
  // For lines of so many cells, 0 for any number.
  ListTable Fitted(std::size_t cells, std::size_t least_name) const;

  std::vector<Align> columns_;
  std::vector<std::vector<std::string>> lines_;
  bool is_tight_ = false;
};

}  // namespace quarvel::hosts
