#include "model/model_view.h"

#include <utility>

#include "model/lp_model.h"

namespace quarvel {

ModelView* OpenView(LPModel& model) {
  platform::Form* form = model.window(WindowSlot::kViewer).get();
  return form != nullptr && form->IsShowing() ? static_cast<ModelView*>(form) : nullptr;
}

ViewPause::ViewPause(LPModel& model) : model_(model), view_(OpenView(model)) {
  ++model_.rebuilds_;
  if (view_ != nullptr) view_->Pause();
}

// The window may have been closed meanwhile; its object lives as long as the model.
void ViewPause::End() {
  if (std::exchange(ended_, true)) return;
  --model_.rebuilds_;
  if (view_ != nullptr) std::exchange(view_, nullptr)->Resume();
}

}  // namespace quarvel
