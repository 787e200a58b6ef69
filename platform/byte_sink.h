// Where bytes that are written go: a file, what packs them, or whatever else takes some.
#pragma once

#include <string_view>

namespace quarvel::platform {

class ByteSink {
 public:
  virtual ~ByteSink() = default;
  // Takes all of them, or raises an AutomationError.
  virtual void Write(std::string_view bytes) = 0;
  // Nothing more comes; what was held back is written now. Raises likewise.
  virtual void Finish() {}
};

}  // namespace quarvel::platform
