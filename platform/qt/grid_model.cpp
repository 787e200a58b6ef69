#include "platform/qt/grid_model.h"

#include <algorithm>

#include "platform/qt/qt_text.h"

namespace quarvel::platform::qt {

bool GridModel::Refresh() {
  const int lines = LinesNow();
  if (lines != lines_) {
    beginResetModel();
    lines_ = lines;
    endResetModel();
    return true;
  }
  if (lines > 0) Q_EMIT dataChanged(index(0, 0), index(lines - 1, grid_.columns() - 1));
  Q_EMIT headerDataChanged(Qt::Horizontal, 0, grid_.columns() - 1);
  return false;
}

int GridModel::rowCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : lines_; }

int GridModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() || !owner_.alive() ? 0 : grid_.columns();
}

QVariant GridModel::data(const QModelIndex& index, int role) const {
  if (!owner_.alive() || (role != Qt::DisplayRole && role != Qt::ToolTipRole)) return {};
  const QString text = ToQt(grid_.Text(index.row() + grid_.fixed_rows(), index.column()));
  return role == Qt::ToolTipRole ? ToToolTip(text) : text;
}

QVariant GridModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (!owner_.alive() || orientation != Qt::Horizontal || grid_.fixed_rows() == 0) return {};
  if (role == Qt::TextAlignmentRole)
    return QVariant::fromValue(int{Qt::AlignLeft | Qt::AlignVCenter});
  if (role != Qt::DisplayRole) return {};
  return ToQt(grid_.Text(0, section));
}

}  // namespace quarvel::platform::qt
