// The lines of a text file, one at a time, in one pass over its bytes.
//
// CR LF, LF and CR all end a line; the last line needs no end. A UTF-8 byte-order mark at the start
// is skipped. A line that is not valid UTF-8 is taken as Windows-1252 and handed out as UTF-8. The
// file is read in large pieces into one buffer and never held whole: a line of more than
// kLongestLine bytes is handed out as too long, without its text, and costs no memory. NUL bytes
// and other control characters are characters like any other.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>

#include "platform/byte_source.h"

namespace quarvel::mps {

struct Line {
  // The text, which may be changed in place; valid until the next line is read. After it stand at
  // least LineReader::kPadding more bytes that may be read and written.
  char* text = nullptr;
  std::size_t size = 0;
  std::size_t characters = 0;  // the line's length for its reader, line end not counted
  bool ascii = true;
  bool too_long = false;

  std::string_view view() const { return {text, size}; }
};

class LineReader {
 public:
  static constexpr std::size_t kLongestLine = std::size_t{1} << 20;
  static constexpr std::size_t kPadding = 16;

  explicit LineReader(std::unique_ptr<platform::ByteSource> bytes);
  explicit LineReader(platform::InputFile file);

  // 0 when it is not known.
  std::uint64_t file_size() const { return bytes_->size(); }

  // The bytes behind the last line that are in memory already and that stay there until Next is
  // called. Whoever wants lines without that call takes them out of here, and says with Took up to
  // where: behind the end of a line, its line feed taken too where one that follows CR is here.
  std::span<char> ahead() {
    SkipLineFeed();
    return {next_, end_};
  }
  void Took(char* to);

  // Whoever looks for tabs asks for it before the first line: has_tabs() is true as soon as one may
  // stand in what is in memory, and stays so.
  void WatchTabs() { watches_tabs_ = true; }
  bool has_tabs() const { return has_tabs_; }

  // The next line; false at the end of the file. Raises what the file raises, after which it is at
  // its end.
  bool Next(Line& line);
  // Goes to the end without lines, so that whatever is wrong with the rest of the bytes is raised.
  void SkipRest();

 private:
  bool Refill();
  // The line feed of a line end that began with CR, as far as it is in memory.
  void SkipLineFeed() {
    if (!skip_line_feed_ || next_ == end_) return;
    skip_line_feed_ = false;
    if (*next_ == '\n') ++next_;
  }
  // The end of the line that goes on at `from`, end_ when it is not there yet. Clears `ascii` for
  // bytes above 127.
  char* FindLineEnd(char* from, bool& ascii) const;
  void Deliver(Line& line, char* end, bool ascii);
  void SkipTooLong(Line& line);
  void SkipByteOrderMark();

  std::unique_ptr<platform::ByteSource> bytes_;
  std::unique_ptr<char[]> buffer_;
  char* next_ = nullptr;  // first byte not handed out yet
  char* end_ = nullptr;   // after the last byte read
  bool at_end_ = false;
  bool started_ = false;
  bool skip_line_feed_ = false;  // the last line ended in CR
  bool watches_tabs_ = false;
  bool has_tabs_ = false;
  std::string converted_;
};

}  // namespace quarvel::mps
