#include "hosts/text_table.h"

#include <utility>

#include "hosts/list_table.h"
#include "text/visible_text.h"

namespace quarvel::hosts {

void TextTable::Add(const std::vector<std::string>& texts) {
  std::vector<std::string>& line = lines_.emplace_back();
  for (const std::string& text : texts) line.push_back(text::VisibleText(text));
}

std::string TextTable::Text(std::string_view indent) const {
  std::vector<ListColumn> columns;
  for (const Align align : columns_) columns.push_back({{}, align == Align::kLeft});
  ListTable table(std::move(columns));
  for (const auto& line : lines_) {
    for (std::size_t i = 0; i < line.size(); ++i) table.Widen(i, line[i]);
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
