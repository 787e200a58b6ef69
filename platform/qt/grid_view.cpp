// Grids: Qt's table over the grid's own rows.
#include <QHeaderView>
#include <QKeyEvent>
#include <algorithm>
#include <utility>

#include "platform/grid.h"
#include "platform/qt/control_view.h"
#include "platform/qt/form_window.h"
#include "platform/qt/grid_model.h"
#include "platform/qt/grid_table.h"
#include "platform/qt/key_press.h"
#include "platform/qt/qt_text.h"

namespace quarvel::platform::qt {
namespace {

class GridView : public ViewOf<Grid, GridTable>, private GridListener {
 public:
  GridView(FormWindow& owner, Control& control)
      : ViewOf(owner, control,
               new GridTable(owner.inner(), static_cast<Grid&>(control).fixed_rows() > 0)),
        model_(owner, Own()) {
    widget_.setModel(&model_);
    widget_.SetListener(this);
    QObject::connect(widget_.horizontalHeader(), &QHeaderView::sectionResized, &model_,
                     [this](int column, int, int width) {
                       if (!showing_widths_) ColumnDragged(column, width);
                     });
  }

  ~GridView() override { widget_.SetListener(nullptr); }

 protected:
  void Show(Change change) override {
    switch (change) {
      case Change::kContents:
        return ShowContents();
      case Change::kSelection:
        return ShowSelection();
      case Change::kRange:
        return ShowWidths();
      default:
        return;
    }
  }

 private:
  // The rows may be half built while the grid is not to be redrawn; it tells when they are done.
  void ShowContents() {
    if (!Own().redraw()) return;
    if (model_.Refresh()) ShowWidths();
    ShowSelection();
  }

  void ShowSelection() {
    if (!Own().redraw()) return;
    if (Own().all_selected()) return widget_.MarkAll();
    widget_.SetCurrentLine(Own().current_row() - Own().fixed_rows());
  }

  // The last column takes what room is left, at least its own width.
  void ShowWidths() {
    if (std::exchange(showing_widths_, true)) return;
    QHeaderView& header = *widget_.horizontalHeader();
    int left = widget_.viewport()->width();
    for (int column = 0; column < Own().columns(); ++column) {
      const int own = Own().column_width(column);
      const bool last = column + 1 == Own().columns();
      header.resizeSection(column, last ? std::max(own, left) : own);
      left -= own;
    }
    showing_widths_ = false;
  }

  void LineChosen(int line) override {
    const bool stays = ForUser([this, line] { Own().Select(line + Own().fixed_rows()); });
    // Where the grid did not follow, the table shows what is so.
    if (stays && Own().current_row() - Own().fixed_rows() != widget_.currentIndex().row()) {
      ShowSelection();
    }
  }

  void LineDoubleClicked(int line) override {
    ForUser([this, line] { Own().DoubleClick(line + Own().fixed_rows()); });
  }

  void MenuWanted(const QPoint& global_position) override {
    if (!alive() || Own().popup == nullptr) return;
    owner().PopUp(*Own().popup, global_position);
  }

  void ColumnDragged(int column, int width) override {
    ForUser([this, column, width] { Own().set_column_width(column, width); });
  }

  void Resized() override {
    if (alive()) ShowWidths();
  }

  bool KeyPressed(const QKeyEvent& event) override {
    if (!alive()) return true;
    bool used = false;
    const KeyPress press = ToKeyPress(event);
    if (press.key != Key::kNone) ForUser([&] { used = Own().Press(press); });
    if (used || !alive()) return true;
    if (!IsCharacter(event)) return false;
    ForUser([&] { Own().TypeCharacter(FromQt(event.text())); });
    return true;
  }

  static bool IsCharacter(const QKeyEvent& event) {
    const auto shortcut = Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier;
    const QString text = event.text();
    return !event.modifiers().testAnyFlags(shortcut) && !text.isEmpty() && text[0].isPrint();
  }

  GridModel model_;
  bool showing_widths_ = false;
};

}  // namespace

std::unique_ptr<ControlView> MakeGridView(FormWindow& owner, Control& control) {
  return std::make_unique<GridView>(owner, control);
}

}  // namespace quarvel::platform::qt
