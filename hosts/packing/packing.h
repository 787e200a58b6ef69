// The ways in which files are packed, as a table: what each is called, is known by, and who unpacks and
// packs it.
#pragma once

#include <cstddef>
#include <memory>
#include <string_view>

#include "platform/byte_sink.h"
#include "platform/byte_source.h"

namespace quarvel::hosts {

struct Packing {
  std::string_view name;
  std::string_view first;   // the bytes that it begins with, or has at `place`
  std::string_view suffix;  // ".gz"; empty for what nothing is packed with
  // Gives what is in it. Raises 57 for what this program cannot unpack.
  std::unique_ptr<platform::ByteSource> (*unpack)(std::unique_ptr<platform::ByteSource> packed);
  // Packs what it is given. Null where this build has no library for it.
  std::unique_ptr<platform::ByteSink> (*pack)(platform::ByteSink& packed);
  std::size_t place = 0;
};

// How many bytes tell all of them apart.
inline constexpr std::size_t kPackingBytes = 262;

// Null for none. Case of letters makes no difference to a suffix.
const Packing* PackingOfBytes(std::string_view first);
const Packing* PackingOfSuffix(std::string_view path);

}  // namespace quarvel::hosts
