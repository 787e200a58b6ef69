#include "hosts/list_table.h"

#include <algorithm>
#include <utility>

#include "hosts/printing.h"
#include "text/cell_width.h"

namespace quarvel::hosts {

ListTable::ListTable(std::vector<ListColumn> columns) : columns_(std::move(columns)) {
  for (ListColumn& column : columns_) {
    column.width = std::max(column.width, text::CellCount(column.heading));
  }
}

void ListTable::Widen(std::size_t column, std::string_view cell) {
  columns_[column].width = std::max(columns_[column].width, text::CellCount(cell));
}

std::size_t ListTable::StartOfLast() const {
  std::size_t cells = 0;
  for (std::size_t i = 0; i + 1 < columns_.size(); ++i) {
    cells += columns_[i].width + gap_.size();
  }
  return cells;
}

void ListTable::FitInto(std::size_t cells) {
  is_fitted_ = true;
  const std::size_t all = StartOfLast() + columns_.back().width;
  for (std::size_t excess = all > cells ? all - cells : 0; excess > 0; --excess) {
    ListColumn* widest = nullptr;
    for (ListColumn& column : columns_) {
      if (column.least == 0 || column.least >= column.width) continue;
      if (widest == nullptr || column.width >= widest->width) widest = &column;
    }
    if (widest == nullptr) {
      gap_ = " ";
      return;
    }
    --widest->width;
  }
}

std::string ListTable::Heading() const {
  std::vector<std::string> cells;
  for (const ListColumn& column : columns_) cells.emplace_back(column.heading);
  return Line(cells);
}

std::string ListTable::Line(const std::vector<std::string>& cells) const {
  std::string line;
  for (std::size_t i = 0; i < columns_.size(); ++i) {
    const ListColumn& column = columns_[i];
    if (i > 0) line += gap_;
    const bool is_cut = is_fitted_ && column.least > 0;
    const std::string cell = is_cut ? text::CutToCells(cells[i], column.width) : cells[i];
    (column.is_left ? AppendLeft : AppendRight)(line, cell, column.width);
  }
  line.resize(line.find_last_not_of(' ') + 1);
  return line + '\n';
}

}  // namespace quarvel::hosts
