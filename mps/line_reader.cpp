#include "mps/line_reader.h"

#include <algorithm>
#include <bit>
#include <cstring>
#include <utility>

#include "text/byte_block.h"
#include "text/encoding.h"

namespace quarvel::mps {
namespace {

// Read at once: few calls, and small enough to stay in the processor's cache beside the names.
constexpr std::size_t kPiece = std::size_t{1} << 17;
// The buffer takes a line of the greatest length and a piece of what follows.
constexpr std::size_t kBufferSize = LineReader::kLongestLine + 2 * kPiece;

}  // namespace

LineReader::LineReader(platform::InputFile file)
    : LineReader(std::make_unique<platform::FileBytes>(std::move(file))) {}

LineReader::LineReader(std::unique_ptr<platform::ByteSource> bytes)
    : bytes_(std::move(bytes)),
      // Not filled: most files are much smaller.
      buffer_(std::make_unique_for_overwrite<char[]>(kBufferSize + kPadding)) {
  next_ = buffer_.get();
  end_ = buffer_.get();
}

bool LineReader::Next(Line& line) {
  if (!started_) SkipByteOrderMark();
  if (skip_line_feed_) {
    if (next_ == end_ && !Refill()) return false;
    SkipLineFeed();
  }
  if (next_ == end_ && !Refill()) return false;
  bool ascii = true;
  std::size_t searched = 0;
  for (;;) {
    char* end = FindLineEnd(next_ + searched, ascii);
    if (end != end_) {
      Deliver(line, end, ascii);
      skip_line_feed_ = *end == '\r';
      next_ = end + 1;
      return true;
    }
    searched = static_cast<std::size_t>(end_ - next_);
    if (searched > kLongestLine) {
      SkipTooLong(line);
      return true;
    }
    if (!Refill()) {
      Deliver(line, end_, ascii);
      next_ = end_;
      return true;
    }
  }
}

void LineReader::SkipRest() {
  do {
    next_ = end_;
  } while (Refill());
}

void LineReader::Took(char* to) {
  if (to == next_) return;
  next_ = to;
  skip_line_feed_ = to == end_ && to[-1] == '\r';
}

// Moves what is left to the front and reads on; false when the file has no more.
bool LineReader::Refill() {
  if (at_end_) return false;
  const auto left = static_cast<std::size_t>(end_ - next_);
  std::memmove(buffer_.get(), next_, left);
  next_ = buffer_.get();
  end_ = next_ + left;
  at_end_ = true;  // stays so when reading raises
  const std::size_t count = bytes_->Read(end_, std::min(kPiece, kBufferSize - left));
  if (count == 0) return false;
  if (watches_tabs_ && !has_tabs_) has_tabs_ = std::memchr(end_, '\t', count) != nullptr;
  at_end_ = false;
  end_ += count;
  std::memset(end_, 0, kPadding);  // blocks are looked at as a whole
  return true;
}

// Looks at whole blocks, also at the one that reaches beyond the bytes read so far: the buffer has
// room for it.
char* LineReader::FindLineEnd(char* from, bool& ascii) const {
  unsigned not_ascii = 0;
  for (char* p = from; p < end_; p += text::kBlockSize) {
    const text::ByteBlock block(p);
    const unsigned line_ends = block.Equal('\n') | block.Equal('\r');
    const auto left = static_cast<std::size_t>(end_ - p);
    if (line_ends == 0 && left >= text::kBlockSize) {
      not_ascii |= block.NotAscii();
      continue;
    }
    const auto first = static_cast<std::size_t>(std::countr_zero(line_ends));
    const std::size_t length = std::min(first, left);
    not_ascii |= block.NotAscii() & ((1u << length) - 1);
    ascii = ascii && not_ascii == 0;
    return p + length;
  }
  ascii = ascii && not_ascii == 0;
  return end_;
}

void LineReader::Deliver(Line& line, char* end, bool ascii) {
  line.text = next_;
  line.size = static_cast<std::size_t>(end - next_);
  line.ascii = ascii;
  line.too_long = line.size > kLongestLine;
  line.characters = line.size;
  if (ascii) return;
  if (text::IsValidUtf8(line.view())) {
    line.characters = text::CharacterCount(line.view());
    return;
  }
  converted_ = text::Windows1252ToUtf8(line.view());
  line.size = converted_.size();
  converted_.append(kPadding, ' ');
  line.text = converted_.data();
}

// Reads to the end of the line, keeping nothing of it.
void LineReader::SkipTooLong(Line& line) {
  std::size_t length = 0;
  for (;;) {
    bool ascii = true;
    char* end = FindLineEnd(next_, ascii);
    length += static_cast<std::size_t>(
        std::count_if(next_, end, [](char c) { return (c & 0xC0) != 0x80; }));
    if (end != end_) {
      skip_line_feed_ = *end == '\r';
      next_ = end + 1;
      break;
    }
    next_ = end_;
    if (!Refill()) break;
  }
  line = Line{};
  line.text = buffer_.get();
  line.characters = length;
  line.too_long = true;
}

void LineReader::SkipByteOrderMark() {
  started_ = true;
  while (end_ - next_ < 3 && Refill()) {
  }
  if (end_ - next_ >= 3 && std::memcmp(next_, "\xEF\xBB\xBF", 3) == 0) next_ += 3;
}

}  // namespace quarvel::mps
