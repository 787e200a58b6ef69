// A line as it is typed into a shell, as far as examples and transcripts need it.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace quarvel {

struct ShellLine {
  std::vector<std::string> words;
  std::string input;   // the file behind "<"
  std::string output;  // the file behind ">"
};

// Words stand between blanks; what stands between '' belongs to one. A word that begins with # begins a
// remark, as in a shell.
ShellLine TakeShellLineApart(std::string_view line);

}  // namespace quarvel
