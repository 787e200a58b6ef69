// What the library throws: Error, std::bad_alloc where memory runs out, and what a function of the
// caller's own has thrown that the library called. Whatever is thrown, an edit has changed nothing, and
// can be repeated; after a read the model is empty.
//
// What a file says wrong is not thrown: it comes back as data (files.h).
#pragma once

#include <cstdint>
#include <stdexcept>
#include <string>

#include "quarvel/export.h"

namespace quarvel {

enum class ErrorCode : std::uint8_t {
  kIndex,   // there is no row, column or element of that number, or a point is too short
  kName,    // no record may have that name: it is empty, has a blank, or is another's
  kValue,   // not finite, or no bound, type or fact of a model
  kFull,    // one more than a model can count: 2,147,483,646 of each kind
  kBusy,    // the model is being read, simplified or written: a callback must not change it
  kSystem,  // the system has refused something; the text has its words
  kFailed,  // anything else
};

class QUARVEL_API Error : public std::runtime_error {
 public:
  Error(ErrorCode code, const std::string& text);
  ~Error() override;

  ErrorCode code() const noexcept { return code_; }

 private:
  ErrorCode code_;
};

}  // namespace quarvel
