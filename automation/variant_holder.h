// Owns one VARIANT and whatever is in it. Move-only.
#pragma once

#include <new>

#include <windows.h>
#include <oleauto.h>

namespace quarvel::automation {

class VariantHolder {
 public:
  VariantHolder() { VariantInit(&value_); }
  VariantHolder(VariantHolder&& other) noexcept : value_(other.value_) {
    VariantInit(&other.value_);
  }
  VariantHolder& operator=(VariantHolder&& other) noexcept {
    const VARIANT mine = value_;
    value_ = other.value_;
    other.value_ = mine;
    return *this;
  }
  VariantHolder(const VariantHolder&) = delete;
  VariantHolder& operator=(const VariantHolder&) = delete;
  ~VariantHolder() { VariantClear(&value_); }

  VARIANT& value() { return value_; }
  const VARIANT& value() const { return value_; }
  // Where a call is to put a value; the one held so far is cleared.
  VARIANT* Receive() {
    VariantClear(&value_);
    return &value_;
  }
  // The value passes to the caller; this holder is left empty.
  VARIANT Detach() {
    const VARIANT value = value_;
    VariantInit(&value_);
    return value;
  }

 private:
  VARIANT value_;
};

// Of what the system could not do with a value, a lack of memory says nothing about the value:
// raises std::bad_alloc for it. Otherwise true when it has failed.
inline bool HasFailed(HRESULT code) {
  if (code == E_OUTOFMEMORY) throw std::bad_alloc();
  return FAILED(code);
}

}  // namespace quarvel::automation
