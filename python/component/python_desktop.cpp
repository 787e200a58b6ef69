#include "python/component/python_desktop.h"

#include <utility>

#include "platform/automation_error.h"
#include "platform/basic_controls.h"
#include "python/component/values.h"
#include "python/lock.h"

namespace quarvel::python {
namespace {

using platform::BoxKind;
using platform::Button;
using platform::ControlKind;
using platform::Form;
using platform::MsgBoxResult;
using platform::ProgressBar;

constexpr auto kBetweenEvents = std::chrono::milliseconds(16);
constexpr int kTurnsToClose = 3;

template <class Kind>
std::vector<Kind*> Controls(const Form& form, ControlKind kind) {
  std::vector<Kind*> found;
  for (platform::Control* const control : form.controls()) {
    if (control->kind() == kind) found.push_back(static_cast<Kind*>(control));
  }
  return found;
}

Button* FindButton(const Form& form, bool Button::*what) {
  for (Button* const button : Controls<Button>(form, ControlKind::kButton)) {
    if (button->*what) return button;
  }
  return nullptr;
}

const char* NameOf(BoxKind kind) {
  switch (kind) {
    case BoxKind::kRefusal:
      return "refusal";
    case BoxKind::kFailure:
      return "failure";
    case BoxKind::kNote:
      return "note";
    case BoxKind::kAbout:
      return "about";
    case BoxKind::kReadProblem:
      return "read-problem";
    case BoxKind::kEmptyItem:
      return "empty-item";
    case BoxKind::kConflict:
      return "conflict";
    case BoxKind::kOfferToSimplify:
      return "offer-to-simplify";
    case BoxKind::kOfferLog:
      return "offer-log";
    case BoxKind::kOfferToSave:
      return "offer-to-save";
    case BoxKind::kConfirmStop:
      return "confirm-stop";
    case BoxKind::kConfirmDeletion:
      return "confirm-deletion";
  }
  return "";
}

py::tuple Numbers(std::span<const MsgBoxResult> buttons) {
  py::tuple numbers(buttons.size());
  for (std::size_t i = 0; i < buttons.size(); ++i) {
    numbers[i] = py::int_(static_cast<int>(buttons[i]));
  }
  return numbers;
}

}  // namespace

class PythonDesktop::Peer : public platform::FormPeer {
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

PythonDesktop::Call::Call(PythonDesktop& desktop)
    : desktop_(desktop),
      outer_thrown_(std::exchange(desktop.thrown_, nullptr)),
      outer_stopped_(std::exchange(desktop.is_stopped_, false)) {}

PythonDesktop::Call::~Call() {
  desktop_.thrown_ = std::move(outer_thrown_);
  desktop_.is_stopped_ = outer_stopped_;
}

void PythonDesktop::Call::Rethrow() {
  if (desktop_.thrown_) std::rethrow_exception(std::exchange(desktop_.thrown_, nullptr));
}

template <class Answer, class Question>
Answer PythonDesktop::Ask(Answer closed, const Question& question) {
  if (thrown_) return closed;
  return Locked([&] {
    try {
      return question();
    } catch (...) {
      thrown_ = std::current_exception();
      return closed;
    }
  });
}

MsgBoxResult PythonDesktop::MsgBox(const platform::Box& box) {
  // Stop is pressed here alone, and what it asks was decided then.
  if (box.kind == BoxKind::kConfirmStop) return MsgBoxResult::kYes;
  if (box.kind == BoxKind::kOfferToSave && gives_up_saving_) return MsgBoxResult::kNo;
  const platform::BoxLook look = box.look();
  return Ask(look.when_closed, [&] {
    const py::object answer = Called(
        user_.attr("_ask_box"), ToPythonText(box.text()), static_cast<int>(box.style),
        ToPythonText(box.title), NameOf(box.kind), ToPythonText(std::string(box.code)), box.line,
        ToPythonText(box.item), Numbers(look.buttons), static_cast<int>(look.when_closed));
    return static_cast<MsgBoxResult>(answer.cast<int>());
  });
}

std::string PythonDesktop::InputBox(std::string_view prompt, std::string_view title,
                                    std::string_view default_text) {
  return Ask(std::string(), [&] {
    return FromPython<std::string>(
        Called(user_.attr("_ask_text"), ToPythonText(std::string(prompt)),
               ToPythonText(std::string(title)), ToPythonText(std::string(default_text))));
  });
}

std::string PythonDesktop::ShowFileDialog(const platform::FileDialog& dialog) {
  return Ask(std::string(), [&] {
    const bool saving = dialog.kind == platform::FileDialog::Kind::kSave;
    return FromPython<PathText>(Called(user_.attr("_ask_file"), saving, ToPythonText(dialog.title),
                                       ToPythonText(dialog.filter),
                                       ToPythonText(dialog.default_extension),
                                       ToPythonText(dialog.file_name), ToPythonText(dialog.folder)))
        .text;
  });
}

// Without work that can be stopped there is nothing to do here.
void PythonDesktop::DoEvents() {
  if (shown_.empty() || is_stopped_) return;
  if (!thrown_) {
    const auto now = std::chrono::steady_clock::now();
    if (now - last_events_ < kBetweenEvents) return;
    last_events_ = now;
    if (ShowProgress()) return;
  }
  PressStop();
}

// Signals reach Python's handlers here: the one of Ctrl-C throws.
bool PythonDesktop::ShowProgress() {
  const Form& form = *shown_.back();
  const auto bars = Controls<ProgressBar>(form, ControlKind::kProgressBar);
  return Ask(false, [&] {
    if (PyErr_CheckSignals() != 0) throw py::error_already_set();
    if (bars.empty()) return true;
    return Called(user_.attr("_show_progress"), ToPythonText(form.caption()), bars.front()->Done())
        .cast<bool>();
  });
}

void PythonDesktop::PressStop() {
  for (auto form = shown_.rbegin(); form != shown_.rend(); ++form) {
    Button* const button = FindButton(**form, &Button::is_stop);
    if (button == nullptr) continue;
    is_stopped_ = true;
    button->Click();
    return;
  }
}

void PythonDesktop::CopyToClipboard(std::string_view text) {
  Ask(0, [&] {
    Called(user_.attr("_copy"), ToPythonText(std::string(text)));
    return 0;
  });
}

void PythonDesktop::Beep() {
  Ask(0, [&] {
    Called(user_.attr("_beep"));
    return 0;
  });
}

bool PythonDesktop::OpenInEditor(const std::string& path) {
  return Ask(false, [&] {
    return Called(user_.attr("_open_in_editor"), ToPythonText(path)).cast<bool>();
  });
}

std::unique_ptr<platform::FormPeer> PythonDesktop::Draw(Form& form, bool) {
  return std::make_unique<Peer>(shown_, form);
}

void PythonDesktop::PumpUntilClosed(const platform::Showing& showing) {
  const bool outer = gives_up_saving_;
  for (int turn = 0; !showing.closed; ++turn) {
    if (turn == kTurnsToClose) {
      gives_up_saving_ = outer;
      RaiseRunTimeError(RunTimeError::kInternalError);
    }
    Form& form = *showing.form;
    if (Button* const stop = FindButton(form, &Button::is_stop)) {
      // The window of work that has ended and could not close it.
      stop->Click();
      if (!showing.closed) form.RequestClose();
    } else if (FindButton(form, &Button::is_default) != nullptr) {
      AskForm(form);
    } else {
      // Who has not said Yes or No the first time would keep a window open that nobody can close.
      gives_up_saving_ = turn > 0 || thrown_;
      if (turn == 0) ShowWindow(form);
      if (!showing.closed) form.RequestClose();
    }
  }
  gives_up_saving_ = outer;
}

void PythonDesktop::AskForm(Form& form) {
  std::string text;
  for (const auto* label : Controls<platform::Label>(form, ControlKind::kLabel)) {
    text = label->caption();
  }
  const auto options = Controls<platform::OptionButton>(form, ControlKind::kOptionButton);
  std::size_t selected = 0;
  for (std::size_t i = 0; i < options.size(); ++i) {
    if (options[i]->value()) selected = i;
  }
  const std::size_t chosen = Ask(selected, [&] {
    py::tuple words(options.size());
    for (std::size_t i = 0; i < options.size(); ++i) words[i] = ToPythonText(options[i]->caption());
    return Called(user_.attr("_choose"), ToPythonText(form.caption()), ToPythonText(text), words,
                  selected)
        .cast<std::size_t>();
  });
  if (chosen < options.size()) options[chosen]->Click();
  FindButton(form, &Button::is_default)->Click();
}

void PythonDesktop::ShowWindow(Form& form) {
  Ask(0, [&] {
    Called(user_.attr("_show_window"), ToPythonText(form.caption()));
    return 0;
  });
}

}  // namespace quarvel::python
