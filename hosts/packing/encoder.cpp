#include "hosts/packing/encoder.h"

namespace quarvel::hosts {
namespace {

constexpr std::size_t kEncodedPiece = std::size_t{1} << 16;

}  // namespace

Encoder::Encoder(platform::ByteSink& packed) : packed_(packed), buffer_(new char[kEncodedPiece]) {}

void Encoder::Write(std::string_view bytes) {
  while (!bytes.empty()) Pass(bytes, false);
}

void Encoder::Finish() {
  std::string_view none;
  while (!Pass(none, true)) {
  }
  packed_.Finish();
}

bool Encoder::Pass(std::string_view& bytes, bool at_end) {
  Room room = {.begin = buffer_.get(), .size = kEncodedPiece};
  const bool is_all_out = Encode(bytes, at_end, room);
  if (room.used > 0) packed_.Write({room.begin, room.used});
  return is_all_out;
}

}  // namespace quarvel::hosts
