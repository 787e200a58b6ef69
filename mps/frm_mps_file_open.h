// The hidden form that hosts an object's file dialog: never shown itself, it lives as long as its
// LPModel. Its file name is empty before and after every use, so that one dialog's choice never
// reaches the next.
#pragma once

#include <string>

#include "platform/desktop.h"
#include "platform/form.h"

namespace quarvel {

class LPModel;

class frmMPSFileOpen : public platform::Form {
 public:
  explicit frmMPSFileOpen(platform::Desktop& desktop) : Form(desktop, "frmMPSFileOpen") {}

  // Shows `request` and gives the chosen path, empty when the user cancelled. The user begins in
  // the folder of the model's own file, `location`; of a model without one, where the last file was
  // chosen.
  std::string Choose(platform::FileDialog request, const std::string& location);

 private:
  std::string folder_;
};

// The file-dialog host of that model, created on first use.
frmMPSFileOpen& FileDialogHost(LPModel& model);

}  // namespace quarvel
