// Where the bytes that are read come from: a file, or whatever else gives some.
#pragma once

#include <cstddef>
#include <cstdint>
#include <utility>

#include "platform/files.h"

namespace quarvel::platform {

class ByteSource {
 public:
  virtual ~ByteSource() = default;
  // How many bytes there are; 0 when that is not known beforehand.
  virtual std::uint64_t size() const = 0;
  // Reads up to `capacity` bytes to `buffer` and gives the number read; 0 only at the end. Raises an
  // AutomationError when it fails.
  virtual std::size_t Read(char* buffer, std::size_t capacity) = 0;
};

class FileBytes : public ByteSource {
 public:
  explicit FileBytes(InputFile file) : file_(std::move(file)) {}
  std::uint64_t size() const override { return file_.size(); }
  std::size_t Read(char* buffer, std::size_t capacity) override {
    return file_.Read(buffer, capacity);
  }

 private:
  InputFile file_;
};

}  // namespace quarvel::platform
