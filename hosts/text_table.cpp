#include "hosts/text_table.h"

#include <utility>

#include "hosts/list_table.h"
#include "text/visible_text.h"

namespace quarvel::hosts {
namespace {

constexpr std::size_t kLeastName = 8;

}  // namespace

void TextTable::Add(const std::vector<std::string>& texts) {
  std::vector<std::string>& line = lines_.emplace_back();
  for (const std::string& text : texts) line.push_back(text::VisibleText(text));
}

std::string TextTable::Text(std::string_view indent, std::size_t width) const {
  std::vector<ListColumn> columns;
  for (const Align align : columns_) {
    columns.push_back({{}, align != Align::kRight, 0, align == Align::kName ? kLeastName : 0});
  }
  ListTable table(std::move(columns));
  for (const auto& line : lines_) {
    for (std::size_t i = 0; i < line.size(); ++i) table.Widen(i, line[i]);
  }
  if (width > indent.size()) table.FitInto(width - indent.size());
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
