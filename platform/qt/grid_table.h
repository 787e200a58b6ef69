// Qt's table as a grid wants it: lines of one height, one of them current, columns that are widened
// by dragging the border between cells, also where there is no header. Whoever owns it hears of
// what the user does after Qt has done with the event.
#pragma once

#include <QTableView>

#include "platform/qt/focus_frame.h"

namespace quarvel::platform::qt {

class GridListener {
 public:
  virtual ~GridListener() = default;
  // Lines and columns from 0.
  virtual void LineChosen(int line) = 0;
  virtual void LineDoubleClicked(int line) = 0;
  virtual void MenuWanted(const QPoint& global_position) = 0;
  virtual void ColumnDragged(int column, int width) = 0;
  // The room for columns is another.
  virtual void Resized() = 0;
  // True when the grid has a use for the key.
  virtual bool KeyPressed(const QKeyEvent& event) = 0;
};

class GridTable : public WithFocusFrame<QTableView> {
 public:
  GridTable(QWidget& parent, bool has_header);

  // Null: nobody.
  void SetListener(GridListener* listener) { listener_ = listener; }
  // Makes a line current and shows it; -1 for none. The listener does not hear of it.
  void SetCurrentLine(int line);
  void MarkAll();

 protected:
  bool viewportEvent(QEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex& index,
                                                       const QEvent* event) const override;

 private:
  // The column whose right border is at that place of the viewport; -1 for none.
  int BorderAt(int x) const;
  void Announce();
  // True when the key was one that leads to the first or the last line.
  bool GoToEnd(const QKeyEvent& event);
  // True when a cell does not show its whole text.
  bool IsCut(const QModelIndex& index) const;

  GridListener* listener_ = nullptr;
  int dragged_ = -1;  // the column whose border the mouse holds
};

}  // namespace quarvel::platform::qt
