// Menu bars and the keys of a window.
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QTest>

#include "platform/input_controls.h"
#include "platform/menu.h"
#include "tests/qt/qt_fixture.h"

namespace quarvel::platform {
namespace {

class frmMenus : public Form {
 public:
  explicit frmMenus(Desktop& desktop) : Form(desktop, "frmMenus") {
    SetSize(300, 100, true);
    mnuFile.set_caption("File");
    mnuFile.access_key = 'F';
    mnuSave.set_caption("Save & close");
    mnuSave.access_key = 'S';
    mnuSave.shortcut = Ctrl('S');
    mnuLine.is_separator = true;
    mnuDel.set_caption("Delete");
    mnuDel.shortcut = {Key::kDelete};
    mnuDel.shortcut_is_label = true;
    mnuRename.shortcut = {Key::kF2};
    mnuSave.on_click = [this] { ++saves; };
    mnuDel.on_click = [this] { ++deletions; };
    mnuRename.on_click = [this] { ++renames; };
    mnuFile.on_open = [this] { mnuRename.set_enabled(can_rename); };
  }

  MenuItem mnuFile{*this, "mnuFile", nullptr};
  MenuItem mnuSave{*this, "mnuSave", &mnuFile};
  MenuItem mnuLine{*this, "mnuLine", &mnuFile};
  MenuItem mnuDel{*this, "mnuDel", &mnuFile};
  MenuItem mnuRename{*this, "mnuRename", &mnuFile};
  TextBox txtName{*this, "txtName", {10, 10, 200, 24}};
  bool can_rename = true;
  int saves = 0;
  int deletions = 0;
  int renames = 0;
};

class QtMenus : public QtTest {
 protected:
  QtMenus() { ShowActive(form_); }

  QWidget& Window() { return *WindowNamed("frmMenus"); }
  QLineEdit& Box() { return *Part<QLineEdit>(&Window(), "txtName"); }
  QAction& Action(const char* name) {
    for (QAction* action : Window().findChild<QMenuBar*>()->findChildren<QMenu*>()[0]->actions()) {
      if (action->objectName() == name) return *action;
    }
    throw std::runtime_error(name);
  }

  frmMenus form_{*desktop_};
};

TEST_F(QtMenus, StandAboveTheFormsOwnArea) {
  const int bar = Window().findChild<QMenuBar*>()->height();
  EXPECT_GT(bar, 10);
  EXPECT_EQ(Window().height(), 100 + bar);
  EXPECT_EQ(Box().mapTo(&Window(), QPoint()), QPoint(10, 10 + bar));
}

TEST_F(QtMenus, PrintCaptionsAccessKeysAndShortcuts) {
  EXPECT_EQ(Action("mnuSave").text(), "&Save && close\tCtrl+S");
  EXPECT_TRUE(Action("mnuSave").shortcut().isEmpty());
  EXPECT_TRUE(Action("mnuLine").isSeparator());
  EXPECT_EQ(Action("mnuDel").text(), "Delete\tDel");
}

TEST_F(QtMenus, AreOpenedAndChosenByAccessKeys) {
  form_.can_rename = false;
  PressKey(Box(), Qt::Key_F, Qt::AltModifier);
  QWidget* const menu = QApplication::activePopupWidget();
  ASSERT_NE(menu, nullptr);
  EXPECT_FALSE(Action("mnuRename").isEnabled());
  QTest::keyClick(menu, Qt::Key_S);
  EXPECT_EQ(form_.saves, 1);
}

TEST_F(QtMenus, KeysAreForTheFocusedControlFirst) {
  TypeInto(Box(), "ab");
  PressKey(Box(), Qt::Key_Home);
  PressKey(Box(), Qt::Key_Delete);
  EXPECT_EQ(Box().text(), "b");
  EXPECT_EQ(form_.deletions, 0);
  PressKey(Box(), Qt::Key_S, Qt::ControlModifier);
  EXPECT_EQ(form_.saves, 1);
  PressKey(Box(), Qt::Key_F2);
  EXPECT_EQ(form_.renames, 1);
}

TEST_F(QtMenus, KeysOfHiddenAndDisabledItemsDoNothing) {
  form_.can_rename = false;
  PressKey(Box(), Qt::Key_F2);
  EXPECT_EQ(form_.renames, 0);
  form_.mnuSave.set_visible(false);
  PressKey(Box(), Qt::Key_S, Qt::ControlModifier);
  EXPECT_EQ(form_.saves, 0);
  EXPECT_FALSE(Action("mnuSave").isVisible());
}

TEST_F(QtMenus, EscapeDoesNotCloseAWindowWithMenus) {
  form_.Unload();
  bool stayed = false;
  In("frmMenus", [](QWidget&) {});
  Next([&] { PressKey(Box(), Qt::Key_Escape); });
  Next([&] {
    stayed = form_.IsShowing();
    form_.Unload();
  });
  form_.ShowModal();
  EXPECT_TRUE(stayed);
}

TEST_F(QtMenus, CommandMayUnloadTheWindow) {
  form_.mnuSave.on_click = [this] { form_.Unload(); };
  Action("mnuSave").trigger();
  EXPECT_FALSE(form_.IsShowing());
  EXPECT_EQ(WindowNamed("frmMenus"), nullptr);
}

}  // namespace
}  // namespace quarvel::platform
