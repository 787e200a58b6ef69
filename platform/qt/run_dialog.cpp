#include "platform/qt/run_dialog.h"

#include "platform/qt/form_window.h"

namespace quarvel::platform::qt {

bool RunDialog(EventPump& pump, QDialog& dialog, const QWidget* owner) {
  dialog.setAttribute(Qt::WA_QuitOnClose, false);
  dialog.setWindowModality(Qt::ApplicationModal);
  // No widget is its parent: that one could go away first and take the dialog with it.
  TieTo(dialog, owner);
  dialog.adjustSize();
  PlaceOver(dialog, owner);
  bool ended = false;
  QObject::connect(&dialog, &QDialog::finished, &dialog, [&ended] { ended = true; });
  dialog.show();
  dialog.activateWindow();
  pump.RunUntil([&ended] { return ended; });
  return dialog.result() == QDialog::Accepted;
}

}  // namespace quarvel::platform::qt
