#include "platform/console/console_desktop.h"

#include <algorithm>
#include <utility>

#include "platform/automation_error.h"
#include "platform/console/console_controls.h"
#include "platform/console/console_text.h"
#include "platform/file_dialog.h"
#include "text/visible_text.h"

namespace quarvel::platform {
namespace {

using console::AsLines;
using console::WriteError;

constexpr int kTurnsToClose = 3;

// Whether one run may ask it many times.
bool ComesAgain(BoxKind kind) {
  return kind == BoxKind::kReadProblem || kind == BoxKind::kEmptyItem || kind == BoxKind::kConflict;
}

std::string WithExtension(std::string name, std::string_view extension) {
  const std::size_t start = name.find_last_of("/\\") + 1;
  const bool has_one = name.find('.', start) != std::string::npos;
  if (!name.empty() && !has_one) name += extension;
  return name;
}

}  // namespace

class ConsolePeer : public FormPeer {
 public:
  ConsolePeer(ConsoleDesktop& desktop, Form& form) : desktop_(desktop), form_(form) {
    desktop_.shown_.push_back(&form);
    desktop_.progress_.Expect(form);
  }

  ~ConsolePeer() override {
    desktop_.progress_.Forget(form_);
    std::erase(desktop_.shown_, &form_);
  }

  // The progress line follows at DoEvents; nothing else of a form stays on a console.
  void CaptionChanged() override {}
  void ControlChanged(const Control&, Change) override {}

  void BringToFront() override {
    std::erase(desktop_.shown_, &form_);
    desktop_.shown_.push_back(&form_);
  }

 private:
  ConsoleDesktop& desktop_;
  Form& form_;
};

ConsoleDesktop::ConsoleDesktop(ConsoleAnswers& answers)
    : answers_(answers),
      progress_(console::ErrorIsTerminal()),
      user_(progress_, console::InputIsTerminal() && console::ErrorIsTerminal()) {}

MsgBoxResult ConsoleDesktop::MsgBox(const Box& box) {
  if (box.kind == BoxKind::kConfirmStop && confirming_stop_) return MsgBoxResult::kYes;
  progress_.Erase();
  const BoxLook look = box.look();
  if (look.asks() && (has_quit_ || interrupted())) return look.when_closed;
  bool print = true;
  const auto answer = answers_.AnswerBox(box, print);
  const bool ask = look.asks() && !answer && user_.present();
  if (ask && agreed_.contains(box.kind)) {
    if (!answers_.TellPassedOver(box)) {
      WriteError(AsLines(console::WithNameOnOneLine(box.statement, box.item)));
    }
    return MsgBoxResult::kYes;
  }
  if (print || ask) {
    const Box shown = ask ? answers_.AsAsked(box) : box;
    if (look.asks() || shown.title != kDefaultTitle) WriteError(AsLines(shown.title));
    WriteError(console::BoxLines(shown));
  }
  if (!look.asks()) return MsgBoxResult::kOk;
  if (ask) return AskUser(box);
  const MsgBoxResult result = answer.value_or(look.when_closed);
  if (print) WriteError("Answer: " + std::string(console::WordOf(result)) + '\n');
  return result;
}

MsgBoxResult ConsoleDesktop::AskUser(const Box& box) {
  using Reach = console::Reply::Reach;
  const console::Reply reply =
      user_.AskButton(box.look(), ComesAgain(box.kind),
                      [this, &box](MsgBoxResult result) { return answers_.WordFor(box, result); });
  if (reply.reach == Reach::kAll) agreed_.insert(box.kind);
  has_quit_ = reply.reach == Reach::kQuit;
  return reply.result;
}

std::string ConsoleDesktop::InputBox(std::string_view prompt, std::string_view title,
                                     std::string_view default_text) {
  std::string question = AsLines(title) + AsLines(prompt);
  if (!default_text.empty()) question += '[' + text::VisibleText(default_text) + "] ";
  const auto line = user_.Ask(question + "> ");
  if (!line) return {};
  return line->empty() ? std::string(default_text) : *line;
}

std::string ConsoleDesktop::ShowFileDialog(const FileDialog& dialog) {
  if (auto path = answers_.AnswerFile(dialog)) return *std::move(path);
  const auto line = user_.Ask(AsLines(dialog.title) + "> ");
  std::string name(console::Trimmed(line.value_or("")));
  // Only a new file gets the extension: an existing one is called what it is called.
  const bool saving = dialog.kind == FileDialog::Kind::kSave;
  return saving ? WithExtension(std::move(name), dialog.default_extension) : name;
}

void ConsoleDesktop::DoEvents() {
  if (interrupted() && !interrupt_handled_) {
    const auto stoppable = std::find_if(shown_.rbegin(), shown_.rend(), [](const Form* form) {
      return console::StopButton(*form) != nullptr;
    });
    if (stoppable != shown_.rend()) {
      interrupt_handled_ = true;
      PressStop(**stoppable);
    }
  }
  progress_.Draw(shown_);
}

void ConsoleDesktop::PressStop(Form& form) {
  struct Confirming {
    bool& flag;
    ~Confirming() { flag = false; }
  };
  const Confirming confirming{confirming_stop_ = true};
  console::StopButton(form)->Click();
}

void ConsoleDesktop::Beep() {
  if (user_.present()) WriteError("\a");
}

bool ConsoleDesktop::OpenInEditor(const std::string& path) {
  progress_.Erase();
  WriteError("See " + text::VisibleText(path) + '\n');
  return true;
}

std::unique_ptr<FormPeer> ConsoleDesktop::Draw(Form& form, bool) {
  return std::make_unique<ConsolePeer>(*this, form);
}

void ConsoleDesktop::PumpUntilClosed(const Showing& showing) {
  for (int turn = 0; !showing.closed; ++turn) {
    if (turn == kTurnsToClose) RaiseRunTimeError(RunTimeError::kInternalError);
    Form& form = *showing.form;
    if (answers_.DriveForm(form)) continue;
    if (console::StopButton(form) != nullptr) {
      PressStop(form);
      if (!showing.closed) form.RequestClose();
    } else {
      AskForm(form);
    }
  }
}

void ConsoleDesktop::AskForm(Form& form) {
  if (user_.present() && !has_quit_) has_quit_ = !user_.AskOption(form);
  if (Button* const button = console::ClosingButton(form)) {
    button->Click();
  } else {
    form.RequestClose();
  }
}

}  // namespace quarvel::platform
