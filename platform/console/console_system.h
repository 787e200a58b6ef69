// What the console desktop asks of the operating system: terminals, lines of text and Ctrl-C.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace quarvel::platform::console {

bool InputIsTerminal();
bool ErrorIsTerminal();
bool OutputIsTerminal();

// Of a terminal, in cells; 0 where nobody knows.
struct TerminalSize {
  std::size_t width = 0;
  std::size_t height = 0;
};
// Of the terminal that standard output is.
TerminalSize OutputSize();
// Of the terminal that standard error is.
TerminalSize ErrorSize();
// Whether the terminal that standard output is takes the codes for colors. Turns these on where the
// system asks for that.
bool OutputTakesColors();

// UTF-8 text to standard error, at once; what cannot be written is lost.
void WriteError(std::string_view text);

// The next line of standard input as UTF-8, without its end; nothing at the end of input, which a
// Ctrl-C at a waiting terminal counts as too. Raises 57 when it cannot be read to the end of a line.
std::optional<std::string> ReadInputLine();

// Up to so many bytes of standard input as they are; 0 at its end. Raises 57 when it cannot be read, and
// when a Ctrl-C was noted before or meanwhile, which ends the wait: what a pipe gives then may be cut off by
// the same Ctrl-C.
std::size_t ReadInputBytes(char* buffer, std::size_t capacity);

// While one of these lives, the first Ctrl-C is only noted; the next one ends the program as ever.
// A program that was started with Ctrl-C ignored goes on ignoring it.
class InterruptWatch {
 public:
  InterruptWatch();
  ~InterruptWatch();
  InterruptWatch(const InterruptWatch&) = delete;
  InterruptWatch& operator=(const InterruptWatch&) = delete;

  // True when a Ctrl-C was noted since this watch began.
  bool Arrived() const;

 private:
  int count_at_start_;
};

// True when one was noted since the first watch that lives began.
bool InterruptNoted();

}  // namespace quarvel::platform::console
