// The dialog for the type and the bounds of a row.
#pragma once

#include <cstdint>
#include <string>

#include "platform/basic_controls.h"
#include "platform/form.h"
#include "viewer/bound_boxes.h"

namespace quarvel {

class ModelInterface;

class frmSetRowBounds : public platform::Form {
 public:
  explicit frmSetRowBounds(platform::Desktop& desktop);

  // Fills the dialog with the row of that public number and shows it modally. A row of a type that
  // it does not know is one box, and no dialog.
  void ShowBounds(ModelInterface& model, std::int32_t row);

  platform::Label lblRow;
  platform::Frame fraType;
  platform::OptionButton optN;
  platform::OptionButton optR;
  platform::OptionButton optE;
  platform::OptionButton optGT;
  platform::OptionButton optLT;
  BoundBoxes bounds;
  platform::Button cmdOK;
  platform::Button cmdCancel;

 protected:
  void OnUnload() override { model_ = nullptr; }

 private:
  platform::OptionButton* OptionOf(std::string_view type);
  void Accept();
  // False when a host has deleted the row under a box, or closed the dialog; it is closed then.
  bool HasRow();
  // Puts the two bounds of a range in order, or makes an equality of it.
  void CheckRange();
  // The type that is selected, with what it means for the boxes.
  void StoreType();

  ModelInterface* model_ = nullptr;
  std::int32_t row_ = 0;
  std::string name_;
};

}  // namespace quarvel
