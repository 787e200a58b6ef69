// The viewer's commands on the model as a whole: files, simplifying, help.

#include "mps/mps_reader.h"
#include "platform/files.h"
#include "viewer/frm_view_equations.h"

namespace quarvel {
namespace {

using platform::MsgBoxResult;
using platform::MsgBoxStyle;

constexpr std::int16_t kSaved = -1;

#ifdef _WIN32
constexpr std::string_view kReadme = "\\quarvel.readme.txt";
#else
constexpr std::string_view kReadme = "/quarvel.readme.txt";
#endif

}  // namespace

bool frmViewEquations::OfferToSave() {
  if (parent_->NumberOfElements() < 1) return true;
  const MsgBoxResult answer = desktop().MsgBox("Do you want to save the current model?",
                                               MsgBoxStyle::kYesNoCancelExclamation);
  if (!IsReady()) return false;
  return answer == MsgBoxResult::kYes ? Save() : answer == MsgBoxResult::kNo;
}

bool frmViewEquations::HasElementsToSave() {
  if (parent_->NumberOfElements() != 0) return true;
  Say("There are no elements in the model yet.  Save aborted");
  return false;
}

bool frmViewEquations::Save() {
  ModelInterface& model = *parent_;
  if (!HasElementsToSave() || !IsReady()) return false;
  if (boxes_filled_) {
    model.SetModelName(txtName.text());
    model.SetModelDescription(txtDescription.text());
  }
  Simplify();
  if (!IsReady()) return false;
  const bool done =
      model.SaveMPSFile(model.FileLocation()) == kSaved || model.SaveAsMPSFile() == kSaved;
  // A model that was simplified to nothing is told as saved, but no file holds it.
  return done && IsReady() && model.NumberOfElements() != 0;
}

void frmViewEquations::FileNew() {
  if (!OfferToSave()) return;
  parent_->MakeNewModel();
  RefreshForm();
}

void frmViewEquations::FileOpen() {
  ModelInterface& model = *parent_;
  if (!OfferToSave()) return;
  Empty();
  // Whatever comes of it: the boxes for name and description must not stay empty, or the next save
  // would wipe them out in the model.
  try {
    model.ReadMPSFile();
  } catch (...) {
    LoadSequence();
    throw;
  }
  LoadSequence();
}

void frmViewEquations::FileSave() { Save(); }

// Unlike Save it leaves the model's name and description as they are in the model.
void frmViewEquations::FileSaveAs() {
  ModelInterface& model = *parent_;
  if (!HasElementsToSave() || !IsReady()) return;
  Simplify();
  if (!IsReady()) return;
  if (model.SaveAsMPSFile() != kSaved) Say("Model could not be saved");
}

void frmViewEquations::FileExit() { Unload(); }

void frmViewEquations::Simplify() {
  ModelInterface& model = *parent_;
  const MsgBoxResult answer = desktop().MsgBox(kSimplifyQuestion, MsgBoxStyle::kYesNo);
  if (answer != MsgBoxResult::kYes || !IsReady()) return;
  try {
    model.SimplifyMPSModel();
  } catch (...) {
    if (IsReady()) RefreshForm();
    throw;
  }
  if (IsReady()) RefreshForm();
}

void frmViewEquations::HelpHelp() {
  const std::string readme = platform::ComponentFolder().append(kReadme);
  if (!desktop().OpenInEditor(readme)) {
    Say("The help could not be opened.  It can be found at " + readme);
  }
}

void frmViewEquations::HelpAbout() { parent_->DisplayAuthor(); }

}  // namespace quarvel
