// The dialog for the type and the bounds of a column. Binary columns are not edited here.
#pragma once

#include "viewer/set_bounds_form.h"

namespace quarvel::viewer {

class frmSetColBounds : public SetBoundsForm {
 public:
  explicit frmSetColBounds(platform::Desktop& desktop);

 protected:
  void OrderBounds() override;
  bool StoreType() override;
};

}  // namespace quarvel::viewer
