// Random arguments of late-bound calls. What a script passes, of any type, by value or through
// references, must do what the same call does with the argument that the system converts it to; what
// it cannot be converted to is told with the argument's number. The caller's variables stay as they
// are, but for those that a member writes.

#include <array>
#include <cstdint>
#include <deque>
#include <random>
#include <string>
#include <vector>

#include "automation/bstr.h"
#include "automation/members.h"
#include "automation/model_values.h"
#include "tests/automation/object_fixture.h"
#include "tests/support/test_length.h"

namespace quarvel::automation {
namespace {

constexpr int kCalls = 6000;

class Dice {
 public:
  explicit Dice(std::uint32_t seed) : random_(seed) {}
  std::uint32_t Below(std::uint32_t bound) { return random_() % bound; }

 private:
  std::mt19937 random_;
};

// Variants of one call with what their references lead to. A deque moves nothing.
using Storage = std::deque<VariantHolder>;

double ChooseDouble(Dice& dice) {
  static constexpr std::array<double, 10> kNumbers = {0,   1,    2,     -1,  1.5,
                                                      2.5, 1e10, 40000, 3e9, 1e300};
  return kNumbers[dice.Below(kNumbers.size())];
}

Bstr ChooseText(Dice& dice) {
  static constexpr std::array<const char*, 14> kTexts = {
      "",    "0",         "1",    "2.5", "-1",          "X", "LIM",
      "NEW", "two words", "True", "1e5", "99999999999", "R", "\u00C4\u20AC"};
  return Bstr(std::string_view(kTexts[dice.Below(kTexts.size())]));
}

// A plain value of a type that scripts have.
void FillPlain(Dice& dice, VARIANT& value) {
  static constexpr std::array<VARTYPE, 15> kTypes = {VT_I1, VT_UI1, VT_I2, VT_UI2, VT_I4,
                                                     VT_I4, VT_UI4, VT_I8, VT_UI8, VT_INT,
                                                     VT_R4, VT_R8,  VT_R8, VT_CY,  VT_DECIMAL};
  VARIANT number;
  V_VT(&number) = VT_R8;
  V_R8(&number) = ChooseDouble(dice);
  const VARTYPE type = kTypes[dice.Below(kTypes.size())];
  // What does not fit stays the double that it is.
  if (FAILED(VariantChangeTypeEx(&value, &number, kConversionLocale, 0, type))) value = number;
}

void FillValue(Dice& dice, VARIANT& value) {
  switch (dice.Below(12)) {
    case 0:
      return;  // empty
    case 1:
      V_VT(&value) = VT_NULL;
      return;
    case 2:
      V_VT(&value) = VT_BOOL;
      V_BOOL(&value) = dice.Below(2) == 0 ? VARIANT_TRUE : VARIANT_FALSE;
      return;
    case 3:
      V_VT(&value) = VT_ERROR;
      V_ERROR(&value) = dice.Below(2) == 0 ? DISP_E_PARAMNOTFOUND : E_FAIL;
      return;
    case 4:
      V_VT(&value) = VT_DISPATCH;
      V_DISPATCH(&value) = nullptr;
      return;
    case 5:
    case 6:
    case 7:
      V_VT(&value) = VT_BSTR;
      V_BSTR(&value) = ChooseText(dice).Detach();
      return;
    default:
      return FillPlain(dice, value);
  }
}

// A reference to a plain value, which stays in its own variant.
void ReferToPlain(VARIANT& to, VARIANT& value) {
  // Nothing has a type of its own to refer to, and a missing argument is one by itself alone.
  if (V_VT(&value) == VT_EMPTY || V_VT(&value) == VT_NULL || V_VT(&value) == VT_ERROR) {
    V_VT(&to) = VT_BYREF | VT_VARIANT;
    V_VARIANTREF(&to) = &value;
    return;
  }
  V_VT(&to) = static_cast<VARTYPE>(VT_BYREF | V_VT(&value));
  V_BYREF(&to) = V_VT(&value) == VT_DECIMAL ? static_cast<void*>(&value) : &V_NONE(&value);
}

VARIANT Refer(VARIANT& value) {
  VARIANT to;
  V_VT(&to) = VT_BYREF | VT_VARIANT;
  V_VARIANTREF(&to) = &value;
  return to;
}

void FillArray(Dice& dice, VARIANT& value) {
  static constexpr std::array<VARTYPE, 4> kTypes = {VT_R8, VT_R8, VT_VARIANT, VT_I4};
  const VARTYPE type = kTypes[dice.Below(kTypes.size())];
  SAFEARRAYBOUND bounds[2] = {{dice.Below(5), static_cast<LONG>(dice.Below(3)) - 1}, {2, 0}};
  V_VT(&value) = static_cast<VARTYPE>(VT_ARRAY | type);
  V_ARRAY(&value) = SafeArrayCreate(type, dice.Below(8) == 0 ? 2 : 1, bounds);
  if (type != VT_VARIANT) return;
  VARIANT* items = nullptr;
  ASSERT_EQ(SafeArrayAccessData(V_ARRAY(&value), reinterpret_cast<void**>(&items)), S_OK);
  const ULONG count = bounds[0].cElements * (SafeArrayGetDim(V_ARRAY(&value)) == 2 ? 2 : 1);
  for (ULONG i = 0; i < count; ++i) FillValue(dice, items[i]);
  SafeArrayUnaccessData(V_ARRAY(&value));
}

// What a script passes: the value itself, or references that end in it.
VARIANT ChooseArgument(Dice& dice, Storage& storage, bool array) {
  VARIANT& value = storage.emplace_back().value();
  if (array && dice.Below(8) != 0) {
    FillArray(dice, value);
  } else {
    FillValue(dice, value);
  }
  switch (dice.Below(4)) {
    case 0: {
      VARIANT to;
      ReferToPlain(to, value);
      return to;
    }
    case 1:
      return Refer(value);
    case 2: {
      VARIANT& between = storage.emplace_back().value();
      between = Refer(value);
      return Refer(between);
    }
    default:
      return value;  // shared: the storage frees it
  }
}

// The type that a member takes such an argument as; VT_EMPTY for what is compared otherwise.
VARTYPE ExactType(ArgumentKind kind) {
  switch (kind) {
    case ArgumentKind::kLong:
      return VT_I4;
    case ArgumentKind::kShort:
      return VT_I2;
    case ArgumentKind::kDouble:
      return VT_R8;
    case ArgumentKind::kBoolean:
    case ArgumentKind::kBooleanRef:
      return VT_BOOL;
    case ArgumentKind::kText:
    case ArgumentKind::kTextRef:
      return VT_BSTR;
    case ArgumentKind::kVariant:
    case ArgumentKind::kVariantRef:
      return VT_VARIANT;
    default:
      return VT_EMPTY;
  }
}

// What the system makes of the argument; a failure's code otherwise.
HRESULT Convert(VARIANT& given, VARTYPE type, VariantHolder& exact) {
  VARIANT* const inner = Dereference(&given);
  if (V_VT(inner) == VT_ERROR && V_ERROR(inner) == DISP_E_PARAMNOTFOUND) {
    return DISP_E_PARAMNOTOPTIONAL;
  }
  if (type == VT_VARIANT) return VariantCopyInd(exact.Receive(), inner);
  return VariantChangeTypeEx(exact.Receive(), inner, kConversionLocale, VARIANT_ALPHABOOL, type);
}

// Members that show windows or dialogs, or touch files.
bool TakesUser(std::wstring_view name) {
  for (const std::wstring_view word : {L"View", L"File", L"NewMPS", L"Simplify", L"Author"}) {
    if (name.find(word) != std::wstring_view::npos) return true;
  }
  return false;
}

std::vector<const Member*> QuietMembers() {
  std::vector<const Member*> members;
  for (const Member& member : Members()) {
    if (!TakesUser(member.name) && !member.arguments().empty()) members.push_back(&member);
  }
  return members;
}

// One object with everything that can be seen of a call to it.
class Caller : public ObjectFixture {
 public:
  void TestBody() override {}

