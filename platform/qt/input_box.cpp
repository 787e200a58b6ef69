#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QVBoxLayout>

#include "platform/qt/boxes.h"
#include "platform/qt/qt_text.h"
#include "platform/qt/run_dialog.h"

namespace quarvel::platform::qt {
namespace {

constexpr int kWidth = 380;

}  // namespace

std::string AskLine(EventPump& pump, const QWidget* owner, std::string_view prompt,
                    std::string_view title, std::string_view default_text) {
  QDialog dialog;
  dialog.setObjectName("inputbox");
  dialog.setWindowTitle(ToQt(title));
  auto* const label = new QLabel(ToQtLines(prompt));
  label->setTextFormat(Qt::PlainText);
  label->setWordWrap(true);
  auto* const line = new QLineEdit(ToQt(default_text));
  line->setObjectName("txtInput");
  line->setAccessibleName(label->text());
  line->selectAll();
  auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
  auto* const layout = new QVBoxLayout(&dialog);
  layout->addWidget(label);
  layout->addWidget(line);
  layout->addWidget(buttons);
  dialog.setMinimumWidth(kWidth);
  line->setFocus();
  QObject::connect(buttons, &QDialogButtonBox::accepted, &dialog, &QDialog::accept);
  QObject::connect(buttons, &QDialogButtonBox::rejected, &dialog, &QDialog::reject);
  return RunDialog(pump, dialog, owner) ? FromQt(line->text()) : std::string();
}

}  // namespace quarvel::platform::qt
