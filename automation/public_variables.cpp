#include <any>
#include <memory>

#include "automation/model_values.h"
#include "automation/object_calls.h"

namespace quarvel::automation {
namespace {

// What the model keeps of a host's value: std::any copies, and a VARIANT has one owner.
using KeptValue = std::shared_ptr<VariantHolder>;

std::any Keep(VARIANT& value) {
  return KeptValue(std::make_shared<VariantHolder>(CopyValue(&value)));
}

}  // namespace

STDMETHODIMP LPModelObject::get_strMPSFile(BSTR* result) {
  return Get(result, [&] { return model_.strMPSFile(); });
}

STDMETHODIMP LPModelObject::put_strMPSFile(BSTR value) {
  return Do([&] { model_.strMPSFile(Utf8FromBstr(value)); });
}

STDMETHODIMP LPModelObject::get_ReadMPSFileErr(SHORT* result) {
  return Get(result, [&] { return model_.ReadMPSFileErr(); });
}

STDMETHODIMP LPModelObject::put_ReadMPSFileErr(SHORT value) {
  return Do([&] { model_.ReadMPSFileErr(value); });
}

STDMETHODIMP LPModelObject::get_frmViewEquationsIsShowing(VARIANT_BOOL* result) {
  return Get(result, [&] { return model_.frmViewEquationsIsShowing(); });
}

STDMETHODIMP LPModelObject::put_frmViewEquationsIsShowing(VARIANT_BOOL value) {
  return Do([&] { model_.frmViewEquationsIsShowing(value != VARIANT_FALSE); });
}

// The host's own value, which nothing else in the component reads or sets.
STDMETHODIMP LPModelObject::get_showFrm(VARIANT* result) {
  return GuardedCall(identity(), [&] {
    RequirePointer(result);
    VariantInit(result);
    const auto* kept = std::any_cast<KeptValue>(&model_.showFrm());
    if (kept == nullptr) return S_OK;
    const HRESULT copied = VariantCopy(result, &(*kept)->value());
    return HasFailed(copied) ? copied : S_OK;
  });
}

STDMETHODIMP LPModelObject::put_showFrm(VARIANT value) {
  return Do([&] {
    // The old value goes last: letting it go may run a host's code.
    std::any old = model_.showFrm();
    model_.showFrm(Keep(value));
  });
}

STDMETHODIMP LPModelObject::putref_showFrm(VARIANT value) { return put_showFrm(value); }

}  // namespace quarvel::automation
