// The bytes of a file that a command reads, unpacked (hosts/packing/file_bytes.h); "-" is standard input.
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

// Opens the file at `path`, or standard input. What has no size, as a pipe, can be had once: null when it is
// asked for again. Raises what OpenFile and Unpacked raise (hosts/packing/file_bytes.h).
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

}  // namespace quarvel::hosts
