// A double that needs no more than four bytes' alignment. Beside a 32-bit number it takes 12 bytes
// instead of 16, and a model's coefficients are most of the memory that a read fills and a walk
// over the model passes through.
#pragma once

#include <array>
#include <cstdint>
#include <cstring>

namespace quarvel::model {

class PackedDouble {
 public:
  PackedDouble() = default;
  // Both conversions by design: it is a double wherever it is used, also when it is compared.
  PackedDouble(double value) {  // NOLINT(google-explicit-constructor)
    std::memcpy(words_.data(), &value, sizeof value);
  }
  operator double() const {  // NOLINT(google-explicit-constructor)
    double value;
    std::memcpy(&value, words_.data(), sizeof value);
    return value;
  }

 private:
  std::array<std::uint32_t, 2> words_;
};

}  // namespace quarvel::model
