// A window of the component: its controls and handlers, without a toolkit.
//
// Life: unloaded -> loaded (Load: OnLoad fills the controls) -> showing (ShowModal or Show: drawn,
// then OnActivate once) -> unloaded (Unload: OnQueryUnload may refuse; the window goes away,
// OnUnload). A form object may be loaded and shown again any number of times; whether it was closed
// is remembered for each showing, so a form may unload itself inside its own handler and even be
// shown again there, and the earlier modal call still returns once that handler has returned.
//
// Activation never depends on the window getting the focus: it is delivered right after drawing, by
// the call that shows the form.
#pragma once

#include <exception>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace quarvel::platform {

class Control;
class Desktop;
class Form;

// What changed in a control, for its drawer.
// kContents: the items, rows or texts inside; kSelection: which of them is current; kFocus: it
// wants the keyboard.
enum class Change { kCaption, kValue, kEnabled, kVisible, kRange, kContents, kSelection, kFocus };

// The drawer's side of one showing. Its destructor takes the window off the screen and gives the
// thread's other windows back; it may run inside an event of that very window.
class FormPeer {
 public:
  virtual ~FormPeer() = default;
  virtual void CaptionChanged() = 0;
  virtual void ControlChanged(const Control& control, Change change) = 0;
  virtual void BringToFront() = 0;
};

// One appearance of a form on the screen.
struct Showing {
  Form* form = nullptr;  // whose; not to be followed once `closed` is set
  bool modal = false;
  bool closed = false;
  std::exception_ptr failure;  // what left an event handler; raised again by ShowModal
  std::unique_ptr<FormPeer> peer;
};

enum class UnloadReason {
  kCode,  // the component closes the window
  kUser,  // the window's close box or its keys
};

class Form {
 public:
  Form(Desktop& desktop, std::string name);
  virtual ~Form();
  Form(const Form&) = delete;
  Form& operator=(const Form&) = delete;

  Desktop& desktop() const { return desktop_; }
  const std::string& name() const { return name_; }
  const std::string& caption() const { return caption_; }
  void set_caption(std::string_view caption);
  // In creation order, which is the tab order.
  const std::vector<Control*>& controls() const { return controls_; }
  // The control of that name, null when there is none.
  Control* Find(std::string_view name) const;
  // Size of the inner area in form units: pixels at 96 a logical inch.
  int width() const { return width_; }
  int height() const { return height_; }
  // A resizable form may grow, and shrink down to this size, so that it fits on a small screen.
  bool resizable() const { return resizable_; }
  int smallest_width() const { return smallest_width_; }
  int smallest_height() const { return smallest_height_; }
  // The control that code gave the keyboard last; null leaves it to the tab order.
  Control* focus() const { return focus_; }

  bool IsLoaded() const { return loaded_; }
  bool IsShowing() const { return showing_ != nullptr; }

  // Runs OnLoad unless the form is loaded already.
  void Load();
  // Loads, draws, activates and runs events until this showing is closed. Raises 400 when the form
  // is on the screen already, and again whatever left one of its handlers. The form may be
  // destroyed before this returns.
  void ShowModal();
  // Loads, draws and activates; returns at once. Brings a form to the front that is showing
  // already.
  void Show();
  // Asks OnQueryUnload, takes the window away, then runs OnUnload; true when the form is unloaded
  // now (also when it was not loaded). Ignored while another Unload of this form is under way.
  bool Unload(UnloadReason reason = UnloadReason::kCode);

  // For drawers: runs a handler of this form. A failure that leaves it closes a modal showing
  // without asking and is raised by ShowModal; a form shown by Show, or one that survives failures,
  // stays, and the failure is one plain box, or a beep where there is no memory for one. A form that
  // is not showing has nobody to keep the failure for: it leaves this call.
  void Dispatch(const std::function<void()>& handler);
  // For drawers: the user wants the window closed.
  void RequestClose();
  // For drawers: Enter and Escape where the focused control has no use for them. True when there
  // was such a button to press.
  bool PressDefaultButton();
  bool PressCancelButton();
  // As PressCancelButton; a modal form without such a button and without menus is closed instead.
  bool PressEscape();

  // For controls.
  void Register(Control& control);
  void FocusOn(Control& control);
  void NotifyChanged(const Control& control, Change change);

 protected:
  virtual void OnLoad() {}
  virtual void OnActivate() {}
  // False keeps the window open.
  virtual bool OnQueryUnload(UnloadReason) { return true; }
  virtual void OnUnload() {}

  // The smallest size is this one until SetSmallestSize.
  void SetSize(int width, int height, bool resizable);
  void SetSmallestSize(int width, int height);
  // For forms that hold work of the user's: a failing handler does not close them.
  void SurviveFailures() { survives_failures_ = true; }

 private:
  std::shared_ptr<Showing> Begin(bool modal);
  // Runs `step` of a showing; a failure closes that showing without asking and goes on to the
  // caller.
  template <typename Step>
  void RunOrClose(Showing& showing, Step step);
  void Close();
  void CloseQuietly();

  Desktop& desktop_;
  std::string name_;
  std::string caption_;
  std::vector<Control*> controls_;
  int width_ = 0;
  int height_ = 0;
  int smallest_width_ = 0;
  int smallest_height_ = 0;
  bool resizable_ = false;
  bool survives_failures_ = false;
  Control* focus_ = nullptr;
  bool loaded_ = false;
  bool unloading_ = false;
  std::shared_ptr<Showing> showing_;
};

}  // namespace quarvel::platform
