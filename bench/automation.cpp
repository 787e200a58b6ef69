// What calls through the component's interface cost, early bound and by name: single calls, and the
// walk over every element of a model of 100,000. Each figure is the median of five rounds.

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <string>

#include <windows.h>
#include <ole2.h>
#include <quarvel_idl.h>

#include "bench/stopwatch.h"

namespace quarvel::bench {
namespace {

constexpr LONG kRows = 1000;
constexpr LONG kElementsOfRow = 100;
constexpr int kCalls = 200000;
constexpr int kRounds = 5;

[[noreturn]] void Fail(const char* what) {
  std::fprintf(stderr, "automation: %s\n", what);
  std::exit(1);
}

void Require(HRESULT code, const char* what) {
  if (FAILED(code)) Fail(what);
}

// From the file beside this program, registered or not.
_LPModel* MakeModel() {
  using Entry = HRESULT(STDMETHODCALLTYPE*)(REFCLSID, REFIID, void**);
  const HMODULE module = LoadLibraryW(L"Quarvel.dll");
  if (module == nullptr) Fail("Quarvel.dll is not beside this program");
  const auto entry =
      reinterpret_cast<Entry>(reinterpret_cast<void*>(GetProcAddress(module, "DllGetClassObject")));
  IClassFactory* factory = nullptr;
  _LPModel* model = nullptr;
  Require(entry(__uuidof(::LPModel), __uuidof(IClassFactory), reinterpret_cast<void**>(&factory)),
          "no class factory");
  Require(factory->CreateInstance(nullptr, __uuidof(_LPModel), reinterpret_cast<void**>(&model)),
          "no object");
  factory->Release();
  return model;
}

void FillModel(_LPModel& model) {
  model.MakeNewModel();
  for (LONG i = 0; i < kRows; ++i) {
    BSTR name = SysAllocString((L"N" + std::to_wstring(i)).c_str());
    SHORT added = 0;
    model.AddRow(name, &added);
    model.AddColumn(name, &added);
    SysFreeString(name);
  }
  for (LONG i = 0; i < kRows; ++i) {
    for (LONG k = 0; k < kElementsOfRow; ++k) model.AddElement(i, (i + 7 * k) % kRows, k + 1.5);
  }
  LONG elements = 0;
  model.get_NumberOfElements(&elements);
  if (elements != kRows * kElementsOfRow) Fail("the model is not what it should be");
}

// One member by name, its identifier asked for once, as script engines do.
class LateMember {
 public:
  LateMember(_LPModel& model, const wchar_t* name) : model_(model), name_(name) { Find(); }

  void Find() {
    LPOLESTR names[] = {name_.data()};
    Require(model_.GetIDsOfNames(IID_NULL, names, 1, LOCALE_USER_DEFAULT, &id_), "no member");
  }

  // The arguments are variables of the caller, passed by reference.
  VARIANT Get(std::array<VARIANT, 2>& variables, UINT count) {
    std::array<VARIANT, 2> passed;
    for (UINT i = 0; i < count; ++i) {
      V_VT(&passed[i]) = VT_BYREF | VT_VARIANT;
      V_VARIANTREF(&passed[i]) = &variables[count - 1 - i];
    }
    DISPPARAMS arguments = {passed.data(), nullptr, count, 0};
    VARIANT result;
    Require(
        model_.Invoke(id_, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD | DISPATCH_PROPERTYGET,
                      &arguments, &result, nullptr, nullptr),
        "a call failed");
    return result;
  }

 private:
  _LPModel& model_;
  std::wstring name_;
  DISPID id_ = DISPID_UNKNOWN;
};

template <class Job>
double MedianOf(const Job& job) {
  std::array<double, kRounds> seconds;
  for (double& round : seconds) round = SecondsOf(job);
  std::sort(seconds.begin(), seconds.end());
  return seconds[kRounds / 2];
}

template <class Call>
void MeasureCall(const char* name, const Call& call) {
  const double seconds = MedianOf([&call] {
    for (int i = 0; i < kCalls; ++i) call();
  });
  PrintResult(name, seconds / kCalls * 1e9);
}

void MeasureCalls(_LPModel& model) {
  LateMember count(model, L"NumberOfRows");
  LateMember name(model, L"RowName");
  std::array<VARIANT, 2> variables;
  V_VT(&variables[0]) = VT_I4;
  V_I4(&variables[0]) = 500;
  MeasureCall("early_NumberOfRows_ns", [&] {
    LONG rows = 0;
    model.get_NumberOfRows(&rows);
  });
  MeasureCall("late_NumberOfRows_ns", [&] { count.Get(variables, 0); });
  MeasureCall("late_NumberOfRows_with_name_ns", [&] {
    count.Find();
    count.Get(variables, 0);
  });
  MeasureCall("early_RowName_ns", [&] {
    BSTR text = nullptr;
    model.get_RowName(500, &text);
    SysFreeString(text);
  });
  MeasureCall("late_RowName_ns", [&] {
    VARIANT text = name.Get(variables, 1);
    VariantClear(&text);
  });
}

double WalkEarly(_LPModel& model) {
  double sum = 0;
  for (LONG i = 0; i < kRows; ++i) {
    LONG count = 0;
    model.get_RowNumberElements(i, &count);
    for (LONG k = 0; k < count; ++k) {
      LONG column = 0;
      double value = 0;
      model.get_RowElementCol(i, k, &column);
      model.get_RowElementValue(i, k, &value);
      sum += value * column;
    }
  }
  return sum;
}

double WalkLate(_LPModel& model) {
  LateMember count(model, L"RowNumberElements");
  LateMember column(model, L"RowElementCol");
  LateMember value(model, L"RowElementValue");
  std::array<VARIANT, 2> variables;
  for (VARIANT& variable : variables) V_VT(&variable) = VT_I4;
  LONG& i = V_I4(&variables[0]);
  LONG& k = V_I4(&variables[1]);
  double sum = 0;
  for (i = 0; i < kRows; ++i) {
    const VARIANT elements = count.Get(variables, 1);
    for (k = 0; k < V_I4(&elements); ++k) {
      const VARIANT number = column.Get(variables, 2);
      const VARIANT coefficient = value.Get(variables, 2);
      sum += V_R8(&coefficient) * V_I4(&number);
    }
  }
  return sum;
}

int Run() {
  if (FAILED(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED))) Fail("COM does not start");
  _LPModel* const model = MakeModel();
  FillModel(*model);
  MeasureCalls(*model);
  double early = 0;
  double late = 0;
  PrintResult("early_walk_ms", MedianOf([&] { early = WalkEarly(*model); }) * 1e3);
  PrintResult("late_walk_ms", MedianOf([&] { late = WalkLate(*model); }) * 1e3);
  model->Release();
  if (early != late || early == 0) Fail("the two walks do not agree");
  return 0;
}

}  // namespace
}  // namespace quarvel::bench

int main() { return quarvel::bench::Run(); }
