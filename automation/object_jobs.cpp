#include "automation/object_calls.h"

namespace quarvel::automation {

STDMETHODIMP LPModelObject::ReadMPSFile(SHORT* result) {
  return Get(result, [&] { return model_.ReadMPSFile(); });
}

STDMETHODIMP LPModelObject::StartFileReding(SHORT* result) {
  return Get(result, [&] { return model_.StartFileReding(); });
}

STDMETHODIMP LPModelObject::DisplayAuthor() {
  return Do([&] { model_.DisplayAuthor(); });
}

STDMETHODIMP LPModelObject::ViewEquations(VARIANT_BOOL* EditingIsEnabled) {
  return DoWith(EditingIsEnabled,
                [&] { model_.ViewEquations(*EditingIsEnabled != VARIANT_FALSE); });
}

STDMETHODIMP LPModelObject::ViewCol(LONG ColNum, VARIANT_BOOL* EditingIsEnabled) {
  return DoWith(EditingIsEnabled,
                [&] { model_.ViewCol(ColNum, *EditingIsEnabled != VARIANT_FALSE); });
}

STDMETHODIMP LPModelObject::ViewRow(LONG RowNum, VARIANT_BOOL* EditingIsEnabled) {
  return DoWith(EditingIsEnabled,
                [&] { model_.ViewRow(RowNum, *EditingIsEnabled != VARIANT_FALSE); });
}

STDMETHODIMP LPModelObject::ViewNonBindingRow(LONG RowNum, VARIANT_BOOL* EditingIsEnabled) {
  return DoWith(EditingIsEnabled,
                [&] { model_.ViewNonBindingRow(RowNum, *EditingIsEnabled != VARIANT_FALSE); });
}

STDMETHODIMP LPModelObject::ViewBindingRow(LONG RowNum, VARIANT_BOOL* EditingIsEnabled) {
  return DoWith(EditingIsEnabled,
                [&] { model_.ViewBindingRow(RowNum, *EditingIsEnabled != VARIANT_FALSE); });
}

STDMETHODIMP LPModelObject::SaveAsMPSFile(SHORT* result) {
  return Get(result, [&] { return model_.SaveAsMPSFile(); });
}

STDMETHODIMP LPModelObject::SaveMPSFile(BSTR* FileLoc, SHORT* result) {
  return Get(result, [&] {
    RequirePointer(FileLoc);
    return model_.SaveMPSFile(Utf8FromBstr(*FileLoc));
  });
}

STDMETHODIMP LPModelObject::SimplifyMPSModel() {
  return Do([&] { model_.SimplifyMPSModel(); });
}

STDMETHODIMP LPModelObject::NewMPSModel() {
  return Do([&] { model_.NewMPSModel(); });
}

}  // namespace quarvel::automation
