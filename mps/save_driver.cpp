#include "mps/save_driver.h"

#include <string_view>

#include "mps/frm_mps_file_open.h"
#include "mps/model_writer.h"
#include "platform/box.h"
#include "platform/desktop.h"
#include "platform/file_dialog.h"

namespace quarvel::mps {
namespace {

// What is said of a file that readers of fixed columns cannot take.
constexpr std::string_view kNotStandardNote =
    "The file written is not a standard MPS file, since at least one of the row or column names or "
    "element values was too long";
constexpr std::string_view kNoElements = "No elements in the model.  Aborting save.";

class DesktopListener : public SaveListener {
 public:
  explicit DesktopListener(platform::Desktop& desktop) : desktop_(desktop) {}

  void NothingWritten() override { desktop_.MsgBox(platform::Refusal(kNoElements)); }
  void Written(const ModelWriter& writer) override {
    if (!writer.is_standard()) desktop_.MsgBox(platform::Note(kNotStandardNote));
  }
  void Failed(const AutomationError& failure, const std::string& notes) override {
    platform::Box box = platform::Failure(failure);
    box.statement += notes;
    desktop_.MsgBox(box);
  }

 private:
  platform::Desktop& desktop_;
};

}  // namespace

SaveResult SaveModel(model::ModelStore& store, platform::Desktop& desktop,
                     const std::string& path) {
  DesktopListener listener(desktop);
  return SaveFile(store, path, FileLayout::kFixed, {}, listener);
}

std::string ChoosePathToSave(const model::ModelStore& store, frmMPSFileOpen& file_dialog) {
  platform::FileDialog request;
  request.kind = platform::FileDialog::Kind::kSave;
  request.title = "Save As...";
  request.filter = "MPS files (*.mps)|*.mps|all files (*.*)|*.*";
  request.default_extension = ".mps";
  std::string path = file_dialog.Choose(request, store.settings().FileLocation);
  if (path.empty()) file_dialog.desktop().Beep();
  return path;
}

}  // namespace quarvel::mps
