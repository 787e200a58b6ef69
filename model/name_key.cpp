#include "model/name_key.h"

namespace quarvel::model {

NameKey NameKey::Of(std::string_view name) {
  if (!IsShort(name)) return OfLong(name);
  const Words words = WordsOf(name);
  return OfParts(words.low, words.high);
}

// Nothing behind the name is read: its first and its last bytes are loaded, which may be the same ones.
NameKey::Words NameKey::WordsOf(std::string_view name) {
  const char* const p = name.data();
  const std::size_t size = name.size();
  if (size >= 8) {
    const std::uint64_t last = Load<std::uint32_t>(p + size - 4);
    return {Load<std::uint64_t>(p), static_cast<std::uint32_t>(last >> (8 * (kInline - size)))};
  }
  if (size >= 4) {
    const std::uint64_t last = Load<std::uint32_t>(p + size - 4);
    return {Load<std::uint32_t>(p) | last << (8 * (size - 4)), 0};
  }
  std::uint64_t low = 0;
  for (std::size_t i = 0; i < size; ++i)
    low |= std::uint64_t{Load<unsigned char>(p + i)} << (8 * i);
  return {low, 0};
}

NameKey NameKey::OfLong(std::string_view name) {
  return OfParts(NameHash::OfProcess().Digest(name), kLong);
}

}  // namespace quarvel::model
