#include "quarvel/error.h"

namespace quarvel {

Error::Error(ErrorCode code, const std::string& text) : std::runtime_error(text), code_(code) {}

// Here, so that one library has the type that is thrown and caught.
Error::~Error() = default;

}  // namespace quarvel
