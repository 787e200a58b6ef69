// Arrays and answers of calls by name: taken in every form that hosts have, and written back.

#include "automation/array_argument.h"

#include <initializer_list>

#include "tests/automation/object_fixture.h"

namespace quarvel::automation {
namespace {

enum class Passing { kByValue, kByReference, kInVariant };

class ArrayArgumentTest : public ObjectFixture {
 protected:
  ArrayArgumentTest() { FillModel(); }

  void MakeDoubles(LONG lower_bound, std::initializer_list<double> numbers) {
    array_ = SafeArrayCreateVector(VT_R8, lower_bound, static_cast<ULONG>(numbers.size()));
    type_ = VT_R8;
    LONG i = lower_bound;
    for (double number : numbers) SafeArrayPutElement(array_, &i, &number), ++i;
  }
  void MakeVariants(LONG lower_bound, std::vector<Value> values) {
    array_ = SafeArrayCreateVector(VT_VARIANT, lower_bound, static_cast<ULONG>(values.size()));
    type_ = VT_VARIANT;
    LONG i = lower_bound;
    for (const Value& value : values) {
      VARIANT item = value.variant();
      SafeArrayPutElement(array_, &i, &item);
      ++i;
    }
  }
  // The array as an argument; the fixture's variables keep what is passed by reference.
  Value Array(Passing passing) {
    VARIANT value;
    const auto type = static_cast<VARTYPE>(VT_ARRAY | type_);
    if (passing == Passing::kByReference) {
      V_VT(&value) = static_cast<VARTYPE>(VT_BYREF | type);
      V_ARRAYREF(&value) = &array_;
      return Value(value);
    }
    V_VT(&variable_) = type;
    V_ARRAY(&variable_) = array_;
    if (passing == Passing::kByValue) {
      // Not to be freed by the value: the test still looks at the array.
      SAFEARRAY* copy = nullptr;
      SafeArrayCopy(array_, &copy);
      V_VT(&value) = type;
      V_ARRAY(&value) = copy;
      return Value(value);
    }
    V_VT(&value) = VT_BYREF | VT_VARIANT;
    V_VARIANTREF(&value) = &variable_;
    return Value(value);
  }
  // "R8 1, EMPTY" of the array's items.
  std::string Items() const {
    std::string text;
    LONG lower = 0;
    LONG upper = -1;
    SafeArrayGetLBound(array_, 1, &lower);
    SafeArrayGetUBound(array_, 1, &upper);
    for (LONG i = lower; i <= upper; ++i) {
      VariantHolder item;
      if (type_ == VT_VARIANT) {
        SafeArrayGetElement(array_, &i, item.Receive());
      } else {
        V_VT(&item.value()) = VT_R8;
        SafeArrayGetElement(array_, &i, &V_R8(&item.value()));
      }
      text += (text.empty() ? "" : ", ") + TextOf(item.value());
    }
    return text;
  }
  ~ArrayArgumentTest() override { SafeArrayDestroy(array_); }

