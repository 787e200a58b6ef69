// The hidden form that hosts an object's file dialog: never shown itself, it lives as long as its
// model and remembers the folder of what was chosen, never the name.
#pragma once

#include <string>

#include "platform/file_dialog.h"
#include "platform/form.h"

namespace quarvel::mps {

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

}  // namespace quarvel::mps
