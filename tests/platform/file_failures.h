// The numbers that operations on files fail with.
#pragma once

#include <string>

#include "platform/files.h"
#include "tests/support/form_fixture.h"

namespace quarvel::platform {

inline int OpeningFailure(const std::string& path) {
  return FailureOf([&] { const InputFile file(path); });
}

inline int CreatingFailure(const std::string& path) {
  return FailureOf([&] { const OutputFile file(path); });
}

}  // namespace quarvel::platform
