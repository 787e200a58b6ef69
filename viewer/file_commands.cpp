#include "viewer/file_commands.h"

#include "model/simplify_offer.h"
#include "platform/box.h"
#include "platform/desktop.h"
#include "platform/files.h"
#include "viewer/command_desk.h"

namespace quarvel::viewer {
namespace {

using platform::BoxKind;
using platform::MsgBoxResult;
using platform::MsgBoxStyle;

constexpr std::int16_t kSaved = -1;

}  // namespace

std::string ReadmeOf(const std::string& folder) {
#ifdef _WIN32
  return folder + "\\quarvel.readme.txt";
#else
  const std::string beside = folder + "/quarvel.readme.txt";
  const std::string installed = platform::FolderOf(folder) + "/share/quarvel/quarvel.readme.txt";
  return !platform::FileExists(beside) && platform::FileExists(installed) ? installed : beside;
#endif
}

bool FileCommands::OfferToSave() {
  if (desk_.model().NumberOfElements() < 1) return true;
  const MsgBoxResult answer = desk_.desktop().MsgBox(
      Question(BoxKind::kOfferToSave, "Do you want to save the current model?",
               MsgBoxStyle::kYesNoCancelExclamation));
  if (!desk_.IsReady()) return false;
  return answer == MsgBoxResult::kYes ? WriteModel() : answer == MsgBoxResult::kNo;
}

bool FileCommands::HasElementsToSave() {
  if (desk_.model().NumberOfElements() != 0) return true;
  desk_.Say("There are no elements in the model yet.  Save aborted");
  return false;
}

bool FileCommands::WriteModel() {
  model::ModelInterface& model = desk_.model();
  if (!HasElementsToSave() || !desk_.IsReady()) return false;
  const ViewerContents& contents = desk_.contents();
  if (contents.boxes_filled()) {
    model.SetModelName(contents.txtName.text());
    model.SetModelDescription(contents.txtDescription.text());
  }
  Simplify();
  if (!desk_.IsReady()) return false;
  const bool done =
      model.SaveMPSFile(model.FileLocation()) == kSaved || model.SaveAsMPSFile() == kSaved;
  // A model that was simplified to nothing is told as saved, but no file holds it.
  return done && desk_.IsReady() && model.NumberOfElements() != 0;
}

void FileCommands::New() {
  if (!OfferToSave()) return;
  desk_.model().MakeNewModel();
  desk_.contents().Refresh();
}

void FileCommands::Open() {
  model::ModelInterface& model = desk_.model();
  if (!OfferToSave()) return;
  desk_.contents().Empty();
  // Whatever comes of it: the boxes for name and description must not stay empty, or the next save
  // would wipe them out in the model.
  try {
    model.ReadMPSFile();
  } catch (...) {
    desk_.contents().Load();
    throw;
  }
  desk_.contents().Load();
}

void FileCommands::Save() { WriteModel(); }

void FileCommands::SaveAs() {
  model::ModelInterface& model = desk_.model();
  if (!HasElementsToSave() || !desk_.IsReady()) return;
  Simplify();
  if (!desk_.IsReady()) return;
  if (model.SaveAsMPSFile() != kSaved) desk_.Say("Model could not be saved");
}

void FileCommands::Exit() { desk_.window().Unload(); }

void FileCommands::Simplify() {
  model::ModelInterface& model = desk_.model();
  const MsgBoxResult answer = desk_.desktop().MsgBox(model::SimplifyOffer());
  if (answer != MsgBoxResult::kYes || !desk_.IsReady()) return;
  try {
    model.SimplifyMPSModel();
  } catch (...) {
    if (desk_.IsReady()) desk_.contents().Refresh();
    throw;
  }
  if (desk_.IsReady()) desk_.contents().Refresh();
}

void FileCommands::Help() {
  const std::string readme = ReadmeOf(platform::ComponentFolder());
  if (!desk_.desktop().OpenInEditor(readme)) {
    desk_.Say("The help could not be opened.  It can be found at " + readme);
  }
}

void FileCommands::About() { desk_.model().DisplayAuthor(); }

}  // namespace quarvel::viewer
