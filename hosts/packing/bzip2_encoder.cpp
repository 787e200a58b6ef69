#include "hosts/packing/encoder.h"

#ifdef QUARVEL_HAS_BZIP2

#include <algorithm>
#include <limits>
#include <new>

#include <bzlib.h>

namespace quarvel::hosts {
namespace {

class Bzip2Packer : public Encoder {
 public:
  explicit Bzip2Packer(platform::ByteSink& packed) : Encoder(packed) {
    constexpr int kBlockOf900000 = 9;
    if (BZ2_bzCompressInit(&stream_, kBlockOf900000, 0, 0) != BZ_OK) throw std::bad_alloc();
  }
  ~Bzip2Packer() override { BZ2_bzCompressEnd(&stream_); }
  Bzip2Packer(const Bzip2Packer&) = delete;
  Bzip2Packer& operator=(const Bzip2Packer&) = delete;

 protected:
  bool Encode(std::string_view& bytes, bool at_end, Room& room) override {
    constexpr std::size_t kMost = std::numeric_limits<unsigned>::max();
    const auto given = static_cast<unsigned>(std::min(bytes.size(), kMost));
    stream_.next_in = const_cast<char*>(bytes.data());  // only read
    stream_.avail_in = given;
    stream_.next_out = room.begin;
    stream_.avail_out = static_cast<unsigned>(room.size);
    const int result = BZ2_bzCompress(&stream_, at_end ? BZ_FINISH : BZ_RUN);
    bytes.remove_prefix(given - stream_.avail_in);
    room.used = room.size - stream_.avail_out;
    return result == BZ_STREAM_END;
  }

 private:
  bz_stream stream_ = {};
};

}  // namespace

std::unique_ptr<platform::ByteSink> Bzip2Encoder(platform::ByteSink& packed) {
  return std::make_unique<Bzip2Packer>(packed);
}

}  // namespace quarvel::hosts

#endif
