// One argument of a late-bound call on its way to a member: what a script host passes, variables by
// reference included, becomes the exact type that the member takes, and what the member wrote goes
// back into the caller's variable.
#pragma once

#include <windows.h>
#include <oleauto.h>

#include "automation/array_argument.h"
#include "automation/members.h"
#include "automation/variant_holder.h"

namespace quarvel::automation {

class BoundArgument {
 public:
  // Converts what the caller gives, which must stay where it is until the call is over. The result
  // codes are those of the dispatch interface: DISP_E_TYPEMISMATCH, DISP_E_OVERFLOW,
  // DISP_E_PARAMNOTOPTIONAL. Raises std::bad_alloc.
  HRESULT Bind(ArgumentKind kind, VARIANT& given);

  // What the member takes, and its type: a value, or its address with VT_BYREF in the type.
  VARIANT* passed() { return &passed_; }
  VARTYPE type() const {
    return kind_ == ArgumentKind::kVariant ? VARTYPE{VT_VARIANT} : V_VT(&passed_);
  }

  // Hands back what the member wrote; nothing for arguments that are only read.
  HRESULT WriteBack();

 private:
  HRESULT BindKind();
  HRESULT BindValue(VARTYPE type, bool by_address);
  HRESULT BindVariant(bool by_address);
  void BindWrittenDouble();
  HRESULT BindArray(bool written);
  void PassAddress(VARTYPE type);

  ArgumentKind kind_ = ArgumentKind::kLong;
  VARIANT* given_ = nullptr;
  VariantHolder value_;  // the converted value
  ArrayArgument array_;  // or the converted array
  VARIANT passed_ = {};  // owns nothing
};

}  // namespace quarvel::automation
