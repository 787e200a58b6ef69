// One control on the screen: a widget that mirrors it and tells it what the user does.
//
// A control may go away, with its form, inside anything it is told; the view stays until its window
// is deleted and only forgets the control.
#pragma once

#include <QWidget>
#include <memory>

#include "platform/control.h"
#include "platform/qt/stage.h"

namespace quarvel::platform::qt {

class ControlView {
 public:
  virtual ~ControlView() = default;
  ControlView(const ControlView&) = delete;
  ControlView& operator=(const ControlView&) = delete;

  QWidget& widget() const { return widget_; }
  // Null once the form has left the screen.
  Control* control() const { return control_; }
  // The control is about to go.
  virtual void Detach() { control_ = nullptr; }

  // Shows everything as the control has it.
  void MirrorAll();
  void Mirror(Change change);
  void PlaceIn(int width, int height);
  // Code gives it the keyboard.
  virtual void TakeFocus() { widget_.setFocus(Qt::OtherFocusReason); }

 protected:
  // The widget belongs to its parent widget.
  ControlView(Stage& stage, Control& control, QWidget& widget);
  // What only this kind of control has.
  virtual void Show(Change change) = 0;
  // The user's doing; nothing once the control is gone. True when the control is still there.
  template <typename Action>
  bool ForUser(Action action) {
    if (control_ != nullptr) stage_.ForUser(action);
    return control_ != nullptr;
  }

 private:
  Stage& stage_;
  Control* control_;
  QWidget& widget_;
};

// A view that knows its control's and its widget's class.
template <typename Kind, typename Widget>
class ViewOf : public ControlView {
 protected:
  ViewOf(Stage& stage, Control& control, Widget* widget)
      : ControlView(stage, control, *widget), widget_(*widget) {}

  Kind& kind() const { return static_cast<Kind&>(*control()); }

  Widget& widget_;
};

// The view of a control; null for a kind that has no place in a window (menu items).
std::unique_ptr<ControlView> MakeView(Stage& stage, Control& control, QWidget& parent);

// The kinds, for MakeView.
std::unique_ptr<ControlView> MakeBasicView(Stage& stage, Control& control, QWidget& parent);
std::unique_ptr<ControlView> MakeOptionView(Stage& stage, Control& control, QWidget& parent);
std::unique_ptr<ControlView> MakeTextView(Stage& stage, Control& control, QWidget& parent);
std::unique_ptr<ControlView> MakeChoiceView(Stage& stage, Control& control, QWidget& parent);
std::unique_ptr<ControlView> MakeGridView(Stage& stage, Control& control, QWidget& parent);

}  // namespace quarvel::platform::qt
