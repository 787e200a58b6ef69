// The lines of a grid for Qt's table: only those that are shown are ever asked for. A fixed row is
// the table's header, so line 0 of the table is the first row after it. Once the form has left the
// screen, every cell is empty.
#pragma once

#include <QAbstractTableModel>

#include "platform/grid.h"
#include "platform/qt/form_window.h"

namespace quarvel::platform::qt {

class GridModel : public QAbstractTableModel {
 public:
  GridModel(const FormWindow& owner, const Grid& grid)
      : owner_(owner), grid_(grid), lines_(LinesNow()) {}

  // Takes over the grid's number of rows and has the cells asked for anew. True when the number is
  // another one; nothing is current then.
  bool Refresh();

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

 private:
  int LinesNow() const { return std::max(grid_.rows() - grid_.fixed_rows(), 0); }

  const FormWindow& owner_;
  const Grid& grid_;
  int lines_;
};

}  // namespace quarvel::platform::qt
