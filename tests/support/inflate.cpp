#include "tests/support/inflate.h"

#include <gtest/gtest.h>

#ifdef QUARVEL_HAS_ZLIB
#include <zlib.h>
#endif

namespace quarvel::testing {

#ifdef QUARVEL_HAS_ZLIB

std::string Inflate(std::string_view packed, std::size_t most) {
  std::string bytes(most, '\0');
  auto size = static_cast<uLongf>(most);
  const int result =
      uncompress(reinterpret_cast<Bytef*>(bytes.data()), &size,
                 reinterpret_cast<const Bytef*>(packed.data()), static_cast<uLong>(packed.size()));
  EXPECT_EQ(result, Z_OK);
  bytes.resize(result == Z_OK ? size : 0);
  return bytes;
}

#else

std::string Inflate(std::string_view, std::size_t) { return {}; }

#endif

}  // namespace quarvel::testing
