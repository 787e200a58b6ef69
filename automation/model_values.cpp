#include "automation/model_values.h"

#include "automation/bstr.h"
#include "platform/automation_error.h"

namespace quarvel::automation {
namespace {

// The value converted by the system; Null when it cannot be.
model::Variant Converted(VARIANT& value, VARTYPE type) {
  VariantHolder result;
  if (HasFailed(VariantChangeTypeEx(result.Receive(), &value, kConversionLocale, 0, type))) {
    return model::Variant::Null{};
  }
  if (type == VT_BSTR) return Utf8FromBstr(V_BSTR(&result.value()));
  return V_R8(&result.value());
}

// An object stands for the value of its default property.
model::Variant FromObject(VARIANT& value, Wanted wanted) {
  VariantHolder property;
  if (V_DISPATCH(&value) == nullptr) return model::Variant::Null{};
  DISPPARAMS none = {};
  const HRESULT read = V_DISPATCH(&value)->Invoke(DISPID_VALUE, IID_NULL, kConversionLocale,
                                                  DISPATCH_PROPERTYGET | DISPATCH_METHOD, &none,
                                                  property.Receive(), nullptr, nullptr);
  if (HasFailed(read) || V_VT(&property.value()) == VT_DISPATCH) return model::Variant::Null{};
  return ToModelValue(&property.value(), wanted);
}

model::Variant FromPlainValue(VARIANT& value, Wanted wanted) {
  switch (V_VT(&value)) {
    case VT_EMPTY:
      return {};
    case VT_BOOL:
      return V_BOOL(&value) != VARIANT_FALSE;
    case VT_BSTR:
      return Utf8FromBstr(V_BSTR(&value));
    case VT_R8:
      return V_R8(&value);
    case VT_DISPATCH:
      return FromObject(value, wanted);
    case VT_R4:
    case VT_DATE:
      // Their texts are not those of the doubles they become: 0.1 and 31.12.2025 are.
      return Converted(value, wanted == Wanted::kText ? VT_BSTR : VT_R8);
    default:
      return Converted(value, VT_R8);
  }
}

}  // namespace

VARIANT* Dereference(VARIANT* variant) {
  while (variant != nullptr && V_VT(variant) == (VT_BYREF | VT_VARIANT)) {
    variant = V_VARIANTREF(variant);
  }
  if (variant != nullptr && V_ISBYREF(variant) && V_BYREF(variant) == nullptr) return nullptr;
  return variant;
}

VariantHolder CopyValue(VARIANT* variant) {
  VARIANT* const inner = Dereference(variant);
  VariantHolder copy;
  if (inner == nullptr || HasFailed(VariantCopyInd(copy.Receive(), inner))) {
    RaiseRunTimeError(RunTimeError::kTypeMismatch);
  }
  return copy;
}

model::Variant ToModelValue(VARIANT* variant, Wanted wanted) {
  VARIANT* const inner = Dereference(variant);
  if (inner == nullptr) return model::Variant::Null{};
  if (!V_ISBYREF(inner)) return FromPlainValue(*inner, wanted);
  VariantHolder copy = CopyValue(inner);
  return FromPlainValue(copy.value(), wanted);
}

}  // namespace quarvel::automation
