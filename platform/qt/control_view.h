// The view of one control: a widget that mirrors it and tells it what the user does. One class a
// kind of control.
//
// A control may go away, with its form, inside anything it is told. The view stays until its window
// is destroyed, but `control()` may be used only while it is alive.
#pragma once

#include <QWidget>
#include <functional>
#include <memory>

#include "platform/control.h"

namespace quarvel::platform::qt {

class FormWindow;

class ControlView {
 public:
  virtual ~ControlView() = default;
  ControlView(const ControlView&) = delete;
  ControlView& operator=(const ControlView&) = delete;

  QWidget& widget() const { return widget_; }
  // Whether the form is still on the screen, and the control with it.
  bool alive() const;
  Control& control() const { return control_; }

  // Shows everything as the control has it.
  void MirrorAll();
  // The control has changed.
  void Mirror(Change change);
  void PlaceIn(int width, int height);
  // Code gives it the keyboard.
  virtual void TakeFocus() { widget_.setFocus(Qt::OtherFocusReason); }

 protected:
  // The widget belongs to its parent widget.
  ControlView(FormWindow& owner, Control& control, QWidget& widget);
  FormWindow& owner() const { return owner_; }
  // What only this kind of control has.
  virtual void Show(Change change) = 0;
  // The user's doing; nothing when the form is gone. True when it is still there afterwards.
  bool ForUser(const std::function<void()>& action);

 private:
  FormWindow& owner_;
  Control& control_;
  QWidget& widget_;
};

// A view that knows its control's and its widget's class.
template <typename Kind, typename Widget>
class ViewOf : public ControlView {
 protected:
  ViewOf(FormWindow& owner, Control& control, Widget* widget)
      : ControlView(owner, control, *widget), widget_(*widget) {}

  Kind& Own() const { return static_cast<Kind&>(control()); }

  Widget& widget_;
};

// The view of a control of any kind but menu items, which have none (null).
std::unique_ptr<ControlView> MakeView(FormWindow& owner, Control& control);

// The kinds, for MakeView.
std::unique_ptr<ControlView> MakeBasicView(FormWindow& owner, Control& control);
std::unique_ptr<ControlView> MakeTextView(FormWindow& owner, Control& control);
std::unique_ptr<ControlView> MakeChoiceView(FormWindow& owner, Control& control);
std::unique_ptr<ControlView> MakeGridView(FormWindow& owner, Control& control);

}  // namespace quarvel::platform::qt
