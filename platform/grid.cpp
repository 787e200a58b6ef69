#include "platform/grid.h"

#include <algorithm>
#include <utility>

#include "platform/desktop.h"
#include "text/upper_case.h"

namespace quarvel::platform {
namespace {

constexpr std::size_t kSeenLimit = 4096;
constexpr std::chrono::milliseconds kTypingPause{1000};

std::int64_t CellKey(int row, int column) { return std::int64_t{row} * 64 + column; }

}  // namespace

Grid::Grid(Form& form, std::string name, Place place, std::vector<int> widths, int fixed_rows)
    : Control(form, ControlKind::kGrid, std::move(name), place),
      widths_(std::move(widths)),
      fixed_rows_(fixed_rows) {}

void Grid::set_column_width(int column, int width) {
  if (column < 0 || column >= columns() || column_width(column) == width) return;
  widths_[static_cast<std::size_t>(column)] = width;
  Changed(Change::kRange);
}

void Grid::set_rows(int rows) {
  rows_ = std::max(rows, 0);
  current_row_ = rows_ == 0 ? -1 : std::clamp(current_row_, 0, rows_ - 1);
  all_selected_ = false;
  Refresh();
}

bool Grid::MakeCurrent(int row) {
  if (row < -1 || row >= rows_) return false;
  const bool marked = std::exchange(all_selected_, false);
  const bool moved = current_row_ != row;
  current_row_ = row;
  if (marked || moved) Changed(Change::kSelection);
  return moved;
}

void Grid::set_current_row(int row) {
  if (MakeCurrent(row) && on_row_change) on_row_change();
}

void Grid::Refresh() {
  if (redraw_) seen_.clear();
  Changed(Change::kContents);
}

void Grid::set_redraw(bool redraw) {
  if (redraw_ == redraw) return;
  redraw_ = redraw;
  if (redraw_) Refresh();
}

std::string Grid::Ask(int row, int column) const {
  if (!cell || row < 0 || row >= rows_ || column < 0 || column >= columns()) return "";
  try {
    return cell(row, column);
  } catch (...) {
    // A row that is gone from under an open window has no text; painting has nobody to tell.
    return "";
  }
}

std::string Grid::Text(int row, int column) const {
  const std::int64_t key = CellKey(row, column);
  if (!redraw_) {
    const auto seen = seen_.find(key);
    return seen == seen_.end() ? "" : seen->second;
  }
  if (seen_.size() >= kSeenLimit) seen_.clear();
  return seen_[key] = Ask(row, column);
}

std::string Grid::CopyText() const {
  if (current_row_ < 0 && !all_selected_) return "";
  const int first = all_selected_ ? 0 : current_row_;
  const int end = all_selected_ ? rows_ : current_row_ + 1;
  std::string text;
  for (int row = first; row < end; ++row) {
    if (row != first) text += "\r\n";
    for (int column = 0; column < columns(); ++column) {
      if (column != 0) text += '\t';
      text += Ask(row, column);
    }
  }
  return text;
}

void Grid::Select(int row) {
  if (enabled() && visible() && MakeCurrent(row)) RunForUser(on_row_change);
}

void Grid::DoubleClick(int row) {
  if (row < 0 || row >= rows_) return;
  Select(row);
  if (row == current_row_) RunForUser(on_double_click);
}

bool Grid::Press(KeyPress press) {
  if (!enabled() || !visible() || !redraw_) return false;
  if (press == KeyPress{Key::kDelete} && on_delete) {
    RunForUser(on_delete);
    return true;
  }
  if (press == Ctrl('A')) {
    all_selected_ = rows_ > 0;
    Changed(Change::kSelection);
    return true;
  }
  if (press == Ctrl('C')) {
    RunForUser([this] { form().desktop().CopyToClipboard(CopyText()); });
    return true;
  }
  return false;
}

bool Grid::BeginsWith(int row, std::string_view upper_case_start) const {
  return text::UpperCase(Ask(row, search_column)).starts_with(upper_case_start);
}

void Grid::FindTyped(int first) {
  const std::string wanted = text::UpperCase(typed_);
  const int lines = rows_ - fixed_rows_;
  for (int step = 0; step < lines; ++step) {
    const int row = fixed_rows_ + (first - fixed_rows_ + step) % lines;
    if (BeginsWith(row, wanted)) return Select(row);
  }
}

void Grid::TypeCharacter(std::string_view character) {
  if (!enabled() || !visible() || !redraw_ || rows_ <= fixed_rows_) return;
  const auto now = std::chrono::steady_clock::now();
  const bool goes_on = !typed_.empty() && now - last_typed_ < kTypingPause;
  last_typed_ = now;
  // The same letter again steps through the names that begin with it.
  const bool steps = goes_on && typed_ == character;
  if (!goes_on) typed_.clear();
  if (!steps) typed_ += character;
  const int here = std::max(current_row_, fixed_rows_);
  const bool stay = goes_on && !steps;
  FindTyped(stay || current_row_ < fixed_rows_ ? here : here + 1 == rows_ ? fixed_rows_ : here + 1);
}

}  // namespace quarvel::platform
