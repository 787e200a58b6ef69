#include "automation/lp_model_object.h"

#include <utility>

#include "automation/call_guard.h"
#include "automation/invoke.h"
#include "automation/type_library.h"

namespace quarvel::automation {

LPModelObject::LPModelObject(std::unique_ptr<platform::Desktop> desktop)
    : desktop_(std::move(desktop)), model_(*desktop_) {}

STDMETHODIMP LPModelObject::QueryInterface(REFIID iid, void** object) {
  if (object == nullptr) return E_POINTER;
  *object = nullptr;
  if (iid == __uuidof(IUnknown) || iid == __uuidof(IDispatch) || iid == __uuidof(_LPModel)) {
    *object = static_cast<_LPModel*>(this);
  } else if (iid == __uuidof(ISupportErrorInfo)) {
    *object = static_cast<ISupportErrorInfo*>(this);
  } else {
    return E_NOINTERFACE;
  }
  AddRef();
  return S_OK;
}

STDMETHODIMP_(ULONG) LPModelObject::AddRef() {
  return static_cast<ULONG>(InterlockedIncrement(&references_));
}

STDMETHODIMP_(ULONG) LPModelObject::Release() {
  const LONG left = InterlockedDecrement(&references_);
  if (left > 0) return static_cast<ULONG>(left);
  // A host's object that goes with this one may still take and release references to it.
  references_ = 1;
  delete this;
  return 0;
}

STDMETHODIMP LPModelObject::InterfaceSupportsErrorInfo(REFIID iid) {
  return iid == __uuidof(_LPModel) || iid == __uuidof(IDispatch) ? S_OK : S_FALSE;
}

STDMETHODIMP LPModelObject::GetTypeInfoCount(UINT* count) {
  if (count == nullptr) return E_POINTER;
  *count = 1;
  return S_OK;
}

STDMETHODIMP LPModelObject::GetTypeInfo(UINT index, LCID, ITypeInfo** info) {
  return GuardedCall(identity(), [&] {
    RequirePointer(info);
    *info = nullptr;
    return index == 0 ? LoadInterfaceInfo(info) : DISP_E_BADINDEX;
  });
}

STDMETHODIMP LPModelObject::GetIDsOfNames(REFIID iid, LPOLESTR* names, UINT count, LCID,
                                          DISPID* ids) {
  if (iid != IID_NULL) return DISP_E_UNKNOWNINTERFACE;
  if (names == nullptr || ids == nullptr) return E_POINTER;
  if (count == 0) return E_INVALIDARG;
  return FindNames(names, count, ids);
}

STDMETHODIMP LPModelObject::Invoke(DISPID id, REFIID iid, LCID, WORD flags, DISPPARAMS* arguments,
                                   VARIANT* result, EXCEPINFO* failure, UINT* argument) {
  if (iid != IID_NULL) return DISP_E_UNKNOWNINTERFACE;
  return GuardedCall(identity(), [&] {
    RequirePointer(arguments);
    if (result != nullptr) VariantInit(result);
    return InvokeMember(*this, id, flags, arguments, result, failure, argument);
  });
}

}  // namespace quarvel::automation
