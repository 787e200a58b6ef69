// The small modal dialog before a read: which bounds do columns get that the file gives none? It
// comes up with "0 to +1E10" selected each time; closed without OK it leaves the model's choice as
// it was.
#pragma once

#include "platform/basic_controls.h"
#include "platform/form.h"

namespace quarvel::model {
class ModelStore;
}  // namespace quarvel::model

namespace quarvel::mps {

class frmSetDefaultBounds : public platform::Form {
 public:
  explicit frmSetDefaultBounds(platform::Desktop& desktop);

  // As a user who selects one of the two and presses OK. For a form that is shown.
  void Choose(bool infinite);

  // The store whose setting the dialog makes. Dropped when it unloads.
  model::ModelStore* Parent = nullptr;

  platform::Label lblChoose;
  platform::OptionButton optZeroToLimit;   // lower bound 0
  platform::OptionButton optLimitToLimit;  // lower bound -1E+10
  platform::Button cmdOK;

 protected:
  void OnLoad() override;
  void OnUnload() override;

 private:
  void Accept();
};

}  // namespace quarvel::mps
