// What a run of the program is given from outside, and what it can end with. Tests hand in streams
// of their own.
#pragma once

#include <cstddef>
#include <exception>
#include <functional>
#include <optional>
#include <ostream>
#include <string>
#include <utility>

#include "hosts/screen.h"

namespace quarvel::hosts {

class Session;

struct Streams {
  // The next line of standard input without its end; nothing at the end of input. Raises 57 when it cannot
  // be read.
  std::function<std::optional<std::string>()> read_line;
  std::ostream& out;
  std::ostream& err;
  // True for the real terminal or pipe, where the user may be asked and shown a progress line when
  // there is one; false keeps everything to the streams above.
  bool terminal = false;
  // Reads up to so many bytes of standard input as they are; 0 at its end. Raises 57 when they cannot be
  // read, or the user has stopped. None: there is no input.
  std::function<std::size_t(char* buffer, std::size_t capacity)> read_bytes = {};
  // What stands behind `out`.
  Screen screen = {};
  // Shows a model, for `view`, and gives the exit status: in windows of this program, or by the program
  // that has them. None: nothing can be shown.
  std::function<int(Session&)> view = {};
};

// Exit statuses.
inline constexpr int kGood = 0;
inline constexpr int kProblem =
    1;                            // an error was found, a file not read or written, an edit refused
inline constexpr int kUsage = 2;  // the command line was not understood
inline constexpr int kWarnings = 3;       // check found what is risky, and nothing worse
inline constexpr int kInterrupted = 130;  // stopped by Ctrl-C

// What ends a command before its time: a line for standard error and the exit status.
class CommandError : public std::exception {
 public:
  CommandError(int status, std::string text) : status_(status), text_(std::move(text)) {}

  int status() const noexcept { return status_; }
  const std::string& text() const noexcept { return text_; }
  const char* what() const noexcept override { return text_.c_str(); }

 private:
  int status_;
  std::string text_;
};

}  // namespace quarvel::hosts
