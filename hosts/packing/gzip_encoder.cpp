#include "hosts/packing/encoder.h"

#ifdef QUARVEL_HAS_ZLIB

#include <algorithm>
#include <limits>
#include <new>

#include <zlib.h>

namespace quarvel::hosts {
namespace {

class GzipPacker : public Encoder {
 public:
  explicit GzipPacker(platform::ByteSink& packed) : Encoder(packed) {
    constexpr int kWithGzipHeader = 16;
    constexpr int kUsualMemory = 8;
    if (deflateInit2(&stream_, Z_DEFAULT_COMPRESSION, Z_DEFLATED, MAX_WBITS + kWithGzipHeader,
                     kUsualMemory, Z_DEFAULT_STRATEGY) != Z_OK) {
      throw std::bad_alloc();
    }
  }
  ~GzipPacker() override { deflateEnd(&stream_); }
  GzipPacker(const GzipPacker&) = delete;
  GzipPacker& operator=(const GzipPacker&) = delete;

 protected:
  bool Encode(std::string_view& bytes, bool at_end, Room& room) override {
    constexpr std::size_t kMost = std::numeric_limits<uInt>::max();
    const auto given = static_cast<uInt>(std::min(bytes.size(), kMost));
    stream_.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(bytes.data()));  // only read
    stream_.avail_in = given;
    stream_.next_out = reinterpret_cast<Bytef*>(room.begin);
    stream_.avail_out = static_cast<uInt>(room.size);
    const int result = deflate(&stream_, at_end ? Z_FINISH : Z_NO_FLUSH);
    bytes.remove_prefix(given - stream_.avail_in);
    room.used = room.size - stream_.avail_out;
    return result == Z_STREAM_END;
  }

 private:
  z_stream stream_ = {};
};

}  // namespace

std::unique_ptr<platform::ByteSink> GzipEncoder(platform::ByteSink& packed) {
  return std::make_unique<GzipPacker>(packed);
}

}  // namespace quarvel::hosts

#endif
