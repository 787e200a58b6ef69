#include "hosts/screen.h"

#include <charconv>
#include <cstdlib>

#include "platform/console/console_system.h"

namespace quarvel::hosts {
namespace {

std::string_view Variable(const char* name) {
  const char* const value = std::getenv(name);
  return value == nullptr ? std::string_view() : value;
}

std::size_t WidthFromEnvironment() {
  const std::string_view text = Variable("COLUMNS");
  std::size_t width = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), width);
  return error == std::errc() && end == text.data() + text.size() ? width : 0;
}

}  // namespace

Screen Screen::OfStandardOutput() {
  if (!platform::console::OutputIsTerminal()) return {};
  const std::size_t given = WidthFromEnvironment();
  const bool is_plain = !Variable("NO_COLOR").empty() || Variable("TERM") == "dumb";
  return {.is_terminal = true,
          .width = given != 0 ? given : platform::console::OutputWidth(),
          .takes_colors = !is_plain && platform::console::OutputTakesColors()};
}

std::string Pen::Draw(Ink ink, std::string_view text) const {
  if (!is_colored_ || text.empty()) return std::string(text);
  const std::string_view end = text.ends_with('\n') ? "\n" : "";
  text.remove_suffix(end.size());
  std::string drawn = ink == Ink::kHeading ? "\x1b[1m" : "\x1b[2m";
  return drawn.append(text).append("\x1b[0m").append(end);
}

}  // namespace quarvel::hosts
