// Where the keyboard is: at opening, by Tab, in groups of options, and when the control that had it
// goes away. And that it can be seen.
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTabBar>
#include <QTableView>

#include "platform/basic_controls.h"
#include "platform/grid.h"
#include "platform/input_controls.h"
#include "tests/qt/qt_fixture.h"

namespace quarvel::platform {
namespace {

class frmPages : public Form {
 public:
  explicit frmPages(Desktop& desktop) : Form(desktop, "frmPages") {
    SetSize(400, 300, true);
    sstPages.Hold(0, grdFirst);
    sstPages.Hold(1, grdSecond);
    sstPages.Hold(1, txtEquation);
    txtEquation.read_only = true;
    for (Grid* grid : {&grdFirst, &grdSecond}) grid->set_rows(5);
  }

  TextBox txtName{*this, "txtName", {10, 5, 200, 24}};
  TabStrip sstPages{*this, "sstPages", {0, 40, 400, 200}, {"First", "Second", "Third"}};
  Grid grdFirst{*this, "grdFirst", {10, 80, 380, 100}, {100}, 1};
  Grid grdSecond{*this, "grdSecond", {10, 80, 380, 100}, {100}};
  TextBox txtEquation{*this, "txtEquation", {10, 190, 380, 40}, TextBox::Lines::kMany};
  TextBox txtBound{*this, "txtBound", {10, 250, 80, 24}};
  Button cmdOK{*this, "cmdOK", {100, 250, 80, 28}};
};

class frmOptions : public Form {
 public:
  explicit frmOptions(Desktop& desktop) : Form(desktop, "frmOptions") { SetSize(200, 200, false); }

