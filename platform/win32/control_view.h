// The view of one control: a child window that mirrors it and tells it what the user does. One
// class a kind of control.
//
// A control may go away, with its form, inside anything it is told. The view stays until the last
// event of its window has returned, but `control()` may be used only while it is alive.
#pragma once

#include <memory>

#include "platform/control.h"
#include "platform/focus_order.h"
#include "platform/keys.h"
#include "platform/win32/win32.h"

namespace quarvel::platform::win32 {

class FormWindow;

inline constexpr int kFirstControlId = 100;

class ControlView {
 public:
  ControlView(FormWindow& owner, Control& control, int id);
  virtual ~ControlView() = default;
  ControlView(const ControlView&) = delete;
  ControlView& operator=(const ControlView&) = delete;

  HWND handle() const { return handle_; }
  // Whether the form is still on the screen, and the control with it.
  bool alive() const;
  Control& control() const { return control_; }
  // Makes the window and shows the control's state in it.
  void Open(HFONT font);
  // The window is going: its name is taken back.
  void Close();
  // The control has changed.
  void Mirror(Change change);
  // The form has got another size or font; `place` is in pixels of the form's inner area.
  virtual RECT Placed(RECT place) const { return place; }
  virtual void SetFont(HFONT font);

  // Code gives it the keyboard, or a key leads there.
  virtual void TakeFocus() { SetFocus(handle_); }
  // The user pressed its access key.
  virtual void PressAccessKey() { TakeFocus(); }
  // The user pressed a key here. kNative: the window itself shall have it.
  enum class KeyUse { kNone, kNative, kDone };
  virtual KeyUse Press(KeyPress press);
  virtual KeyUse PressEnter() { return KeyUse::kNone; }
  virtual KeyUse PressEscape() { return KeyUse::kNone; }
  // Letters that are typed here mean something to the window.
  virtual bool TakesLetters() const { return true; }

  // Messages of the window to its form.
  virtual void OnCommand(WORD) {}
  virtual LRESULT OnNotify(NMHDR&) { return 0; }
  // Shows again what the control holds, after the window went its own way.
  virtual void Synchronize() {}
  // Shows what was deferred for the sake of speed.
  virtual void Flush() {}

 protected:
  // Parts of a window that is being made.
  struct Style {
    const wchar_t* window_class;
    DWORD style = 0;
    DWORD extended_style = 0;
  };
  virtual Style WindowStyle() const = 0;
  // What a new window shows.
  virtual void Fill() {}
  // What only this kind of control has, and the caption; what the window tells meanwhile is our own
  // doing.
  virtual void Show(Change change);

  FormWindow& owner() const { return owner_; }
  LRESULT Send(UINT message, WPARAM w = 0, LPARAM l = 0) const {
    return SendMessageW(handle_, message, w, l);
  }
  void ShowCaption();
  // While one of these lives, what the window tells is our own doing.
  class Mirroring {
   public:
    explicit Mirroring(ControlView& window) : window_(window) { ++window_.mirroring_; }
    ~Mirroring() { --window_.mirroring_; }
    Mirroring(const Mirroring&) = delete;
    Mirroring& operator=(const Mirroring&) = delete;

   private:
    ControlView& window_;
  };
  bool mirroring() const { return mirroring_ > 0; }

 private:
  FormWindow& owner_;
  Control& control_;
  int id_;
  HWND handle_ = nullptr;
  int mirroring_ = 0;
};

// A view that knows its control's class.
template <typename Kind>
class ViewOf : public ControlView {
 public:
  using ControlView::ControlView;
  Kind& Own() const { return static_cast<Kind&>(control()); }
};

// The view of a control of any kind but menu items, which have none (null).
std::unique_ptr<ControlView> MakeView(FormWindow& owner, Control& control, int id);

}  // namespace quarvel::platform::win32
