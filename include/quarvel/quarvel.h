// All of the library. docs/library.md tells who owns what, what is thrown and what stays from version to
// version; examples/native has programs.
#pragma once

#include <string_view>

#include "quarvel/arrays.h"
#include "quarvel/compare.h"
#include "quarvel/desktop.h"
#include "quarvel/error.h"
#include "quarvel/export.h"
#include "quarvel/files.h"
#include "quarvel/model.h"
#include "quarvel/simplify.h"

namespace quarvel {

// Of the library that runs: "1.2.3". Lives as long as the program.
QUARVEL_API std::string_view Version();

}  // namespace quarvel
