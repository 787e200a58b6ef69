#include <QMessageBox>
#include <QPushButton>
#include <QShowEvent>

#include "platform/box.h"
#include "platform/qt/boxes.h"
#include "platform/qt/form_window.h"
#include "platform/qt/qt_text.h"
#include "platform/qt/run_dialog.h"

namespace quarvel::platform::qt {
namespace {

struct QtButton {
  MsgBoxResult result;
  QMessageBox::StandardButton button;
};
constexpr QtButton kButtons[] = {{MsgBoxResult::kOk, QMessageBox::Ok},
                                 {MsgBoxResult::kYes, QMessageBox::Yes},
                                 {MsgBoxResult::kNo, QMessageBox::No},
                                 {MsgBoxResult::kCancel, QMessageBox::Cancel}};

QMessageBox::StandardButton ButtonOf(MsgBoxResult result) {
  for (const QtButton& known : kButtons) {
    if (known.result == result) return known.button;
  }
  return QMessageBox::NoButton;
}

MsgBoxResult ResultOf(QMessageBox::StandardButton button) {
  for (const QtButton& known : kButtons) {
    if (known.button == button) return known.result;
  }
  return MsgBoxResult::kOk;
}

// A box breaks its text into lines, and so gets its size, only when it is shown.
class CentredBox : public QMessageBox {
 public:
  // `owner` is there until the box is shown.
  explicit CentredBox(const QWidget* owner) : owner_(owner) {}

 protected:
  void showEvent(QShowEvent* event) override {
    QMessageBox::showEvent(event);
    if (!event->spontaneous()) PlaceOver(*this, owner_);
  }

 private:
  const QWidget* owner_;
};

}  // namespace

MsgBoxResult AskBox(EventPump& pump, const QWidget* owner, const Box& box) {
  const BoxLook look = box.look();
  CentredBox window(owner);
  window.setObjectName("msgbox");
  window.setTextFormat(Qt::PlainText);
  window.setText(ToQtLines(box.text()));
  window.setWindowTitle(ToQt(box.title));
  window.setIcon(look.exclamation ? QMessageBox::Warning : QMessageBox::NoIcon);
  for (const MsgBoxResult button : look.buttons) window.addButton(ButtonOf(button));
  window.setDefaultButton(ButtonOf(look.buttons.front()));
  window.setEscapeButton(ButtonOf(look.when_closed));
  RunDialog(pump, window, owner);
  QAbstractButton* const clicked = window.clickedButton();
  return clicked == nullptr ? look.when_closed : ResultOf(window.standardButton(clicked));
}

}  // namespace quarvel::platform::qt
