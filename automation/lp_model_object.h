// The COM object: one model behind the interface _LPModel, early bound through the interface's own
// order and late bound by name. Lives on the thread that created it.
//
// Every call returns a result code; failures carry source and description in the thread's error
// object. A null pointer for a result or for an argument that is passed by address is E_POINTER.
#pragma once

#include <memory>

#include <windows.h>
#include <quarvel_idl.h>

#include "automation/module_use.h"
#include "component/lp_model.h"
#include "platform/desktop.h"

namespace quarvel::automation {

class LPModelObject final : public _LPModel, public ISupportErrorInfo {
 public:
  // Starts with one reference, the caller's. Shows itself to its user through `desktop`.
  explicit LPModelObject(std::unique_ptr<platform::Desktop> desktop);
  LPModelObject(const LPModelObject&) = delete;
  LPModelObject& operator=(const LPModelObject&) = delete;

  // --- IUnknown, ISupportErrorInfo ---
  STDMETHODIMP QueryInterface(REFIID iid, void** object) override;
  STDMETHODIMP_(ULONG) AddRef() override;
  STDMETHODIMP_(ULONG) Release() override;
  STDMETHODIMP InterfaceSupportsErrorInfo(REFIID iid) override;

  // --- IDispatch ---
  STDMETHODIMP GetTypeInfoCount(UINT* count) override;
  STDMETHODIMP GetTypeInfo(UINT index, LCID locale, ITypeInfo** info) override;
  STDMETHODIMP GetIDsOfNames(REFIID iid, LPOLESTR* names, UINT count, LCID locale,
                             DISPID* ids) override;
  STDMETHODIMP Invoke(DISPID id, REFIID iid, LCID locale, WORD flags, DISPPARAMS* arguments,
                      VARIANT* result, EXCEPINFO* failure, UINT* argument) override;

  // --- the members of _LPModel, as quarvel.idl lists them (made by members.awk) ---
  // They are written in public_variables.cpp, object_queries.cpp, object_edits.cpp and
  // object_jobs.cpp.
#include <quarvel_object_members.inc>

 protected:
  // Only the last release ends its life.
  ~LPModelObject() = default;

 private:
  IUnknown* identity() { return static_cast<_LPModel*>(this); }
  // Calls that give a result, that need nothing checked, and that read an argument through a
  // pointer (object_calls.h).
  template <class Result, class Query>
  HRESULT Get(Result* result, Query query);
  template <class Operation>
  HRESULT Do(Operation operation);
  template <class Value, class Operation>
  HRESULT DoWith(Value* value, Operation operation);

  // Counted first, so that the module stays until everything else of the object is gone.
  ModuleUse module_use_;
  LONG references_ = 1;
  std::unique_ptr<platform::Desktop> desktop_;
  LPModel model_;
};

}  // namespace quarvel::automation
