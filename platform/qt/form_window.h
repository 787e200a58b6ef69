// The window of one showing of a form: its controls' views, its menus and keys. It lives longer
// than the showing: once retired it knows nothing of the form any more and waits, hidden, to be
// destroyed.
#pragma once

#include <QWidget>
#include <memory>
#include <unordered_map>
#include <vector>

#include "platform/form.h"
#include "platform/qt/control_view.h"
#include "platform/qt/drawer_state.h"
#include "platform/qt/event_pump.h"
#include "platform/qt/form_menus.h"

namespace quarvel::platform::qt {

class FormWindow : public QWidget, public std::enable_shared_from_this<FormWindow> {
 public:
  FormWindow(DrawerState& state, EventPump& pump, Form& form);

  // Puts the window on the screen, over the one that is on top. `modal` as Desktop::Draw has it.
  void Open(bool modal);
  // Takes the window off the screen; the form may be gone afterwards.
  void Retire();
  bool alive() const { return form_ != nullptr; }
  // Where the controls' widgets stand: what the form's size and places are about.
  QWidget& inner() const { return *inner_; }
  // The view of a control; null when there is none.
  ControlView* Find(const Control* control) const;

  // Shown with the next turn of the events: work may tell of its progress ten thousand times, and
  // the window system answers every time.
  void CaptionChanged();
  void ControlChanged(const Control& control, Change change);
  // The first time also waits until the window is painted. Letting events run for that is safe only
  // here, where the form has its peer already: one of them may close the form.
  void BringToFront();
  // Shows the menu of that item there.
  void PopUp(const MenuItem& item, const QPoint& global_position);
  // As DrawerState::ForUser.
  template <typename Action>
  void ForUser(Action action) {
    state_.ForUser(action);
  }

 protected:
  // Closing is up to the form.
  void closeEvent(QCloseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void showEvent(QShowEvent* event) override;
  bool event(QEvent* event) override;
  // The Tab key, and whatever else moves the keyboard on.
  bool focusNextPrevChild(bool next) override;

 private:
  void ShowCaption();
  void MakeViews();
  // Gives the keyboard to the control that wants it first.
  void FocusFirst();
  void LeadLabels();
  void Measure();
  void Arrange();
  bool Press(const QKeyEvent& event);
  // The control of that view has changed: another gets the keyboard if it cannot have it any more.
  void LeaveUnusable(const ControlView& view);
  // The control that has the keyboard; null when it is elsewhere.
  const Control* FocusedControl() const;

  DrawerState& state_;
  EventPump& pump_;
  Form* form_;
  bool painted_ = false;
  bool caption_stale_ = false;
  QWidget* inner_;  // the menu bar is above it
  FormMenus menus_;
  std::vector<std::unique_ptr<ControlView>> views_;
  std::unordered_map<const Control*, ControlView*> view_of_;
};

// Puts a window in the middle of `owner`, of the screen without one.
void PlaceOver(QWidget& window, const QWidget* owner);
// Keeps `window`, which need not be visible yet, above `owner` and tied to it; `owner` may be null.
void TieTo(QWidget& window, const QWidget* owner);

}  // namespace quarvel::platform::qt
