// Every kind of control but the grid: it shows what the form says, and tells the form what the user
// does.
#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QTabBar>

#include "platform/basic_controls.h"
#include "platform/input_controls.h"
#include "platform/menu.h"
#include "tests/qt/qt_fixture.h"

namespace quarvel::platform {
namespace {

class frmControls : public Form {
 public:
  explicit frmControls(Desktop& desktop) : Form(desktop, "frmControls") {
    SetSize(400, 300, true);
    lblName.set_caption("Fish & chips:");
    lblName.access_key = 'F';
    cmdOK.set_caption("OK");
    cmdOK.is_default = true;
    cmdCancel.is_cancel = true;
    cmdOK.on_click = [this] { ++ok; };
    cmdCancel.on_click = [this] { ++cancel; };
    txtName.on_change = [this] { ++changes; };
    txtLines.on_change = [this] { ++changes; };
    cboKind.set_items({"one", "two", "three"});
    cboKind.on_click = [this] { ++choices; };
    sstPages.on_change = [this] { ++turns; };
    sstPages.Hold(0, txtName);
    sstPages.Hold(1, txtLines);
    optB.set_value(true);
  }

  Label lblName{*this, "lblName", {10, 40, 90, 20}};
  Frame fraAll{*this, "fraAll", {5, 35, 390, 200}};
  TabStrip sstPages{*this, "sstPages", {0, 0, 400, 240, {0, 0, 100, 100}}, {"First", "Second"}};
  TextBox txtName{*this, "txtName", {110, 40, 200, 24, {0, 0, 100, 0}}};
  TextBox txtLines{*this, "txtLines", {110, 40, 200, 60}, TextBox::Lines::kMany};
  OptionButton optA{*this, "optA", {10, 110, 80, 20}};
  OptionButton optB{*this, "optB", {10, 130, 80, 20}};
  OptionButton optOther{*this, "optOther", {100, 110, 80, 20}, 1};
  CheckBox chkInvert{*this, "chkInvert", {10, 160, 80, 20}};
  ComboBox cboKind{*this, "cboKind", {100, 160, 120, 24}};
  ProgressBar bar{*this, "bar", {10, 190, 300, 20}};
  Button cmdOK{*this, "cmdOK", {10, 250, 80, 28, {100, 100, 100, 100}}};
  Button cmdCancel{*this, "cmdCancel", {100, 250, 80, 28}};
  int ok = 0;
  int cancel = 0;
  int changes = 0;
  int choices = 0;
  int turns = 0;
};

class QtControls : public QtTest {
 protected:
  QtControls() { ShowActive(form_); }

  template <typename Widget>
  Widget& The(std::string_view name) {
    return *Part<Widget>(WindowNamed("frmControls"), name);
  }

