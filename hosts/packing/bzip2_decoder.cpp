#include "hosts/packing/decoder.h"

#ifdef QUARVEL_HAS_BZIP2
#include <algorithm>
#include <limits>
#include <new>
#include <utility>

#include <bzlib.h>
#endif

namespace quarvel::hosts {

#ifdef QUARVEL_HAS_BZIP2

namespace {

class Bzip2 : public Decoder {
 public:
  explicit Bzip2(std::unique_ptr<platform::ByteSource> packed)
      : Decoder(std::move(packed), "bzip2") {
    Begin();
  }
  ~Bzip2() override { BZ2_bzDecompressEnd(&stream_); }
  Bzip2(const Bzip2&) = delete;
  Bzip2& operator=(const Bzip2&) = delete;

  std::size_t Read(char* buffer, std::size_t capacity) override {
    constexpr std::size_t kMost = std::numeric_limits<unsigned>::max();
    const auto wanted = static_cast<unsigned>(std::min(capacity, kMost));
    stream_.next_out = buffer;
    stream_.avail_out = wanted;
    while (stream_.avail_out == wanted && wanted > 0 && MayGoOn()) Decompress();
    return wanted - stream_.avail_out;
  }

 private:
  void Begin() {
    if (BZ2_bzDecompressInit(&stream_, 0, 0) != BZ_OK) throw std::bad_alloc();
  }

  // False at the end, behind any stream.
  bool MayGoOn() {
    if (!HasInput()) {
      if (!at_end_of_stream_) RaiseCutOff();
      return false;
    }
    if (!at_end_of_stream_) return true;
    at_end_of_stream_ = false;
    char* const out = stream_.next_out;
    const unsigned room = stream_.avail_out;
    BZ2_bzDecompressEnd(&stream_);
    stream_ = {};
    Begin();
    stream_.next_out = out;
    stream_.avail_out = room;
    return true;
  }

  void Decompress() {
    const std::string_view from = input();
    stream_.next_in = const_cast<char*>(from.data());  // only read
    stream_.avail_in = static_cast<unsigned>(from.size());
    const int result = BZ2_bzDecompress(&stream_);
    Use(from.size() - stream_.avail_in);
    if (result == BZ_MEM_ERROR) throw std::bad_alloc();
    if (result != BZ_OK && result != BZ_STREAM_END) RaiseDamaged();
    at_end_of_stream_ = result == BZ_STREAM_END;
  }

  bz_stream stream_ = {};
  bool at_end_of_stream_ = false;
};

}  // namespace

std::unique_ptr<platform::ByteSource> Bzip2Decoder(std::unique_ptr<platform::ByteSource> packed) {
  return std::make_unique<Bzip2>(std::move(packed));
}

#else

std::unique_ptr<platform::ByteSource> Bzip2Decoder(std::unique_ptr<platform::ByteSource>) {
  RaiseInputFailure("this program was built without bzip2: unpack the file first");
}

#endif

}  // namespace quarvel::hosts
