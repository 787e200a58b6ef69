#include "tests/automation/object_fixture.h"

#include <algorithm>
#include <iterator>
#include <map>

#include "automation/bstr.h"
#include "text/numbers.h"

namespace quarvel::automation {
namespace {

std::string NameOf(HRESULT code) {
  static const std::map<HRESULT, std::string> names = {
      {DISP_E_TYPEMISMATCH, "DISP_E_TYPEMISMATCH"},
      {DISP_E_OVERFLOW, "DISP_E_OVERFLOW"},
      {DISP_E_PARAMNOTOPTIONAL, "DISP_E_PARAMNOTOPTIONAL"},
      {DISP_E_PARAMNOTFOUND, "DISP_E_PARAMNOTFOUND"},
      {DISP_E_BADPARAMCOUNT, "DISP_E_BADPARAMCOUNT"},
      {DISP_E_MEMBERNOTFOUND, "DISP_E_MEMBERNOTFOUND"},
      {DISP_E_UNKNOWNNAME, "DISP_E_UNKNOWNNAME"},
      {E_POINTER, "E_POINTER"}};
  const auto found = names.find(code);
  return found == names.end() ? "HRESULT " + std::to_string(code) : found->second;
}

std::string Joined(HRESULT number, BSTR source, BSTR description) {
  return std::to_string(number) + " | " + Utf8FromBstr(source) + " | " + Utf8FromBstr(description);
}

// Whether the code tells which argument is to blame.
bool BlamesAnArgument(HRESULT code) {
  return code == DISP_E_TYPEMISMATCH || code == DISP_E_OVERFLOW || code == DISP_E_PARAMNOTOPTIONAL;
}

}  // namespace

Value::Value(const char* text) { V_BSTR(&Set(VT_BSTR)) = Bstr(std::string_view(text)).Detach(); }

std::string Utf8(std::wstring_view text) {
  return text::Utf16ToUtf8(std::u16string(text.begin(), text.end()));
}

std::string TextOf(const VARIANT& value) {
  switch (V_VT(&value)) {
    case VT_EMPTY:
      return "EMPTY";
    case VT_I4:
      return "I4 " + std::to_string(V_I4(&value));
    case VT_I2:
      return "I2 " + std::to_string(V_I2(&value));
    case VT_BOOL:
      return "BOOL " + std::to_string(V_BOOL(&value));
    case VT_R8:
      return "R8 " + text::GeneralText(V_R8(&value));
    case VT_BSTR:
      return "BSTR " + Utf8FromBstr(V_BSTR(&value));
    default:
      return "type " + std::to_string(V_VT(&value));
  }
}

std::string TextOfFailure(HRESULT code) {
  ComPtr<IErrorInfo> info;
  if (GetErrorInfo(0, info.Receive()) != S_OK) return NameOf(code);
  Bstr source;
  Bstr description;
  info->GetSource(source.Receive());
  info->GetDescription(description.Receive());
  return Joined(code, source.get(), description.get());
}

ObjectFixture::ObjectFixture() { Renew(); }

void ObjectFixture::Renew() {
  auto desktop = std::make_unique<platform::ScriptedDesktop>();
  desktop_ = desktop.get();
  model_ = ComPtr<_LPModel>(new LPModelObject(std::move(desktop)));
}

DISPID ObjectFixture::IdOf(std::wstring name) {
  DISPID id = DISPID_UNKNOWN;
  LPOLESTR names[] = {name.data()};
  model_->GetIDsOfNames(IID_NULL, names, 1, LOCALE_NEUTRAL, &id);
  return id;
}

std::string ObjectFixture::Run(const LateCall& call) {
  std::vector<VARIANT> passed;
  std::transform(call.arguments.rbegin(), call.arguments.rend(), std::back_inserter(passed),
                 [](const Value& value) { return value.variant(); });
  DISPID put = DISPID_PROPERTYPUT;
  const bool writes = (call.flags & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) != 0;
  DISPPARAMS arguments = {passed.data(), writes ? &put : nullptr, static_cast<UINT>(passed.size()),
                          writes ? 1u : 0u};
  VariantHolder result;
  EXCEPINFO failure = {};
  UINT wrong = 99;
  const HRESULT code = model_->Invoke(IdOf(call.name), IID_NULL, LOCALE_NEUTRAL, call.flags,
                                      &arguments, result.Receive(), &failure, &wrong);
  if (SUCCEEDED(code)) return "= " + TextOf(result.value());
  if (code != DISP_E_EXCEPTION) {
    return "! " + NameOf(code) + (BlamesAnArgument(code) ? " " + std::to_string(wrong) : "");
  }
  std::string text = "! " + Joined(failure.scode, failure.bstrSource, failure.bstrDescription);
  SysFreeString(failure.bstrSource);
  SysFreeString(failure.bstrDescription);
  return text;
}

void ObjectFixture::FillModel() {
  model_->MakeNewModel();
  Call(L"AddRow", {"COST"});
  Put(L"SetRowType", {0, "N"});
  Call(L"AddRow", {"LIM"});
  Put(L"SetRowType", {1, "L"});
  for (const char* column : {"X", "Y", "Z"}) Call(L"AddColumn", {column});
  Put(L"SetRowUpperBound", {1, 10});
  Put(L"SetColUpperBound", {1, 4.0});
  model_->AddElement(0, 0, 1);
  model_->AddElement(0, 1, 2);
  model_->AddElement(1, 1, -3.5);
  model_->AddElement(1, 2, 4);
}

std::vector<std::string> ObjectFixture::Boxes() const {
  std::vector<std::string> texts;
  for (const platform::ShownBox& box : desktop_->boxes()) texts.push_back(box.text);
  return texts;
}

}  // namespace quarvel::automation
