#include "automation/model_values.h"
#include "automation/object_calls.h"

namespace quarvel::automation {

STDMETHODIMP LPModelObject::put_SetColUpperBound(LONG j, VARIANT* value) {
  return DoWith(value, [&] { model_.SetColUpperBound(j, ToModelValue(value, Wanted::kNumber)); });
}

STDMETHODIMP LPModelObject::put_SetColLowerBound(LONG j, VARIANT* value) {
  return DoWith(value, [&] { model_.SetColLowerBound(j, ToModelValue(value, Wanted::kNumber)); });
}

STDMETHODIMP LPModelObject::put_SetColName(LONG col, VARIANT* value) {
  return DoWith(value, [&] { model_.SetColName(col, ToModelValue(value, Wanted::kText)); });
}

STDMETHODIMP LPModelObject::put_SetColType(LONG j, VARIANT* value) {
  return DoWith(value, [&] { model_.SetColType(j, ToModelValue(value, Wanted::kText)); });
}

STDMETHODIMP LPModelObject::put_SetModelDescription(VARIANT* value) {
  return DoWith(value, [&] { model_.SetModelDescription(ToModelValue(value, Wanted::kText)); });
}

STDMETHODIMP LPModelObject::put_SetModelName(VARIANT* value) {
  return DoWith(value, [&] { model_.SetModelName(ToModelValue(value, Wanted::kText)); });
}

STDMETHODIMP LPModelObject::put_SetRowName(LONG row, VARIANT* value) {
  return DoWith(value, [&] { model_.SetRowName(row, ToModelValue(value, Wanted::kText)); });
}

STDMETHODIMP LPModelObject::put_SetRowElementValue(LONG row, LONG rowele, VARIANT* value) {
  return DoWith(
      value, [&] { model_.SetRowElementValue(row, rowele, ToModelValue(value, Wanted::kNumber)); });
}

STDMETHODIMP LPModelObject::put_SetRowType(LONG i, VARIANT* value) {
  return DoWith(value, [&] { model_.SetRowType(i, ToModelValue(value, Wanted::kText)); });
}

STDMETHODIMP LPModelObject::put_SetRowLowerBound(LONG i, VARIANT* value) {
  return DoWith(value, [&] { model_.SetRowLowerBound(i, ToModelValue(value, Wanted::kNumber)); });
}

STDMETHODIMP LPModelObject::put_SetRowUpperBound(LONG i, VARIANT* value) {
  return DoWith(value, [&] { model_.SetRowUpperBound(i, ToModelValue(value, Wanted::kNumber)); });
}

STDMETHODIMP LPModelObject::DeleteRow(LONG row, SHORT* result) {
  return Get(result, [&] { return model_.DeleteRow(row); });
}

STDMETHODIMP LPModelObject::DeleteColumn(LONG col, SHORT* result) {
  return Get(result, [&] { return model_.DeleteColumn(col); });
}

STDMETHODIMP LPModelObject::DeleteElement(LONG row, LONG ele, SHORT* result) {
  return Get(result, [&] { return model_.DeleteElement(row, ele); });
}

STDMETHODIMP LPModelObject::MakeNewModel() {
  return Do([&] { model_.MakeNewModel(); });
}

STDMETHODIMP LPModelObject::AddElement(LONG row, LONG col, DOUBLE val) {
  return Do([&] { model_.AddElement(row, col, val); });
}

STDMETHODIMP LPModelObject::AddRow(BSTR RowName, SHORT* result) {
  return Get(result, [&] { return model_.AddRow(Utf8FromBstr(RowName)); });
}

STDMETHODIMP LPModelObject::AddColumn(BSTR ColName, SHORT* result) {
  return Get(result, [&] { return model_.AddColumn(Utf8FromBstr(ColName)); });
}

STDMETHODIMP LPModelObject::SetDefaultToPlusMinusInfinity(VARIANT_BOOL* val) {
  return DoWith(val, [&] { model_.SetDefaultToPlusMinusInfinity(*val != VARIANT_FALSE); });
}

}  // namespace quarvel::automation
