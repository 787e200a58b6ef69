#include "platform/console/console_desktop.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <chrono>
#include <utility>

#include "platform/automation_error.h"
#include "platform/basic_controls.h"
#include "text/encoding.h"

namespace quarvel::platform {
namespace {

using console::WriteError;

constexpr std::size_t kColumns = 79;
constexpr std::size_t kBarColumns = 30;
constexpr std::int64_t kMillisecondsBetweenDraws = 50;
constexpr int kTurnsToClose = 3;
constexpr std::string_view kStopButton = "cmdStop";

struct Answer {
  MsgBoxResult result;
  char key;
  std::string_view word;
};

constexpr auto kAnswers = std::to_array<Answer>({
    {MsgBoxResult::kOk, 'o', "OK"},
    {MsgBoxResult::kYes, 'y', "Yes"},
    {MsgBoxResult::kNo, 'n', "No"},
    {MsgBoxResult::kCancel, 'c', "Cancel"},
});

std::string_view WordOf(MsgBoxResult result) {
  const auto found = std::find_if(kAnswers.begin(), kAnswers.end(),
                                  [result](const Answer& a) { return a.result == result; });
  return found->word;
}

std::string_view Trimmed(std::string_view text) {
  constexpr std::string_view kBlanks = " \t\r\n";
  const std::size_t first = text.find_first_not_of(kBlanks);
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

char AsciiLower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

bool SameWord(std::string_view a, std::string_view b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                    [](char x, char y) { return AsciiLower(x) == AsciiLower(y); });
}

// What a line typed at a question means: a key or a whole word.
std::optional<MsgBoxResult> Understand(std::string_view line, const BoxLook& look) {
  const std::string_view typed = Trimmed(line);
  for (const Answer& answer : kAnswers) {
    if (!look.Has(answer.result)) continue;
    if (SameWord(typed, answer.word) || SameWord(typed, {&answer.key, 1})) return answer.result;
  }
  return std::nullopt;
}

// A terminal's own line ends, and one at the end.
std::string AsLines(std::string_view text) {
  std::string lines;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const bool pair = text[i] == '\r' && i + 1 < text.size() && text[i + 1] == '\n';
    if (!pair) lines += text[i] == '\r' ? '\n' : text[i];
  }
  if (!lines.ends_with('\n')) lines += '\n';
  return lines;
}

// Without the marks of access keys: "&OK" is "OK", "&&" is "&".
std::string PlainCaption(std::string_view caption) {
  std::string plain;
  for (std::size_t i = 0; i < caption.size(); ++i) {
    if (caption[i] == '&' && ++i == caption.size()) break;
    plain += caption[i];
  }
  return plain;
}

std::string FirstCharacters(std::string_view utf8, std::size_t count) {
  std::size_t end = 0;
  for (std::size_t taken = 0; end < utf8.size(); ++end) {
    const bool starts_character = (static_cast<unsigned char>(utf8[end]) & 0xC0U) != 0x80U;
    if (starts_character && taken++ == count) break;
  }
  return std::string(utf8.substr(0, end));
}

// The enabled and visible controls of one kind.
template <typename Kind>
std::vector<Kind*> Usable(const Form& form, ControlKind kind) {
  std::vector<Kind*> usable;
  for (Control* control : form.controls()) {
    if (control->kind() == kind && control->enabled() && control->visible()) {
      usable.push_back(static_cast<Kind*>(control));
    }
  }
  return usable;
}

Button* UsableStopButton(const Form& form) {
  for (Button* button : Usable<Button>(form, ControlKind::kButton)) {
    if (button->name() == kStopButton) return button;
  }
  return nullptr;
}

// The button that ends a form whose options are chosen; null when none is the obvious one.
Button* ClosingButton(const Form& form) {
  const auto buttons = Usable<Button>(form, ControlKind::kButton);
  for (Button* button : buttons) {
    if (button->is_default) return button;
  }
  if (buttons.size() == 1) return buttons.front();
  for (Button* button : buttons) {
    if (button->is_cancel) return button;
  }
  return nullptr;
}

const ProgressBar* VisibleBar(const Form& form) {
  for (const Control* control : form.controls()) {
    if (control->kind() == ControlKind::kProgressBar && control->visible()) {
      return static_cast<const ProgressBar*>(control);
    }
  }
  return nullptr;
}

std::string BarText(const ProgressBar& bar) {
  const float range = bar.max() - bar.min();
  const float part = range > 0 ? (bar.value() - bar.min()) / range : 0;
  const auto done = static_cast<std::size_t>(part * static_cast<float>(kBarColumns));
  const std::size_t filled = std::min(done, kBarColumns);
  return '[' + std::string(filled, '#') + std::string(kBarColumns - filled, '.') + ']';
}

std::int64_t MillisecondsNow() {
  using std::chrono::duration_cast;
  using std::chrono::milliseconds;
  return duration_cast<milliseconds>(std::chrono::steady_clock::now().time_since_epoch()).count();
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
  }

