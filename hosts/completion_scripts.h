// The scripts that make the Tab key of a shell complete command lines of the program. They ask the
// program (completion.h), so that they know of no command or option themselves.
#pragma once

#include <span>
#include <string>
#include <string_view>

namespace quarvel::hosts {

struct CompletionScript {
  std::string_view shell;
  // {SUFFIXES} stands for the suffixes of models, with `separator` between them.
  std::string_view text;
  std::string_view separator;
};

std::span<const CompletionScript> CompletionScripts();
// As the shell is to read it.
std::string TextOf(const CompletionScript& script);

}  // namespace quarvel::hosts
