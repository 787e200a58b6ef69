#include "model/name_key.h"

namespace quarvel::model {

NameKey NameKey::Of(std::string_view name) {
  if (!IsShort(name)) return OfLong(name);
  std::array<char, kReadable> padded{};
  std::memcpy(padded.data(), name.data(), name.size());
  return OfShort(padded.data(), name.size());
}

NameKey NameKey::OfLong(std::string_view name) {
  return OfParts(NameHash::OfProcess().Digest(name), kLong);
}

}  // namespace quarvel::model
