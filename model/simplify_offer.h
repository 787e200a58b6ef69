// The question whether to simplify a model: a read asks it at its end, the viewer on request.
#pragma once

#include "platform/box.h"

namespace quarvel::model {

inline platform::Box SimplifyOffer() {
  return platform::Question(
      platform::BoxKind::kOfferToSimplify,
      "Do you want to simplify the model?\r\nThis will remove empty rows and columns, and will "
      "convert any rows with just one element into equivalent column bounds");
}

}  // namespace quarvel::model
