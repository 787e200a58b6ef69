// Which columns a file names in small letters here and in capitals there: the reader takes them for one.
// Letters of ASCII alone count, and in a line of any length only its first 63 bytes.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "mps/line_source.h"

namespace quarvel::mps {

class ColumnSpellings {
 public:
  // Whether the line, of COLUMNS and of that column, names it otherwise than the last line that did;
  // `is_new`: none did. Call with each such line, in their order.
  bool IsAnother(const SourceLine& line, std::int32_t column, bool is_new);
  // Whether that call is to be made: not for the lines before the first small letter.
  bool Wants(const SourceLine& line) const { return line.small_letters() != 0 || !last_.empty(); }

 private:
  // By the number of the column, the bits of its name that were small letters; empty up to the first line
  // that has any, and short by the columns behind its end, which had none.
  std::vector<std::uint64_t> last_;
};

}  // namespace quarvel::mps
