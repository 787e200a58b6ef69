// Pictures of every window, in the folder that the command line names:
//   screenshots FOLDER
// QT_SCALE_FACTOR sets their scale. The exit status is 1 when one could not be taken.
#include <QAction>
#include <QApplication>
#include <QDir>
#include <QImage>
#include <QLineEdit>
#include <QLoggingCategory>
#include <QMenu>
#include <QTabBar>
#include <QTableView>
#include <cstdio>
#include <string>
#include <utility>

#include "component/lp_model.h"
#include "hosts/opening_desktop.h"
#include "mps/frm_progress.h"
#include "platform/qt/qt_desktop.h"
#include "tests/qt/user.h"
#include "tests/support/test_paths.h"

namespace quarvel {
namespace {

// One colour from edge to edge.
bool IsBlank(const QImage& picture) {
  for (int y = 0; y < picture.height(); ++y) {
    for (int x = 0; x < picture.width(); ++x) {
      if (picture.pixel(x, y) != picture.pixel(0, 0)) return false;
    }
  }
  return true;
}

class Photographer : public platform::User {
 public:
  explicit Photographer(QString folder) : folder_(std::move(folder)) {}

  bool failed() const { return failed_; }
  int taken() const { return taken_; }

  void Take(QWidget& window, const QString& name) {
    const QImage picture = window.grab().toImage();
    if (IsBlank(picture)) return Fail(name, "shows nothing");
    if (!picture.save(folder_ + '/' + name + ".png")) return Fail(name, "could not be written");
    ++taken_;
  }

  // The next window of that name: its picture, and then the key that ends it.
  void TakeAndPress(const std::string& window, const QString& name, int key) {
    In(window, [this, name, key](QWidget& shown) {
      Take(shown, name);
      platform::PressKey(shown.focusWidget() == nullptr ? shown : *shown.focusWidget(), key);
    });
  }

  // A command of the viewer's menus, whatever opens for it.
  void Choose(const QString& item) {
    In("frmViewEquations", [item](QWidget& viewer) {
      for (QAction* action : viewer.findChildren<QAction*>(item)) action->trigger();
    });
  }

 private:
  void Fail(const QString& name, const char* why) {
    std::fprintf(stderr, "%s.png %s\n", qPrintable(name), why);
    failed_ = true;
  }

  QString folder_;
  int taken_ = 0;
  bool failed_ = false;
};

// A window in the middle of long work.
void TakeProgress(Photographer& user, platform::Desktop& desktop) {
  mps::frmProgress progress(desktop);
  progress.Show();
  progress.set_caption("Progress: Reading MPS File (40%)");
  progress.bar.set_range(0, 100);
  progress.bar.set_value(40);
  user.Take(*platform::WindowNamed("frmProgress"), "progress");
  progress.Finish();
}

void TakeMenu(Photographer& user, const QString& item, const QString& name) {
  user.In("frmViewEquations", [&user, item, name](QWidget& viewer) {
    auto& menu = *platform::Part<QMenu>(&viewer, item.toStdString());
    menu.popup(viewer.mapToGlobal(QPoint(20, 40)));
    user.Take(menu, name);
    menu.close();
  });
}

// The first row in which the current column appears.
void ChooseElement(QWidget& viewer) {
  auto& rows_of_column = *platform::Part<QTableView>(&viewer, "fgrdColsEqns");
  platform::ClickIn(*rows_of_column.viewport(), QPoint(20, 10));
}

void TakeViewer(Photographer& user) {
  user.In("frmViewEquations", [&user](QWidget& viewer) {
    ChooseElement(viewer);
    user.Take(viewer, "viewer_columns");
  });
  TakeMenu(user, "mnuFile", "menu_file");
  user.Choose("mnuEditColChangeTypeBnd");
  user.TakeAndPress("frmSetColBounds", "column_bounds", Qt::Key_Escape);
  user.In("frmViewEquations", ChooseElement);
  user.Choose("mnuEditColChangeEle");
  user.TakeAndPress("frmInputBox", "input_box", Qt::Key_Escape);
  user.In("frmViewEquations",
          [](QWidget& viewer) { platform::Part<QTabBar>(&viewer, "")->setCurrentIndex(1); });
  user.In("frmViewEquations", [&user](QWidget& viewer) {
    user.Take(viewer, "viewer_rows");
    viewer.resize(1100, 760);
  });
  user.In("frmViewEquations", [&user](QWidget& viewer) {
    auto& rows = *platform::Part<QTableView>(&viewer, "fgrdRows");
    platform::ClickIn(*rows.viewport(), rows.visualRect(rows.model()->index(1, 0)).center());
    user.Take(viewer, "viewer_rows_wide");
  });
  TakeMenu(user, "mnuEdit", "menu_edit");
  user.Choose("mnuEditRowChangeBnd");
  user.TakeAndPress("frmSetRowBounds", "row_bounds", Qt::Key_Escape);
  user.Choose("mnuEditRowAddEle");
  user.TakeAndPress("frmAddElementsToRow", "add_elements", Qt::Key_Escape);
  user.Choose("mnuFileExit");
  user.TakeAndPress("msgbox", "message_box_save", Qt::Key_N);
}

void TakeAll(Photographer& user, platform::Desktop& desktop) {
  TakeProgress(user, desktop);
  hosts::OpeningDesktop opening(desktop, SourceFolder() + "/examples/transport.mps");
  LPModel model(opening);
  user.TakeAndPress("frmSetDefaultBounds", "default_bounds", Qt::Key_Return);
  user.TakeAndPress("msgbox", "message_box_simplify", Qt::Key_Escape);
  model.ReadMPSFile();
  TakeViewer(user);
  model.ViewEquations(true);
}

}  // namespace
}  // namespace quarvel

int main(int argc, char** argv) {
  if (argc != 2 || !QDir().mkpath(argv[1])) {
    std::fprintf(stderr, "usage: screenshots FOLDER\n");
    return 2;
  }
  QLoggingCategory::setFilterRules("default.warning=false");
  int count = 1;
  const QApplication application(count, argv);
  const auto desktop = quarvel::platform::MakeQtDesktop();
  quarvel::Photographer user(argv[1]);
  quarvel::TakeAll(user, *desktop);
  std::printf("%d pictures in %s\n", user.taken(), argv[1]);
  return user.failed() || user.LeftToDo() > 0 ? 1 : 0;
}
