#include "automation/invoke.h"

#include <array>
#include <span>
#include <utility>

#include "automation/bound_argument.h"
#include "automation/bstr.h"
#include "automation/com_ptr.h"
#include "automation/members.h"
#include "automation/variant_holder.h"

namespace quarvel::automation {
namespace {

// Where each argument of a member stands among those that the caller passed: given[argument] is a
// place in rgvarg. Positional arguments stand there in reverse order, named ones come first.
using Places = std::array<UINT, kMostArguments>;

HRESULT PlaceArguments(const Member& member, const DISPPARAMS& passed, Places& places,
                       UINT& wrong) {
  const auto count = static_cast<UINT>(member.arguments().size());
  if (passed.cArgs != count || passed.cNamedArgs > passed.cArgs) return DISP_E_BADPARAMCOUNT;
  const UINT positional = passed.cArgs - passed.cNamedArgs;
  for (UINT i = 0; i < positional; ++i) places[i] = passed.cArgs - 1 - i;
  std::array<bool, kMostArguments> taken = {};
  for (UINT i = 0; i < passed.cNamedArgs; ++i) {
    const DISPID name = passed.rgdispidNamedArgs[i];
    const DISPID argument = name == DISPID_PROPERTYPUT ? static_cast<DISPID>(count) - 1 : name;
    // Numbers below those of the positional arguments are taken already.
    if (argument < static_cast<DISPID>(positional) || argument >= static_cast<DISPID>(count) ||
        std::exchange(taken[static_cast<std::size_t>(argument)], true)) {
      wrong = i;
      return DISP_E_PARAMNOTFOUND;
    }
    places[static_cast<std::size_t>(argument)] = i;
  }
  return S_OK;
}

// A write names its new value and nothing else does.
bool NamesItsValue(const Member& member, const DISPPARAMS& passed) {
  const bool names = passed.cNamedArgs > 0 && passed.rgdispidNamedArgs[0] == DISPID_PROPERTYPUT;
  const bool writes = member.kind == INVOKE_PROPERTYPUT || member.kind == INVOKE_PROPERTYPUTREF;
  return names == writes;
}

HRESULT BindAll(const Member& member, const DISPPARAMS& passed, const Places& places,
                std::span<BoundArgument> bound, UINT& wrong) {
  for (std::size_t i = 0; i < bound.size(); ++i) {
    const HRESULT taken = bound[i].Bind(member.list[i].kind, passed.rgvarg[places[i]]);
    if (SUCCEEDED(taken)) continue;
    wrong = places[i];
    return taken;
  }
  return S_OK;
}

// Each argument is handed back, whatever becomes of the others.
HRESULT WriteBackAll(const Places& places, std::span<BoundArgument> bound, UINT& wrong) {
  HRESULT result = S_OK;
  for (std::size_t i = 0; i < bound.size(); ++i) {
    const HRESULT written = bound[i].WriteBack();
    if (SUCCEEDED(written) || FAILED(result)) continue;
    wrong = places[i];
    result = written;
  }
  return result;
}

// The member's result, which is passed to it as one more argument.
class ResultSlot {
 public:
  explicit ResultSlot(VARTYPE type) : type_(type) {
    V_VT(&passed_) = static_cast<VARTYPE>(VT_BYREF | type);
    V_BYREF(&passed_) =
        type == VT_VARIANT ? static_cast<void*>(&value_.value()) : &V_NONE(&value_.value());
  }
  VARIANT* passed() { return &passed_; }
  // After success only: until then there is nothing to free.
  void MoveTo(VARIANT* result) {
    if (type_ != VT_VARIANT && type_ != VT_VOID) V_VT(&value_.value()) = type_;
    if (result != nullptr) *result = value_.Detach();
  }

 private:
  VARTYPE type_;
  VariantHolder value_;
  VARIANT passed_ = {};
};

HRESULT CallThroughTable(_LPModel& object, const Member& member, std::span<BoundArgument> bound,
                         VARIANT* result) {
  ResultSlot slot(member.result);
  std::array<VARTYPE, kMostArguments + 1> types;
  std::array<VARIANTARG*, kMostArguments + 1> values;
  UINT count = 0;
  const auto add = [&](VARTYPE type, VARIANT* value) {
    types[count] = type;
    values[count++] = value;
  };
  for (BoundArgument& argument : bound) add(argument.type(), argument.passed());
  if (member.result != VT_VOID) add(V_VT(slot.passed()), slot.passed());
  VARIANT code;
  VariantInit(&code);
  const HRESULT called = DispCallFunc(&object, FunctionTableOffset(member), CC_STDCALL, VT_ERROR,
                                      count, types.data(), values.data(), &code);
  if (FAILED(called)) return called;
  if (SUCCEEDED(V_ERROR(&code))) slot.MoveTo(result);
  return V_ERROR(&code);
}

void FillException(HRESULT code, EXCEPINFO& failure) {
  failure = {};
  failure.scode = code;
  ComPtr<IErrorInfo> info;
  if (GetErrorInfo(0, info.Receive()) != S_OK) return;
  info->GetSource(&failure.bstrSource);
  info->GetDescription(&failure.bstrDescription);
  SetErrorInfo(0, info.get());
}

}  // namespace

HRESULT FindNames(LPOLESTR* names, UINT count, DISPID* ids) {
  const auto member = FindId(names[0]);
  HRESULT result = member ? S_OK : DISP_E_UNKNOWNNAME;
  ids[0] = member.value_or(DISPID_UNKNOWN);
  for (UINT i = 1; i < count; ++i) {
    const auto argument = FindArgument(names[0], names[i]);
    if (!argument) result = DISP_E_UNKNOWNNAME;
    ids[i] = argument.value_or(DISPID_UNKNOWN);
  }
  return result;
}

HRESULT InvokeMember(_LPModel& object, DISPID id, WORD flags, DISPPARAMS* arguments,
                     VARIANT* result, EXCEPINFO* failure, UINT* wrong_argument) {
  const Member* const member = FindMember(id, flags);
  if (member == nullptr) return DISP_E_MEMBERNOTFOUND;
  if (!NamesItsValue(*member, *arguments)) return DISP_E_PARAMNOTFOUND;
  UINT unused = 0;
  UINT& wrong = wrong_argument != nullptr ? *wrong_argument : unused;
  Places places = {};
  const HRESULT placed = PlaceArguments(*member, *arguments, places, wrong);
  if (FAILED(placed)) return placed;
  std::array<BoundArgument, kMostArguments> all;
  const std::span bound = std::span(all).first(member->arguments().size());
  const HRESULT taken = BindAll(*member, *arguments, places, bound, wrong);
  if (FAILED(taken)) return taken;
  const HRESULT called = CallThroughTable(object, *member, bound, result);
  // A failed operation, too, keeps what it has written so far.
  const HRESULT written = WriteBackAll(places, bound, wrong);
  if (SUCCEEDED(called)) return written;
  if (failure == nullptr) return called;
  FillException(called, *failure);
  return DISP_E_EXCEPTION;
}

}  // namespace quarvel::automation
