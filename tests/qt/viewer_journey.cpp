#include "tests/qt/viewer_journey.h"

#include <QAction>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QTabBar>
#include <optional>
#include <sstream>

#include "hosts/program.h"
#include "hosts/view_in_windows.h"
#include "platform/qt/qt_desktop.h"

namespace quarvel {

using platform::ClickIn;
using platform::Part;
using platform::WindowNamed;

namespace {

QAction* Find(const QList<QAction*>& actions, const std::string& name) {
  for (QAction* action : actions) {
    if (action->objectName().toStdString() == name && action->isVisible()) return action;
  }
  ADD_FAILURE() << "no item " << name;
  return nullptr;
}

// Menus and menu bars say alike where an item is.
template <typename Bar>
void ClickItem(Bar& bar, const std::string& name) {
  QAction* const action = Find(bar.actions(), name);
  if (action != nullptr) ClickIn(bar, bar.actionGeometry(action).center());
}

std::string Text(const QAbstractItemModel& model, int line, int column) {
  return model.index(line, column).data().toString().toStdString();
}

}  // namespace

ViewerJourney::ViewerJourney() {
  WriteWholeFile(path_, ReadWholeFile(SourceFolder() + "/examples/transport.mps"));
}

void ViewerJourney::TearDown() {
  EXPECT_EQ(LeftToDo(), 0u) << "doings that were never possible";
  EXPECT_EQ(WindowNamed("frmViewEquations"), nullptr);
}

ViewerJourney::Outcome ViewerJourney::Run(const std::vector<std::string>& words) {
  std::ostringstream out;
  std::ostringstream err;
  hosts::Streams streams = {[] { return std::optional<std::string>(); }, out, err};
  streams.view = [](hosts::Session& session) {
    return hosts::ViewInWindows(session, platform::MakeQtDesktop().get());
  };
  const int status = hosts::RunProgram(words, streams);
  return {status, out.str(), err.str()};
}

void ViewerJourney::Open() {
  Press("frmSetDefaultBounds", "cmdOK");
  AnswerBox(QMessageBox::No);
}

void ViewerJourney::Choose(std::initializer_list<std::string> items) {
  std::string menu;
  for (const std::string& item : items) {
    if (menu.empty()) {
      In("frmViewEquations",
         [item](QWidget& viewer) { ClickItem(*viewer.findChild<QMenuBar*>(), item); });
    } else {
      In(menu, [item](QWidget& shown) { ClickItem(static_cast<QMenu&>(shown), item); });
    }
    menu = item;
  }
}

void ViewerJourney::TurnTo(int page) {
  In("frmViewEquations", [page](QWidget& viewer) {
    auto& tabs = *viewer.findChild<QTabBar*>();
    ClickIn(tabs, tabs.tabRect(page).center());
  });
}

void ViewerJourney::ClickLine(const std::string& window, const std::string& grid,
                              const std::string& text) {
  In(window, [grid, text](QWidget& shown) {
    auto& table = *Part<QTableView>(&shown, grid);
    for (int line = 0; line < table.model()->rowCount(); ++line) {
      if (Text(*table.model(), line, 0) != text) continue;
      return ClickIn(*table.viewport(), table.visualRect(table.model()->index(line, 0)).center());
    }
    ADD_FAILURE() << grid << " has no line " << text;
  });
}

void ViewerJourney::Press(const std::string& window, const std::string& button) {
  In(window, [button](QWidget& shown) { ClickIn(*Part<QAbstractButton>(&shown, button)); });
}

void ViewerJourney::Fill(const std::string& window, const std::string& box, const QString& text) {
  In(window, [box, text](QWidget& shown) {
    auto& line = *Part<QLineEdit>(&shown, box);
    line.selectAll();
    platform::TypeInto(line, text);
  });
}

void ViewerJourney::Answer(const QString& text) {
  In("frmInputBox", [text](QWidget& shown) {
    auto& line = *Part<QLineEdit>(&shown, "txtInput");
    line.selectAll();
    platform::TypeInto(line, text);
    platform::PressKey(line, Qt::Key_Return);
  });
}

void ViewerJourney::TypePath(const std::string& path) {
  In("filedialog", [path](QWidget& box) {
    auto& line = *Part<QLineEdit>(&box, "fileNameEdit");
    line.setText(QString::fromStdString(path));
    platform::PressKey(line, Qt::Key_Return);
  });
}

void ViewerJourney::Leave() {
  In("frmViewEquations", [](QWidget& viewer) { viewer.close(); });
  AnswerBox(QMessageBox::No);
}

QWidget& ViewerJourney::Viewer() { return *WindowNamed("frmViewEquations"); }

std::vector<std::string> ViewerJourney::Column(std::string_view grid, int column) {
  std::vector<std::string> texts;
  const QAbstractItemModel& model = *Part<QTableView>(&Viewer(), grid)->model();
  for (int line = 0; line < model.rowCount(); ++line) texts.push_back(Text(model, line, column));
  return texts;
}

std::string ViewerJourney::Rows(const std::string& path) {
  return Run({"rows", path, "--equations"}).out;
}

}  // namespace quarvel
