// Words of labels and frames that are longer than their place.
#include <QGroupBox>
#include <QHelpEvent>
#include <QLabel>
#include <QTextDocumentFragment>
#include <QToolTip>

#include "platform/basic_controls.h"
#include "tests/qt/qt_fixture.h"

namespace quarvel::platform {
namespace {

class frmWords : public Form {
 public:
  explicit frmWords(Desktop& desktop) : Form(desktop, "frmWords") { SetSize(400, 200, true); }

  Label lblRow{*this, "lblRow", {10, 10, 150, 20, {0, 0, 100, 0}}};
  Label lblLong{*this, "lblLong", {10, 40, 150, 54}};
  Frame fraType{*this, "fraType", {10, 100, 150, 80, {0, 0, 100, 0}}};
};

class QtFittedWords : public QtTest {
 protected:
  QtFittedWords() { form_.Show(); }

  QLabel& Label(std::string_view name) { return *Part<QLabel>(WindowNamed("frmWords"), name); }
  QGroupBox& Box() { return *Part<QGroupBox>(WindowNamed("frmWords"), "fraType"); }
  static std::string Tip(const QWidget& widget) {
    return QTextDocumentFragment::fromHtml(widget.toolTip()).toPlainText().toStdString();
  }
  static QImage Picture(QWidget& widget) { return widget.grab().toImage(); }

  const std::string name_ = std::string(100, 'N');
  frmWords form_{*desktop_};
};

TEST_F(QtFittedWords, LabelOfOneLineShowsItsBeginningAndAnEllipsisAndTellsAllInATip) {
  auto& label = Label("lblRow");
  form_.lblRow.set_caption("Row " + name_);
  EXPECT_FALSE(label.wordWrap());
  EXPECT_EQ(Tip(label), "Row " + name_);
  const QImage cut = Picture(label);
  // Letters of another kind beyond the end change nothing: the words end before it.
  form_.lblRow.set_caption("Row " + name_.substr(0, 50) + std::string(50, 'i'));
  EXPECT_EQ(Picture(label), cut);
  const QString shown =
      label.fontMetrics().elidedText(QString::fromStdString("Row " + name_), Qt::ElideRight, 150);
  form_.lblRow.set_caption(shown.toStdString());
  EXPECT_EQ(Picture(label), cut);
  EXPECT_EQ(Tip(label), "");
}

TEST_F(QtFittedWords, LabelShowsAllAsSoonAsThereIsRoom) {
  form_.lblRow.set_caption("A row of some more than thirty letters");
  auto& label = Label("lblRow");
  ASSERT_NE(Tip(label), "");
  WindowNamed("frmWords")->resize(900, 200);
  desktop_->DoEvents();
  EXPECT_EQ(Tip(label), "");
}

TEST_F(QtFittedWords, TipShowsTagsAndBlanksAsTheyAre) {
  form_.lblRow.set_caption("<b>a &  b</b>" + name_);
  EXPECT_EQ(Tip(Label("lblRow")), "<b>a &  b</b>" + name_);
}

TEST_F(QtFittedWords, CutLabelKeepsItsAccessKey) {
  form_.Unload();
  form_.lblRow.access_key = 'R';
  form_.lblRow.set_caption("Row & " + name_);
  form_.Show();
  EXPECT_EQ(Label("lblRow").text().toStdString(), "&Row && " + name_);
  EXPECT_EQ(Tip(Label("lblRow")), "Row & " + name_);
}

TEST_F(QtFittedWords, HighLabelBreaksItsLines) {
  form_.lblLong.set_caption("several words that need more than one line of this label");
  EXPECT_TRUE(Label("lblLong").wordWrap());
  EXPECT_EQ(Tip(Label("lblLong")), "");
}

TEST_F(QtFittedWords, FrameEndsItsCaptionInsideItsCorners) {
  auto& box = Box();
  form_.fraType.set_caption("Variables in " + name_);
  EXPECT_EQ(box.title().toStdString(), "Variables in " + name_);
  EXPECT_EQ(Tip(box), "Variables in " + name_);
  const QImage cut = Picture(box);
  form_.fraType.set_caption("Variables in " + name_.substr(0, 50) + std::string(50, 'i'));
  EXPECT_EQ(Picture(box), cut);
  form_.fraType.set_caption("Variables");
  EXPECT_EQ(Tip(box), "");
}

TEST_F(QtFittedWords, FrameTellsItsTipOverItsCaptionOnly) {
  auto& box = Box();
  form_.fraType.set_caption("Variables in " + name_);
  for (const auto& [place, told] :
       {std::pair(QPoint(75, 60), false), std::pair(QPoint(60, 5), true)}) {
    QToolTip::hideText();
    QHelpEvent event(QEvent::ToolTip, place, box.mapToGlobal(place));
    QApplication::sendEvent(&box, &event);
    EXPECT_EQ(QToolTip::text() == box.toolTip(), told) << place.y();
  }
}

}  // namespace
}  // namespace quarvel::platform