  frmControls form_{*desktop_};
};

TEST_F(QtControls, StandWhereTheFormPutsThemAndFollowTheWindow) {
  EXPECT_EQ(The<QLineEdit>("txtName").geometry(), QRect(110, 40, 200, 24));
  WindowNamed("frmControls")->resize(500, 360);
  desktop_->DoEvents();
  EXPECT_EQ(The<QLineEdit>("txtName").geometry(), QRect(110, 40, 300, 24));
  EXPECT_EQ(The<QPushButton>("cmdOK").geometry(), QRect(110, 310, 80, 28));
}

TEST_F(QtControls, CannotBeMadeSmallerThanDesigned) {
  EXPECT_EQ(WindowNamed("frmControls")->minimumSize(), QSize(400, 300));
}

TEST_F(QtControls, AreSeenByToolsUnderTheirNames) {
  EXPECT_EQ(The<QLineEdit>("txtName").accessibleName(), "txtName");
  EXPECT_EQ(The<QComboBox>("cboKind").accessibleName(), "cboKind");
  EXPECT_EQ(The<QProgressBar>("bar").accessibleName(), "bar");
}

TEST_F(QtControls, LabelShowsAmpersandsAndLeadsToTheNextControl) {
  EXPECT_EQ(The<QLabel>("lblName").text(), "&Fish && chips:");
  EXPECT_EQ(The<QLabel>("lblName").buddy(), &The<QWidget>("sstPages"));
  form_.lblName.set_caption("<b>Fast & food</b>");
  EXPECT_EQ(The<QLabel>("lblName").text(), "<b>&Fast && food</b>");
  EXPECT_EQ(The<QLabel>("lblName").textFormat(), Qt::PlainText);
}

TEST_F(QtControls, ButtonIsPressedByMouseAndDefaultAndCancelKeys) {
  ClickIn(The<QPushButton>("cmdOK"));
  EXPECT_EQ(form_.ok, 1);
  PressKey(The<QLineEdit>("txtName"), Qt::Key_Return);
  EXPECT_EQ(form_.ok, 2);
  PressKey(The<QLineEdit>("txtName"), Qt::Key_Escape);
  EXPECT_EQ(form_.cancel, 1);
  PressKey(The<QPushButton>("cmdCancel"), Qt::Key_Return);
  EXPECT_EQ(form_.cancel, 2);
  EXPECT_EQ(form_.ok, 2);
}

TEST_F(QtControls, EnterIsALineOfATextOfManyLines) {
  form_.sstPages.set_current(1);
  auto& box = The<QPlainTextEdit>("txtLines");
  TypeInto(box, "a");
  PressKey(box, Qt::Key_Return);
  TypeInto(box, "b");
  EXPECT_EQ(form_.txtLines.text(), "a\r\nb");
  EXPECT_EQ(form_.ok, 0);
  EXPECT_EQ(form_.changes, 3);
}

TEST_F(QtControls, TypedTextReachesTheFormAndSetTextDoesNotComeBack) {
  TypeInto(The<QLineEdit>("txtName"), "ab");
  EXPECT_EQ(form_.txtName.text(), "ab");
  EXPECT_EQ(form_.changes, 2);
  form_.txtName.set_text("set \xC3\xA4");
  form_.txtLines.set_text("x\r\ny");
  EXPECT_EQ(The<QLineEdit>("txtName").text().toStdString(), "set \xC3\xA4");
  EXPECT_EQ(The<QPlainTextEdit>("txtLines").toPlainText(), "x\ny");
  EXPECT_EQ(form_.changes, 2);
}

TEST_F(QtControls, LineEndsPastedIntoOneLineBecomeBlanks) {
  desktop_->CopyToClipboard("a\r\nb");
  auto& box = The<QLineEdit>("txtName");
  box.setFocus();
  box.paste();
  PressKey(box, Qt::Key_End);
  TypeInto(box, "c");
  EXPECT_EQ(form_.txtName.text(), "a bc");
  EXPECT_EQ(box.text(), "a bc");
}

TEST_F(QtControls, OptionsOfAGroupExcludeEachOther) {
  ClickIn(The<QRadioButton>("optA"), {8, 10});
  EXPECT_TRUE(form_.optA.value());
  EXPECT_FALSE(The<QRadioButton>("optB").isChecked());
  ClickIn(The<QRadioButton>("optA"), {8, 10});
  EXPECT_TRUE(The<QRadioButton>("optA").isChecked());
  ClickIn(The<QRadioButton>("optOther"), {8, 10});
  EXPECT_TRUE(form_.optA.value());
  PressKey(The<QRadioButton>("optA"), Qt::Key_Down);
  EXPECT_TRUE(form_.optB.value());
  EXPECT_TRUE(The<QRadioButton>("optB").hasFocus());
  form_.optA.set_value(true);
  EXPECT_FALSE(The<QRadioButton>("optB").isChecked());
}

TEST_F(QtControls, CheckBoxShowsTheForm) {
  ClickIn(The<QCheckBox>("chkInvert"), {8, 10});
  EXPECT_TRUE(form_.chkInvert.checked());
  form_.chkInvert.set_checked(false);
  EXPECT_FALSE(The<QCheckBox>("chkInvert").isChecked());
}

TEST_F(QtControls, ComboBoxIsChosenByKeysAndFromCodeWithoutEcho) {
  auto& box = The<QComboBox>("cboKind");
  EXPECT_EQ(box.currentIndex(), -1);
  PressKey(box, Qt::Key_Down);
  EXPECT_EQ(form_.cboKind.list_index(), 0);
  EXPECT_EQ(form_.choices, 1);
  form_.cboKind.set_list_index(2);
  EXPECT_EQ(box.currentIndex(), 2);
  EXPECT_EQ(form_.choices, 2);
  form_.cboKind.set_items({"new"});
  EXPECT_EQ(box.count(), 1);
  EXPECT_EQ(box.currentIndex(), -1);
  EXPECT_EQ(form_.choices, 2);
}

TEST_F(QtControls, TabsTurnPages) {
  auto& bar = *Part<QTabBar>(WindowNamed("frmControls"), "");
  EXPECT_TRUE(The<QLineEdit>("txtName").isVisible());
  EXPECT_FALSE(The<QPlainTextEdit>("txtLines").isVisible());
  ClickIn(bar, bar.tabRect(1).center());
  EXPECT_EQ(form_.sstPages.current(), 1);
  EXPECT_EQ(form_.turns, 1);
  EXPECT_TRUE(The<QPlainTextEdit>("txtLines").isVisible());
  EXPECT_FALSE(The<QLineEdit>("txtName").isVisible());
  form_.sstPages.set_current(0);
  EXPECT_EQ(bar.currentIndex(), 0);
  EXPECT_EQ(form_.turns, 2);
}

TEST_F(QtControls, ProgressBarShowsItsPartOfTheRange) {
  auto& bar = The<QProgressBar>("bar");
  form_.bar.set_range(100, 300);
  form_.bar.set_value(150);
  EXPECT_EQ(bar.value() * 4, bar.maximum());
  form_.bar.set_range(7, 7);
  EXPECT_EQ(bar.value(), 0);
  EXPECT_GT(bar.maximum(), bar.minimum());
}

TEST_F(QtControls, DisabledAndHiddenOnesAreNotTheUsers) {
  form_.cmdOK.set_enabled(false);
  ClickIn(The<QPushButton>("cmdOK"));
  PressKey(The<QLineEdit>("txtName"), Qt::Key_Return);
  EXPECT_EQ(form_.ok, 0);
  form_.chkInvert.set_visible(false);
  EXPECT_FALSE(The<QCheckBox>("chkInvert").isVisible());
}

TEST_F(QtControls, FocusGoesWhereTheFormWantsIt) {
  form_.cboKind.Focus();
  EXPECT_TRUE(The<QComboBox>("cboKind").hasFocus());
  form_.Unload();
  ShowActive(form_);
  EXPECT_TRUE(The<QComboBox>("cboKind").hasFocus());
}

TEST_F(QtControls, TabKeyGoesInTheOrderOfCreation) {
  auto& window = *WindowNamed("frmControls");
  The<QLineEdit>("txtName").setFocus();
  std::vector<std::string> order;
  for (int i = 0; i < 4; ++i) {
    order.push_back(window.focusWidget()->objectName().toStdString());
    PressKey(*window.focusWidget(), Qt::Key_Tab);
  }
  EXPECT_EQ(order, (std::vector<std::string>{"txtName", "optB", "optOther", "chkInvert"}));
}

TEST_F(QtControls, FramesStandBehindWhatTheySurround) {
  QWidget& inner = *The<QGroupBox>("fraAll").parentWidget();
  EXPECT_EQ(inner.childAt(150, 50), &The<QLineEdit>("txtName"));
  EXPECT_EQ(inner.childAt(20, 50), &The<QLabel>("lblName"));
}

}  // namespace
}  // namespace quarvel::platform
