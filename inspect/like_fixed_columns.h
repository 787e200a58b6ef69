// Which lines of words between blanks cbc takes apart by fixed columns, and then refuses (docs/dialects.md).
// It goes by where the words of a line begin: one in column 5, the next in fields of their own. A line that
// shows that columns are free settles that for the rest of the file.
#pragma once

#include <string_view>

#include "mps/section.h"

namespace quarvel::inspect {

class LikeFixedColumns {
 public:
  // NAME says that columns are free.
  void SayFree() { is_free_ = true; }
  // The next data line, in that section; true when it is such a line. One with a tab is not looked at.
  bool Use(std::string_view text, mps::Section section, bool is_marker);

 private:
  bool is_free_ = false;
};

}  // namespace quarvel::inspect
