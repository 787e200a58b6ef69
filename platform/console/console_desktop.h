// The desktop of the command line: boxes are lines on standard error, questions are asked on a
// terminal or answered by the program's options, progress is one line that is redrawn on a terminal
// and nothing in a pipe, and Ctrl-C presses the button that stops the work (Button::is_stop). A second
// Ctrl-C ends the program.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/box.h"
#include "platform/console/console_system.h"
#include "platform/console/console_user.h"
#include "platform/console/progress_line.h"
#include "platform/desktop.h"
#include "platform/file_dialog.h"
#include "platform/form.h"

namespace quarvel::platform {

// What the program that owns the desktop decides without the user. Each answer is optional: what is
// not decided is asked on a terminal and, where there is none, gets the cautious answer (No,
// Cancel, empty, the option that is selected already).
class ConsoleAnswers {
 public:
  virtual ~ConsoleAnswers() = default;
  // A box is about to be shown. `print` may be set to false to keep it silent.
  virtual std::optional<MsgBoxResult> AnswerBox(const Box&, bool&) { return std::nullopt; }
  // A question gets the Yes that the user gave to all of its kind, unasked. False: its statement is printed.
  virtual bool TellPassedOver(const Box&) { return false; }
  // The box as the user at the terminal is asked it: the component's words may speak of windows.
  virtual Box AsAsked(const Box& box) { return box; }
  // What that answer of a box is called beside its button; empty for nothing.
  virtual std::string_view WordFor(const Box&, MsgBoxResult) { return {}; }
  // A file dialog; the path to answer.
  virtual std::optional<std::string> AnswerFile(const FileDialog&) { return std::nullopt; }
  // A form waits for its user. True when the answers drove it (selected options, pressed a button).
  virtual bool DriveForm(Form&) { return false; }
};

class ConsoleDesktop : public Desktop {
 public:
  explicit ConsoleDesktop(ConsoleAnswers& answers);

  // True when standard input and standard error are both a terminal, so that questions can be
  // asked.
  bool interactive() const { return user_.present(); }
  void set_interactive(bool interactive) { user_.set_present(interactive); }
  // Where the lines typed at a question come from; standard input unless it is replaced.
  void set_line_source(std::function<std::optional<std::string>()> source) {
    user_.set_line_source(std::move(source));
  }
  // True when standard error is a terminal, so that a line on it can be redrawn.
  bool shows_progress() const { return progress_.enabled(); }
  void set_shows_progress(bool shows) { progress_.set_enabled(shows); }
  // Before other text goes to the terminal.
  void EraseProgress() { progress_.Erase(); }
  // How long work goes on before its progress is shown, in milliseconds.
  void set_progress_delay(std::int64_t delay) { progress_.set_delay(delay); }
  // True when a Ctrl-C arrived during this desktop's life. Every question after that is as if it had been
  // closed, and says nothing: what was being done has no end of its own.
  bool interrupted() const { return interrupts_.Arrived(); }
  // True when the user has quit at a question, or the input ended there. Every question after that is
  // as if it had been closed.
  bool has_quit() const { return has_quit_; }

  MsgBoxResult MsgBox(const Box& box) override;
  std::string InputBox(std::string_view prompt, std::string_view title,
                       std::string_view default_text) override;
  std::string ShowFileDialog(const FileDialog& dialog) override;
  void DoEvents() override;
  void CopyToClipboard(std::string_view) override {}
  void Beep() override;
  void SetMousePointer(MousePointer) override {}
  // Prints where the file is; there is no window to open it in.
  bool OpenInEditor(const std::string& path) override;
  std::unique_ptr<FormPeer> Draw(Form& form, bool modal) override;
  // Asks the user through the form's option buttons and buttons. A form left open by its own
  // handler (a read that was answered No at a warning) is stopped and closed here.
  void PumpUntilClosed(const Showing& showing) override;

 private:
  friend class ConsolePeer;
  // Asks the user, and keeps in mind what holds for more than this box.
  MsgBoxResult AskUser(const Box& box);
  void PressStop(Form& form);
  // Every form's last resort, after the answers: its buttons, chosen by the user where there is
  // one.
  void AskForm(Form& form);

  ConsoleAnswers& answers_;
  console::InterruptWatch interrupts_;
  console::ProgressLine progress_;
  console::ConsoleUser user_;
  // The Ctrl-C has found its button, and while that runs its question is answered Yes.
  bool interrupt_handled_ = false;
  bool confirming_stop_ = false;
  bool has_quit_ = false;
  std::set<BoxKind> agreed_;  // the kinds whose questions are all answered Yes
  std::vector<Form*> shown_;  // the topmost last
};

}  // namespace quarvel::platform
