// Standard output, the other standard streams when they are prepared, and the command line as the operating system has them, in UTF-8.
#pragma once

#include <array>
#include <cstddef>
#include <streambuf>
#include <string>
#include <string_view>
#include <vector>

namespace quarvel::hosts {

enum class WriteResult {
  kWritten,
  kClosed,  // nobody reads it any more
  kFailed,
};

// A buffer in front of what writes to the system. After a failure, which lacking memory is too,
// nothing more is written, and the stream on top of it goes bad.
class OutputBuffer : public std::streambuf {
 public:
  using Writer = WriteResult (*)(std::string_view bytes);

  explicit OutputBuffer(Writer writer);

  // Hands over what is left and tells how it all went.
  WriteResult Finish();

 protected:
  int_type overflow(int_type c) override;
  int sync() override;

 private:
  bool HandOver();

  Writer writer_;
  WriteResult result_ = WriteResult::kWritten;
  std::array<char, std::size_t{1} << 16> bytes_;
};

// --- in the sources of each system ---

// All of `bytes` to standard output; a Windows console is given UTF-16.
WriteResult WriteStandardOutput(std::string_view bytes);
// Once, before any file is opened: a closed pipe, and a file that grows over a limit of the process, are
// errors to hear of, not the end of the program; and no file gets the place of a standard stream that is
// closed, which fails to be read or written as ever.
void PrepareStandardStreams();
// The words of the command line without the program's name.
std::vector<std::string> CommandLineWords(int argc, const char* const* argv);

}  // namespace quarvel::hosts
