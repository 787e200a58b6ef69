// Lines taken apart ahead of their use.
//
// A reader that finishes one line before it looks at the next waits for memory at every name. So
// the lines that are in memory already are split a batch at a time, which tells the names of all of
// them before the first is looked up. Nothing of the model is touched and no event runs meanwhile.
//
// Only plain lines come in batches: ASCII, at most kLongest bytes, with their line end in memory.
// Any other line is LineReader::Next's, and the batch ends before it.
//
// The plain way is LineReader::Next and Tokens::Split for every line, which give the same:
// tests/mps/line_batch_test.cpp.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "model/name_key.h"
#include "mps/line_reader.h"
#include "mps/tokens.h"

namespace quarvel::mps {

struct PlainLine {
  const char* text = nullptr;
  std::size_t size = 0;
  TokenList tokens;          // in upper case
  std::uint64_t inside = 0;  // of a line in a batch: the bits of the bytes that are not spaces
  std::uint64_t small = 0;   // the bits of those that are small letters of ASCII in the file

  // Whether the value of that token is known ahead.
  bool FindValue(std::size_t token, double& value) const {
    if ((known_values >> token & 1) == 0) return false;
    value = values[token / 2 - 1];
    return true;
  }

  std::array<double, 2> values;  // of tokens 3 and 5
  unsigned known_values = 0;     // bit i stands for token i
};

class LineBatch {
 public:
  static constexpr std::size_t kMost = 32;
  static constexpr std::size_t kLongest = 63;
  // So many bytes behind the start of each token may be read.
  static constexpr std::size_t kReadable = LineReader::kPadding;

  // How lines are taken apart; each way gives the same.
  enum class Way { kPlain, kAvx2 };
  // The fastest that this processor has.
  static Way BestWay();

  // `way` must be one that the processor has.
  explicit LineBatch(Way way = BestWay()) : way_(way) {}

  // Takes the plain lines that come next, none when the next line is another. The lines before must
  // be done with.
  void Fill(LineReader& reader);
  // Of lines that hold pairs of a name and a number: converts the numbers. Done side by side that is
  // faster than in between other work, and it gives memory that was prefetched time to come.
  void MakeValues();

  std::size_t size() const { return size_; }
  const PlainLine& operator[](std::size_t place) const { return lines_[place]; }

 private:
  std::array<PlainLine, kMost> lines_;
  std::size_t size_ = 0;
  Way way_;
};

}  // namespace quarvel::mps
