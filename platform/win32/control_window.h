// The child window of one control: made once for a showing, kept like the control (Mirror), and
// handing on what the user does to it. One class a kind of control.
//
// A handler of the control may close or destroy the form. The child window object stays until the
// last event of its window has returned, but `control()` may be used only while the owner is alive.
#pragma once

#include <memory>

#include "platform/control.h"
#include "platform/focus_order.h"
#include "platform/keys.h"
#include "platform/win32/win32.h"

namespace quarvel::platform::win32 {

class FormWindow;

inline constexpr int kFirstControlId = 100;

class ControlWindow {
 public:
  ControlWindow(FormWindow& owner, Control& control, int id);
  virtual ~ControlWindow() = default;
  ControlWindow(const ControlWindow&) = delete;
  ControlWindow& operator=(const ControlWindow&) = delete;

  HWND handle() const { return handle_; }
  Control& control() const { return control_; }
  // Makes the window and shows the control's state in it.
  void Open(HFONT font);
  // The window is going: its name is taken back.
  void Close();
  // The control has changed.
  virtual void Mirror(Change change);
  // The form has got another size or font; `place` is in pixels of the form's inner area.
  virtual RECT Placed(RECT place) const { return place; }
  virtual void SetFont(HFONT font);

  // The keyboard may be given to it.
  bool CanFocus() const { return CanHaveFocus(control_); }
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
  // Shows what was put off for the sake of speed.
  virtual void Flush() {}

 protected:
  // Parts of a window that is being made.
  struct Style {
    const wchar_t* window_class;
    DWORD style = 0;
    DWORD extended_style = 0;
  };
  virtual Style WindowStyle() const = 0;
  virtual void Fill() {}

  FormWindow& owner() const { return owner_; }
  LRESULT Send(UINT message, WPARAM w = 0, LPARAM l = 0) const {
    return SendMessageW(handle_, message, w, l);
  }
  void ShowCaption();
  // While one of these lives, what the window tells is our own doing.
  class Mirroring {
   public:
    explicit Mirroring(ControlWindow& window) : window_(window) { ++window_.mirroring_; }
    ~Mirroring() { --window_.mirroring_; }
    Mirroring(const Mirroring&) = delete;
    Mirroring& operator=(const Mirroring&) = delete;

   private:
    ControlWindow& window_;
  };
  bool mirroring() const { return mirroring_ > 0; }

 private:
  FormWindow& owner_;
  Control& control_;
  int id_;
  HWND handle_ = nullptr;
  int mirroring_ = 0;
};

// The window for a control of any kind but menu items, which have none (null).
std::unique_ptr<ControlWindow> MakeControlWindow(FormWindow& owner, Control& control, int id);

}  // namespace quarvel::platform::win32
