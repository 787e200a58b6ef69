#include "hosts/source_excerpt.h"

#include <algorithm>
#include <string_view>
#include <vector>

#include "text/cell_width.h"
#include "text/encoding.h"
#include "text/visible_text.h"

namespace quarvel::hosts {
namespace {

constexpr std::size_t kTab = 8;
constexpr std::string_view kLeftOut = "...";

// A character of the line as it is shown.
struct Cell {
  std::string text;
  std::size_t width = 0;
  bool marked = false;
};

Cell CellOf(std::string_view character, char32_t code, std::size_t column) {
  if (code == '\t') {
    const std::size_t width = kTab - column % kTab;
    return {std::string(width, ' '), width};
  }
  std::string shown = text::VisibleText(character);
  const std::size_t width = shown == character ? text::CellsOf(code) : text::CharacterCount(shown);
  return {std::move(shown), width};
}

std::vector<Cell> CellsOf(const mps::FileProblem& problem, std::size_t widest) {
  std::vector<Cell> cells;
  std::size_t column = 0;
  std::int32_t number = problem.text_column;
  const std::int32_t end = problem.column + std::max(problem.length, 1);
  for (std::string_view rest = problem.text; !rest.empty(); ++number) {
    const text::Character character = text::FirstCharacter(rest);
    Cell cell = CellOf(rest.substr(0, character.size), character.code, column);
    cell.marked = problem.column > 0 && number >= problem.column && number < end;
    column += cell.width;
    cells.push_back(std::move(cell));
    rest.remove_prefix(character.size);
  }
  // A token may be missing where the line ends.
  for (; problem.column > 0 && number <= problem.column && column < widest; ++number, ++column) {
    cells.push_back({" ", 1, number == problem.column});
  }
  return cells;
}

std::size_t WidthOf(const std::vector<Cell>& cells) {
  std::size_t width = 0;
  for (const Cell& cell : cells) width += cell.width;
  return width;
}

// Where to begin so that the token stands well in view.
std::size_t FirstShown(const std::vector<Cell>& cells, std::size_t widest) {
  constexpr std::size_t kBefore = 30;
  const auto token =
      std::find_if(cells.begin(), cells.end(), [](const Cell& cell) { return cell.marked; });
  if (token == cells.end() || WidthOf({cells.begin(), token}) <= widest / 2) return 0;
  auto first = static_cast<std::size_t>(token - cells.begin());
  for (std::size_t before = 0; before < kBefore;) before += cells[--first].width;
  return first;
}

void Append(SourceExcerpt& excerpt, const Cell& cell) {
  excerpt.text += cell.text;
  excerpt.marks.append(cell.width, cell.marked ? '^' : ' ');
}

void DropBlanksAtEnd(std::string& text) { text.erase(text.find_last_not_of(' ') + 1); }

}  // namespace

SourceExcerpt ExcerptOf(const mps::FileProblem& problem, std::size_t width) {
  const std::vector<Cell> cells = CellsOf(problem, width);
  const bool wide = WidthOf(cells) > width;
  const std::size_t first = wide ? FirstShown(cells, width) : 0;
  SourceExcerpt excerpt;
  if (first > 0 || problem.text_column > 1) {
    Append(excerpt, {std::string(kLeftOut), kLeftOut.size()});
  }
  std::size_t next = first;
  for (; next < cells.size(); ++next) {
    const bool has_room = excerpt.marks.size() + cells[next].width <= width - kLeftOut.size();
    if (wide && !has_room) break;
    Append(excerpt, cells[next]);
  }
  if (next < cells.size()) excerpt.text += kLeftOut;
  DropBlanksAtEnd(excerpt.text);
  DropBlanksAtEnd(excerpt.marks);
  return excerpt;
}

}  // namespace quarvel::hosts
