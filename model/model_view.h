// What the rooms below the viewer know of it: an open window on a model is refreshed when a read
// has ended, and keeps its hands off a model that a read or a simplification is rebuilding.
#pragma once

#include "platform/form.h"

namespace quarvel::model {

class ModelView : public platform::Form {
 public:
  using Form::Form;

  // Empties the window and fills it from the model again.
  virtual void RefreshForm() = 0;
  // Between the two the window shows what it showed and asks the model nothing. They nest.
  virtual void Pause() = 0;
  virtual void Resume() = 0;
};

// One model's tie to its window, which need not have been made yet.
class ViewLink {
 public:
  // `view` outlives the link's use from here on.
  void Attach(ModelView& view) { view_ = &view; }
  // The window while it is on the screen, else null.
  ModelView* open() const { return view_ != nullptr && view_->IsShowing() ? view_ : nullptr; }
  // A read or a simplification of the model is going on.
  bool IsBeingRebuilt() const { return rebuilds_ > 0; }
  void BeginRebuild() { ++rebuilds_; }
  void EndRebuild() { --rebuilds_; }

 private:
  ModelView* view_ = nullptr;
  int rebuilds_ = 0;
};

// Marks the model as being rebuilt and pauses its open window, for a scope or until End.
class ViewPause {
 public:
  explicit ViewPause(ViewLink& link);
  ~ViewPause() { End(); }
  ViewPause(const ViewPause&) = delete;
  ViewPause& operator=(const ViewPause&) = delete;
  void End();

 private:
  ViewLink& link_;
  ModelView* view_;
  bool ended_ = false;
};

}  // namespace quarvel::model