  ~ConsolePeer() override {
    desktop_.EraseProgress();
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
      interactive_(console::InputIsTerminal() && console::ErrorIsTerminal()),
      shows_progress_(console::ErrorIsTerminal()) {}

ConsoleDesktop::~ConsoleDesktop() { EraseProgress(); }

std::optional<std::string> ConsoleDesktop::Ask(std::string_view prompt) {
  if (!interactive_) return std::nullopt;
  EraseProgress();
  WriteError(prompt);
  auto line = read_line_();
  // Nobody pressed Enter, so the terminal still stands behind the prompt.
  if (!line) WriteError("\n");
  return line;
}

MsgBoxResult ConsoleDesktop::MsgBox(const Box& box) {
  if (box.kind == BoxKind::kConfirmStop && confirming_stop_) return MsgBoxResult::kYes;
  EraseProgress();
  const BoxLook look = box.look();
  bool print = true;
  const auto answer = answers_.AnswerBox(box, print);
  const bool ask = look.asks() && !answer && interactive_;
  if (print || ask) {
    if (look.asks() || box.title != kDefaultTitle) WriteError(AsLines(box.title));
    WriteError(AsLines(box.text()));
  }
  if (!look.asks()) return MsgBoxResult::kOk;
  if (ask) return AskBox(look);
  const MsgBoxResult result = answer.value_or(look.when_closed);
  if (print) WriteError("Answer: " + std::string(WordOf(result)) + '\n');
  return result;
}

MsgBoxResult ConsoleDesktop::AskBox(const BoxLook& look) {
  const std::string_view prompt = look.Has(MsgBoxResult::kCancel) ? "[y/n/c] " : "[y/n] ";
  while (const auto line = Ask(prompt)) {
    if (const auto result = Understand(*line, look)) return *result;
  }
  return look.when_closed;
}

std::string ConsoleDesktop::InputBox(std::string_view prompt, std::string_view title,
                                     std::string_view default_text) {
  std::string question = AsLines(title) + AsLines(prompt);
  if (!default_text.empty()) question += '[' + std::string(default_text) + "] ";
  const auto line = Ask(question + "> ");
  if (!line) return {};
  return line->empty() ? std::string(default_text) : *line;
}

std::string ConsoleDesktop::ShowFileDialog(const FileDialog& dialog) {
  if (auto path = answers_.AnswerFile(dialog)) return *std::move(path);
  const auto line = Ask(dialog.title + "\n> ");
  std::string name(Trimmed(line.value_or("")));
  // Only a new file gets the extension: an existing one is called what it is called.
  const bool saving = dialog.kind == FileDialog::Kind::kSave;
  return saving ? WithExtension(std::move(name), dialog.default_extension) : name;
}

void ConsoleDesktop::DoEvents() {
  if (interrupted() && !interrupt_handled_) {
    const auto stoppable = std::find_if(shown_.rbegin(), shown_.rend(), [](const Form* form) {
      return UsableStopButton(*form) != nullptr;
    });
    if (stoppable != shown_.rend()) {
      interrupt_handled_ = true;
      PressStop(**stoppable);
    }
  }
  DrawProgress();
}

void ConsoleDesktop::PressStop(Form& form) {
  struct Confirming {
    bool& flag;
    ~Confirming() { flag = false; }
  };
  const Confirming confirming{confirming_stop_ = true};
  UsableStopButton(form)->Click();
}

void ConsoleDesktop::DrawProgress() {
  if (!shows_progress_) return;
  const std::int64_t now = MillisecondsNow();
  if (columns_on_screen_ > 0 && now - last_draw_ms_ < kMillisecondsBetweenDraws) return;
  const auto drawn = std::find_if(shown_.rbegin(), shown_.rend(),
                                  [](const Form* form) { return VisibleBar(*form) != nullptr; });
  if (drawn == shown_.rend()) return;
  const std::string line =
      FirstCharacters((*drawn)->caption() + ' ' + BarText(*VisibleBar(**drawn)), kColumns);
  const std::size_t columns = text::CharacterCount(line);
  const std::size_t left_over = columns_on_screen_ > columns ? columns_on_screen_ - columns : 0;
  WriteError('\r' + line + std::string(left_over, ' '));
  columns_on_screen_ = columns + left_over;
  last_draw_ms_ = now;
}

void ConsoleDesktop::EraseProgress() {
  if (columns_on_screen_ == 0) return;
  WriteError('\r' + std::string(columns_on_screen_, ' ') + '\r');
  columns_on_screen_ = 0;
}

void ConsoleDesktop::Beep() {
  if (interactive_) WriteError("\a");
}

bool ConsoleDesktop::OpenInEditor(const std::string& path) {
  EraseProgress();
  WriteError("See " + path + '\n');
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
    if (form.Find(kStopButton) != nullptr) {
      if (UsableStopButton(form) != nullptr) PressStop(form);
      if (!showing.closed) form.RequestClose();
    } else {
      AskForm(form);
    }
  }
}

void ConsoleDesktop::AskForm(Form& form) {
  if (interactive_) AskOptions(form);
  if (Button* const button = ClosingButton(form)) {
    button->Click();
  } else {
    form.RequestClose();
  }
}

void ConsoleDesktop::AskOptions(Form& form) {
  const auto options = Usable<OptionButton>(form, ControlKind::kOptionButton);
  if (options.empty()) return;
  std::string question = AsLines(form.caption());
  for (const Label* label : Usable<Label>(form, ControlKind::kLabel)) {
    question += AsLines(PlainCaption(label->caption()));
  }
  for (std::size_t i = 0; i < options.size(); ++i) {
    question += options[i]->value() ? "* " : "  ";
    question += std::to_string(i + 1) + ". " + PlainCaption(options[i]->caption()) + '\n';
  }
  const std::string prompt = "1-" + std::to_string(options.size()) + ", or Enter for the marked: ";
  for (auto line = Ask(question + prompt); line; line = Ask(prompt)) {
    const std::string_view typed = Trimmed(*line);
    if (typed.empty()) return;
    std::size_t number = 0;
    const auto [end, error] = std::from_chars(typed.data(), typed.data() + typed.size(), number);
    const bool whole = error == std::errc() && end == typed.data() + typed.size();
    if (whole && number >= 1 && number <= options.size()) return options[number - 1]->Click();
  }
}

}  // namespace quarvel::platform
