// The model that a viewer shows, as all parts of the window see it.
#pragma once

#include <functional>
#include <utility>

namespace quarvel::model {
class ModelInterface;
}  // namespace quarvel::model

namespace quarvel {}

namespace quarvel::viewer {

struct ViewedModel {
  // False without a model, and while it is being rebuilt: nobody asks it anything then.
  bool IsReady() const { return model != nullptr && pauses == 0; }
  // A handler that does nothing while the model is not to be asked.
  std::function<void()> WhenReady(std::function<void()> handler) const {
    return [this, handler = std::move(handler)] {
      if (IsReady()) handler();
    };
  }

  model::ModelInterface* model = nullptr;  // null unless the window is open
  bool editing = false;                    // the commands that change the model are there
  int pauses = 0;
};

}  // namespace quarvel::viewer
