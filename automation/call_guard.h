// The one place where failures of the component become what a COM caller understands. Nothing is
// ever thrown across the interface.
#pragma once

#include <utility>

#include <windows.h>
#include <oleauto.h>

#include "automation/com_ptr.h"

namespace quarvel::automation {

// A failure that is a result code and nothing more: a null pointer for a result.
struct PlainFailure {
  HRESULT code;
};

inline void RequirePointer(const void* pointer) {
  if (pointer == nullptr) throw PlainFailure{E_POINTER};
}

// The exception being handled, as the result code to return. Source and description are left in the
// thread's error object. The component's own numbers stay as they are; run-time number n becomes
// 0x800A0000 + n, which scripts show as n. Call only inside a catch block.
HRESULT ReportCurrentError() noexcept;

// Runs `operation`, which returns a result code, for a call on `object`. Error information that an
// earlier call left behind is dropped first, and the object outlives the call whatever a host does
// to its references meanwhile.
template <class Operation>
HRESULT GuardedCall(IUnknown* object, Operation operation) noexcept {
  const auto alive = ComPtr<IUnknown>::Share(object);
  SetErrorInfo(0, nullptr);
  try {
    return operation();
  } catch (...) {
    return ReportCurrentError();
  }
}

}  // namespace quarvel::automation
