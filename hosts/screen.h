// What results are shown on: a terminal, on which they are fitted to its width and cut where they are
// long; or a file or pipe, into which they go whole and plain.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace quarvel::hosts {

enum class ColorChoice : std::uint8_t { kAuto, kAlways, kNever };

struct Screen {
  bool is_terminal = false;
  std::size_t width = 0;   // in cells; 0 where nobody knows
  std::size_t height = 0;  // the same
  bool takes_colors = false;

  // What the terminal of standard output and the environment say: COLUMNS and LINES go before the size
  // of the terminal; NO_COLOR that is not empty, and TERM=dumb, keep colors away.
  static Screen OfStandardOutput();
};

enum class Ink : std::uint8_t {
  kHeading,
  kAside,  // what is said beside the matter: counts, "... more"
  kError,
  kWarning,
  kRemark,
  kMark,  // of a place in a line
  kGone,
  kCame,
  kChanged,
};

// Puts text into colors where there are some.
class Pen {
 public:
  Pen(ColorChoice choice, const Screen& screen)
      : is_colored_(choice == ColorChoice::kAlways ||
                    (choice == ColorChoice::kAuto && screen.takes_colors)) {}

  bool is_colored() const { return is_colored_; }
  // The text, whose line end stays outside of the color.
  std::string Draw(Ink ink, std::string_view text) const;

 private:
  bool is_colored_;
};

}  // namespace quarvel::hosts