  void Begin() {
    Renew();
    FillModel();
  }

  // "= result", "! error", with the boxes and what the model is afterwards.
  std::string Told(const Member& member, const std::vector<VARIANT>& arguments) {
    std::vector<VARIANT> passed(arguments.rbegin(), arguments.rend());
    const bool writes = member.kind == INVOKE_PROPERTYPUT || member.kind == INVOKE_PROPERTYPUTREF;
    DISPID put = DISPID_PROPERTYPUT;
    DISPPARAMS parameters = {passed.data(), writes ? &put : nullptr,
                             static_cast<UINT>(passed.size()), writes ? 1U : 0U};
    VariantHolder result;
    EXCEPINFO failure = {};
    UINT wrong = 99;
    desktop_->Clear();
    code = model_->Invoke(member.id, IID_NULL, LOCALE_NEUTRAL, static_cast<WORD>(member.kind),
                          &parameters, result.Receive(), &failure, &wrong);
    blamed = wrong;
    std::string told = std::to_string(code) + " " + TextOf(result.value());
    if (code == DISP_E_EXCEPTION) {
      told += " " + std::to_string(failure.scode) + " " + Utf8FromBstr(failure.bstrDescription);
      SysFreeString(failure.bstrSource);
      SysFreeString(failure.bstrDescription);
    }
    for (const std::string& box : Boxes()) told += "\nbox " + box;
    return told + State();
  }

