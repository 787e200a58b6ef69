// How arguments reach a member called by name: references followed, types converted, names and
// counts checked.

#include "automation/invoke.h"

#include <array>

#include "automation/bstr.h"
#include "tests/automation/object_fixture.h"

namespace quarvel::automation {
namespace {

class Invoke : public ObjectFixture {
 protected:
  Invoke() { FillModel(); }

  static Value Reference(VARIANT& target) {
    VARIANT reference;
    V_VT(&reference) = VT_BYREF | VT_VARIANT;
    V_VARIANTREF(&reference) = &target;
    return Value(reference);
  }
  static Value Reference(VARTYPE type, void* target) {
    VARIANT reference;
    V_VT(&reference) = static_cast<VARTYPE>(VT_BYREF | type);
    V_BYREF(&reference) = target;
    return Value(reference);
  }
  static Value Of(VARTYPE type) {
    VARIANT value;
    VariantInit(&value);
    V_VT(&value) = type;
    return Value(value);
  }
  static Value Missing() {
    VARIANT value;
    V_VT(&value) = VT_ERROR;
    V_ERROR(&value) = DISP_E_PARAMNOTFOUND;
    return Value(value);
  }

  // RowElementValue with the arguments as they would stand in the call's record.
  HRESULT CallNamed(std::vector<VARIANT> passed, std::vector<DISPID> named, UINT& wrong,
                    double& result) {
    DISPPARAMS arguments = {passed.data(), named.data(), static_cast<UINT>(passed.size()),
                            static_cast<UINT>(named.size())};
    VariantHolder value;
    const HRESULT code =
        model_->Invoke(IdOf(L"RowElementValue"), IID_NULL, LOCALE_NEUTRAL, DISPATCH_PROPERTYGET,
                       &arguments, value.Receive(), nullptr, &wrong);
    if (SUCCEEDED(code)) result = V_R8(&value.value());
    return code;
  }
};

TEST_F(Invoke, FollowsChainsOfVariantReferences) {
  VARIANT row = Value(1).variant();
  VARIANT inner = Reference(row).variant();
  EXPECT_EQ(Call(L"RowName", {Reference(inner)}), "= BSTR LIM");
}

TEST_F(Invoke, FollowsReferencesToPlainValues) {
  LONG row = 1;
  double real = 1;
  SHORT small = 1;
  EXPECT_EQ(Call(L"RowName", {Reference(VT_I4, &row)}), "= BSTR LIM");
  EXPECT_EQ(Call(L"RowName", {Reference(VT_R8, &real)}), "= BSTR LIM");
  VARIANT inner = Reference(VT_I2, &small).variant();
  EXPECT_EQ(Call(L"RowName", {Reference(inner)}), "= BSTR LIM");
}

TEST_F(Invoke, ConvertsWhatAHostPassesAsEnglishText) {
  const std::string lim = "= BSTR LIM";
  EXPECT_EQ(Call(L"RowName", {1.0}), lim);
  EXPECT_EQ(Call(L"RowName", {"1"}), lim);
  EXPECT_EQ(Call(L"RowName", {"1.2"}), lim);
  EXPECT_EQ(Call(L"RowName", {Of(VT_EMPTY)}), "= BSTR COST");
  EXPECT_EQ(Call(L"AddRow", {2.5}), "= I2 -1");
  EXPECT_EQ(Call(L"RowName", {2}), "= BSTR 2.5");
}

TEST_F(Invoke, TellsWhichArgumentCannotBeConverted) {
  EXPECT_EQ(Call(L"RowElementValue", {0, "second"}), "! DISP_E_TYPEMISMATCH 0");
  EXPECT_EQ(Call(L"RowElementValue", {"first", 0}), "! DISP_E_TYPEMISMATCH 1");
  EXPECT_EQ(Call(L"RowElementValue", {0, Of(VT_NULL)}), "! DISP_E_TYPEMISMATCH 0");
  EXPECT_EQ(Call(L"RowElementValue", {1e300, 0}), "! DISP_E_OVERFLOW 1");
  EXPECT_EQ(Call(L"RowElementValue", {Missing(), 0}), "! DISP_E_PARAMNOTOPTIONAL 1");
}

TEST_F(Invoke, DereferencesWrittenValues) {
  VARIANT bound = Value(7.5).variant();
  EXPECT_EQ(Put(L"SetColUpperBound", {Reference(bound), Reference(bound)}), "= EMPTY");
  EXPECT_EQ(
      Boxes(),
      (std::vector<std::string>{"Invalid Column number when attempting to SetColUpperBound()"}));
  EXPECT_EQ(Put(L"SetColUpperBound", {0, Reference(bound)}), "= EMPTY");
  EXPECT_EQ(Call(L"ColUpperBound", {0}), "= R8 7.5");
}

TEST_F(Invoke, RefusesWrittenValuesThatAreNoNumberOrText) {
  const std::string thirteen = "! -2146828275 |  | Type mismatch";
  EXPECT_EQ(Put(L"SetColUpperBound", {0, Of(VT_NULL)}), thirteen);
  EXPECT_EQ(Put(L"SetRowName", {0, Of(VT_NULL)}), thirteen);
  EXPECT_EQ(Put(L"SetModelName", {Of(VT_UNKNOWN)}), thirteen);
  EXPECT_EQ(Call(L"ColUpperBound", {0}), "= R8 10000000000");
}

TEST_F(Invoke, WritesDatesAndSmallNumbersAsTheyRead) {
  VARIANT date = Of(VT_DATE).variant();
  V_DATE(&date) = 46000;
  EXPECT_EQ(Put(L"SetModelName", {Value(date)}), "= EMPTY");
  EXPECT_EQ(Call(L"ModelName"), "= BSTR 12/9/2025");
  EXPECT_EQ(Put(L"SetColUpperBound", {0, Value(date)}), "= EMPTY");
  EXPECT_EQ(Call(L"ColUpperBound", {0}), "= R8 46000");
  VARIANT single = Of(VT_R4).variant();
  V_R4(&single) = 0.1f;
  EXPECT_EQ(Put(L"SetModelName", {Value(single)}), "= EMPTY");
  EXPECT_EQ(Call(L"ModelName"), "= BSTR 0.1");
}

TEST_F(Invoke, TakesAnObjectForItsDefaultValueOnly) {
  VARIANT object;
  V_VT(&object) = VT_DISPATCH;
  V_DISPATCH(&object) = ComPtr<_LPModel>::Share(model_.get()).Detach();
  // A model has no default value.
  EXPECT_EQ(Put(L"SetModelName", {Value(object)}), "! -2146828275 |  | Type mismatch");
}

TEST_F(Invoke, TakesNamedArgumentsInAnyOrder) {
  const VARIANT one = Value(1).variant();
  const VARIANT zero = Value(0).variant();
  UINT wrong = 99;
  double result = 0;
  EXPECT_EQ(CallNamed({one, zero}, {0, 1}, wrong, result), S_OK);  // i:=1, k:=0
  EXPECT_EQ(result, -3.5);
  EXPECT_EQ(CallNamed({one, zero}, {1, 0}, wrong, result), S_OK);  // k:=1, i:=0
  EXPECT_EQ(result, 2);
  EXPECT_EQ(CallNamed({zero, one}, {1}, wrong, result), S_OK);  // 1, k:=0
  EXPECT_EQ(result, -3.5);
  EXPECT_EQ(wrong, 99u);
}

TEST_F(Invoke, RefusesNamedArgumentsThatDoNotExistOrComeTwice) {
  const VARIANT one = Value(1).variant();
  UINT wrong = 99;
  double result = 0;
  EXPECT_EQ(CallNamed({one, one}, {2}, wrong, result), DISP_E_PARAMNOTFOUND);
  EXPECT_EQ(wrong, 0u);
  EXPECT_EQ(CallNamed({one, one}, {1, 1}, wrong, result), DISP_E_PARAMNOTFOUND);
  EXPECT_EQ(wrong, 1u);
  EXPECT_EQ(CallNamed({one, one}, {0}, wrong, result), DISP_E_PARAMNOTFOUND);
  EXPECT_EQ(CallNamed({one, one}, {DISPID_PROPERTYPUT}, wrong, result), DISP_E_PARAMNOTFOUND);
  EXPECT_EQ(CallNamed({one}, {1}, wrong, result), DISP_E_BADPARAMCOUNT);
  EXPECT_EQ(CallNamed({one, one, one}, {}, wrong, result), DISP_E_BADPARAMCOUNT);
}

TEST_F(Invoke, WantsTheValueOfAWriteNamedAsSuch) {
  std::array<VARIANT, 2> passed = {Value(5).variant(), Value(0).variant()};
  DISPPARAMS arguments = {passed.data(), nullptr, 2, 0};
  EXPECT_EQ(model_->Invoke(IdOf(L"SetColUpperBound"), IID_NULL, LOCALE_NEUTRAL,
                           DISPATCH_PROPERTYPUT, &arguments, nullptr, nullptr, nullptr),
            DISP_E_PARAMNOTFOUND);
}

TEST_F(Invoke, FindsNamesWhateverTheirCase) {
  EXPECT_EQ(IdOf(L"ROWNAME"), 0x6803000D);
  EXPECT_EQ(IdOf(L"startfilereding"), 0x6003002A);
  EXPECT_EQ(IdOf(L"RowNam"), DISPID_UNKNOWN);
  LPOLESTR names[] = {const_cast<LPOLESTR>(L"rowelementvalue"), const_cast<LPOLESTR>(L"K"),
                      const_cast<LPOLESTR>(L"row")};
  DISPID ids[3] = {};
  EXPECT_EQ(model_->GetIDsOfNames(IID_NULL, names, 3, LOCALE_NEUTRAL, ids), DISP_E_UNKNOWNNAME);
  EXPECT_EQ(ids[0], 0x6803000E);
  EXPECT_EQ(ids[1], 1);
  EXPECT_EQ(ids[2], DISPID_UNKNOWN);
}

TEST_F(Invoke, RefusesInterfacesOfNamesThatAreReserved) {
  DISPPARAMS none = {};
  EXPECT_EQ(model_->Invoke(IdOf(L"NumberOfRows"), __uuidof(IDispatch), LOCALE_NEUTRAL,
                           DISPATCH_PROPERTYGET, &none, nullptr, nullptr, nullptr),
            DISP_E_UNKNOWNINTERFACE);
  EXPECT_EQ(model_->Invoke(IdOf(L"NumberOfRows"), IID_NULL, LOCALE_NEUTRAL, DISPATCH_PROPERTYGET,
                           nullptr, nullptr, nullptr, nullptr),
            E_POINTER);
  DISPID id = 0;
  LPOLESTR name = const_cast<LPOLESTR>(L"RowName");
  EXPECT_EQ(model_->GetIDsOfNames(__uuidof(IDispatch), &name, 1, LOCALE_NEUTRAL, &id),
            DISP_E_UNKNOWNINTERFACE);
}

TEST_F(Invoke, RunsNoMethodWhenOnlyItsValueIsAskedFor) {
  EXPECT_EQ(Run({L"MakeNewModel", DISPATCH_PROPERTYGET, {}}), "! DISP_E_MEMBERNOTFOUND");
  EXPECT_EQ(Call(L"NumberOfRows"), "= I4 2");
}

TEST_F(Invoke, LeavesTheErrorToTheThreadToo) {
  EXPECT_EQ(Call(L"RowName", {5}).substr(0, 13), "! -2147220972");
  EXPECT_EQ(TextOfFailure(DISP_E_EXCEPTION),
            std::to_string(DISP_E_EXCEPTION) +
                " | LPModel.PropertyGetRow() | Quarvel.dll error: row 5 is out of range.  \r\n"
                "Rows range from 0 to 1.");
}

TEST_F(Invoke, WithoutAnExceptionRecordReturnsTheNumberItself) {
  VARIANT row = Value(5).variant();
  DISPPARAMS arguments = {&row, nullptr, 1, 0};
  EXPECT_EQ(model_->Invoke(IdOf(L"RowName"), IID_NULL, LOCALE_NEUTRAL, DISPATCH_PROPERTYGET,
                           &arguments, nullptr, nullptr, nullptr),
            static_cast<HRESULT>(0x80040214));
}

TEST_F(Invoke, KeepsAnObjectThatIsSetAndGivesItBack) {
  VARIANT object;
  V_VT(&object) = VT_DISPATCH;
  auto other = ComPtr<_LPModel>(new LPModelObject(std::make_unique<platform::ScriptedDesktop>()));
  V_DISPATCH(&object) = other.get();
  other->AddRef();
  EXPECT_EQ(Run({L"showFrm", DISPATCH_PROPERTYPUTREF, {Value(object)}}), "= EMPTY");
  VariantHolder kept;
  ASSERT_EQ(model_->get_showFrm(kept.Receive()), S_OK);
  EXPECT_EQ(V_VT(&kept.value()), VT_DISPATCH);
  EXPECT_EQ(V_DISPATCH(&kept.value()), other.get());
}

}  // namespace
}  // namespace quarvel::automation
