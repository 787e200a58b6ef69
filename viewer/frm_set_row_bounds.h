// The dialog for the type and the bounds of a row.
#pragma once

#include "viewer/set_bounds_form.h"

namespace quarvel::viewer {

class frmSetRowBounds : public SetBoundsForm {
 public:
  explicit frmSetRowBounds(platform::Desktop& desktop);

 protected:
  // Puts the two bounds of a range in order, or makes an equality of it.
  void OrderBounds() override;
  bool StoreType() override;
};

}  // namespace quarvel::viewer
