// A text box of many lines that shows lines of any length at once.
#pragma once

#include <QPlainTextEdit>
#include <functional>

#include "platform/qt/focus_frame.h"
#include "text/long_lines.h"

class QKeyEvent;

namespace quarvel::platform::qt {

// Where nobody can edit it, long lines are shown as several paragraphs; what is copied has none of
// these breaks.
class LinesBox : public WithFocusFrame<QPlainTextEdit> {
 public:
  using WithFocusFrame::WithFocusFrame;

  // Sees the keys before the text box does: true takes one away.
  std::function<bool(const QKeyEvent&)> on_key;

  QString Text() const;
  void SetText(const QString& text);

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  QMimeData* createMimeDataFromSelection() const override;

 private:
  text::LongLines lines_{u"", u"\n"};  // of a box that is only to be read
};

}  // namespace quarvel::platform::qt
