#include "platform/console/console_user.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <vector>

#include "platform/console/console_controls.h"
#include "platform/console/console_text.h"
#include "text/visible_text.h"

namespace quarvel::platform::console {
namespace {

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

// What a line typed at a question means: a key or a whole word.
std::optional<MsgBoxResult> Understand(std::string_view line, const BoxLook& look) {
  const std::string_view typed = Trimmed(line);
  for (const Answer& answer : kAnswers) {
    if (!look.Has(answer.result)) continue;
    if (SameWord(typed, answer.word) || SameWord(typed, {&answer.key, 1})) return answer.result;
  }
  return std::nullopt;
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
  const auto found = std::find_if(kAnswers.begin(), kAnswers.end(),
                                  [result](const Answer& a) { return a.result == result; });
  return found->word;
}

std::optional<std::string> ConsoleUser::Ask(std::string_view prompt) {
  if (!present_) return std::nullopt;
  progress_.Erase();
  WriteError(prompt);
  auto line = read_line_();
  // Nobody pressed Enter, so the terminal still stands behind the prompt.
  if (!line) WriteError("\n");
  return line;
}

MsgBoxResult ConsoleUser::AskButton(const BoxLook& look) {
  const std::string_view prompt = look.Has(MsgBoxResult::kCancel) ? "[y/n/c] " : "[y/n] ";
  while (const auto line = Ask(prompt)) {
    if (const auto result = Understand(*line, look)) return *result;
  }
  return look.when_closed;
}

void ConsoleUser::AskOption(const Form& form) {
  const auto options = Usable<OptionButton>(form, ControlKind::kOptionButton);
  if (options.empty()) return;
  const std::string prompt = "1-" + std::to_string(options.size()) + ", or Enter for the marked: ";
  for (auto line = Ask(OptionsText(form, options) + prompt); line; line = Ask(prompt)) {
    const std::string_view typed = Trimmed(*line);
    if (typed.empty()) return;
    std::size_t number = 0;
    const auto [end, error] = std::from_chars(typed.data(), typed.data() + typed.size(), number);
    const bool whole = error == std::errc() && end == typed.data() + typed.size();
    if (whole && number >= 1 && number <= options.size()) return options[number - 1]->Click();
  }
}

}  // namespace quarvel::platform::console
