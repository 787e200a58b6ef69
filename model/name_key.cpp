#include "model/name_key.h"

namespace quarvel::model {
namespace {

std::uint64_t Load(const char* p) {
  std::uint64_t word;
  std::memcpy(&word, p, sizeof word);
  return word;
}

std::uint64_t Fold(std::uint64_t hash, std::uint64_t word) {
  hash = (hash ^ word) * 0x9E3779B97F4A7C15ull;
  return hash ^ (hash >> 32);
}

}  // namespace

NameKey NameKey::Of(std::string_view name) {
  if (!IsShort(name)) return OfLong(name);
  std::array<char, kReadable> padded{};
  std::memcpy(padded.data(), name.data(), name.size());
  return OfShort(padded.data(), name.size());
}

NameKey NameKey::OfLong(std::string_view name) {
  std::uint64_t hash = 0x2545F4914F6CDD1Dull ^ name.size();
  const char* p = name.data();
  const char* const end = p + name.size();
  for (; end - p > 8; p += 8) hash = Fold(hash, Load(p));
  if (name.size() >= 8) {
    hash = Fold(hash, Load(end - 8));  // may take some bytes twice
  } else {
    std::uint64_t tail = 0;
    std::memcpy(&tail, p, name.size());
    hash = Fold(hash, tail);
  }
  return OfParts(hash, kLong);
}

}  // namespace quarvel::model
