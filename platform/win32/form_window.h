// The window of one showing of a form: its child windows, menu, layout and events.
//
// The window goes in two steps. Retire, which may be called inside any of its own events, takes it
// off the screen, gives the other windows back and forgets the form. It is destroyed once no event
// of it is running any more: the code of its children would not survive less. `alive()` tells an
// event that has run a handler whether there still is a form.
#pragma once

#include <memory>
#include <optional>
#include <string_view>
#include <vector>

#include "platform/form.h"
#include "platform/win32/control_view.h"
#include "platform/win32/drawer_state.h"
#include "platform/win32/form_menus.h"
#include "platform/win32/handles.h"
#include "platform/win32/paced_caption.h"
#include "platform/win32/thread_windows.h"

namespace quarvel::platform::win32 {

class ButtonView;

class FormWindow : public std::enable_shared_from_this<FormWindow> {
 public:
  FormWindow(std::shared_ptr<DrawerState> state, Form& form);
  FormWindow(const FormWindow&) = delete;
  FormWindow& operator=(const FormWindow&) = delete;

  // The window that belongs to a form of this module on this thread; null for other windows.
  static FormWindow* Of(HWND window);
  static LRESULT CALLBACK Receive(HWND window, UINT message, WPARAM w, LPARAM l) noexcept;

  // Makes the window and puts it on the screen. Raises when it cannot.
  void Open(bool modal);
  void Retire();
  // Retires and destroys it now, whatever is running.
  void Destroy();

  HWND handle() const { return handle_; }
  HINSTANCE module() const { return state_->module; }
  int dpi() const { return dpi_; }
  bool alive() const { return form_ != nullptr; }
  Form& form() const { return *form_; }
  // The view of a control, or the one that a window of this form is or belongs to; null
  // when there is none.
  ControlView* Find(const Control& control) const;
  ControlView* Find(HWND window) const;

  void CaptionChanged();
  void ControlChanged(const Control& control, Change change);
  void BringToFront();
  // Shows what was deferred for the sake of speed.
  void Flush();
  // Gives the keyboard to a control, now or when the window becomes active.
  void Focus(ControlView& control);
  // Puts the default look on that button, or on the form's default button.
  void ShowDefaultButton(ButtonView* focused);
  // Lets the control show its state again when the running event is over.
  void SynchronizeSoon(const ControlView& control);

  // Runs something of this window's that may run handlers: the window outlives it, and no exception
  // leaves it.
  template <typename Action>
  void ForUser(Action action) noexcept {
    const std::shared_ptr<FormWindow> self = shared_from_this();
    ++depth_;
    try {
      action();
    } catch (...) {
      state_->TellFailure(handle_);
    }
    Left();
  }

 private:
  void MakeWindow(HWND owner);
  void MakeViews();
  void Show(HWND owner);
  void Left() noexcept;
  void Gone();
  std::optional<LRESULT> Handle(UINT message, WPARAM w, LPARAM l);
  std::optional<LRESULT> HandleForm(UINT message, WPARAM w, LPARAM l);
  std::optional<LRESULT> HandleLayout(UINT message, WPARAM w, LPARAM l);
  void OnCommand(WPARAM w, LPARAM l);
  void OnMenu(HMENU menu);
  std::optional<LRESULT> OnNotify(NMHDR& header);
  bool OnContextMenu(HWND window, LPARAM place);
  void OnDpiChanged(int dpi, const RECT& place);
  void SmallestSize(MINMAXINFO& info) const;
  void SaveFocus();
  void RestoreFocus();
  void LeaveUnusable(const ControlView& control);
  void Arrange();
  void UseFont();

  std::shared_ptr<DrawerState> state_;
  Form* form_;
  HWND handle_ = nullptr;
  DWORD style_ = 0;
  DWORD extended_style_ = 0;
  int dpi_ = 0;
  int depth_ = 0;
  bool destruction_posted_ = false;
  FontHolder font_;
  FormMenus menus_;
  std::vector<std::unique_ptr<ControlView>> views_;
  ControlView* focus_ = nullptr;
  DisabledWindows disabled_;
  PacedCaption caption_;
};

}  // namespace quarvel::platform::win32
