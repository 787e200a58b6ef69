#include <QMessageBox>
#include <QPushButton>
#include <QShowEvent>

#include "platform/qt/boxes.h"
#include "platform/qt/form_window.h"
#include "platform/qt/qt_text.h"
#include "platform/qt/run_dialog.h"

namespace quarvel::platform::qt {
namespace {

struct Look {
  MsgBoxStyle style;
  QMessageBox::StandardButtons buttons;
  QMessageBox::Icon icon;
  QMessageBox::StandardButton escape;  // what closing it by other means answers
};

const Look& LookOf(MsgBoxStyle style) {
  static const Look looks[] = {
      {MsgBoxStyle::kOk, QMessageBox::Ok, QMessageBox::NoIcon, QMessageBox::Ok},
      {MsgBoxStyle::kYesNo, QMessageBox::Yes | QMessageBox::No, QMessageBox::NoIcon,
       QMessageBox::No},
      {MsgBoxStyle::kYesNoCancelExclamation,
       QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel, QMessageBox::Warning,
       QMessageBox::Cancel},
      {MsgBoxStyle::kYesNoExclamation, QMessageBox::Yes | QMessageBox::No, QMessageBox::Warning,
       QMessageBox::No},
  };
  for (const Look& look : looks) {
    if (look.style == style) return look;
  }
  return looks[0];
}

MsgBoxResult ResultOf(QMessageBox::StandardButton button) {
  switch (button) {
    case QMessageBox::Yes:
      return MsgBoxResult::kYes;
    case QMessageBox::No:
      return MsgBoxResult::kNo;
    case QMessageBox::Cancel:
      return MsgBoxResult::kCancel;
    default:
      return MsgBoxResult::kOk;
  }
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

MsgBoxResult AskBox(EventPump& pump, const QWidget* owner, std::string_view text, MsgBoxStyle style,
                    std::string_view title) {
  const Look& look = LookOf(style);
  CentredBox box(owner);
  box.setObjectName("msgbox");
  box.setTextFormat(Qt::PlainText);
  box.setText(ToQtLines(text));
  box.setWindowTitle(ToQt(title));
  box.setIcon(look.icon);
  box.setStandardButtons(look.buttons);
  box.setDefaultButton(look.buttons.testFlag(QMessageBox::Yes) ? QMessageBox::Yes
                                                               : QMessageBox::Ok);
  box.setEscapeButton(look.escape);
  RunDialog(pump, box, owner);
  QAbstractButton* const clicked = box.clickedButton();
  return ResultOf(clicked == nullptr ? look.escape : box.standardButton(clicked));
}

}  // namespace quarvel::platform::qt
