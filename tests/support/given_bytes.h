// Sources of bytes that tests hand to what reads from one.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <memory>
#include <string>
#include <utility>

#include "platform/byte_source.h"

namespace quarvel::testing {

// Gives a text of its own, at most so many bytes a time.
class GivenBytes : public platform::ByteSource {
 public:
  explicit GivenBytes(std::string bytes,
                      std::size_t at_once = std::numeric_limits<std::size_t>::max())
      : bytes_(std::move(bytes)), at_once_(at_once) {}
  std::uint64_t size() const override { return bytes_.size(); }
  std::size_t Read(char* buffer, std::size_t capacity) override {
    const std::size_t count = bytes_.copy(buffer, std::min(capacity, at_once_), done_);
    done_ += count;
    return count;
  }

 private:
  std::string bytes_;
  std::size_t at_once_;
  std::size_t done_ = 0;
};

// Those of a file.
inline std::unique_ptr<platform::ByteSource> BytesOf(const std::string& path) {
  return std::make_unique<platform::FileBytes>(platform::InputFile(path));
}

}  // namespace quarvel::testing
