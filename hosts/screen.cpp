#include "hosts/screen.h"

#include <charconv>
#include <cstdlib>

#include "platform/console/console_system.h"

namespace quarvel::hosts {
namespace {

// In the order of Ink.
constexpr std::string_view kInks[] = {"\x1b[1m",    "\x1b[2m",    "\x1b[1;31m",
                                      "\x1b[1;35m", "\x1b[1;36m", "\x1b[1;32m",
                                      "\x1b[31m",   "\x1b[32m",   "\x1b[33m"};

std::string_view Variable(const char* name) {
  const char* const value = std::getenv(name);
  return value == nullptr ? std::string_view() : value;
}

// The number that a variable gives, or else `otherwise`.
std::size_t SizeFrom(const char* variable, std::size_t otherwise) {
  const std::string_view text = Variable(variable);
  std::size_t size = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), size);
  const bool is_number = error == std::errc() && end == text.data() + text.size();
  return is_number && size != 0 ? size : otherwise;
}

}  // namespace

Screen Screen::OfStandardOutput() {
  if (!platform::console::OutputIsTerminal()) return {};
  const platform::console::TerminalSize size = platform::console::OutputSize();
  const bool is_plain = !Variable("NO_COLOR").empty() || Variable("TERM") == "dumb";
  return {.is_terminal = true,
          .width = SizeFrom("COLUMNS", size.width),
          .height = SizeFrom("LINES", size.height),
          .takes_colors = !is_plain && platform::console::OutputTakesColors()};
}

std::string Pen::Draw(Ink ink, std::string_view text) const {
  if (!is_colored_ || text.empty()) return std::string(text);
  const std::string_view end = text.ends_with('\n') ? "\n" : "";
  text.remove_suffix(end.size());
  std::string drawn(kInks[static_cast<std::size_t>(ink)]);
  return drawn.append(text).append("\x1b[0m").append(end);
}

}  // namespace quarvel::hosts
