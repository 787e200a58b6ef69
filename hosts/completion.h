// What may come next on a command line, found out from the tables of commands and options. Shells ask for
// it behind the user's Tab key: "quarvel __complete WORD ...", with the scripts of completion_scripts.h.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "hosts/streams.h"

namespace quarvel::hosts {

// In the place of a command: the rest are the words behind the program's name, the last of which is being
// typed and may be empty.
inline constexpr std::string_view kCompleteWord = "__complete";

// How files with models end.
std::span<const std::string_view> ModelSuffixes();

struct Completion {
  enum class Files : std::uint8_t { kNone, kModels, kAny };
  struct Candidate {
    std::string word;     // whole, "--color=never" where "--color=n" was typed
    std::string purpose;  // may be empty
  };

  Files files = Files::kNone;  // kept to the shell, which knows more of them
  std::vector<Candidate> candidates;
};

// Names of rows and columns come from the model that stands on the line: at most kMostNames of them, none
// with what a terminal would not show as it is, and none of a file that takes more than a second to read.
inline constexpr std::size_t kMostNames = 500;
Completion Complete(std::span<const std::string> words, const Streams& streams);

// For a script: "none", "models" or "files", and a line for each candidate, with a tab before its purpose.
std::string CompletionText(const Completion& completion);

}  // namespace quarvel::hosts
