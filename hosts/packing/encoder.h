// What those who write compressed files share: room for packed bytes, a piece at a time.
#pragma once

#include <cstddef>
#include <memory>
#include <string_view>

#include "platform/byte_sink.h"

namespace quarvel::hosts {

class Encoder : public platform::ByteSink {
 public:
  void Write(std::string_view bytes) final;
  void Finish() final;

 protected:
  // `packed` must outlive this.
  explicit Encoder(platform::ByteSink& packed);

  // Where packed bytes go.
  struct Room {
    char* begin;
    std::size_t size;
    std::size_t used = 0;
  };
  // Takes bytes from the front of `bytes`, at least one, and puts what comes out into the room. With
  // `at_end` nothing follows `bytes`, which may be empty: true when all is out.
  virtual bool Encode(std::string_view& bytes, bool at_end, Room& room) = 0;

 private:
  bool Pass(std::string_view& bytes, bool at_end);

  platform::ByteSink& packed_;
  std::unique_ptr<char[]> buffer_;
};

// Each in a source of its own, where the build has the library; as well packed as the library's own
// program does without options.
std::unique_ptr<platform::ByteSink> GzipEncoder(platform::ByteSink& packed);
std::unique_ptr<platform::ByteSink> Bzip2Encoder(platform::ByteSink& packed);
std::unique_ptr<platform::ByteSink> XzEncoder(platform::ByteSink& packed);
std::unique_ptr<platform::ByteSink> ZstdEncoder(platform::ByteSink& packed);

}  // namespace quarvel::hosts
