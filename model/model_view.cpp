#include "model/model_view.h"

#include <utility>

namespace quarvel::model {

ViewPause::ViewPause(ViewLink& link) : link_(link), view_(link.open()) {
  link_.BeginRebuild();
  if (view_ != nullptr) view_->Pause();
}

// The window may have been closed meanwhile; its object lives as long as the model.
void ViewPause::End() {
  if (std::exchange(ended_, true)) return;
  link_.EndRebuild();
  if (view_ != nullptr) std::exchange(view_, nullptr)->Resume();
}

}  // namespace quarvel::model
