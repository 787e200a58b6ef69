#include "platform/qt/grid_table.h"

#include <QContextMenuEvent>
#include <QHeaderView>
#include <QHelpEvent>
#include <QMouseEvent>
#include <QToolTip>
#include <algorithm>
#include <cstdlib>

namespace quarvel::platform::qt {
namespace {

constexpr int kBorderReach = 3;
constexpr int kNarrowest = 16;
constexpr int kLinePadding = 6;

int X(const QMouseEvent& event) { return event.position().toPoint().x(); }

}  // namespace

GridTable::GridTable(QWidget& parent, bool has_header) : WithFocusFrame(&parent) {
  setSelectionBehavior(SelectRows);
  setSelectionMode(SingleSelection);
  setEditTriggers(NoEditTriggers);
  setTabKeyNavigation(false);
  setWordWrap(false);
  setCornerButtonEnabled(false);
  setHorizontalScrollMode(ScrollPerPixel);
  setVerticalScrollMode(ScrollPerPixel);
  viewport()->setMouseTracking(true);
  QHeaderView& lines = *verticalHeader();
  lines.hide();
  lines.setSectionResizeMode(QHeaderView::Fixed);
  lines.setMinimumSectionSize(1);
  lines.setDefaultSectionSize(fontMetrics().height() + kLinePadding);
  QHeaderView& header = *horizontalHeader();
  header.setVisible(has_header);
  header.setMinimumSectionSize(kNarrowest);
  header.setHighlightSections(false);
  header.setSectionsClickable(false);
}

void GridTable::SetCurrentLine(int line) {
  const QModelIndex index = line < 0 ? QModelIndex() : model()->index(line, 0);
  if (!index.isValid()) {
    selectionModel()->clear();
    return;
  }
  selectionModel()->setCurrentIndex(
      index, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
  scrollTo(index);
}

void GridTable::MarkAll() {
  const int lines = model()->rowCount();
  if (lines == 0) return;
  const QItemSelection all(model()->index(0, 0),
                           model()->index(lines - 1, model()->columnCount() - 1));
  selectionModel()->select(all, QItemSelectionModel::ClearAndSelect);
}

int GridTable::BorderAt(int x) const {
  for (int column = 0; column < model()->columnCount(); ++column) {
    const int border = columnViewportPosition(column) + columnWidth(column);
    if (std::abs(border - x) <= kBorderReach) return column;
  }
  return -1;
}

bool GridTable::viewportEvent(QEvent* event) {
  if (event->type() == QEvent::Leave && dragged_ < 0) viewport()->unsetCursor();
  if (event->type() == QEvent::ToolTip &&
      !IsCut(indexAt(static_cast<const QHelpEvent*>(event)->pos()))) {
    QToolTip::hideText();
    return true;
  }
  return QTableView::viewportEvent(event);
}

bool GridTable::IsCut(const QModelIndex& index) const {
  if (!index.isValid()) return false;
  // The line of the grid takes one pixel of the cell.
  return sizeHintForIndex(index).width() > columnWidth(index.column()) - 1;
}

// One line stays chosen, whatever is clicked or dragged over, with or without Ctrl.
QItemSelectionModel::SelectionFlags GridTable::selectionCommand(const QModelIndex& index,
                                                                const QEvent*) const {
  if (!index.isValid()) return QItemSelectionModel::NoUpdate;
  return QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows;
}

void GridTable::Announce() {
  const QModelIndex current = currentIndex();
  if (current.isValid() && listener_ != nullptr) listener_->LineChosen(current.row());
}

void GridTable::mousePressEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton) dragged_ = BorderAt(X(*event));
  if (dragged_ >= 0) return event->accept();
  QTableView::mousePressEvent(event);
  if (indexAt(event->position().toPoint()).isValid()) Announce();
}

void GridTable::mouseMoveEvent(QMouseEvent* event) {
  if (dragged_ >= 0) {
    const int width = X(*event) - columnViewportPosition(dragged_);
    if (listener_ != nullptr) listener_->ColumnDragged(dragged_, std::max(width, kNarrowest));
    return event->accept();
  }
  if (event->buttons() == Qt::NoButton && BorderAt(X(*event)) >= 0) {
    viewport()->setCursor(Qt::SplitHCursor);
  } else {
    viewport()->unsetCursor();
  }
  QTableView::mouseMoveEvent(event);
  if (event->buttons() != Qt::NoButton) Announce();
}

void GridTable::mouseReleaseEvent(QMouseEvent* event) {
  if (dragged_ >= 0) {
    dragged_ = -1;
    return event->accept();
  }
  QTableView::mouseReleaseEvent(event);
}

void GridTable::mouseDoubleClickEvent(QMouseEvent* event) {
  const int line = indexAt(event->position().toPoint()).row();
  const bool on_border = BorderAt(X(*event)) >= 0;
  QTableView::mouseDoubleClickEvent(event);
  if (event->button() == Qt::LeftButton && !on_border && line >= 0 && listener_ != nullptr) {
    listener_->LineDoubleClicked(line);
  }
}

// Qt would go to the ends of the line.
bool GridTable::GoToEnd(const QKeyEvent& event) {
  const bool last = event.key() == Qt::Key_End;
  if (!last && event.key() != Qt::Key_Home) return false;
  if (model()->rowCount() == 0) return true;
  SetCurrentLine(last ? model()->rowCount() - 1 : 0);
  Announce();
  return true;
}

void GridTable::keyPressEvent(QKeyEvent* event) {
  if (listener_ != nullptr && listener_->KeyPressed(*event)) return event->accept();
  // With Ctrl these are keys of the window; without, they do not arrive here.
  if (event->key() == Qt::Key_Tab || event->key() == Qt::Key_Backtab) return event->ignore();
  if (GoToEnd(*event)) return event->accept();
  const QModelIndex before = currentIndex();
  QTableView::keyPressEvent(event);
  if (currentIndex() != before) Announce();
}

void GridTable::contextMenuEvent(QContextMenuEvent* event) {
  QPoint place = event->pos();
  if (event->reason() == QContextMenuEvent::Mouse) {
    const QModelIndex clicked = indexAt(place);
    if (clicked.isValid()) {
      SetCurrentLine(clicked.row());
      Announce();
    }
  } else {
    place = visualRect(currentIndex()).bottomLeft();
  }
  event->accept();
  if (listener_ != nullptr) listener_->MenuWanted(viewport()->mapToGlobal(place));
}

// Qt would make the first line current in a list without a current one.
void GridTable::focusInEvent(QFocusEvent* event) {
  const bool had_current = currentIndex().isValid();
  QTableView::focusInEvent(event);
  if (!had_current) selectionModel()->clearCurrentIndex();
}

void GridTable::resizeEvent(QResizeEvent* event) {
  QTableView::resizeEvent(event);
  if (listener_ != nullptr) listener_->Resized();
}

}  // namespace quarvel::platform::qt
