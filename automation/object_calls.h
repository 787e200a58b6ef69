// How the operations of LPModelObject are written: one guarded call each. For its sources only.
#pragma once

#include <cstdint>
#include <string>

#include "automation/bstr.h"
#include "automation/call_guard.h"
#include "automation/lp_model_object.h"

namespace quarvel::automation {

// Results of the model as the interface hands them out; the texts pass to the caller.
inline BSTR ToResult(const std::string& text) { return Bstr(text).Detach(); }
inline VARIANT_BOOL ToResult(bool value) { return value ? VARIANT_TRUE : VARIANT_FALSE; }
inline LONG ToResult(std::int32_t value) { return value; }
inline SHORT ToResult(std::int16_t value) { return value; }
inline double ToResult(double value) { return value; }

// The caller's result is zero or null unless the query succeeds.
template <class Result, class Query>
HRESULT LPModelObject::Get(Result* result, Query query) {
  return GuardedCall(identity(), [&] {
    RequirePointer(result);
    *result = {};
    *result = ToResult(query());
    return S_OK;
  });
}

template <class Operation>
HRESULT LPModelObject::Do(Operation operation) {
  return GuardedCall(identity(), [&] {
    operation();
    return S_OK;
  });
}

template <class Value, class Operation>
HRESULT LPModelObject::DoWith(Value* value, Operation operation) {
  return GuardedCall(identity(), [&] {
    RequirePointer(value);
    operation();
    return S_OK;
  });
}

}  // namespace quarvel::automation