  SAFEARRAY* array_ = nullptr;
  VARTYPE type_ = VT_EMPTY;
  VARIANT variable_ = {};
};

const char kNine[] = "! -2146828279 |  | Subscript out of range";

TEST_F(ArrayArgumentTest, WritesAGradientIntoDoublesOfTheCaller) {
  for (const Passing passing : {Passing::kByReference, Passing::kInVariant}) {
    MakeDoubles(0, {9, 9, 9, 9});
    EXPECT_EQ(Call(L"RowGradient", {1, Array(passing)}), "= I2 -1");
    EXPECT_EQ(Items(), "R8 0, R8 -3.5, R8 4, R8 9");
    SafeArrayDestroy(array_);
  }
  array_ = nullptr;
}

TEST_F(ArrayArgumentTest, WritesAGradientIntoVariantsOfTheCaller) {
  for (const Passing passing : {Passing::kByReference, Passing::kInVariant}) {
    MakeVariants(0, {Value(), "text", 5, Value()});
    EXPECT_EQ(Call(L"RowGradient", {1, Array(passing)}), "= I2 -1");
    EXPECT_EQ(Items(), "R8 0, R8 -3.5, R8 4, EMPTY");
    SafeArrayDestroy(array_);
  }
  array_ = nullptr;
}

TEST_F(ArrayArgumentTest, KeepsWhatAFailedGradientHasWritten) {
  MakeVariants(0, {1, 2});
  EXPECT_EQ(Call(L"RowGradient", {1, Array(Passing::kByReference)}), kNine);
  EXPECT_EQ(Items(), "R8 0, R8 0");
}

TEST_F(ArrayArgumentTest, HonoursTheLowerBoundOfAGradient) {
  MakeVariants(-1, {7, 7, 7, 7});
  EXPECT_EQ(Call(L"RowGradient", {1, Array(Passing::kByReference)}), "= I2 -1");
  EXPECT_EQ(Items(), "I4 7, R8 0, R8 -3.5, R8 4");
  SafeArrayDestroy(array_);
  MakeDoubles(1, {7, 7, 7});
  EXPECT_EQ(Call(L"RowGradient", {1, Array(Passing::kByReference)}), kNine);
  EXPECT_EQ(Items(), "R8 7, R8 7, R8 7");
}

TEST_F(ArrayArgumentTest, TakesAPointOfDoublesOrVariantsInEveryForm) {
  for (const Passing passing : {Passing::kByValue, Passing::kByReference, Passing::kInVariant}) {
    for (const bool doubles : {true, false}) {
      if (doubles) {
        MakeDoubles(0, {1, 2, 3});
      } else {
        MakeVariants(0, {1, "2.0", 3.0});
      }
      VARIANT answer = Value("anything").variant();
      VARIANT reference;
      V_VT(&reference) = VT_BYREF | VT_VARIANT;
      V_VARIANTREF(&reference) = &answer;
      EXPECT_EQ(Call(L"RowBodyValue", {1, Array(passing), Value(reference)}), "= I2 -1");
      EXPECT_EQ(TextOf(answer), "R8 5");
      SafeArrayDestroy(array_);
    }
  }
  array_ = nullptr;
}

TEST_F(ArrayArgumentTest, HonoursTheLowerBoundOfAPoint) {
  MakeDoubles(1, {2, 3});  // slot 0 is missing and not used by the row
  double answer = 77;
  VARIANT reference;
  V_VT(&reference) = VT_BYREF | VT_R8;
  V_R8REF(&reference) = &answer;
  EXPECT_EQ(Call(L"RowBodyValue", {1, Array(Passing::kByReference), Value(reference)}), "= I2 -1");
  EXPECT_EQ(answer, 5);
  EXPECT_EQ(Call(L"RowBodyValue", {0, Array(Passing::kByReference), Value(reference)}), kNine);
  EXPECT_EQ(answer, 0);
}

TEST_F(ArrayArgumentTest, KeepsTheTypeOfAPlainAnswerVariable) {
  MakeDoubles(0, {1, 2, 3});
  LONG whole = 0;
  float single = 0;
  BYTE byte = 0;
  VARIANT_BOOL flag = VARIANT_FALSE;
  DATE date = 0;
  CY money = {};
  DECIMAL decimal = {};
  BSTR text = nullptr;
  const struct {
    VARTYPE type;
    void* variable;
  } variables[] = {{VT_I4, &whole},  {VT_R4, &single}, {VT_UI1, &byte},        {VT_BOOL, &flag},
                   {VT_DATE, &date}, {VT_CY, &money},  {VT_DECIMAL, &decimal}, {VT_BSTR, &text}};
  for (const auto& variable : variables) {
    VARIANT reference;
    V_VT(&reference) = static_cast<VARTYPE>(VT_BYREF | variable.type);
    V_BYREF(&reference) = variable.variable;
    EXPECT_EQ(Call(L"RowBodyValue", {1, Array(Passing::kByReference), Value(reference)}),
              "= I2 -1");
  }
  EXPECT_EQ(whole, 5);
  EXPECT_EQ(single, 5.0f);
  EXPECT_EQ(byte, 5);
  EXPECT_EQ(flag, VARIANT_TRUE);
  EXPECT_EQ(date, 5);
  EXPECT_EQ(money.int64, 50000);
  EXPECT_EQ(decimal.Lo64, 5u);
  EXPECT_EQ(decimal.wReserved, 0);
  EXPECT_EQ(std::wstring(text), L"5");
  SysFreeString(text);
}

TEST_F(ArrayArgumentTest, RefusesReferencesToNothing) {
  const std::string mismatch = "! DISP_E_TYPEMISMATCH ";
  VARIANT nothing = {};
  for (const int type : {VT_ARRAY | VT_R8, VT_ARRAY | VT_VARIANT, int{VT_DISPATCH}}) {
    V_VT(&nothing) = static_cast<VARTYPE>(VT_BYREF | type);
    EXPECT_EQ(Call(L"RowGradient", {1, Value(nothing)}), mismatch + "0");
    EXPECT_EQ(Call(L"RowBodyValue", {1, Value(nothing), 0}), mismatch + "1");
  }
  MakeDoubles(0, {1, 2, 3});
  for (const int type : {VT_R8, VT_BSTR, VT_VARIANT}) {
    V_VT(&nothing) = static_cast<VARTYPE>(VT_BYREF | type);
    EXPECT_EQ(Call(L"RowName", {Value(nothing)}), mismatch + "0");
    EXPECT_EQ(Call(L"RowBodyValue", {1, Array(Passing::kByReference), Value(nothing)}),
              mismatch + "0");
    EXPECT_EQ(Run({L"SetColUpperBound", DISPATCH_PROPERTYPUT, {1, Value(nothing)}}),
              mismatch + "0");
  }
}

TEST_F(ArrayArgumentTest, TakesAnAnswerThatCannotBeWrittenBack) {
  MakeDoubles(0, {1, 2, 3});
  EXPECT_EQ(Call(L"RowBodyValue", {1, Array(Passing::kByReference), 0}), "= I2 -1");
}

TEST_F(ArrayArgumentTest, RefusesWhatIsNoArrayOfOneDimensionOfNumbers) {
  const std::string mismatch = "! DISP_E_TYPEMISMATCH 1";
  MakeVariants(0, {1, "two", 3});
  EXPECT_EQ(Call(L"RowBodyValue", {1, Array(Passing::kByReference), 0}), mismatch);
  SafeArrayDestroy(array_);
  SAFEARRAYBOUND bounds[] = {{2, 0}, {2, 0}};
  for (const VARTYPE type : {VARTYPE{VT_R8}, VARTYPE{VT_VARIANT}}) {
    array_ = SafeArrayCreate(type, 2, bounds);
    type_ = type;
    EXPECT_EQ(Call(L"RowBodyValue", {1, Array(Passing::kByReference), 0}), mismatch);
    SafeArrayDestroy(array_);
  }
  array_ = SafeArrayCreateVector(VT_DATE, 0, 3);
  type_ = VT_DATE;
  EXPECT_EQ(Call(L"RowBodyValue", {1, Array(Passing::kByReference), 0}), mismatch);
  EXPECT_EQ(Call(L"RowBodyValue", {1, 5, 0}), mismatch);
}

TEST_F(ArrayArgumentTest, AnArrayWithoutDimensionsHasNoSlots) {
  type_ = VT_R8;
  EXPECT_EQ(Call(L"RowGradient", {1, Array(Passing::kByReference)}), kNine);
  EXPECT_EQ(Call(L"RowBodyValue", {1, Array(Passing::kByReference), 0}), kNine);
}

TEST_F(ArrayArgumentTest, HoldsTheCallersArrayWhileAHostRuns) {
  // Nothing in the interface makes a model inconsistent; a box is all that runs a host's code here.
  MakeDoubles(0, {9, 9, 9});
  const LockedDoubles held(array_);
  SAFEARRAYBOUND smaller = {1, 0};
  EXPECT_EQ(SafeArrayRedim(array_, &smaller), DISP_E_ARRAYISLOCKED);
}

}  // namespace
}  // namespace quarvel::automation
