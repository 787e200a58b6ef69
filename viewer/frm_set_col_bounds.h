// The dialog for the type and the bounds of a column.
#pragma once

#include <cstdint>
#include <string>

#include "platform/basic_controls.h"
#include "platform/form.h"
#include "viewer/bound_boxes.h"

namespace quarvel {

class ModelInterface;

class frmSetColBounds : public platform::Form {
 public:
  explicit frmSetColBounds(platform::Desktop& desktop);

  // Fills the dialog with the column of that public number and shows it modally. A column that is
  // neither real nor integer is one box, and no dialog.
  void ShowBounds(ModelInterface& model, std::int32_t column);

  platform::Label lblColumn;
  platform::Frame fraType;
  platform::OptionButton optR;
  platform::OptionButton optI;
  BoundBoxes bounds;
  platform::Button cmdOK;
  platform::Button cmdCancel;

 protected:
  void OnUnload() override { model_ = nullptr; }

 private:
  void Accept();
  // False when a host has deleted the column under a box, or closed the dialog; it is closed then.
  bool HasColumn();

  ModelInterface* model_ = nullptr;
  std::int32_t column_ = 0;
  std::string name_;
};

}  // namespace quarvel
