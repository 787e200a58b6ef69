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
#include "model/lp_model.h"
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

  // --- public variables (public_variables.cpp) ---
  STDMETHODIMP get_strMPSFile(BSTR* result) override;
  STDMETHODIMP put_strMPSFile(BSTR value) override;
  STDMETHODIMP get_ReadMPSFileErr(SHORT* result) override;
  STDMETHODIMP put_ReadMPSFileErr(SHORT value) override;
  STDMETHODIMP get_frmViewEquationsIsShowing(VARIANT_BOOL* result) override;
  STDMETHODIMP put_frmViewEquationsIsShowing(VARIANT_BOOL value) override;
  STDMETHODIMP get_showFrm(VARIANT* result) override;
  STDMETHODIMP put_showFrm(VARIANT value) override;
  STDMETHODIMP putref_showFrm(VARIANT value) override;

  // --- queries (object_queries.cpp) ---
  STDMETHODIMP get_ColElementrow(LONG j, LONG k, LONG* result) override;
  STDMETHODIMP get_ColElementvalue(LONG j, LONG k, DOUBLE* result) override;
  STDMETHODIMP get_ColNumberElements(LONG j, LONG* result) override;
  STDMETHODIMP get_ColUpperBound(LONG j, DOUBLE* result) override;
  STDMETHODIMP get_ColLowerBound(LONG j, DOUBLE* result) override;
  STDMETHODIMP get_ColName(LONG j, BSTR* result) override;
  STDMETHODIMP get_ColType(LONG j, BSTR* result) override;
  STDMETHODIMP get_RowEquation(LONG i, BSTR* result) override;
  STDMETHODIMP RowGradient(LONG RowNum, SAFEARRAY** Gradient, SHORT* result) override;
  STDMETHODIMP get_ElementValue(LONG i, LONG j, DOUBLE* result) override;
  STDMETHODIMP get_FileLocation(BSTR* result) override;
  STDMETHODIMP get_NumberOfElements(LONG* result) override;
  STDMETHODIMP get_NumberOfColumns(LONG* result) override;
  STDMETHODIMP get_NumberOfRows(LONG* result) override;
  STDMETHODIMP get_NumberOfBindingRows(LONG* result) override;
  STDMETHODIMP get_NumberOfNonBindingRows(LONG* result) override;
  STDMETHODIMP get_ModelDescription(BSTR* result) override;
  STDMETHODIMP get_ModelName(BSTR* result) override;
  STDMETHODIMP get_RowElementCol(LONG i, LONG k, LONG* result) override;
  STDMETHODIMP get_RowElementValue(LONG i, LONG k, DOUBLE* result) override;
  STDMETHODIMP get_RowName(LONG i, BSTR* result) override;
  STDMETHODIMP get_RowNumberElements(LONG i, LONG* result) override;
  STDMETHODIMP get_RowType(LONG i, BSTR* result) override;
  STDMETHODIMP get_RowLowerBound(LONG i, DOUBLE* result) override;
  STDMETHODIMP get_RowUpperBound(LONG i, DOUBLE* result) override;
  STDMETHODIMP RowBodyValue(LONG RowNum, SAFEARRAY** Point, DOUBLE* Answer, SHORT* result) override;
  STDMETHODIMP ViewEquationsWindowIsShowing(VARIANT_BOOL* result) override;
  STDMETHODIMP get_NonBindingRowIndex(LONG i, LONG* result) override;
  STDMETHODIMP get_BindingRowIndex(LONG i, LONG* result) override;
  STDMETHODIMP get_NumNonBindingRows(LONG* result) override;
  STDMETHODIMP get_NumBindingRows(LONG* result) override;

  // --- writes and edits (object_edits.cpp) ---
  STDMETHODIMP put_SetColUpperBound(LONG j, VARIANT* value) override;
  STDMETHODIMP put_SetColLowerBound(LONG j, VARIANT* value) override;
  STDMETHODIMP put_SetColName(LONG col, VARIANT* value) override;
  STDMETHODIMP put_SetColType(LONG j, VARIANT* value) override;
  STDMETHODIMP put_SetModelDescription(VARIANT* value) override;
  STDMETHODIMP put_SetModelName(VARIANT* value) override;
  STDMETHODIMP put_SetRowName(LONG row, VARIANT* value) override;
  STDMETHODIMP put_SetRowElementValue(LONG row, LONG rowele, VARIANT* value) override;
  STDMETHODIMP put_SetRowType(LONG i, VARIANT* value) override;
  STDMETHODIMP put_SetRowLowerBound(LONG i, VARIANT* value) override;
  STDMETHODIMP put_SetRowUpperBound(LONG i, VARIANT* value) override;
  STDMETHODIMP DeleteRow(LONG row, SHORT* result) override;
  STDMETHODIMP DeleteColumn(LONG col, SHORT* result) override;
  STDMETHODIMP DeleteElement(LONG row, LONG ele, SHORT* result) override;
  STDMETHODIMP MakeNewModel() override;
  STDMETHODIMP AddElement(LONG row, LONG col, DOUBLE val) override;
  STDMETHODIMP AddRow(BSTR RowName, SHORT* result) override;
  STDMETHODIMP AddColumn(BSTR ColName, SHORT* result) override;
  STDMETHODIMP SetDefaultToPlusMinusInfinity(VARIANT_BOOL* val) override;

  // --- files, windows, simplifying (object_jobs.cpp) ---
  STDMETHODIMP ReadMPSFile(SHORT* result) override;
  STDMETHODIMP StartFileReding(SHORT* result) override;
  STDMETHODIMP DisplayAuthor() override;
  STDMETHODIMP ViewEquations(VARIANT_BOOL* EditingIsEnabled) override;
  STDMETHODIMP ViewCol(LONG ColNum, VARIANT_BOOL* EditingIsEnabled) override;
  STDMETHODIMP ViewRow(LONG RowNum, VARIANT_BOOL* EditingIsEnabled) override;
  STDMETHODIMP ViewNonBindingRow(LONG RowNum, VARIANT_BOOL* EditingIsEnabled) override;
  STDMETHODIMP ViewBindingRow(LONG RowNum, VARIANT_BOOL* EditingIsEnabled) override;
  STDMETHODIMP SaveAsMPSFile(SHORT* result) override;
  STDMETHODIMP SaveMPSFile(BSTR* FileLoc, SHORT* result) override;
  STDMETHODIMP SimplifyMPSModel() override;
  STDMETHODIMP NewMPSModel() override;

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
