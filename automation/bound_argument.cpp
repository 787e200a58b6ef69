#include "automation/bound_argument.h"

#include <cstddef>
#include <cstring>

#include "automation/model_values.h"

namespace quarvel::automation {
namespace {

bool IsMissing(const VARIANT& given) {
  return V_VT(&given) == VT_ERROR && V_ERROR(&given) == DISP_E_PARAMNOTFOUND;
}

// The size of a plain value of that type; 0 for a type that is none.
std::size_t PlainSize(VARTYPE type) {
  switch (type) {
    case VT_I1:
    case VT_UI1:
      return 1;
    case VT_I2:
    case VT_UI2:
    case VT_BOOL:
      return 2;
    case VT_I4:
    case VT_UI4:
    case VT_INT:
    case VT_UINT:
    case VT_R4:
      return 4;
    case VT_I8:
    case VT_UI8:
    case VT_R8:
    case VT_CY:
    case VT_DATE:
      return 8;
    default:
      return 0;
  }
}

// The system has more names for what it cannot convert than a caller is to be told.
HRESULT AsRefusal(HRESULT bound) {
  const bool is_told = SUCCEEDED(bound) || bound == DISP_E_OVERFLOW || bound == E_OUTOFMEMORY ||
                       bound == E_UNEXPECTED;
  return is_told ? bound : DISP_E_TYPEMISMATCH;
}

// Puts a number into a caller's variable of plain type, keeping that type.
HRESULT WritePlain(double number, VARIANT& variable) {
  const auto type = static_cast<VARTYPE>(V_VT(&variable) & ~VT_BYREF);
  VARIANT source;
  V_VT(&source) = VT_R8;
  V_R8(&source) = number;
  VariantHolder converted;
  const HRESULT changed =
      VariantChangeTypeEx(converted.Receive(), &source, kConversionLocale, 0, type);
  if (FAILED(changed)) return changed;
  if (type == VT_BSTR) {
    SysFreeString(*V_BSTRREF(&variable));
    *V_BSTRREF(&variable) = V_BSTR(&converted.value());
    converted.Detach();
    return S_OK;
  }
  if (type == VT_DECIMAL) {
    *V_DECIMALREF(&variable) = V_DECIMAL(&converted.value());
    V_DECIMALREF(&variable)->wReserved = 0;  // where a variant has its type
    return S_OK;
  }
  if (PlainSize(type) == 0) return DISP_E_TYPEMISMATCH;
  std::memcpy(V_BYREF(&variable), &V_NONE(&converted.value()), PlainSize(type));
  return S_OK;
}

}  // namespace

HRESULT BoundArgument::Bind(ArgumentKind kind, VARIANT& given) {
  kind_ = kind;
  given_ = &given;
  const VARIANT* const inner = Dereference(&given);
  if (inner == nullptr) return DISP_E_TYPEMISMATCH;
  if (IsMissing(*inner)) return DISP_E_PARAMNOTOPTIONAL;
  return AsRefusal(BindKind());
}

HRESULT BoundArgument::BindKind() {
  switch (kind_) {
    case ArgumentKind::kLong:
      return BindValue(VT_I4, false);
    case ArgumentKind::kShort:
      return BindValue(VT_I2, false);
    case ArgumentKind::kDouble:
      return BindValue(VT_R8, false);
    case ArgumentKind::kBoolean:
      return BindValue(VT_BOOL, false);
    case ArgumentKind::kText:
      return BindValue(VT_BSTR, false);
    case ArgumentKind::kVariant:
      return BindVariant(false);
    case ArgumentKind::kBooleanRef:
      return BindValue(VT_BOOL, true);
    case ArgumentKind::kTextRef:
      return BindValue(VT_BSTR, true);
    case ArgumentKind::kVariantRef:
      return BindVariant(true);
    case ArgumentKind::kReadArray:
      return BindArray(false);
    case ArgumentKind::kWrittenArray:
      return BindArray(true);
    case ArgumentKind::kWrittenDouble:
      BindWrittenDouble();
      return S_OK;
  }
  return E_UNEXPECTED;
}

HRESULT BoundArgument::BindValue(VARTYPE type, bool by_address) {
  VARIANT* const inner = Dereference(given_);
  if (V_VT(inner) == type && !by_address) {
    passed_ = *inner;
    return S_OK;
  }
  const HRESULT changed =
      VariantChangeTypeEx(value_.Receive(), inner, kConversionLocale, VARIANT_ALPHABOOL, type);
  if (FAILED(changed)) return changed;
  if (by_address) {
    PassAddress(type);
  } else {
    passed_ = value_.value();
  }
  return S_OK;
}

HRESULT BoundArgument::BindVariant(bool by_address) {
  const HRESULT copied = VariantCopyInd(value_.Receive(), Dereference(given_));
  if (FAILED(copied)) return DISP_E_TYPEMISMATCH;
  if (by_address) {
    V_VT(&passed_) = VT_BYREF | VT_VARIANT;
    V_VARIANTREF(&passed_) = &value_.value();
  } else {
    passed_ = value_.value();
  }
  return S_OK;
}

// Whatever the variable holds: it is only written.
void BoundArgument::BindWrittenDouble() {
  V_VT(&value_.value()) = VT_R8;
  V_R8(&value_.value()) = 0;
  PassAddress(VT_R8);
}

HRESULT BoundArgument::BindArray(bool written) {
  const HRESULT bound = array_.Bind(*Dereference(given_), written);
  V_VT(&passed_) = VT_BYREF | VT_ARRAY | VT_R8;
  V_ARRAYREF(&passed_) = array_.address();
  return bound;
}

void BoundArgument::PassAddress(VARTYPE type) {
  V_VT(&passed_) = static_cast<VARTYPE>(VT_BYREF | type);
  V_BYREF(&passed_) = &V_NONE(&value_.value());
}

HRESULT BoundArgument::WriteBack() {
  if (kind_ == ArgumentKind::kWrittenArray) return array_.WriteBack();
  if (kind_ != ArgumentKind::kWrittenDouble || !V_ISBYREF(given_)) return S_OK;
  const double number = V_R8(&value_.value());
  VARIANT& variable = *Dereference(given_);
  if (V_ISBYREF(&variable)) return WritePlain(number, variable);
  const HRESULT cleared = VariantClear(&variable);
  if (FAILED(cleared)) return cleared;
  V_VT(&variable) = VT_R8;
  V_R8(&variable) = number;
  return S_OK;
}

}  // namespace quarvel::automation
