#include "mps/line_batch.h"

#include <bit>
#include <span>

#include "text/byte_block.h"

namespace quarvel::mps {
namespace {

using text::ByteBlock;
using text::kBlockSize;

// As many bytes as a mask has bits.
constexpr std::size_t kGroup = 64;
static_assert(LineBatch::kLongest < kGroup, "a group shows the end of every plain line");

std::uint64_t Mask(unsigned first, unsigned second, unsigned third, unsigned fourth) {
  return std::uint64_t{second << 16 | first} | std::uint64_t{fourth << 16 | third} << 32;
}

// 64 bytes; bit i of a mask stands for byte i. Written out block by block: a loop over the blocks
// costs twice as much.
struct Group {
  explicit Group(const char* from)
      : first(from),
        second(from + kBlockSize),
        third(from + 2 * kBlockSize),
        fourth(from + 3 * kBlockSize) {}

  std::uint64_t Spaces() const {
    return Mask(first.Equal(' '), second.Equal(' '), third.Equal(' '), fourth.Equal(' '));
  }
  std::uint64_t LineEnds() const {
    return Mask(first.EqualEither('\n', '\r'), second.EqualEither('\n', '\r'),
                third.EqualEither('\n', '\r'), fourth.EqualEither('\n', '\r'));
  }
  // True when nothing is a small letter or beyond ASCII; false also for a few signs behind z.
  bool IsUpperCaseAscii() const {
    return first.Greater(second).Greater(third.Greater(fourth)).AtLeast('a') == 0;
  }
  // Of a group of ASCII.
  std::uint64_t SmallLetters() const {
    return Mask(Small(first), Small(second), Small(third), Small(fourth));
  }
  static unsigned Small(const ByteBlock& block) { return block.AtLeast('a') ^ block.AtLeast('{'); }
  bool IsAscii() const {
    return (first.NotAscii() | second.NotAscii() | third.NotAscii() | fourth.NotAscii()) == 0;
  }

  ByteBlock first, second, third, fourth;
};

std::uint64_t FirstBits(std::size_t count) { return (std::uint64_t{1} << count) - 1; }

void UpperCase(char* text, std::size_t size) {
  for (std::size_t at = 0; at < size; at += kBlockSize) {
    ByteBlock(text + at).StoreUpperCase(text + at, size - at);
  }
}

}  // namespace

void LineBatch::Fill(LineReader& reader) {
  size_ = 0;
  const std::span<char> ahead = reader.ahead();
  char* next = ahead.data();
  char* const end = next + ahead.size();
  while (size_ < kMost && static_cast<std::size_t>(end - next) >= kGroup) {
    const Group group(next);
    const std::uint64_t line_ends = group.LineEnds();
    if (line_ends == 0) break;
    const auto size = static_cast<std::size_t>(std::countr_zero(line_ends));
    std::uint64_t small = 0;
    if (!group.IsUpperCaseAscii()) {
      if (!group.IsAscii()) break;
      small = group.SmallLetters() & FirstBits(size);
      UpperCase(next, size);
    }
    PlainLine& line = lines_[size_++];
    line.small = small;
    line.text = next;
    line.size = size;
    line.inside = ~group.Spaces() & FirstBits(size);
    line.tokens.Split(next, line.inside);
    next += size + 1;
    if (next[-1] == '\r' && next != end && *next == '\n') ++next;
  }
  reader.Took(next);
}

}  // namespace quarvel::mps
