#include "platform/console/console_user.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <vector>

#include "platform/automation_error.h"
#include "platform/console/console_controls.h"
#include "platform/console/console_text.h"
#include "text/visible_text.h"

namespace quarvel::platform::console {
namespace {

struct ButtonWord {
  MsgBoxResult result;
  std::string_view shown;
  std::string_view typed;
};

constexpr auto kButtonWords = std::to_array<ButtonWord>({
    {MsgBoxResult::kOk, "OK", "ok"},
    {MsgBoxResult::kYes, "Yes", "yes"},
    {MsgBoxResult::kNo, "No", "no"},
    {MsgBoxResult::kCancel, "Cancel", "cancel"},
});

constexpr std::string_view kQuit = "quit";

// One that may be typed at a question. No two begin with the same letter.
struct Choice {
  std::string_view word;
  Reply reply;
};

std::vector<Choice> ChoicesOf(const BoxLook& look, bool comes_again) {
  std::vector<Choice> choices;
  for (const ButtonWord& button : kButtonWords) {
    if (look.Has(button.result)) choices.push_back({button.typed, {button.result}});
  }
  if (comes_again) choices.push_back({"all", {MsgBoxResult::kYes, Reply::Reach::kAll}});
  choices.push_back({kQuit, {look.when_closed, Reply::Reach::kQuit}});
  return choices;
}

std::optional<Reply> Understand(std::string_view line, const std::vector<Choice>& choices) {
  const std::string_view typed = Trimmed(line);
  if (typed.empty()) return std::nullopt;
  for (const Choice& choice : choices) {
    if (SameWord(typed, choice.word.substr(0, typed.size()))) return choice.reply;
  }
  return std::nullopt;
}

std::string Joined(const std::vector<Choice>& choices, std::string_view between,
                   std::string_view before_last) {
  std::string text;
  for (const Choice& choice : choices) {
    if (!text.empty()) text += &choice == &choices.back() ? before_last : between;
    text += choice.word;
  }
  return text;
}

std::string OptionsText(const Form& form, const std::vector<OptionButton*>& options) {
  std::string text = AsLines(form.caption());
  for (const Label* label : Usable<Label>(form, ControlKind::kLabel)) {
    text += AsLines(PlainCaption(label->caption()));
  }
  for (std::size_t i = 0; i < options.size(); ++i) {
    text += options[i]->value() ? "* " : "  ";
    text += std::to_string(i + 1) + ". " + text::VisibleText(PlainCaption(options[i]->caption())) +
            '\n';
  }
  return text;
}

}  // namespace

std::string_view WordOf(MsgBoxResult result) {
  const auto found = std::find_if(kButtonWords.begin(), kButtonWords.end(),
                                  [result](const ButtonWord& b) { return b.result == result; });
  return found->shown;
}

std::optional<std::string> ConsoleUser::Ask(std::string_view prompt) {
  if (!present_) return std::nullopt;
  progress_.Erase();
  WriteError(prompt);
  std::optional<std::string> line;
  try {
    line = read_line_();
  } catch (const AutomationError&) {
    // A terminal that is gone answers no more, like one whose user has ended the input.
  }
  // Nobody pressed Enter, so the terminal still stands behind the prompt.
  if (!line) WriteError("\n");
  return line;
}

Reply ConsoleUser::AskButton(const BoxLook& look, bool comes_again, const OtherWord& other_word) {
  const std::vector<Choice> choices = ChoicesOf(look, comes_again);
  const std::string prompt = '[' + Joined(choices, "/", "/") + "] ";
  while (const auto line = Ask(prompt)) {
    if (const auto reply = Understand(*line, choices)) return *reply;
    for (const MsgBoxResult result : look.buttons) {
      const bool is_other = other_word && !other_word(result).empty();
      if (is_other && SameWord(Trimmed(*line), other_word(result))) return {result};
    }
    WriteError("Answer " + Joined(choices, ", ", " or ") + ".\n");
  }
  return choices.back().reply;
}

bool ConsoleUser::AskOption(const Form& form) {
  const auto options = Usable<OptionButton>(form, ControlKind::kOptionButton);
  if (options.empty()) return true;
  const std::string prompt = "1-" + std::to_string(options.size()) + ", or Enter for the marked: ";
  for (auto line = Ask(OptionsText(form, options) + prompt); line; line = Ask(prompt)) {
    const std::string_view typed = Trimmed(*line);
    if (typed.empty()) return true;
    if (SameWord(typed, kQuit.substr(0, typed.size()))) return false;
    std::size_t number = 0;
    const auto [end, error] = std::from_chars(typed.data(), typed.data() + typed.size(), number);
    const bool whole = error == std::errc() && end == typed.data() + typed.size();
    if (whole && number >= 1 && number <= options.size()) {
      options[number - 1]->Click();
      return true;
    }
    WriteError("Answer 1 to " + std::to_string(options.size()) +
               ", nothing for the marked, or quit.\n");
  }
  return false;
}

}  // namespace quarvel::platform::console
