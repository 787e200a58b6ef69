// The window of one showing of a form: its controls' views, its menus and keys. It lives longer
// than the showing: once detached it knows nothing of the form any more and waits, hidden, to be
// deleted.
#pragma once

#include <QWidget>
#include <memory>
#include <unordered_map>
#include <vector>

#include "platform/form.h"
#include "platform/qt/control_view.h"
#include "platform/qt/form_menus.h"
#include "platform/qt/stage.h"

namespace quarvel::platform::qt {

class FormWindow : public QWidget {
 public:
  // `modal` as Desktop::Draw has it. Not yet visible.
  FormWindow(Stage& stage, Form& form, bool modal);

  // Takes the window off the screen; the form may be gone afterwards.
  void Detach();
  bool IsDetached() const { return form_ == nullptr; }

  // Shown with the next turn of the events: work may tell of its progress ten thousand times, and
  // the window system answers every time.
  void CaptionChanged();
  void Mirror(const Control& control, Change change);
  // Gives the keyboard to the control that wants it first.
  void FocusFirst();
  // Shows the menu of that item there.
  void PopUp(const MenuItem& item, const QPoint& global_position);

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
  void LeadLabels();
  void Measure();
  void Arrange();
  bool Press(const QKeyEvent& event);
  bool PressEscape();
  // The control of that view has changed: another gets the keyboard if it cannot have it any more.
  void LeaveUnusable(const ControlView& view);
  ControlView* ViewOf(const Control* control) const;
  // The control that has the keyboard; null when it is elsewhere.
  const Control* FocusedControl() const;

  Stage& stage_;
  Form* form_;
  bool modal_;
  bool caption_stale_ = false;
  QWidget* inner_;  // what the form's size and places are about; the menu bar is above it
  FormMenus menus_;
  std::vector<std::unique_ptr<ControlView>> views_;
  std::unordered_map<const Control*, ControlView*> view_of_;
};

// Puts a window in the middle of `owner`, of the screen without one.
void PlaceOver(QWidget& window, const QWidget* owner);
// Keeps `window`, which need not be visible yet, above `owner` and tied to it; `owner` may be null.
void TieTo(QWidget& window, const QWidget* owner);

}  // namespace quarvel::platform::qt
