#include "hosts/packing/decoder.h"

#if defined(QUARVEL_HAS_ISAL)
#include <algorithm>
#include <limits>
#include <utility>

#include <isa-l.h>
#elif defined(QUARVEL_HAS_ZLIB)
#include <algorithm>
#include <limits>
#include <new>
#include <utility>

#include <zlib.h>
#endif

namespace quarvel::hosts {

#if defined(QUARVEL_HAS_ISAL)

namespace {

// Several times as fast as zlib, on processors of the x86 family.
class Gzip : public Decoder {
 public:
  explicit Gzip(std::unique_ptr<platform::ByteSource> packed) : Decoder(std::move(packed), "gzip") {
    isal_inflate_init(&state_);
    state_.crc_flag = ISAL_GZIP;
  }

  std::size_t Read(char* buffer, std::size_t capacity) override {
    constexpr std::size_t kMost = std::numeric_limits<std::uint32_t>::max();
    const auto wanted = static_cast<std::uint32_t>(std::min(capacity, kMost));
    state_.next_out = reinterpret_cast<std::uint8_t*>(buffer);
    state_.avail_out = wanted;
    while (state_.avail_out == wanted && wanted > 0 && MayGoOn()) Inflate();
    return wanted - state_.avail_out;
  }

 private:
  // False at the end, behind any member. Zeros behind the last one fill up a tape's block.
  bool MayGoOn() {
    if (state_.block_state != ISAL_BLOCK_FINISH) return true;
    while (HasInput() && input().front() == '\0') Use(1);
    if (!HasInput()) return false;
    isal_inflate_reset(&state_);
    return true;
  }

  // The library keeps some bytes of the input, so that there may be output without more of it.
  void Inflate() {
    const bool has_input = HasInput();
    const std::string_view from = input();
    const std::uint32_t room = state_.avail_out;
    state_.next_in = reinterpret_cast<std::uint8_t*>(const_cast<char*>(from.data()));  // only read
    state_.avail_in = static_cast<std::uint32_t>(from.size());
    const int result = isal_inflate(&state_);
    Use(from.size() - state_.avail_in);
    if (result < 0) RaiseDamaged();
    const bool is_stuck = !has_input && state_.avail_out == room;
    if (is_stuck && state_.block_state != ISAL_BLOCK_FINISH) RaiseCutOff();
  }

  inflate_state state_;
};

}  // namespace

std::unique_ptr<platform::ByteSource> GzipDecoder(std::unique_ptr<platform::ByteSource> packed) {
  return std::make_unique<Gzip>(std::move(packed));
}

#elif defined(QUARVEL_HAS_ZLIB)

namespace {

class Gzip : public Decoder {
 public:
  explicit Gzip(std::unique_ptr<platform::ByteSource> packed) : Decoder(std::move(packed), "gzip") {
    constexpr int kGzipOnly = 16;
    if (inflateInit2(&stream_, MAX_WBITS + kGzipOnly) != Z_OK) throw std::bad_alloc();
  }
  ~Gzip() override { inflateEnd(&stream_); }
  Gzip(const Gzip&) = delete;
  Gzip& operator=(const Gzip&) = delete;

  std::size_t Read(char* buffer, std::size_t capacity) override {
    constexpr std::size_t kMost = std::numeric_limits<uInt>::max();
    const auto wanted = static_cast<uInt>(std::min(capacity, kMost));
    stream_.next_out = reinterpret_cast<Bytef*>(buffer);
    stream_.avail_out = wanted;
    while (stream_.avail_out == wanted && wanted > 0 && MayGoOn()) Inflate();
    return wanted - stream_.avail_out;
  }

 private:
  // False at the end, behind any member. Zeros behind the last one fill up a tape's block.
  bool MayGoOn() {
    if (!HasInput()) {
      if (!at_end_of_member_) RaiseCutOff();
      return false;
    }
    if (!at_end_of_member_) return true;
    while (HasInput() && input().front() == '\0') Use(1);
    if (!HasInput()) return false;
    at_end_of_member_ = false;
    inflateReset(&stream_);
    return true;
  }

  void Inflate() {
    const std::string_view from = input();
    stream_.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(from.data()));  // only read
    stream_.avail_in = static_cast<uInt>(from.size());
    const int result = inflate(&stream_, Z_NO_FLUSH);
    Use(from.size() - stream_.avail_in);
    if (result == Z_MEM_ERROR) throw std::bad_alloc();
    if (result != Z_OK && result != Z_STREAM_END && result != Z_BUF_ERROR) RaiseDamaged();
    at_end_of_member_ = result == Z_STREAM_END;
  }

  z_stream stream_ = {};
  bool at_end_of_member_ = false;
};

}  // namespace

std::unique_ptr<platform::ByteSource> GzipDecoder(std::unique_ptr<platform::ByteSource> packed) {
  return std::make_unique<Gzip>(std::move(packed));
}

#else

std::unique_ptr<platform::ByteSource> GzipDecoder(std::unique_ptr<platform::ByteSource>) {
  RaiseInputFailure("this program was built without gzip: unpack the file first");
}

#endif

}  // namespace quarvel::hosts
