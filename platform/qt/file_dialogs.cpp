#include "platform/qt/file_dialogs.h"

#include <QFileDialog>
#include <QStringList>

#include "platform/qt/qt_text.h"
#include "platform/qt/run_dialog.h"

namespace quarvel::platform::qt {
namespace {

// Qt shows what stands before the last parentheses and goes by what is in them. Letter case makes
// no difference to it. "*.*" is meant to be every file, also one without a point in its name.
QStringList FiltersOf(std::string_view filter) {
  const QStringList parts = ToQt(filter).split(u'|');
  QStringList filters;
  for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
    QStringList patterns = parts[i + 1].split(u';', Qt::SkipEmptyParts);
    patterns.replaceInStrings(QLatin1String("*.*"), QLatin1String("*"));
    filters.append(parts[i] + QLatin1String(" (") + patterns.join(u' ') + u')');
  }
  return filters;
}

}  // namespace

std::string ChooseFile(EventPump& pump, const QWidget* owner, const FileDialog& request) {
  const bool saving = request.kind == FileDialog::Kind::kSave;
  QFileDialog dialog;
  dialog.setObjectName("filedialog");
  dialog.setOption(QFileDialog::DontUseNativeDialog);
  dialog.setOption(QFileDialog::HideNameFilterDetails);
  dialog.setWindowTitle(ToQt(request.title));
  dialog.setAcceptMode(saving ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
  dialog.setFileMode(saving ? QFileDialog::AnyFile : QFileDialog::ExistingFile);
  dialog.setNameFilters(FiltersOf(request.filter));
  // An existing file is called what it is called.
  if (saving) dialog.setDefaultSuffix(ToQt(request.default_extension));
  if (!request.folder.empty()) dialog.setDirectory(ToQt(request.folder));
  if (!request.file_name.empty()) dialog.selectFile(ToQt(request.file_name));
  const bool chosen = RunDialog(pump, dialog, owner) && !dialog.selectedFiles().isEmpty();
  return chosen ? FromQt(dialog.selectedFiles().constFirst()) : std::string();
}

}  // namespace quarvel::platform::qt
