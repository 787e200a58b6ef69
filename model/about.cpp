#include "model/about.h"

namespace quarvel {

std::string AboutText() {
  return "Quarvel version " + std::string(kVersion) +
         "\r\n\r\nWritten by the Quarvel developers.\r\n"
         "Questions and problems are welcome in the project's issue tracker; the README names it.";
}

}  // namespace quarvel
