#include "platform/qt/fitted_words.h"

#include <QApplication>
#include <QHelpEvent>
#include <QPainter>
#include <QScreen>
#include <QStylePainter>
#include <utility>

#include "platform/qt/qt_text.h"

namespace quarvel::platform::qt {
namespace {

// Between the ends of a frame's words and the frame's corners.
constexpr int kBesideTitle = 10;
// What a window's frame takes of the screen.
constexpr int kWindowFrame = 60;
// More would fill no screen, and measuring takes its time.
constexpr qsizetype kMeasured = 0x3FFF;
// Takes no room; a line may break there.
constexpr QChar kBreak(0x200B);

// The text with places to break in words that are wider than a line of that width.
QString Breakable(const QString& text, const QFontMetrics& metrics, int width) {
  QString breakable;
  QString word;
  const auto end_word = [&] {
    if (metrics.horizontalAdvance(word) <= width) {
      breakable += word;
    } else {
      for (const QChar c : std::as_const(word)) {
        if (!c.isLowSurrogate()) breakable += kBreak;
        breakable += c;
      }
    }
    word.clear();
  };
  for (const QChar c : text.left(kMeasured)) {
    if (!c.isSpace()) {
      word += c;
      continue;
    }
    end_word();
    breakable += c;
  }
  end_word();
  return breakable;
}

int HeightOf(std::string_view words, int width) {
  const QFontMetrics metrics(QApplication::font("QLabel"));
  return metrics
      .boundingRect(QRect(0, 0, width, QWIDGETSIZE_MAX), Qt::TextWordWrap,
                    Breakable(ToQtLines(words), metrics, width))
      .height();
}

}  // namespace

FittedLabel::FittedLabel(QWidget& parent) : QLabel(&parent) {
  setTextFormat(Qt::PlainText);
  setAlignment(Qt::AlignLeft | Qt::AlignTop);
}

void FittedLabel::SetWords(const QString& marked, const QString& words) {
  words_ = words;
  setText(marked);
  Fit();
}

QString FittedLabel::Fitted() const {
  if (wordWrap()) return text();
  return fontMetrics().elidedText(text(), Qt::ElideRight, contentsRect().width(), MarkFlag());
}

QString FittedLabel::Painted() const {
  return wordWrap() ? Breakable(text(), fontMetrics(), contentsRect().width()) : Fitted();
}

void FittedLabel::Fit() {
  setWordWrap(height() * 2 >= fontMetrics().lineSpacing() * 3);
  setToolTip(Fitted() == text() ? QString() : ToToolTip(words_));
}

void FittedLabel::paintEvent(QPaintEvent* event) {
  const QString painted = Painted();
  if (painted == text()) return QLabel::paintEvent(event);
  const int flags =
      static_cast<int>(alignment()) | MarkFlag() | (wordWrap() ? Qt::TextWordWrap : 0);
  QPainter painter(this);
  style()->drawItemText(&painter, contentsRect(), flags, palette(), isEnabled(), painted,
                        foregroundRole());
}

void FittedLabel::resizeEvent(QResizeEvent* event) {
  QLabel::resizeEvent(event);
  Fit();
}

void FittedFrame::SetWords(const QString& marked, const QString& words) {
  words_ = words;
  setTitle(marked);
  Fit();
}

QString FittedFrame::Fitted() const {
  return fontMetrics().elidedText(title(), Qt::ElideRight, width() - 2 * kBesideTitle,
                                  Qt::TextShowMnemonic);
}

QStyleOptionGroupBox FittedFrame::Look() const {
  QStyleOptionGroupBox look;
  initStyleOption(&look);
  look.text = Fitted();
  return look;
}

void FittedFrame::Fit() { setToolTip(Fitted() == title() ? QString() : ToToolTip(words_)); }

// The tip belongs to the title, not to the room inside of the frame.
bool FittedFrame::event(QEvent* event) {
  if (event->type() == QEvent::ToolTip) {
    const QStyleOptionGroupBox look = Look();
    const QRect title =
        style()->subControlRect(QStyle::CC_GroupBox, &look, QStyle::SC_GroupBoxLabel, this);
    if (!title.contains(static_cast<const QHelpEvent*>(event)->pos())) return true;
  }
  return QGroupBox::event(event);
}

void FittedFrame::paintEvent(QPaintEvent*) {
  QStylePainter painter(this);
  painter.drawComplexControl(QStyle::CC_GroupBox, Look());
}

void FittedFrame::resizeEvent(QResizeEvent* event) {
  QGroupBox::resizeEvent(event);
  Fit();
}

WordsOnScreen WordsOnScreenOf(const QWidget* owner) {
  const QScreen* const screen =
      owner == nullptr ? QGuiApplication::primaryScreen() : owner->screen();
  const QSize room = screen->availableSize() - QSize(kWindowFrame, kWindowFrame);
  return {room.width(), room.height(), HeightOf};
}

}  // namespace quarvel::platform::qt
