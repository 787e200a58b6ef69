// How the command line decides each kind of box: it tells what is told, keeps what is refused, and
// answers a question by an option. All of it is one table (questions.cpp), from which the options
// of the command line and their help are made too.
#pragma once

#include <optional>
#include <span>
#include <string_view>

#include "hosts/option_set.h"
#include "platform/box.h"

namespace quarvel::hosts {

struct Arguments;

// One of the answers that an option chooses from.
struct GivenAnswer {
  std::string_view word;                         // of the option's value
  std::optional<platform::MsgBoxResult> answer;  // nothing: the user is asked
  std::string_view outcome = {};                 // what the user is told that it leads to
};

struct QuestionOption {
  OptionSet id;             // one, among kQuestions; 0 for what no option changes
  std::string_view name;    // "--on-error"
  std::string_view values;  // the words of the answers; empty for an option without a value
  std::string_view help;
  // Without the option the first is given; an option without a value gives the second.
  std::span<const GivenAnswer> answers;
  // The word that is taken where the user would be asked and nobody is there.
  std::string_view unasked = {};
  // The question is a problem of the file that is read.
  bool of_file = false;
};

// Those that stand on the command line, in the order of its help.
std::span<const QuestionOption> QuestionOptions();

// The answer of that word; null when there is none.
const GivenAnswer* FindAnswer(const QuestionOption& option, std::string_view word);

enum class Manner {
  kTold,      // a line on standard error
  kKept,      // for the command to fail with
  kAnswered,  // by `option`
  kUnknown,   // no command is to meet it
};

struct Decision {
  Manner manner;
  const QuestionOption* option = nullptr;
};

// kUnknown also for what is no kind at all.
Decision DecisionOn(platform::BoxKind kind);

// What the command line answers to questions of that kind, which an option must answer.
const GivenAnswer& AnswerTo(platform::BoxKind kind, const Arguments& arguments);

}  // namespace quarvel::hosts
