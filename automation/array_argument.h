// An array as script hosts have it, for a member that takes an array of doubles: doubles or
// variants, by value or by reference, with the caller's own bounds; or an array object of a script
// (with "length" and members "0", "1" ...), which counts from 0.
#pragma once

#include <cstddef>

#include <windows.h>
#include <oleauto.h>

#include "automation/safe_array.h"
#include "automation/variant_holder.h"

namespace quarvel::automation {

class ArrayArgument {
 public:
  ArrayArgument() = default;
  ArrayArgument(const ArrayArgument&) = delete;
  ArrayArgument& operator=(const ArrayArgument&) = delete;
  ~ArrayArgument();

  // Takes the array in `given`, which must stay there until WriteBack. One that is only written may
  // hold anything; of one that is read each item must be a number. DISP_E_TYPEMISMATCH for what is
  // no array of one dimension. Raises std::bad_alloc.
  HRESULT Bind(VARIANT& given, bool written);

  // The doubles to pass: the caller's own array, or a copy of it.
  SAFEARRAY** address() { return address_; }

  // Puts the items that were written since Bind into the caller's array; they become doubles, the
  // others stay as they are.
  HRESULT WriteBack();

 private:
  HRESULT BindSafeArray(SAFEARRAY** array, VARTYPE type);
  HRESULT BindObject(IDispatch* object);
  HRESULT FillFrom(std::size_t item, VARIANT& value);
  void Allocate(LONG lower_bound, ULONG count);
  double* doubles() { return static_cast<double*>(copy_.get()->pvData); }
  HRESULT WriteItem(std::size_t item, double number);

  bool written_ = false;
  SAFEARRAY** address_ = nullptr;
  SafeArrayHolder copy_;           // when the caller's array holds no doubles
  SAFEARRAY* variants_ = nullptr;  // the caller's array of variants, locked
  IDispatch* object_ = nullptr;    // or the script's array object
};

}  // namespace quarvel::automation
