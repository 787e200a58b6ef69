// The line of a file that a problem is about, for a terminal of fixed width letters.
#pragma once

#include <string>

#include "mps/file_problem.h"

namespace quarvel::hosts {

struct SourceExcerpt {
  // The text of the line: tabs are blanks up to the next of every 8 columns, what a terminal would not
  // show is an escape (text/visible_text.h). A long line is cut around the token, with "..." in the
  // place of what is left out.
  std::string text;
  // Blanks, and below the token carets; empty when the problem is of the whole line.
  std::string marks;
};

// In so many cells, of which a caller gives at least 60.
inline constexpr std::size_t kUsualExcerpt = 92;
SourceExcerpt ExcerptOf(const mps::FileProblem& problem, std::size_t width = kUsualExcerpt);

}  // namespace quarvel::hosts
