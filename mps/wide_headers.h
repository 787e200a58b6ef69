// The section headers of the wide dialect.
#pragma once

#include <cstdint>
#include <string_view>

#include "mps/file_facts.h"

namespace quarvel::mps {

enum class WideHeader : std::uint8_t {
  kUnknown,
  kName,           // NAME
  kPlain,          // of the sections' own, ENDATA among them
  kSense,          // OBJSENSE
  kMaximize,       // OBJSENSEMAX
  kMinimize,       // OBJSENSEMIN
  kObjectiveName,  // OBJNAME
  kMoreRows,       // LAZYCONS, USERCUTS ...: rows like those of ROWS
  kNotLinear,      // QUADOBJ, SOS, INDICATORS ...: nothing that a linear model holds
};

// Of a header's first word, in upper case.
WideHeader FindWideHeader(std::string_view word);

// What a word in upper case says: it begins with MAX or with MIN.
ObjectiveSense SenseOf(std::string_view word);

}  // namespace quarvel::mps
