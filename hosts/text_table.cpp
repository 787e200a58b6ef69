#include "hosts/text_table.h"

#include <algorithm>
#include <utility>

#include "text/cell_width.h"
#include "text/visible_text.h"

namespace quarvel::hosts {
namespace {

constexpr std::size_t kLeastName = 8;
constexpr std::size_t kGap = 2;
constexpr std::size_t kTightGap = 1;
constexpr std::size_t kLeastNarrowName = 4;  // where nothing else makes a line fit

}  // namespace

void TextTable::Add(const std::vector<std::string>& texts) {
  std::vector<std::string>& line = lines_.emplace_back();
  for (const std::string& text : texts) line.push_back(text::VisibleText(text));
}

bool TextTable::FitsInto(std::size_t width, std::size_t name_width) const {
  if (width == 0) return true;
  std::size_t cells = (is_tight_ ? kTightGap : kGap) * (columns_.size() - 1);
  for (std::size_t i = 0; i < columns_.size(); ++i) {
    std::size_t widest = 0;
    for (const auto& line : lines_) {
      if (i < line.size()) widest = std::max(widest, text::CellCount(line[i]));
    }
    cells += columns_[i] == Align::kName ? std::min(widest, name_width) : widest;
  }
  return cells <= width;
}

ListTable TextTable::Fitted(std::size_t cells, std::size_t least_name) const {
  std::vector<ListColumn> columns;
  for (const Align align : columns_) {
    columns.push_back({{}, align != Align::kRight, 0, align == Align::kName ? least_name : 0});
  }
  ListTable table(std::move(columns));
  if (is_tight_) table.Tighten();
  for (const auto& line : lines_) {
    for (std::size_t i = 0; i < line.size(); ++i) table.Widen(i, line[i]);
  }
  if (cells > 0) table.FitInto(cells);
  return table;
}

std::string TextTable::Text(std::string_view indent, std::size_t width) const {
  const std::size_t last = columns_.size() - 1;
  const std::size_t cells = width > indent.size() ? width - indent.size() : 0;
  ListTable table = Fitted(cells, kLeastName);
  if (cells > 0 && table.StartOfLast() + table.width(last) > cells) {
    table = Fitted(cells, kLeastNarrowName);
  }
  std::string text;
  for (std::vector<std::string> line : lines_) {
    line.resize(columns_.size());
    const std::string shown = table.Line(line);
    if (shown != "\n") text += indent;
    text += shown;
  }
  return text;
}

}  // namespace quarvel::hosts
