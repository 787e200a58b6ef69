#include "viewer/frm_set_col_bounds.h"

#include "model/record_types.h"

namespace quarvel::viewer {
namespace {

constexpr SetBoundsForm::TypeOption kColumnOptions[] = {
    {model::TraitsOf(model::ColumnType::kContinuous).letter, "optR", "Real", 'R'},
    {model::TraitsOf(model::ColumnType::kInteger).letter, "optI", "Integer", 'I'},
};

const SetBoundsForm::Design kColumnDesign = {model::kColumnKind,
                                             "frmSetColBounds",
                                             "lblColumn",
                                             "Column Type",
                                             "Invalid Column Type specified",
                                             kColumnOptions};

}  // namespace

frmSetColBounds::frmSetColBounds(platform::Desktop& desktop)
    : SetBoundsForm(desktop, kColumnDesign) {}

void frmSetColBounds::OrderBounds() {
  if (BoundBoxes::Get(bounds.txtLwrBnd) > BoundBoxes::Get(bounds.txtUprBnd)) bounds.Reverse();
}

bool frmSetColBounds::StoreType() {
  bounds.HoldWithinLimit();
  if (!HasRecord()) return false;
  StoreChosenType();
  return true;
}

}  // namespace quarvel::viewer
