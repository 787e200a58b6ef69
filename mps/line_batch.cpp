#include "mps/line_batch.h"

#include <algorithm>
#include <bit>
#include <span>

#include "text/byte_block.h"
#include "text/byte_group.h"
#include "text/padded_number.h"
#include "text/vector_number.h"

namespace quarvel::mps {
namespace {

using text::ByteBlock;
using text::kBlockSize;
using text::kGroupSize;

// Which tokens of a line of pairs are numbers, if there are so many.
constexpr std::size_t kFirstValue = 3;
constexpr std::size_t kSecondValue = 5;

static_assert(LineBatch::kReadable >= text::kNumberPadding);
static_assert(LineBatch::kLongest < kGroupSize, "a group shows the end of every plain line");

struct Taken {
  std::size_t lines = 0;
  char* next = nullptr;  // what was not taken
};

std::uint64_t FirstBits(std::size_t count) { return (std::uint64_t{1} << count) - 1; }

void UpperCase(char* text, std::size_t size) {
  for (std::size_t at = 0; at < size; at += kBlockSize) {
    ByteBlock(text + at).StoreUpperCase(text + at, size - at);
  }
}

// Part of its callers, so that it is compiled for the processor that they are compiled for.
template <class Group>
[[gnu::always_inline]] inline Taken TakeLines(std::span<char> ahead, std::span<PlainLine> lines) {
  Taken taken{0, ahead.data()};
  char*& next = taken.next;
  char* const end = next + ahead.size();
  while (taken.lines < lines.size() && static_cast<std::size_t>(end - next) >= kGroupSize) {
    const Group group(next);
    const std::uint64_t line_ends = group.LineEnds();
    if (line_ends == 0) break;
    const auto size = static_cast<std::size_t>(std::countr_zero(line_ends));
    const std::uint64_t spaces = group.Spaces();
    std::uint64_t small = 0;
    if (!group.IsBelowSmallLetters()) {
      if (!group.IsAscii()) break;
      small = group.SmallLetters() & FirstBits(size);
      UpperCase(next, size);
    }
    PlainLine& line = lines[taken.lines++];
    line.small = small;
    line.known_values = 0;
    line.text = next;
    line.size = size;
    line.inside = ~spaces & FirstBits(size);
    line.tokens.Split(next, line.inside);
    next += size + 1;
    if (next[-1] == '\r' && next != end && *next == '\n') ++next;
  }
  return taken;
}

void MakeValuesPlainly(std::span<PlainLine> lines) {
  for (PlainLine& line : lines) {
    unsigned known = 0;
    const std::size_t last = std::min(line.tokens.count(), kSecondValue);
    for (std::size_t token = kFirstValue; token <= last; token += 2) {
      double& value = line.values[token / 2 - 1];
      known |= unsigned{text::ParsePaddedShort(line.tokens[token], value)} << token;
    }
    line.known_values = known;
  }
}

Taken TakeLinesPlainly(std::span<char> ahead, std::span<PlainLine> lines) {
  return TakeLines<text::ByteGroup>(ahead, lines);
}

#if defined(QUARVEL_HAS_AVX2_GROUPS)
QUARVEL_AVX2 Taken TakeLinesWithAvx2(std::span<char> ahead, std::span<PlainLine> lines) {
  return TakeLines<text::Avx2ByteGroup>(ahead, lines);
}
QUARVEL_AVX2 void MakeValuesWithAvx2(std::span<PlainLine> lines) {
  for (PlainLine& line : lines) {
    unsigned known = 0;
    const std::size_t last = std::min(line.tokens.count(), kSecondValue);
    for (std::size_t token = kFirstValue; token <= last; token += 2) {
      double& value = line.values[token / 2 - 1];
      known |= unsigned{text::ParseVectorNumber(line.tokens[token], value)} << token;
    }
    line.known_values = known;
  }
}
#endif

using Take = Taken (*)(std::span<char>, std::span<PlainLine>);

Take TakeOf(LineBatch::Way way) {
#if defined(QUARVEL_HAS_AVX2_GROUPS)
  if (way == LineBatch::Way::kAvx2) return TakeLinesWithAvx2;
#endif
  return TakeLinesPlainly;
}

}  // namespace

LineBatch::Way LineBatch::BestWay() {
#if defined(QUARVEL_HAS_AVX2_GROUPS)
  if (text::HasAvx2()) return Way::kAvx2;
#endif
  return Way::kPlain;
}

void LineBatch::Fill(LineReader& reader) {
  const Taken taken = TakeOf(way_)(reader.ahead(), lines_);
  size_ = taken.lines;
  reader.Took(taken.next);
}

void LineBatch::MakeValues() {
  const std::span<PlainLine> lines = std::span(lines_).first(size_);
#if defined(QUARVEL_HAS_AVX2_GROUPS)
  if (way_ == Way::kAvx2) return MakeValuesWithAvx2(lines);
#endif
  MakeValuesPlainly(lines);
}

}  // namespace quarvel::mps
