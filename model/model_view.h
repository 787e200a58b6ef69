// What the rooms below the viewer know of it: an open window on a model is refreshed when a read
// has ended, and keeps its hands off a model that a read or a simplification is rebuilding.
#pragma once

#include "platform/form.h"

namespace quarvel {

class LPModel;

class ModelView : public platform::Form {
 public:
  using Form::Form;

  // Empties the window and fills it from the model again.
  virtual void RefreshForm() = 0;
  // Between the two the window shows what it showed and asks the model nothing. They nest.
  virtual void Pause() = 0;
  virtual void Resume() = 0;
};

// The model's window while it is on the screen, else null.
ModelView* OpenView(LPModel& model);

// Marks the model as being rebuilt and pauses its open window, for a scope or until End.
class ViewPause {
 public:
  explicit ViewPause(LPModel& model);
  ~ViewPause() { End(); }
  ViewPause(const ViewPause&) = delete;
  ViewPause& operator=(const ViewPause&) = delete;
  void End();

 private:
  LPModel& model_;
  ModelView* view_;
  bool ended_ = false;
};

}  // namespace quarvel
