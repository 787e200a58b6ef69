// What a user may say about a file of the wide dialect.
#pragma once

#include <cstdint>
#include <string>

namespace quarvel::mps {

// How the words of data lines are told apart.
enum class FileColumns : std::uint8_t {
  kByLine,  // as the first line says that makes sense in one way only
  kFixed,
  kFree,
};

struct WideOptions {
  FileColumns columns = FileColumns::kByLine;
  std::string objective;  // the name of the row that is it; empty: as the file says
  // A negative upper bound frees a lower bound of 0.
  bool negative_upper_frees_lower = false;
};

}  // namespace quarvel::mps
