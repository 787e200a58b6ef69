// Text of many lines that is only to be read, such as the equation of a row.
#include <QClipboard>
#include <QPlainTextEdit>
#include <QTextBlock>
#include <QTextLayout>

#include "platform/input_controls.h"
#include "tests/qt/qt_fixture.h"

namespace quarvel::platform {
namespace {

class frmText : public Form {
 public:
  explicit frmText(Desktop& desktop) : Form(desktop, "frmText") {
    SetSize(200, 100, false);
    txtAll.read_only = true;
  }
  TextBox txtAll{*this, "txtAll", {0, 0, 200, 100}, TextBox::Lines::kMany};
};

class QtReadOnlyText : public QtTest {
 protected:
  void ShowText(std::string_view text) {
    form_.txtAll.set_text(text);
    form_.Show();
    box_ = Part<QPlainTextEdit>(WindowNamed("frmText"), "txtAll");
    ASSERT_NE(box_, nullptr);
  }
  QString CopyOf(int begin, int end) {
    QTextCursor cursor = box_->textCursor();
    cursor.setPosition(begin);
    cursor.setPosition(end, QTextCursor::KeepAnchor);
    box_->setTextCursor(cursor);
    PressKey(*box_, Qt::Key_C, Qt::ControlModifier);
    return QApplication::clipboard()->text();
  }

  frmText form_{*desktop_};
  QPlainTextEdit* box_ = nullptr;
};

std::string Equation(int terms) {
  std::string text;
  for (int i = 0; i < terms; ++i) text += " + 2 C" + std::to_string(1000000 + i);
  return text + " <= 7";
}

TEST_F(QtReadOnlyText, GivesAllOfItToTheClipboardAndTakesNothing) {
  ShowText("one\r\ntwo");
  TypeInto(*box_, "x");
  PressKey(*box_, Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(form_.txtAll.text(), "one\r\ntwo");
  EXPECT_EQ(QApplication::clipboard()->text(), "one\ntwo");
}

TEST_F(QtReadOnlyText, IsCopiedAsItIsSelected) {
  ShowText("one\r\n\r\ntwo");
  EXPECT_EQ(CopyOf(0, 8), "one\n\ntwo");
  EXPECT_EQ(CopyOf(1, 3), "ne");
  EXPECT_EQ(CopyOf(1, 4), "ne\n");
  EXPECT_EQ(CopyOf(4, 6), "\nt");
}

TEST_F(QtReadOnlyText, HasNoBreakInTheCopyOfALongLine) {
  const std::string equation = Equation(10000);
  const QString all = QString::fromStdString(equation);
  ShowText(equation);
  PressKey(*box_, Qt::Key_A, Qt::ControlModifier);
  PressKey(*box_, Qt::Key_C, Qt::ControlModifier);
  EXPECT_TRUE(QApplication::clipboard()->text() == all);
  // The paragraphs of the box add a position each.
  const int third = box_->document()->findBlockByNumber(2).position();
  EXPECT_TRUE(CopyOf(third - 9, third + 9) == all.mid(third - 2 - 8, 17));
  QApplication::clipboard()->clear();
}

TEST_F(QtReadOnlyText, LaysOutOnlyTheSeenPartOfALongEquation) {
  ShowText(Equation(100000));
  QApplication::processEvents();
  box_->grab();
  int laid_out = 0;
  const QTextDocument& document = *box_->document();
  for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
    laid_out += block.layout()->lineCount() > 0;
  }
  EXPECT_GT(document.blockCount(), 150);
  EXPECT_GT(laid_out, 0);
  EXPECT_LT(laid_out, 10);
}

}  // namespace
}  // namespace quarvel::platform
