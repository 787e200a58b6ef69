#include "automation/safe_array.h"

#include "platform/automation_error.h"

namespace quarvel::automation {

LockedDoubles::LockedDoubles(SAFEARRAY* array) {
  if (array == nullptr) return;
  VARTYPE type = VT_EMPTY;
  void* data = nullptr;
  if (SafeArrayGetDim(array) != 1 || FAILED(SafeArrayGetVartype(array, &type)) || type != VT_R8 ||
      FAILED(SafeArrayAccessData(array, &data))) {
    RaiseRunTimeError(RunTimeError::kTypeMismatch);
  }
  locked_ = array;
  values_ = {static_cast<double*>(data), array->rgsabound[0].cElements};
  lower_bound_ = array->rgsabound[0].lLbound;
}

LockedDoubles::~LockedDoubles() {
  if (locked_ != nullptr) SafeArrayUnaccessData(locked_);
}

}  // namespace quarvel::automation
