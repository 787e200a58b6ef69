#include "hosts/packing/encoder.h"

#ifdef QUARVEL_HAS_LIBLZMA

#include <cstdint>
#include <new>

#include <lzma.h>

namespace quarvel::hosts {
namespace {

class XzPacker : public Encoder {
 public:
  explicit XzPacker(platform::ByteSink& packed) : Encoder(packed) {
    if (lzma_easy_encoder(&stream_, LZMA_PRESET_DEFAULT, LZMA_CHECK_CRC64) != LZMA_OK) {
      throw std::bad_alloc();
    }
  }
  ~XzPacker() override { lzma_end(&stream_); }
  XzPacker(const XzPacker&) = delete;
  XzPacker& operator=(const XzPacker&) = delete;

 protected:
  bool Encode(std::string_view& bytes, bool at_end, Room& room) override {
    stream_.next_in = reinterpret_cast<const std::uint8_t*>(bytes.data());
    stream_.avail_in = bytes.size();
    stream_.next_out = reinterpret_cast<std::uint8_t*>(room.begin);
    stream_.avail_out = room.size;
    const lzma_ret result = lzma_code(&stream_, at_end ? LZMA_FINISH : LZMA_RUN);
    if (result == LZMA_MEM_ERROR) throw std::bad_alloc();
    bytes.remove_prefix(bytes.size() - stream_.avail_in);
    room.used = room.size - stream_.avail_out;
    return result == LZMA_STREAM_END;
  }

 private:
  lzma_stream stream_ = LZMA_STREAM_INIT;
};

}  // namespace

std::unique_ptr<platform::ByteSink> XzEncoder(platform::ByteSink& packed) {
  return std::make_unique<XzPacker>(packed);
}

}  // namespace quarvel::hosts

#endif
