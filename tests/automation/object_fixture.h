// An LPModel object on a scripted desktop, and what tests say about it in short: values, results
// and errors as texts.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include <windows.h>
#include <gtest/gtest.h>
#include <quarvel_idl.h>

#include "automation/com_ptr.h"
#include "automation/lp_model_object.h"
#include "automation/variant_holder.h"
#include "platform/scripted/scripted_desktop.h"

namespace quarvel::automation {

// A variant of the type that a host's literal has.
class Value {
 public:
  // Implicit, so that a call reads like a host's: Call(L"AddElement", {0, 1, 2.5}).
  Value() = default;
  Value(int value) { Set(VT_I4).lVal = value; }
  Value(double value) { Set(VT_R8).dblVal = value; }
  Value(bool value) { Set(VT_BOOL).boolVal = value ? VARIANT_TRUE : VARIANT_FALSE; }
  Value(const char* text);
  // Whatever the test has made; ownership passes.
  explicit Value(VARIANT value) : holder_(std::make_shared<VariantHolder>()) {
    holder_->value() = value;
  }

  VARIANT variant() const { return holder_->value(); }

 private:
  VARIANT& Set(VARTYPE type) {
    V_VT(&holder_->value()) = type;
    return holder_->value();
  }
  std::shared_ptr<VariantHolder> holder_ = std::make_shared<VariantHolder>();
};

std::string Utf8(std::wstring_view text);

// "I4 5", "R8 2.5", "BSTR text", "BOOL -1", "EMPTY"...
std::string TextOf(const VARIANT& value);

// "0x80040214 | LPModel.PropertyGetRow() | ..." of a result code and the thread's error object,
// which is taken away; "0x80004003" alone when there is none.
std::string TextOfFailure(HRESULT code);

// One late-bound call, the way a script engine makes it.
struct LateCall {
  std::wstring name;
  WORD flags = DISPATCH_METHOD | DISPATCH_PROPERTYGET;
  std::vector<Value> arguments;
};

class ObjectFixture : public ::testing::Test {
 protected:
  ObjectFixture();

  // "= I4 5", "! -2147220972 | source | description" of the dispatch interface's exception record,
  // or "! DISP_E_TYPEMISMATCH 0" with the number of the argument as the caller passed it.
  std::string Run(const LateCall& call);
  std::string Call(std::wstring name, std::vector<Value> arguments = {}) {
    return Run({std::move(name), DISPATCH_METHOD | DISPATCH_PROPERTYGET, std::move(arguments)});
  }
  std::string Put(std::wstring name, std::vector<Value> arguments) {
    return Run({std::move(name), DISPATCH_PROPERTYPUT, std::move(arguments)});
  }
  DISPID IdOf(std::wstring name);

  // A new object in place of the one so far.
  void Renew();

  // Rows COST (N) and LIM (L, at most 10); columns X, Y (at most 4) and Z; COST = X + 2 Y,
  // LIM = -3.5 Y + 4 Z.
  void FillModel();

  // The texts of the boxes shown so far.
  std::vector<std::string> Boxes() const;

  platform::ScriptedDesktop* desktop_ = nullptr;  // the object's
  ComPtr<_LPModel> model_;
};

}  // namespace quarvel::automation
