#include "platform/form.h"

#include <algorithm>
#include <new>
#include <utility>

#include "platform/automation_error.h"
#include "platform/basic_controls.h"
#include "platform/box.h"
#include "platform/desktop.h"

namespace quarvel::platform {
namespace {

// Sets a flag for a scope and puts its old value back.
class ScopedFlag {
 public:
  explicit ScopedFlag(bool& flag) : flag_(flag), before_(std::exchange(flag, true)) {}
  ~ScopedFlag() { flag_ = before_; }
  ScopedFlag(const ScopedFlag&) = delete;
  ScopedFlag& operator=(const ScopedFlag&) = delete;

 private:
  bool& flag_;
  bool before_;
};

bool IsCancelButton(const Control& control) {
  return control.kind() == ControlKind::kButton && static_cast<const Button&>(control).is_cancel;
}

// Presses the form's button that `wanted` picks.
template <typename Wanted>
bool Press(const std::vector<Control*>& controls, Wanted wanted) {
  for (Control* control : controls) {
    if (control->kind() != ControlKind::kButton) continue;
    auto& button = static_cast<Button&>(*control);
    if (!wanted(button) || !button.enabled() || !button.visible()) continue;
    button.Click();
    return true;
  }
  return false;
}

// A failure that there is no memory to tell of in a box is told by a sound.
void Tell(Desktop& desktop, const AutomationError& failure) {
  try {
    desktop.MsgBox(Failure(failure));
  } catch (const std::bad_alloc&) {
    desktop.Beep();
  }
}

// Off the screen: whoever waits for this showing sees it closed before the window goes.
void End(const std::shared_ptr<Showing>& showing) {
  showing->closed = true;
  showing->peer.reset();
}

}  // namespace

Form::Form(Desktop& desktop, std::string name) : desktop_(desktop), name_(std::move(name)) {}

Form::~Form() {
  if (showing_) End(std::exchange(showing_, nullptr));
}

void Form::set_caption(std::string_view caption) {
  if (caption_ == caption) return;
  caption_ = caption;
  if (showing_ && showing_->peer) showing_->peer->CaptionChanged();
}

Control* Form::Find(std::string_view name) const {
  const auto found =
      std::find_if(controls_.begin(), controls_.end(),
                   [name](const Control* control) { return control->name() == name; });
  return found == controls_.end() ? nullptr : *found;
}

void Form::Load() {
  if (loaded_) return;
  loaded_ = true;
  try {
    OnLoad();
  } catch (...) {
    loaded_ = false;
    throw;
  }
}

std::shared_ptr<Showing> Form::Begin(bool modal) {
  // OnUnload must not bring back what is just going away.
  if (unloading_) RaiseRunTimeError(RunTimeError::kInvalidProcedureCall);
  Load();
  if (showing_) RaiseRunTimeError(RunTimeError::kFormAlreadyDisplayed);
  auto showing = std::make_shared<Showing>();
  showing->form = this;
  showing->modal = modal;
  showing_ = showing;
  RunOrClose(*showing, [&] {
    std::unique_ptr<FormPeer> peer = desktop_.Draw(*this, modal);
    // Drawing runs events on some desktops, and one of them may have closed the form.
    if (showing->closed) return;
    showing->peer = std::move(peer);
    showing->peer->BringToFront();
  });
  return showing;
}

template <typename Step>
void Form::RunOrClose(Showing& showing, Step step) {
  try {
    step();
  } catch (...) {
    if (!showing.closed) CloseQuietly();
    throw;
  }
}

void Form::ShowModal() {
  if (showing_) RaiseRunTimeError(RunTimeError::kFormAlreadyDisplayed);
  Desktop& desktop = desktop_;
  const std::shared_ptr<Showing> showing = Begin(true);
  // Whatever closed it while it was drawn may have destroyed the form as well.
  if (!showing->closed) {
    RunOrClose(*showing, [&] {
      OnActivate();
      if (!showing->closed) desktop.PumpUntilClosed(*showing);
    });
  }
  if (showing->failure) std::rethrow_exception(showing->failure);
}

void Form::Show() {
  if (showing_) {
    if (showing_->peer) showing_->peer->BringToFront();
    return;
  }
  const std::shared_ptr<Showing> showing = Begin(false);
  if (!showing->closed) RunOrClose(*showing, [&] { OnActivate(); });
}

bool Form::Unload(UnloadReason reason) {
  if (!loaded_) return true;
  if (unloading_) return false;
  const ScopedFlag unloading(unloading_);
  const std::shared_ptr<Showing> asked = showing_;
  const bool agreed = OnQueryUnload(reason);
  // The question may have let events run, and a failing one of them may have closed the form.
  if (agreed && loaded_ && showing_ == asked) Close();
  return !loaded_;
}

void Form::Close() {
  const ScopedFlag unloading(unloading_);
  if (showing_) End(std::exchange(showing_, nullptr));
  try {
    OnUnload();
  } catch (...) {
    loaded_ = false;
    throw;
  }
  loaded_ = false;
}

void Form::Dispatch(const std::function<void()>& handler) {
  // The form itself may be gone when its handler has returned.
  Desktop& desktop = desktop_;
  const std::shared_ptr<Showing> showing = showing_;
  if (!showing) return handler();
  try {
    handler();
  } catch (...) {
    if (!showing->modal || (!showing->closed && survives_failures_)) {
      Tell(desktop, CurrentError());
      return;
    }
    if (!showing->failure) showing->failure = std::current_exception();
    if (!showing->closed) CloseQuietly();
  }
}

void Form::CloseQuietly() {
  try {
    Close();
  } catch (...) {
    // The failure that closed the form is the one to be told; a second one only follows from it.
  }
}

void Form::RequestClose() {
  if (!showing_) return;
  Dispatch([this] { Unload(UnloadReason::kUser); });
}

bool Form::PressDefaultButton() {
  return Press(controls_, [](const Button& button) { return button.is_default; });
}

bool Form::PressCancelButton() {
  return Press(controls_, [](const Button& button) { return button.is_cancel; });
}

bool Form::PressEscape() {
  if (PressCancelButton()) return true;
  const bool stays = std::any_of(controls_.begin(), controls_.end(), [](const Control* control) {
    return control->kind() == ControlKind::kMenuItem || IsCancelButton(*control);
  });
  if (stays || !showing_ || !showing_->modal) return false;
  RequestClose();
  return true;
}

void Form::FocusOn(Control& control) {
  focus_ = &control;
  NotifyChanged(control, Change::kFocus);
}

void Form::Register(Control& control) { controls_.push_back(&control); }

void Form::NotifyChanged(const Control& control, Change change) {
  if (showing_ && showing_->peer) showing_->peer->ControlChanged(control, change);
}

void Form::SetSize(int width, int height, bool resizable) {
  width_ = width;
  height_ = height;
  resizable_ = resizable;
  SetSmallestSize(width, height);
}

void Form::SetSmallestSize(int width, int height) {
  smallest_width_ = width;
  smallest_height_ = height;
}

}  // namespace quarvel::platform
