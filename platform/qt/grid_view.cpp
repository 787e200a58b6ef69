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
  GridView(Stage& stage, Control& control, QWidget& parent)
      : ViewOf(stage, control, new GridTable(parent, static_cast<Grid&>(control).fixed_rows() > 0)),
        model_(kind()) {
    widget_.setModel(&model_);
    widget_.SetListener(this);
    QObject::connect(widget_.horizontalHeader(), &QHeaderView::sectionResized, &model_,
                     [this](int column, int, int width) {
                       if (!fitting_) ColumnDragged(column, width);
                     });
  }

  void Detach() override {
    widget_.SetListener(nullptr);
    model_.Detach();
    ControlView::Detach();
  }

 protected:
  void Show(Change change) override {
    switch (change) {
      case Change::kContents:
        return ShowContents();
      case Change::kSelection:
        return ShowSelection();
      case Change::kRange:
        return FitColumns();
      default:
        return;
    }
  }

 private:
  // The rows may be half built while the grid is not to be redrawn; it tells when they are done.
  void ShowContents() {
    if (!kind().redraw()) return;
    if (model_.Refresh()) FitColumns();
    ShowSelection();
  }

  void ShowSelection() {
    if (!kind().redraw()) return;
    if (kind().all_selected()) return widget_.MarkAll();
    widget_.SetCurrentLine(kind().current_row() - kind().fixed_rows());
  }

  // The last column takes what room is left, at least its own width.
  void FitColumns() {
    if (std::exchange(fitting_, true)) return;
    QHeaderView& header = *widget_.horizontalHeader();
    int left = widget_.viewport()->width();
    for (int column = 0; column < kind().columns(); ++column) {
      const int own = kind().column_width(column);
      const bool last = column + 1 == kind().columns();
      header.resizeSection(column, last ? std::max(own, left) : own);
      left -= own;
    }
    fitting_ = false;
  }

  void LineChosen(int line) override {
    const bool stays = ForUser([this, line] { kind().Select(line + kind().fixed_rows()); });
    // Where the grid did not follow, the table shows what is so.
    if (stays && kind().current_row() - kind().fixed_rows() != widget_.currentIndex().row()) {
      ShowSelection();
    }
  }

  void LineDoubleClicked(int line) override {
    ForUser([this, line] { kind().DoubleClick(line + kind().fixed_rows()); });
  }

  void MenuWanted(const QPoint& global_position) override {
    if (control() == nullptr || kind().popup == nullptr) return;
    static_cast<FormWindow*>(widget_.window())->PopUp(*kind().popup, global_position);
  }

  void ColumnDragged(int column, int width) override {
    ForUser([this, column, width] { kind().set_column_width(column, width); });
  }

  void Resized() override {
    if (control() != nullptr) FitColumns();
  }

  bool KeyPressed(const QKeyEvent& event) override {
    if (control() == nullptr) return true;
    bool used = false;
    const KeyPress press = ToKeyPress(event);
    if (press.key != Key::kNone) ForUser([&] { used = kind().Press(press); });
    if (used || control() == nullptr) return true;
    if (!IsCharacter(event)) return false;
    ForUser([&] { kind().TypeCharacter(FromQt(event.text())); });
    return true;
  }

  static bool IsCharacter(const QKeyEvent& event) {
    const auto shortcut = Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier;
    const QString text = event.text();
    return !event.modifiers().testAnyFlags(shortcut) && !text.isEmpty() && text[0].isPrint();
  }

  GridModel model_;
  bool fitting_ = false;
};

}  // namespace

std::unique_ptr<ControlView> MakeGridView(Stage& stage, Control& control, QWidget& parent) {
  return std::make_unique<GridView>(stage, control, parent);
}

}  // namespace quarvel::platform::qt
