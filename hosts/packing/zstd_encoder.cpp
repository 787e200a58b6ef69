#include "hosts/packing/encoder.h"

#ifdef QUARVEL_HAS_ZSTD

#include <new>

#include <zstd.h>

namespace quarvel::hosts {
namespace {

class ZstdPacker : public Encoder {
 public:
  explicit ZstdPacker(platform::ByteSink& packed) : Encoder(packed), context_(ZSTD_createCCtx()) {
    if (context_ == nullptr) throw std::bad_alloc();
    ZSTD_CCtx_setParameter(context_, ZSTD_c_checksumFlag, 1);
  }
  ~ZstdPacker() override { ZSTD_freeCCtx(context_); }
  ZstdPacker(const ZstdPacker&) = delete;
  ZstdPacker& operator=(const ZstdPacker&) = delete;

 protected:
  bool Encode(std::string_view& bytes, bool at_end, Room& room) override {
    ZSTD_inBuffer in = {bytes.data(), bytes.size(), 0};
    ZSTD_outBuffer out = {room.begin, room.size, 0};
    const std::size_t left =
        ZSTD_compressStream2(context_, &out, &in, at_end ? ZSTD_e_end : ZSTD_e_continue);
    // Nothing else can go wrong with parameters that are good.
    if (ZSTD_isError(left) != 0) throw std::bad_alloc();
    bytes.remove_prefix(in.pos);
    room.used = out.pos;
    return left == 0;
  }

 private:
  ZSTD_CCtx* context_;
};

}  // namespace

std::unique_ptr<platform::ByteSink> ZstdEncoder(platform::ByteSink& packed) {
  return std::make_unique<ZstdPacker>(packed);
}

}  // namespace quarvel::hosts

#endif
