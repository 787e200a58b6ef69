#include "hosts/text_table.h"

#include <algorithm>

#include "hosts/printing.h"
#include "text/encoding.h"
#include "text/visible_text.h"

namespace quarvel::hosts {

void TextTable::Add(const std::vector<std::string>& texts) {
  std::vector<std::string>& line = lines_.emplace_back();
  for (const std::string& text : texts) line.push_back(text::VisibleText(text));
}

std::string TextTable::Text(std::string_view indent) const {
  constexpr std::string_view kGap = "  ";
  std::vector<std::size_t> widths(columns_.size());
  for (const auto& line : lines_) {
    for (std::size_t i = 0; i < line.size(); ++i) {
      widths[i] = std::max(widths[i], text::CharacterCount(line[i]));
    }
  }
  std::string table;
  for (const auto& line : lines_) {
    std::string shown(indent);
    for (std::size_t i = 0; i < line.size(); ++i) {
      if (i > 0) shown += kGap;
      (columns_[i] == Align::kLeft ? AppendLeft : AppendRight)(shown, line[i], widths[i]);
    }
    shown.resize(shown.find_last_not_of(' ') + 1);
    table += shown + '\n';
  }
  return table;
}

}  // namespace quarvel::hosts
