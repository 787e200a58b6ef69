// The user at a terminal, who is asked for lines of text and for choices.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "platform/box.h"
#include "platform/console/console_system.h"
#include "platform/console/progress_line.h"
#include "platform/form.h"

namespace quarvel::platform::console {

// What a user answers at a question.
struct Reply {
  enum class Reach : std::uint8_t {
    kOnce,
    kAll,   // and every other question of the kind
    kQuit,  // nothing more is to be asked
  };
  MsgBoxResult result;
  Reach reach = Reach::kOnce;
};

class ConsoleUser {
 public:
  // `progress` gives way to each question; it must outlive the user.
  ConsoleUser(ProgressLine& progress, bool present) : progress_(progress), present_(present) {}

  // False where nobody can be asked.
  bool present() const { return present_; }
  void set_present(bool present) { present_ = present; }
  void set_line_source(std::function<std::optional<std::string>()> source) {
    read_line_ = std::move(source);
  }

  // A line from the user without its end; nothing at the end of input or where nobody can be asked.
  std::optional<std::string> Ask(std::string_view prompt);
  // One of a box's buttons by its word, or "quit", which is as if the box had been closed; where such
  // boxes come again, "all" is Yes to each of them. Any beginning of a word will do, in either case.
  // So will the whole word that `other_word`, if there is one, has for a button. After anything else the
  // words are named; the end of input quits.
  using OtherWord = std::function<std::string_view(MsgBoxResult)>;
  Reply AskButton(const BoxLook& look, bool comes_again, const OtherWord& other_word = {});
  // Selects one of the form's options, which are listed with the form's labels above them. Nothing
  // for a form without options. False when the user quits, as the end of input does.
  bool AskOption(const Form& form);

 private:
  ProgressLine& progress_;
  bool present_;
  std::function<std::optional<std::string>()> read_line_ = ReadInputLine;
};

// What a button is called on a console.
std::string_view WordOf(MsgBoxResult result);

}  // namespace quarvel::platform::console