  HRESULT code = S_OK;
  UINT blamed = 99;

 private:
  std::string State() {
    std::string state;
    for (int i = 0; i < 4; ++i) {
      state += "\n" + Call(L"RowName", {i}) + Call(L"RowType", {i}) + Call(L"RowEquation", {i}) +
               Call(L"RowUpperBound", {i}) + Call(L"ColName", {i}) + Call(L"ColUpperBound", {i}) +
               Call(L"ColType", {i});
    }
    return state + Call(L"ModelName") + Call(L"ModelDescription");
  }
};

class RandomArguments : public ::testing::Test {
 protected:
  // Chooses a call, makes it in both ways, and compares.
  void CallBothWays(const Member& member) {
    given_.clear();
    Storage storage;
    Storage exact_storage;
    std::vector<VARIANT> exact;
    HRESULT expected = S_OK;
    bool compares = true;
    std::vector<UINT> blamable;
    for (const Argument& argument : member.arguments()) {
      const VARTYPE type = ExactType(argument.kind);
      given_.push_back(ChooseArgument(dice_, storage, type == VT_EMPTY));
      compares = compares && type != VT_EMPTY;
      VariantHolder& holder = exact_storage.emplace_back();
      if (type == VT_EMPTY || FAILED(expected)) continue;
      expected = Convert(given_.back(), type, holder);
      exact.push_back(holder.value());
    }
    const std::vector<std::string> before = Texts(storage);
    late_.Begin();
    const std::string told = late_.Told(member, given_);
    if (!compares) return;
    EXPECT_EQ(Texts(storage), before) << "a variable that is only read was changed";
    if (FAILED(expected)) {
      const bool refused = late_.code == DISP_E_TYPEMISMATCH || late_.code == DISP_E_OVERFLOW ||
                           late_.code == DISP_E_PARAMNOTOPTIONAL;
      EXPECT_TRUE(refused) << told;
      // Arguments are counted from the last.
      EXPECT_EQ(late_.blamed, member.arguments().size() - exact.size()) << told;
      return;
    }
    exact_.Begin();
    EXPECT_EQ(told, exact_.Told(member, exact));
  }

  static std::vector<std::string> Texts(Storage& storage) {
    std::vector<std::string> texts;
    for (VariantHolder& holder : storage) texts.push_back(TextOf(holder.value()));
    return texts;
  }

  Dice dice_{12};
  Caller late_;
  Caller exact_;
  std::vector<VARIANT> given_;
};

TEST_F(RandomArguments, DoWhatTheirConvertedValuesDo) {
  const std::vector<const Member*> members = QuietMembers();
  ASSERT_GT(members.size(), 30U);
  for (int call = 0; call < TestLength(kCalls) && !HasFailure(); ++call) {
    const Member& member = *members[dice_.Below(static_cast<std::uint32_t>(members.size()))];
    SCOPED_TRACE("call " + std::to_string(call) + " of " + Utf8(member.name));
    CallBothWays(member);
  }
}

}  // namespace
}  // namespace quarvel::automation
