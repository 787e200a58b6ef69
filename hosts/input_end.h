// How an input ends, for a read that stops before its end.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>

#include "platform/byte_source.h"

namespace quarvel::hosts {

// Bytes that pass through, of which the last ones are kept.
class InputEnd {
 public:
  explicit InputEnd(std::unique_ptr<platform::ByteSource> bytes) : bytes_(std::move(bytes)) {}

  std::uint64_t size() const { return bytes_->size(); }
  std::size_t Read(char* buffer, std::size_t capacity);
  // Whether the input ends within a line, and none of its last lines is ENDATA: so does a file that was cut
  // off. Reads what is left of it; false where that fails.
  bool IsCutOff();

 private:
  std::unique_ptr<platform::ByteSource> bytes_;
  std::string last_;
};

// Lets a reader that owns its bytes have those of an InputEnd.
class SharedInput : public platform::ByteSource {
 public:
  explicit SharedInput(std::shared_ptr<InputEnd> input) : input_(std::move(input)) {}
  std::uint64_t size() const override { return input_->size(); }
  std::size_t Read(char* buffer, std::size_t capacity) override {
    return input_->Read(buffer, capacity);
  }

 private:
  std::shared_ptr<InputEnd> input_;
};

}  // namespace quarvel::hosts
