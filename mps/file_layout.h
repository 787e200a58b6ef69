// The two ways to write a model.
#pragma once

#include <cstdint>

namespace quarvel::mps {

enum class FileLayout : std::uint8_t {
  kFixed,  // as the component saves it: mps_writer.h
  kFree,   // bit for bit: exact_writer.h
};

}  // namespace quarvel::mps
