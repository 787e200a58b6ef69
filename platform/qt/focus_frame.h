// A frame in the colour of selections around a scrolling view while it has the keyboard: styles
// draw none around lists and texts, and a view without a current line shows nothing else.
#pragma once

#include <QAbstractScrollArea>
#include <QEvent>
#include <QPainter>

namespace quarvel::platform::qt {

template <typename View>
class WithFocusFrame : public View {
 public:
  using View::View;

 protected:
  // The view's own events of painting are about what surrounds its viewport.
  bool event(QEvent* event) override {
    const bool used = View::event(event);
    if (event->type() == QEvent::FocusIn || event->type() == QEvent::FocusOut) this->update();
    if (event->type() == QEvent::Paint && this->hasFocus()) PaintFrame();
    return used;
  }

 private:
  void PaintFrame() {
    const int width = this->frameWidth();
    QPainter painter(this);
    painter.setPen(QPen(this->palette().color(QPalette::Highlight), width, Qt::SolidLine,
                        Qt::SquareCap, Qt::MiterJoin));
    const qreal half = width / 2.0;
    painter.drawRect(QRectF(this->rect()).adjusted(half, half, -half, -half));
  }
};

}  // namespace quarvel::platform::qt
