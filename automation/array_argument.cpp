#include "automation/array_argument.h"

#include <bit>
#include <cstdint>
#include <new>
#include <string>

#include <dispex.h>

#include "automation/bstr.h"
#include "automation/com_ptr.h"
#include "automation/model_values.h"

namespace quarvel::automation {
namespace {

// Stands in slots of a copy that nothing was written to: no number that a model holds.
constexpr std::uint64_t kUntouched = 0x7FF8'5175'6172'7665;

bool IsUntouched(double slot) { return std::bit_cast<std::uint64_t>(slot) == kUntouched; }

HRESULT FindItem(IDispatch* object, std::wstring name, DISPID& id) {
  LPOLESTR names[] = {name.data()};
  return object->GetIDsOfNames(IID_NULL, names, 1, kConversionLocale, &id);
}

HRESULT GetItem(IDispatch* object, const std::wstring& name, VARTYPE type, VariantHolder& value) {
  DISPID id = DISPID_UNKNOWN;
  // A script's array has no member for a slot that was never set.
  if (FAILED(FindItem(object, name, id))) return S_FALSE;
  DISPPARAMS none = {};
  const HRESULT read = object->Invoke(id, IID_NULL, kConversionLocale, DISPATCH_PROPERTYGET, &none,
                                      value.Receive(), nullptr, nullptr);
  if (FAILED(read) || type == VT_VARIANT) return read;
  return VariantChangeTypeEx(&value.value(), &value.value(), kConversionLocale, 0, type);
}

// As a script's own assignment does: a slot that was never set is made.
HRESULT EnsureItem(IDispatch* object, const std::wstring& name, DISPID& id) {
  ComPtr<IDispatchEx> script_object;
  if (FAILED(object->QueryInterface(__uuidof(IDispatchEx), script_object.ReceiveVoid()))) {
    return FindItem(object, name, id);
  }
  const Bstr text(text::Utf16ToUtf8(std::u16string(name.begin(), name.end())));
  return script_object->GetDispID(text.get(), fdexNameEnsure | fdexNameCaseSensitive, &id);
}

HRESULT PutItem(IDispatch* object, const std::wstring& name, double number) {
  DISPID id = DISPID_UNKNOWN;
  const HRESULT found = EnsureItem(object, name, id);
  if (FAILED(found)) return found;
  VARIANT value;
  V_VT(&value) = VT_R8;
  V_R8(&value) = number;
  DISPID put = DISPID_PROPERTYPUT;
  DISPPARAMS arguments = {&value, &put, 1, 1};
  return object->Invoke(id, IID_NULL, kConversionLocale, DISPATCH_PROPERTYPUT, &arguments, nullptr,
                        nullptr, nullptr);
}

}  // namespace

ArrayArgument::~ArrayArgument() {
  if (variants_ != nullptr) SafeArrayUnaccessData(variants_);
}

HRESULT ArrayArgument::Bind(VARIANT& given, bool written) {
  written_ = written;
  address_ = copy_.address();
  const bool by_reference = V_ISBYREF(&given);
  const auto type = static_cast<VARTYPE>(V_VT(&given) & ~VT_BYREF);
  if ((type & VT_ARRAY) != 0) {
    SAFEARRAY** const array = by_reference ? V_ARRAYREF(&given) : &V_ARRAY(&given);
    return BindSafeArray(array, static_cast<VARTYPE>(type & ~VT_ARRAY));
  }
  if (type != VT_DISPATCH) return DISP_E_TYPEMISMATCH;
  return BindObject(by_reference ? *V_DISPATCHREF(&given) : V_DISPATCH(&given));
}

HRESULT ArrayArgument::BindSafeArray(SAFEARRAY** array, VARTYPE type) {
  if (type == VT_R8 || *array == nullptr) {
    address_ = array;
    return *array == nullptr || SafeArrayGetDim(*array) == 1 ? S_OK : DISP_E_TYPEMISMATCH;
  }
  if (type != VT_VARIANT || SafeArrayGetDim(*array) != 1) return DISP_E_TYPEMISMATCH;
  const SAFEARRAYBOUND bound = (*array)->rgsabound[0];
  Allocate(bound.lLbound, bound.cElements);
  VARIANT* items = nullptr;
  HRESULT result = SafeArrayAccessData(*array, reinterpret_cast<void**>(&items));
  if (FAILED(result)) return result;
  variants_ = *array;
  for (std::size_t i = 0; i < bound.cElements && SUCCEEDED(result); ++i) {
    result = FillFrom(i, items[i]);
  }
  return result;
}

HRESULT ArrayArgument::BindObject(IDispatch* object) {
  VariantHolder length;
  if (object == nullptr || GetItem(object, L"length", VT_I4, length) != S_OK ||
      V_I4(&length.value()) < 0) {
    return DISP_E_TYPEMISMATCH;
  }
  const auto count = static_cast<ULONG>(V_I4(&length.value()));
  Allocate(0, count);
  object_ = object;
  for (std::size_t i = 0; i < count; ++i) {
    VariantHolder item;
    HRESULT result = written_ ? S_OK : GetItem(object, std::to_wstring(i), VT_VARIANT, item);
    if (SUCCEEDED(result)) result = FillFrom(i, item.value());
    if (FAILED(result)) return result;
  }
  return S_OK;
}

HRESULT ArrayArgument::FillFrom(std::size_t item, VARIANT& value) {
  if (written_) {
    doubles()[item] = std::bit_cast<double>(kUntouched);
    return S_OK;
  }
  VARIANT* const inner = Dereference(&value);
  if (inner == nullptr) return DISP_E_TYPEMISMATCH;
  VariantHolder number;
  const HRESULT changed = VariantChangeTypeEx(number.Receive(), inner, kConversionLocale, 0, VT_R8);
  if (SUCCEEDED(changed)) doubles()[item] = V_R8(&number.value());
  return changed;
}

void ArrayArgument::Allocate(LONG lower_bound, ULONG count) {
  copy_ = SafeArrayHolder(SafeArrayCreateVector(VT_R8, lower_bound, count));
  if (copy_.get() == nullptr) throw std::bad_alloc();
}

HRESULT ArrayArgument::WriteBack() {
  if (!written_ || copy_.get() == nullptr) return S_OK;
  for (std::size_t i = 0; i < copy_.get()->rgsabound[0].cElements; ++i) {
    const double number = doubles()[i];
    if (IsUntouched(number)) continue;
    const HRESULT put = WriteItem(i, number);
    if (FAILED(put)) return put;
  }
  return S_OK;
}

HRESULT ArrayArgument::WriteItem(std::size_t item, double number) {
  if (object_ != nullptr) return PutItem(object_, std::to_wstring(item), number);
  VARIANT value;
  V_VT(&value) = VT_R8;
  V_R8(&value) = number;
  LONG index = variants_->rgsabound[0].lLbound + static_cast<LONG>(item);
  return SafeArrayPutElement(variants_, &index, &value);
}

}  // namespace quarvel::automation
