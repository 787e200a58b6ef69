#include "hosts/packing/decoder.h"

#ifdef QUARVEL_HAS_LIBLZMA
#include <new>
#include <utility>

#include <lzma.h>
#endif

namespace quarvel::hosts {

#ifdef QUARVEL_HAS_LIBLZMA

namespace {

class Xz : public Decoder {
 public:
  explicit Xz(std::unique_ptr<platform::ByteSource> packed) : Decoder(std::move(packed), "xz") {
    // The greatest preset takes 65 MB; a crafted file may ask for much more.
    constexpr std::uint64_t kMostMemory = std::uint64_t{1} << 30;
    if (lzma_stream_decoder(&stream_, kMostMemory, LZMA_CONCATENATED) != LZMA_OK) {
      throw std::bad_alloc();
    }
  }
  ~Xz() override { lzma_end(&stream_); }
  Xz(const Xz&) = delete;
  Xz& operator=(const Xz&) = delete;

  std::size_t Read(char* buffer, std::size_t capacity) override {
    stream_.next_out = reinterpret_cast<std::uint8_t*>(buffer);
    stream_.avail_out = capacity;
    while (stream_.avail_out == capacity && capacity > 0 && !at_end_) Decode();
    return capacity - stream_.avail_out;
  }

 private:
  void Decode() {
    const bool more = HasInput();
    const std::string_view from = input();
    stream_.next_in = reinterpret_cast<const std::uint8_t*>(from.data());
    stream_.avail_in = from.size();
    const lzma_ret result = lzma_code(&stream_, more ? LZMA_RUN : LZMA_FINISH);
    Use(from.size() - stream_.avail_in);
    if (result == LZMA_MEM_ERROR) throw std::bad_alloc();
    if (result == LZMA_MEMLIMIT_ERROR) RaiseInputFailure("the xz data take over 1 GB to unpack");
    if (result == LZMA_BUF_ERROR && !more) RaiseCutOff();
    if (result != LZMA_OK && result != LZMA_STREAM_END && result != LZMA_BUF_ERROR) RaiseDamaged();
    at_end_ = result == LZMA_STREAM_END;
  }

  lzma_stream stream_ = LZMA_STREAM_INIT;
  bool at_end_ = false;
};

}  // namespace

std::unique_ptr<platform::ByteSource> XzDecoder(std::unique_ptr<platform::ByteSource> packed) {
  return std::make_unique<Xz>(std::move(packed));
}

#else

std::unique_ptr<platform::ByteSource> XzDecoder(std::unique_ptr<platform::ByteSource>) {
  RaiseInputFailure("this program was built without xz: unpack the file first");
}

#endif

}  // namespace quarvel::hosts
