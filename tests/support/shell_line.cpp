#include "tests/support/shell_line.h"

#include <optional>
#include <utility>

namespace quarvel {
namespace {

// The words, "<" and ">" among them.
std::vector<std::string> ShellWords(std::string_view line) {
  std::vector<std::string> words;
  std::optional<std::string> word;
  bool is_quoted = false;
  for (const char c : line) {
    if (c == '#' && !is_quoted && !word) break;
    if (c == ' ' && !is_quoted) {
      if (word) words.push_back(*std::exchange(word, std::nullopt));
      continue;
    }
    if (!word) word.emplace();
    if (c == '\'') {
      is_quoted = !is_quoted;
    } else {
      *word += c;
    }
  }
  if (word) words.push_back(*word);
  return words;
}

}  // namespace

ShellLine TakeShellLineApart(std::string_view line) {
  ShellLine taken;
  std::string* file = nullptr;
  for (const std::string& word : ShellWords(line)) {
    if (file != nullptr) {
      *std::exchange(file, nullptr) = word;
    } else if (word == "<" || word == ">") {
      file = word == "<" ? &taken.input : &taken.output;
    } else {
      taken.words.push_back(word);
    }
  }
  return taken;
}

}  // namespace quarvel
