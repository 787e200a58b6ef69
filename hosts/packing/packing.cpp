#include "hosts/packing/packing.h"

#include <algorithm>
#include <iterator>
#include <string>

#include "hosts/packing/decoder.h"
#include "hosts/packing/encoder.h"

namespace quarvel::hosts {
namespace {

using platform::ByteSource;

std::unique_ptr<ByteSource> RefuseZip(std::unique_ptr<ByteSource>) {
  RaiseInputFailure("this is a zip archive: unpack it first");
}
std::unique_ptr<ByteSource> RefuseTar(std::unique_ptr<ByteSource>) {
  RaiseInputFailure("this is a tar archive: unpack it first (tar -xf does)");
}
std::unique_ptr<ByteSource> RefuseCompress(std::unique_ptr<ByteSource>) {
  RaiseInputFailure("this was packed by compress: unpack it first (gzip -d does)");
}

#ifdef QUARVEL_HAS_ZLIB
constexpr auto* kGzipEncoder = GzipEncoder;
#else
constexpr decltype(&GzipEncoder) kGzipEncoder = nullptr;
#endif
#ifdef QUARVEL_HAS_BZIP2
constexpr auto* kBzip2Encoder = Bzip2Encoder;
#else
constexpr decltype(&Bzip2Encoder) kBzip2Encoder = nullptr;
#endif
#ifdef QUARVEL_HAS_LIBLZMA
constexpr auto* kXzEncoder = XzEncoder;
#else
constexpr decltype(&XzEncoder) kXzEncoder = nullptr;
#endif
#ifdef QUARVEL_HAS_ZSTD
constexpr auto* kZstdEncoder = ZstdEncoder;
#else
constexpr decltype(&ZstdEncoder) kZstdEncoder = nullptr;
#endif

constexpr Packing kPackings[] = {
    {"gzip", "\x1F\x8B", ".gz", GzipDecoder, kGzipEncoder},
    {"bzip2", "BZh", ".bz2", Bzip2Decoder, kBzip2Encoder},
    {"xz",
     {"\xFD"
      "7zXZ\0",
      6},
     ".xz",
     XzDecoder,
     kXzEncoder},
    {"zstd", "\x28\xB5\x2F\xFD", ".zst", ZstdDecoder, kZstdEncoder},
    {"zip", "PK\x03\x04", "", RefuseZip, nullptr},
    {"compress", "\x1F\x9D", "", RefuseCompress, nullptr},
    {"tar", "ustar", "", RefuseTar, nullptr, 257},
};

template <class Test>
const Packing* Find(const Test& test) {
  const auto* const found = std::find_if(std::begin(kPackings), std::end(kPackings), test);
  return found == std::end(kPackings) ? nullptr : found;
}

}  // namespace

const Packing* PackingOfBytes(std::string_view first) {
  return Find([first](const Packing& packing) {
    return first.size() >= packing.place && first.substr(packing.place).starts_with(packing.first);
  });
}

const Packing* PackingOfSuffix(std::string_view path) {
  std::string lower(path);
  std::transform(lower.begin(), lower.end(), lower.begin(), [](char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
  });
  return Find([&lower](const Packing& packing) {
    return !packing.suffix.empty() && lower.ends_with(packing.suffix);
  });
}

}  // namespace quarvel::hosts
