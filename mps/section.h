// The sections of an MPS file, as far as they hold data lines of their own.
#pragma once

namespace quarvel::mps {

enum class Section { kStart, kRows, kColumns, kRhs, kRanges, kBounds };

}  // namespace quarvel::mps