  OptionButton optA{*this, "optA", {10, 10, 80, 20}};
  OptionButton optB{*this, "optB", {10, 30, 80, 20}};
  OptionButton optC{*this, "optC", {10, 50, 80, 20}};
  TextBox txtBound{*this, "txtBound", {10, 80, 80, 24}};
  Button cmdOK{*this, "cmdOK", {10, 120, 80, 28}};
};

class QtFocus : public QtTest {
 protected:
  // The name of whatever has the keyboard in a window; a tab strip's bar goes by its strip.
  static std::string Holder(std::string_view window) {
    const QWidget* const holder = WindowNamed(window)->focusWidget();
    if (holder == nullptr) return "";
    return (holder->objectName().isEmpty() ? holder->parentWidget() : holder)
        ->objectName()
        .toStdString();
  }
  static void Press(std::string_view window, int key,
                    Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    PressKey(*WindowNamed(window)->focusWidget(), key, modifiers);
  }
  static QColor Edge(QWidget& view) {
    return view.grab().toImage().pixelColor(0, view.height() / 2);
  }
};

TEST_F(QtFocus, GoesToTheTabStripWhenATurnHidesItsList) {
  frmPages form(*desktop_);
  ShowActive(form);
  form.grdFirst.Focus();
  auto& bar = *Part<QTabBar>(WindowNamed("frmPages"), "");
  ClickIn(bar, bar.tabRect(1).center());
  EXPECT_EQ(form.sstPages.current(), 1);
  EXPECT_EQ(Holder("frmPages"), "sstPages");
  Press("frmPages", Qt::Key_X);
  EXPECT_EQ(form.txtName.text(), "");
}

TEST_F(QtFocus, GoesOnPastBoxesToTypeInWhenAControlIsDisabledOrHidden) {
  frmPages form(*desktop_);
  ShowActive(form);
  for (const bool hide : {false, true}) {
    form.sstPages.set_enabled(true);
    form.sstPages.Focus();
    hide ? form.sstPages.set_visible(false) : form.sstPages.set_enabled(false);
    EXPECT_EQ(Holder("frmPages"), "grdFirst");
    form.txtName.Focus();
    form.txtName.set_enabled(false);
    EXPECT_EQ(Holder("frmPages"), "grdFirst");
    form.txtName.set_enabled(true);
  }
  form.grdFirst.set_enabled(false);
  EXPECT_EQ(Holder("frmPages"), "cmdOK");
  form.cmdOK.set_enabled(false);
  EXPECT_EQ(Holder("frmPages"), "");
}

TEST_F(QtFocus, StaysWhenAnotherControlGoes) {
  frmPages form(*desktop_);
  ShowActive(form);
  form.txtName.Focus();
  form.sstPages.set_current(1);
  form.cmdOK.set_enabled(false);
  EXPECT_EQ(Holder("frmPages"), "txtName");
}

TEST_F(QtFocus, TabWithCtrlTurnsPagesAllAroundFromAnyControl) {
  frmPages form(*desktop_);
  ShowActive(form);
  for (Control* control :
       {static_cast<Control*>(&form.grdFirst), static_cast<Control*>(&form.txtName),
        static_cast<Control*>(&form.cmdOK)}) {
    form.sstPages.set_current(0);
    control->Focus();
    Press("frmPages", Qt::Key_Tab, Qt::ControlModifier);
    EXPECT_EQ(form.sstPages.current(), 1) << control->name();
    EXPECT_EQ(form.grdFirst.current_row(), 0);
    Press("frmPages", Qt::Key_Backtab, Qt::ControlModifier | Qt::ShiftModifier);
    Press("frmPages", Qt::Key_Backtab, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(form.sstPages.current(), 2) << control->name();
    Press("frmPages", Qt::Key_Tab, Qt::ControlModifier);
    EXPECT_EQ(form.sstPages.current(), 0) << control->name();
  }
}

TEST_F(QtFocus, TabWithCtrlTurnsFromATextOfManyLines) {
  frmPages form(*desktop_);
  ShowActive(form);
  form.sstPages.set_current(1);
  form.txtEquation.Focus();
  Press("frmPages", Qt::Key_Tab, Qt::ControlModifier);
  EXPECT_EQ(form.sstPages.current(), 2);
}

TEST_F(QtFocus, BeginsAtTheSelectedOptionOrTheFirst) {
  frmOptions form(*desktop_);
  ShowActive(form);
  EXPECT_EQ(Holder("frmOptions"), "optA");
  form.Unload();
  form.optB.set_value(true);
  ShowActive(form);
  EXPECT_EQ(Holder("frmOptions"), "optB");
  Press("frmOptions", Qt::Key_Space);
  EXPECT_TRUE(form.optB.value());
}

TEST_F(QtFocus, BeginsAtTheSelectedOptionAlsoWhereAnotherHadItBefore) {
  frmOptions form(*desktop_);
  ShowActive(form);
  Press("frmOptions", Qt::Key_Down);
  EXPECT_TRUE(form.optB.value());
  form.Unload();
  form.optC.set_value(true);
  ShowActive(form);
  EXPECT_EQ(Holder("frmOptions"), "optC");
}

TEST_F(QtFocus, TabTakesAGroupAsOneStop) {
  frmOptions form(*desktop_);
  form.optB.set_value(true);
  ShowActive(form);
  std::vector<std::string> order;
  for (const int key :
       {Qt::Key_Tab, Qt::Key_Tab, Qt::Key_Tab, Qt::Key_Backtab, Qt::Key_Backtab, Qt::Key_Backtab}) {
    Press("frmOptions", key);
    order.push_back(Holder("frmOptions"));
  }
  EXPECT_EQ(order,
            (std::vector<std::string>{"txtBound", "cmdOK", "optB", "cmdOK", "txtBound", "optB"}));
  EXPECT_TRUE(form.optB.value());
}

TEST_F(QtFocus, TabLeavesAGroupWhoseSelectionHasMovedAway) {
  frmOptions form(*desktop_);
  form.optA.set_value(true);
  ShowActive(form);
  form.optC.set_value(true);
  Press("frmOptions", Qt::Key_Tab);
  EXPECT_EQ(Holder("frmOptions"), "txtBound");
  form.optC.set_enabled(false);
  Press("frmOptions", Qt::Key_Backtab);
  EXPECT_EQ(Holder("frmOptions"), "optA");
}

TEST_F(QtFocus, ArrowsSelectInAGroupAllAround) {
  frmOptions form(*desktop_);
  form.optB.set_value(true);
  ShowActive(form);
  Press("frmOptions", Qt::Key_Down);
  EXPECT_TRUE(form.optC.value());
  Press("frmOptions", Qt::Key_Right);
  EXPECT_TRUE(form.optA.value());
  Press("frmOptions", Qt::Key_Up);
  EXPECT_TRUE(form.optC.value());
  EXPECT_EQ(Holder("frmOptions"), "optC");
}

TEST_F(QtFocus, OfAnOptionIsSeenAtOpening) {
  frmOptions form(*desktop_);
  form.optB.set_caption("Range");
  form.optB.set_value(true);
  ShowActive(form);
  auto& option = *Part<QRadioButton>(WindowNamed("frmOptions"), "optB");
  ASSERT_TRUE(option.hasFocus());
  const QImage focused = option.grab().toImage();
  form.txtBound.Focus();
  EXPECT_NE(option.grab().toImage(), focused);
}

TEST_F(QtFocus, OfListsAndTextsIsAFrameAroundThem) {
  frmPages form(*desktop_);
  ShowActive(form);
  form.sstPages.set_current(1);
  auto& window = *WindowNamed("frmPages");
  for (const char* name : {"grdSecond", "txtEquation"}) {
    auto& view = *Part<QWidget>(&window, name);
    const QColor mark = view.palette().color(QPalette::Highlight);
    view.setFocus();
    EXPECT_EQ(Edge(view), mark) << name;
    form.cmdOK.Focus();
    EXPECT_NE(Edge(view), mark) << name;
  }
  form.sstPages.set_current(0);
  auto& unchosen = *Part<QTableView>(&window, "grdFirst");
  unchosen.setFocus();
  EXPECT_FALSE(unchosen.currentIndex().isValid());
  EXPECT_EQ(Edge(unchosen), unchosen.palette().color(QPalette::Highlight));
}

}  // namespace
}  // namespace quarvel::platform
