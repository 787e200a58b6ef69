// What the readers of compressed files share: the packed bytes, a piece at a time, and the failures.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "platform/byte_source.h"

namespace quarvel::hosts {

class Decoder : public platform::ByteSource {
 public:
  // How much comes out is known at the end only.
  std::uint64_t size() const override { return 0; }

 protected:
  // `name`: of the format, "gzip".
  Decoder(std::unique_ptr<platform::ByteSource> packed, std::string_view name);

  // Reads on when all of `input` is used; false at the end of the packed bytes.
  bool HasInput();
  std::string_view input() const { return {buffer_.get() + begin_, end_ - begin_}; }
  void Use(std::size_t count) { begin_ += count; }

  [[noreturn]] void RaiseDamaged() const;
  [[noreturn]] void RaiseCutOff() const;

 private:
  std::unique_ptr<platform::ByteSource> packed_;
  std::string_view name_;
  std::unique_ptr<char[]> buffer_;
  std::size_t begin_ = 0;
  std::size_t end_ = 0;
};

// Failure 57 in words of its own.
[[noreturn]] void RaiseInputFailure(std::string description);

// Each in a source of its own; files of several parts one behind the other are read whole.
std::unique_ptr<platform::ByteSource> GzipDecoder(std::unique_ptr<platform::ByteSource> packed);
std::unique_ptr<platform::ByteSource> Bzip2Decoder(std::unique_ptr<platform::ByteSource> packed);
std::unique_ptr<platform::ByteSource> XzDecoder(std::unique_ptr<platform::ByteSource> packed);
std::unique_ptr<platform::ByteSource> ZstdDecoder(std::unique_ptr<platform::ByteSource> packed);

}  // namespace quarvel::hosts
