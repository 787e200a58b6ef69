// What the program says of a file that it wrote.
#pragma once

#include <string>

#include "inspect/receipt.h"

namespace quarvel::hosts {

// "written and verified: 28 rows, 32 columns, 88 coefficients equal" when the file gives back all there
// is, else how much of it is equal, or that it was not read again.
std::string ReceiptText(const inspect::Receipt& receipt);

}  // namespace quarvel::hosts
