#include "automation/class_factory.h"

#include <utility>

#include "automation/call_guard.h"
#include "automation/com_ptr.h"
#include "automation/lp_model_object.h"

namespace quarvel::automation {

ClassFactory::ClassFactory(DesktopMaker make_desktop) : make_desktop_(std::move(make_desktop)) {}

STDMETHODIMP ClassFactory::QueryInterface(REFIID iid, void** object) {
  if (object == nullptr) return E_POINTER;
  const bool known = iid == __uuidof(IUnknown) || iid == __uuidof(IClassFactory);
  *object = known ? static_cast<IClassFactory*>(this) : nullptr;
  if (!known) return E_NOINTERFACE;
  AddRef();
  return S_OK;
}

STDMETHODIMP_(ULONG) ClassFactory::AddRef() {
  return static_cast<ULONG>(InterlockedIncrement(&references_));
}

STDMETHODIMP_(ULONG) ClassFactory::Release() {
  const LONG left = InterlockedDecrement(&references_);
  if (left == 0) delete this;
  return static_cast<ULONG>(left);
}

STDMETHODIMP ClassFactory::CreateInstance(IUnknown* outer, REFIID iid, void** object) {
  return GuardedCall(this, [&] {
    RequirePointer(object);
    *object = nullptr;
    if (outer != nullptr) return CLASS_E_NOAGGREGATION;
    const ComPtr<_LPModel> made(new LPModelObject(make_desktop_()));
    return made->QueryInterface(iid, object);
  });
}

STDMETHODIMP ClassFactory::LockServer(BOOL lock) {
  if (lock) {
    ModuleUse::Begin();
  } else {
    ModuleUse::End();
  }
  return S_OK;
}

}  // namespace quarvel::automation
