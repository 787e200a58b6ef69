#include "hosts/short_equation.h"

#include "model/equation.h"
#include "text/cell_width.h"
#include "text/numbers.h"
#include "text/visible_text.h"

namespace quarvel::hosts {
namespace {

// " + 1*X".
constexpr std::size_t kShortestTerm = 6;

std::string MoreText(std::int64_t count) { return " ... " + GroupedText(count) + " more"; }

std::string CutEquation(const model::ModelData& data, const model::RowRecord& row,
                        const EquationRoom& room) {
  std::string text = model::EquationStart(row);
  const std::string end = model::EquationEnd(row);
  const std::int64_t all = row.ElementCount();
  std::size_t used = text.size() + end.size() + MoreText(all).size();
  std::size_t shown = 0;
  for (const model::ElementEntry& entry : row.Elements) {
    std::string term;
    model::AppendTerm(term, data, entry);
    if (room.is_shown) term = text::VisibleText(term);
    used += text::CellCount(term);
    if (shown >= room.terms || used > room.cells) break;
    text += term;
    ++shown;
  }
  const std::int64_t more = all - static_cast<std::int64_t>(shown);
  return (more > 0 ? text + MoreText(more) : text) + end;
}

}  // namespace

std::string GroupedText(std::int64_t count) {
  std::string digits = text::IntegerText(count);
  const std::size_t first = count < 0 ? 1 : 0;
  for (std::size_t at = digits.size(); at > first + 3; at -= 3) digits.insert(at - 3, ",");
  return digits;
}

std::string ShortEquation(const LPModel& model, std::int32_t row, const EquationRoom& room) {
  const auto terms = static_cast<std::size_t>(model.RowNumberElements(row));
  const bool may_fit = terms <= room.terms && terms <= room.cells / kShortestTerm;
  if (may_fit || terms == 0) {
    std::string whole = model.RowEquation(row);
    if (room.is_shown) whole = text::VisibleText(whole);
    if (terms == 0 || text::CellCount(whole) <= room.cells) return whole;
  }
  const model::ModelData& data = model.store().data();
  return CutEquation(data, data.Rows[model::Stored(row)], room);
}

}  // namespace quarvel::hosts
