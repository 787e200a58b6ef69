// The bytes of a file that a command reads, whatever people have put around them: files compressed with
// gzip, bzip2, xz or zstd are known by their first bytes and read as what they hold; "-" is standard
// input.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "hosts/streams.h"
#include "platform/byte_source.h"

namespace quarvel::hosts {

inline constexpr std::string_view kStandardInput = "-";
inline constexpr std::string_view kStandardInputName = "standard input";
// Raises a CommandError of status kUsage where more than one of them is standard input, which can be read
// once only.
void StopAtSecondStandardInput(const std::vector<std::string>& paths);
// What the user is told that it is called.
inline std::string NameOfInput(const std::string& path) {
  return path == kStandardInput ? std::string(kStandardInputName) : path;
}

bool IsFolder(const std::string& path);

// Opens the file at `path`, or standard input. What has no size, as a pipe, can be had once: null when it is
// asked for again.
// Raises what opening raises, of a folder saying that it is one, and 57 with a description of its own for what is compressed in a way that
// this build cannot read, for archives, and for what is packed twice. Reading raises 57 for compressed data that are damaged or cut off.
class InputOpener {
 public:
  InputOpener(std::string path, const Streams& streams)
      : path_(std::move(path)), streams_(streams) {}
  std::unique_ptr<platform::ByteSource> operator()();

 private:
  std::string path_;
  const Streams& streams_;
  bool is_used_ = false;
};

// What `bytes` hold when their first ones say that they are compressed, else `bytes` as they are.
std::unique_ptr<platform::ByteSource> Unpacked(std::unique_ptr<platform::ByteSource> bytes);

}  // namespace quarvel::hosts
