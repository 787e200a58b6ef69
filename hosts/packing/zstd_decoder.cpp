#include "hosts/packing/decoder.h"

#ifdef QUARVEL_HAS_ZSTD
#include <new>
#include <utility>

#include <zstd.h>
#include <zstd_errors.h>
#endif

namespace quarvel::hosts {

#ifdef QUARVEL_HAS_ZSTD

namespace {

class Zstd : public Decoder {
 public:
  explicit Zstd(std::unique_ptr<platform::ByteSource> packed)
      : Decoder(std::move(packed), "zstd"), context_(ZSTD_createDCtx()) {
    if (context_ == nullptr) throw std::bad_alloc();
  }
  ~Zstd() override { ZSTD_freeDCtx(context_); }
  Zstd(const Zstd&) = delete;
  Zstd& operator=(const Zstd&) = delete;

  std::size_t Read(char* buffer, std::size_t capacity) override {
    ZSTD_outBuffer out = {buffer, capacity, 0};
    while (out.pos == 0 && capacity > 0) {
      const bool more = HasInput();
      if (!more && !is_within_frame_) break;
      Decompress(out);
      // What is left within the library has come out before the end of the packed bytes counts.
      if (!more && out.pos == 0) RaiseCutOff();
    }
    return out.pos;
  }

 private:
  void Decompress(ZSTD_outBuffer& out) {
    ZSTD_inBuffer in = {input().data(), input().size(), 0};
    const std::size_t result = ZSTD_decompressStream(context_, &out, &in);
    Use(in.pos);
    if (ZSTD_getErrorCode(result) == ZSTD_error_memory_allocation) throw std::bad_alloc();
    if (ZSTD_isError(result) != 0) RaiseDamaged();
    is_within_frame_ = result != 0;
  }

  ZSTD_DCtx* context_;
  bool is_within_frame_ = false;
};

}  // namespace

std::unique_ptr<platform::ByteSource> ZstdDecoder(std::unique_ptr<platform::ByteSource> packed) {
  return std::make_unique<Zstd>(std::move(packed));
}

#else

std::unique_ptr<platform::ByteSource> ZstdDecoder(std::unique_ptr<platform::ByteSource>) {
  RaiseInputFailure("this program was built without zstd: unpack the file first");
}

#endif

}  // namespace quarvel::hosts
