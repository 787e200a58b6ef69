// The dialog that adds a coefficient to a row, in one of the columns that the row does not have
// yet.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "platform/basic_controls.h"
#include "platform/form.h"
#include "platform/grid.h"
#include "viewer/named_record.h"

namespace quarvel::viewer {

class frmAddElementsToRow : public platform::Form {
 public:
  explicit frmAddElementsToRow(platform::Desktop& desktop);

  // Lists the columns that the row of that public number does not have and shows the dialog
  // modally. A model without columns is one box, and no dialog.
  void Begin(std::int32_t row, model::ModelInterface& model);

  platform::Label lblSelect;
  platform::Grid fgrdCols;  // a header, then a line for each column: its number and its name
  platform::Button cmdOK;
  platform::Button cmdCancel;

 protected:
  void OnUnload() override;

 private:
  void FindAbsentColumns();
  std::string Cell(int line, int column) const;
  // The column of the chosen line, nothing when there is none or it is gone from the model.
  std::optional<std::int32_t> ChosenColumn() const;
  void Accept();
  // Whether row and column are still those that the user was asked about, and have no element yet.
  bool AreStillFree(const NamedRecord& column) const;
  // What the user enters for that column; nothing after a refusal or when cancelled.
  std::optional<double> AskValue(const NamedRecord& column);

  model::ModelInterface* model_ = nullptr;
  NamedRecord row_;
  std::vector<std::int32_t> absent_;  // public numbers, by lines below the header
};

}  // namespace quarvel::viewer
