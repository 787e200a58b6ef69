#include "platform/qt/lines_box.h"

#include <QKeyEvent>
#include <QMimeData>
#include <limits>
#include <memory>

namespace quarvel::platform::qt {

QString LinesBox::Text() const {
  if (!isReadOnly()) return toPlainText();
  return QString::fromStdU16String(lines_.Between(0, std::numeric_limits<std::size_t>::max()));
}

void LinesBox::SetText(const QString& text) {
  if (!isReadOnly()) return setPlainText(text);
  lines_ = text::LongLines(text.toStdU16String(), u"\n");
  setPlainText(QString::fromStdU16String(lines_.broken()));
}

void LinesBox::keyPressEvent(QKeyEvent* event) {
  if (!on_key(*event)) QPlainTextEdit::keyPressEvent(event);
}

QMimeData* LinesBox::createMimeDataFromSelection() const {
  if (!isReadOnly()) return QPlainTextEdit::createMimeDataFromSelection();
  const QTextCursor cursor = textCursor();
  const auto begin = static_cast<std::size_t>(cursor.selectionStart());
  const auto end = static_cast<std::size_t>(cursor.selectionEnd());
  auto copy = std::make_unique<QMimeData>();
  copy->setText(QString::fromStdU16String(lines_.Between(begin, end)));
  return copy.release();
}

}  // namespace quarvel::platform::qt
