// One line of the table of options, of which each of these sources holds a part: arguments.cpp,
// list_options.cpp, and questions.cpp for those that answer questions.
#pragma once

#include <algorithm>
#include <iterator>
#include <string_view>

#include "hosts/option_set.h"

namespace quarvel::hosts {

struct Arguments;
struct QuestionOption;

struct Option {
  OptionSet id;  // 0 for what every command takes
  std::string_view name;
  std::string_view short_name;
  std::string_view value;  // what its value is called; empty for none
  std::string_view help;
  // False when the value is not allowed.
  bool (*set)(Arguments& arguments, std::string_view value);
  const QuestionOption* question = nullptr;  // whose answer it gives, in the place of `set`
};

// A word that chooses.
template <class Choice>
struct Word {
  std::string_view word;
  Choice choice;
};

// False when none of the words is the value.
template <class Target, class Words>
bool Choose(Target& target, const Words& words, std::string_view value) {
  const auto* const found =
      std::find_if(std::begin(words), std::end(words),
                   [value](const auto& known) { return known.word == value; });
  if (found == std::end(words)) return false;
  target = found->choice;
  return true;
}

}  // namespace quarvel::hosts
