#include "platform/qt/fitted_words.h"

#include <QHelpEvent>
#include <QPainter>
#include <QStylePainter>

#include "platform/qt/qt_text.h"

namespace quarvel::platform::qt {
namespace {

// Between the ends of a frame's words and the frame's corners.
constexpr int kBesideTitle = 10;

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

void FittedLabel::Fit() {
  setWordWrap(height() * 2 >= fontMetrics().lineSpacing() * 3);
  setToolTip(Fitted() == text() ? QString() : ToToolTip(words_));
}

void FittedLabel::paintEvent(QPaintEvent* event) {
  const QString fitted = Fitted();
  if (fitted == text()) return QLabel::paintEvent(event);
  QPainter painter(this);
  style()->drawItemText(&painter, contentsRect(), static_cast<int>(alignment()) | MarkFlag(),
                        palette(), isEnabled(), fitted, foregroundRole());
}

void FittedLabel::resizeEvent(QResizeEvent* event) {
  QLabel::resizeEvent(event);
  Fit();
}

void FittedBox::SetWords(const QString& marked, const QString& words) {
  words_ = words;
  setTitle(marked);
  Fit();
}

QString FittedBox::Fitted() const {
  return fontMetrics().elidedText(title(), Qt::ElideRight, width() - 2 * kBesideTitle,
                                  Qt::TextShowMnemonic);
}

QStyleOptionGroupBox FittedBox::Look() const {
  QStyleOptionGroupBox look;
  initStyleOption(&look);
  look.text = Fitted();
  return look;
}

void FittedBox::Fit() { setToolTip(Fitted() == title() ? QString() : ToToolTip(words_)); }

// The tip belongs to the title, not to the room inside of the frame.
bool FittedBox::event(QEvent* event) {
  if (event->type() == QEvent::ToolTip) {
    const QStyleOptionGroupBox look = Look();
    const QRect title =
        style()->subControlRect(QStyle::CC_GroupBox, &look, QStyle::SC_GroupBoxLabel, this);
    if (!title.contains(static_cast<const QHelpEvent*>(event)->pos())) return true;
  }
  return QGroupBox::event(event);
}

void FittedBox::paintEvent(QPaintEvent*) {
  QStylePainter painter(this);
  painter.drawComplexControl(QStyle::CC_GroupBox, Look());
}

void FittedBox::resizeEvent(QResizeEvent* event) {
  QGroupBox::resizeEvent(event);
  Fit();
}

}  // namespace quarvel::platform::qt
