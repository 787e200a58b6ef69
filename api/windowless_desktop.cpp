#include "api/windowless_desktop.h"

#include "platform/automation_error.h"
#include "platform/basic_controls.h"

namespace quarvel::api {
namespace {

using platform::ControlKind;
using platform::Form;

constexpr int kTurnsToClose = 3;

template <class Kind>
std::vector<Kind*> Controls(const Form& form, ControlKind kind) {
  std::vector<Kind*> found;
  for (platform::Control* const control : form.controls()) {
    if (control->kind() == kind) found.push_back(static_cast<Kind*>(control));
  }
  return found;
}

// The button that stops work, or that takes what was chosen.
platform::Button* FindButton(const Form& form, bool platform::Button::*what) {
  for (platform::Button* const button : Controls<platform::Button>(form, ControlKind::kButton)) {
    if (button->*what) return button;
  }
  return nullptr;
}

}  // namespace

class WindowlessDesktop::Peer : public platform::FormPeer {
 public:
  Peer(std::vector<Form*>& shown, Form& form) : shown_(shown), form_(form) {
    shown_.push_back(&form);
  }
  ~Peer() override { std::erase(shown_, &form_); }
  void CaptionChanged() override {}
  void ControlChanged(const platform::Control&, platform::Change) override {}
  void BringToFront() override {}

 private:
  std::vector<Form*>& shown_;
  Form& form_;
};

platform::MsgBoxResult WindowlessDesktop::MsgBox(const platform::Box& box) {
  if (box.kind == platform::BoxKind::kConfirmStop) return platform::MsgBoxResult::kYes;
  return Answer(box);
}

void WindowlessDesktop::DoEvents() {
  if (shown_.empty() || is_stopped_) return;
  Form& form = *shown_.back();
  const auto bars = Controls<platform::ProgressBar>(form, ControlKind::kProgressBar);
  if (bars.empty() || ShowPart(form.caption(), bars.front()->Done())) return;
  Stop(form);
}

void WindowlessDesktop::Stop(Form& form) {
  is_stopped_ = true;
  if (auto* const button = FindButton(form, &platform::Button::is_stop)) button->Click();
}

std::unique_ptr<platform::FormPeer> WindowlessDesktop::Draw(Form& form, bool) {
  return std::make_unique<Peer>(shown_, form);
}

void WindowlessDesktop::PumpUntilClosed(const platform::Showing& showing) {
  for (int turn = 0; !showing.closed; ++turn) {
    if (turn == kTurnsToClose) RaiseRunTimeError(RunTimeError::kInternalError);
    Form& form = *showing.form;
    if (FindButton(form, &platform::Button::is_stop) == nullptr) {
      AskForm(form);
      continue;
    }
    // The window of work that has ended and could not close it.
    FindButton(form, &platform::Button::is_stop)->Click();
    if (!showing.closed) form.RequestClose();
  }
}

void WindowlessDesktop::AskForm(Form& form) {
  Options options = {.title = form.caption(), .text = {}, .words = {}, .selected = 0};
  for (const auto* label : Controls<platform::Label>(form, ControlKind::kLabel)) {
    options.text = label->caption();
  }
  const auto buttons = Controls<platform::OptionButton>(form, ControlKind::kOptionButton);
  for (std::size_t i = 0; i < buttons.size(); ++i) {
    options.words.push_back(buttons[i]->caption());
    if (buttons[i]->value()) options.selected = i;
  }
  const std::size_t chosen = ChooseOption(options);
  if (chosen < buttons.size()) buttons[chosen]->Click();
  if (auto* const button = FindButton(form, &platform::Button::is_default)) {
    button->Click();
  } else {
    form.RequestClose();
  }
}

}  // namespace quarvel::api
