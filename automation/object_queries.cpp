#include "automation/object_calls.h"
#include "automation/safe_array.h"

namespace quarvel::automation {

STDMETHODIMP LPModelObject::get_ColElementrow(LONG j, LONG k, LONG* result) {
  return Get(result, [&] { return model_.ColElementrow(j, k); });
}

STDMETHODIMP LPModelObject::get_ColElementvalue(LONG j, LONG k, DOUBLE* result) {
  return Get(result, [&] { return model_.ColElementvalue(j, k); });
}

STDMETHODIMP LPModelObject::get_ColNumberElements(LONG j, LONG* result) {
  return Get(result, [&] { return model_.ColNumberElements(j); });
}

STDMETHODIMP LPModelObject::get_ColUpperBound(LONG j, DOUBLE* result) {
  return Get(result, [&] { return model_.ColUpperBound(j); });
}

STDMETHODIMP LPModelObject::get_ColLowerBound(LONG j, DOUBLE* result) {
  return Get(result, [&] { return model_.ColLowerBound(j); });
}

STDMETHODIMP LPModelObject::get_ColName(LONG j, BSTR* result) {
  return Get(result, [&] { return model_.ColName(j); });
}

STDMETHODIMP LPModelObject::get_ColType(LONG j, BSTR* result) {
  return Get(result, [&] { return model_.ColType(j); });
}

STDMETHODIMP LPModelObject::get_RowEquation(LONG i, BSTR* result) {
  return Get(result, [&] { return model_.RowEquation(i); });
}

STDMETHODIMP LPModelObject::RowGradient(LONG RowNum, SAFEARRAY** Gradient, SHORT* result) {
  return Get(result, [&] {
    RequirePointer(Gradient);
    const LockedDoubles gradient(*Gradient);
    return model_.RowGradient(RowNum, gradient.values(), gradient.lower_bound());
  });
}

STDMETHODIMP LPModelObject::get_ElementValue(LONG i, LONG j, DOUBLE* result) {
  return Get(result, [&] { return model_.ElementValue(i, j); });
}

STDMETHODIMP LPModelObject::get_FileLocation(BSTR* result) {
  return Get(result, [&] { return model_.FileLocation(); });
}

STDMETHODIMP LPModelObject::get_NumberOfElements(LONG* result) {
  return Get(result, [&] { return model_.NumberOfElements(); });
}

STDMETHODIMP LPModelObject::get_NumberOfColumns(LONG* result) {
  return Get(result, [&] { return model_.NumberOfColumns(); });
}

STDMETHODIMP LPModelObject::get_NumberOfRows(LONG* result) {
  return Get(result, [&] { return model_.NumberOfRows(); });
}

STDMETHODIMP LPModelObject::get_NumberOfBindingRows(LONG* result) {
  return Get(result, [&] { return model_.NumberOfBindingRows(); });
}

STDMETHODIMP LPModelObject::get_NumberOfNonBindingRows(LONG* result) {
  return Get(result, [&] { return model_.NumberOfNonBindingRows(); });
}

STDMETHODIMP LPModelObject::get_ModelDescription(BSTR* result) {
  return Get(result, [&] { return model_.ModelDescription(); });
}

STDMETHODIMP LPModelObject::get_ModelName(BSTR* result) {
  return Get(result, [&] { return model_.ModelName(); });
}

STDMETHODIMP LPModelObject::get_RowElementCol(LONG i, LONG k, LONG* result) {
  return Get(result, [&] { return model_.RowElementCol(i, k); });
}

STDMETHODIMP LPModelObject::get_RowElementValue(LONG i, LONG k, DOUBLE* result) {
  return Get(result, [&] { return model_.RowElementValue(i, k); });
}

STDMETHODIMP LPModelObject::get_RowName(LONG i, BSTR* result) {
  return Get(result, [&] { return model_.RowName(i); });
}

STDMETHODIMP LPModelObject::get_RowNumberElements(LONG i, LONG* result) {
  return Get(result, [&] { return model_.RowNumberElements(i); });
}

STDMETHODIMP LPModelObject::get_RowType(LONG i, BSTR* result) {
  return Get(result, [&] { return model_.RowType(i); });
}

STDMETHODIMP LPModelObject::get_RowLowerBound(LONG i, DOUBLE* result) {
  return Get(result, [&] { return model_.RowLowerBound(i); });
}

STDMETHODIMP LPModelObject::get_RowUpperBound(LONG i, DOUBLE* result) {
  return Get(result, [&] { return model_.RowUpperBound(i); });
}

STDMETHODIMP LPModelObject::RowBodyValue(LONG RowNum, SAFEARRAY** Point, DOUBLE* Answer,
                                         SHORT* result) {
  return Get(result, [&] {
    RequirePointer(Point);
    RequirePointer(Answer);
    const LockedDoubles point(*Point);
    return model_.RowBodyValue(RowNum, point.values(), *Answer, point.lower_bound());
  });
}

STDMETHODIMP LPModelObject::ViewEquationsWindowIsShowing(VARIANT_BOOL* result) {
  return Get(result, [&] { return model_.ViewEquationsWindowIsShowing(); });
}

STDMETHODIMP LPModelObject::get_NonBindingRowIndex(LONG i, LONG* result) {
  return Get(result, [&] { return model_.NonBindingRowIndex(i); });
}

STDMETHODIMP LPModelObject::get_BindingRowIndex(LONG i, LONG* result) {
  return Get(result, [&] { return model_.BindingRowIndex(i); });
}

STDMETHODIMP LPModelObject::get_NumNonBindingRows(LONG* result) {
  return Get(result, [&] { return model_.NumNonBindingRows(); });
}

STDMETHODIMP LPModelObject::get_NumBindingRows(LONG* result) {
  return Get(result, [&] { return model_.NumBindingRows(); });
}

}  // namespace quarvel::automation
