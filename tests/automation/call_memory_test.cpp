// Calls through COM, with every allocation failing in turn, those of the component and those of the
// system's texts and arrays alike: the call says that memory ran out, nothing is thrown through the
// interface, and the model is as it was or as it was to be.

#include <array>
#include <cstdint>
#include <deque>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "automation/bstr.h"
#include "automation/class_factory.h"
#include "automation/members.h"
#include "platform/automation_error.h"
#include "tests/automation/object_fixture.h"
#include "tests/automation/scarce_system.h"
#include "tests/memory/scarce_desktop.h"
#include "tests/memory/trials.h"

namespace quarvel::automation {
namespace {

using quarvel::testing::EnoughMemory;
using quarvel::testing::FailingAllocation;
using quarvel::testing::ScarceDesktop;
using quarvel::testing::Shortage;
using quarvel::testing::Trials;

// Error 7, as the dispatch interface has it.
const HRESULT kOutOfMemoryCode =
    MAKE_HRESULT(SEVERITY_ERROR, FACILITY_CONTROL, static_cast<int>(RunTimeError::kOutOfMemory));
constexpr const char* kLongText = "A_TEXT_THAT_DOES_NOT_STAND_IN_ITS_OWN_ROOM_ALONE";

bool SaysOutOfMemory(HRESULT code) { return code == kOutOfMemoryCode || code == E_OUTOFMEMORY; }

ScarceSystem& System() {
  static ScarceSystem* const system = new ScarceSystem();
  return *system;
}

// What a call is given, of each type that its arguments may have. A deque moves nothing.
class Arguments {
 public:
  // Several ways of passing one value.
  static constexpr int kWays = 4;

  Arguments(const Member& member, int way) {
    for (const Argument& argument : member.arguments()) Add(argument.kind, way);
  }
  // As a caller passes them: the last one first.
  std::vector<VARIANT> Passed() const { return {passed_.rbegin(), passed_.rend()}; }

 private:
  void Add(ArgumentKind kind, int way) {
    switch (kind) {
      case ArgumentKind::kReadArray:
      case ArgumentKind::kWrittenArray:
        return Pass(Array(way % 2 == 0 ? VT_R8 : VT_VARIANT));
      case ArgumentKind::kWrittenDouble:
        return PassReference(Number(0));
      case ArgumentKind::kText:
      case ArgumentKind::kTextRef:
        return way == 0 ? Pass(Number(1)) : Pass(Text(way == 1 ? "NEW" : kLongText));
      case ArgumentKind::kVariant:
      case ArgumentKind::kVariantRef:
        return AddValue(way);
      default:
        return way == 0 ? Pass(Text("1")) : Pass(Number(1));
    }
  }

  void AddValue(int way) {
    switch (way) {
      case 0:
        return Pass(Text("L"));
      case 1:
        return Pass(Number(2.5));
      case 2: {
        VARIANT single;
        V_VT(&single) = VT_R4;
        V_R4(&single) = 0.1F;
        return Pass(single);
      }
      default:
        return PassReference(Text(kLongText));
    }
  }

  static VARIANT Number(double number) {
    VARIANT value;
    V_VT(&value) = VT_R8;
    V_R8(&value) = number;
    return value;
  }
  static VARIANT Text(const char* text) {
    VARIANT value;
    V_VT(&value) = VT_BSTR;
    V_BSTR(&value) = Bstr(std::string_view(text)).Detach();
    return value;
  }
  // Of five numbers, or of five empty variants.
  static VARIANT Array(VARTYPE type) {
    VARIANT value;
    V_VT(&value) = static_cast<VARTYPE>(VT_ARRAY | type);
    V_ARRAY(&value) = SafeArrayCreateVector(type, 0, 5);
    return value;
  }

  VARIANT& Keep(VARIANT value) {
    VARIANT& kept = storage_.emplace_back().value();
    kept = value;
    return kept;
  }
  void Pass(VARIANT value) { passed_.push_back(Keep(value)); }
  void PassReference(VARIANT value) {
    VARIANT& kept = Keep(value);
    VARIANT to;
    V_VT(&to) = static_cast<VARTYPE>(VT_BYREF | V_VT(&kept));
    V_BYREF(&to) = &V_NONE(&kept);
    passed_.push_back(to);
  }

  std::deque<VariantHolder> storage_;
  std::vector<VARIANT> passed_;  // owns nothing
};

struct Told {
  HRESULT code = S_OK;
  HRESULT number = S_OK;  // of the exception record
  std::string result;
  bool operator==(const Told&) const = default;

  bool lacks_memory() const {
    return SaysOutOfMemory(code) || (code == DISP_E_EXCEPTION && SaysOutOfMemory(number));
  }
  std::string Text() const {
    return std::to_string(code) + ' ' + std::to_string(number) + ' ' + result;
  }
};

// An object whose user closes every window, and what can be seen of it.
class ScarceObject : public ObjectFixture {
 public:
  ScarceObject() {
    auto desktop = std::make_unique<ScarceDesktop>();
    scarce_ = desktop.get();
    desktop_ = scarce_;
    model_ = ComPtr<_LPModel>(new LPModelObject(std::move(desktop)));
    FillModel();
    Put(L"SetModelName", {kLongText});
    Put(L"showFrm", {kLongText});
    Put(L"strMPSFile", {kLongText});
    desktop_->Clear();
    desktop_->on_box = [](const platform::ShownBox& box) {
      return box.style == platform::MsgBoxStyle::kOk ? platform::MsgBoxResult::kOk
                                                     : platform::MsgBoxResult::kNo;
    };
    desktop_->files.assign(2, "");
    desktop_->on_idle = [this](platform::Form& form) { Close(form); };
  }

  void TestBody() override {}

  _LPModel* object() { return model_.get(); }
  bool told_of_shortage() const { return failed_ || scarce_->told_of_shortage(); }

  Told Invoke(const Member& member, std::vector<VARIANT>& passed) {
    const bool writes = member.kind == INVOKE_PROPERTYPUT || member.kind == INVOKE_PROPERTYPUTREF;
    DISPID put = DISPID_PROPERTYPUT;
    DISPPARAMS parameters = {passed.data(), writes ? &put : nullptr,
                             static_cast<UINT>(passed.size()), writes ? 1U : 0U};
    VariantHolder result;
    EXCEPINFO failure = {};
    UINT wrong = 99;
    Told told;
    told.code = model_->Invoke(member.id, IID_NULL, LOCALE_NEUTRAL, static_cast<WORD>(member.kind),
                               &parameters, result.Receive(), &failure, &wrong);
    const EnoughMemory enough;
    told.number = failure.scode;
    told.result = TextOf(result.value());
    SysFreeString(failure.bstrSource);
    SysFreeString(failure.bstrDescription);
    return told;
  }

  std::string State() {
    std::string state = Call(L"NumberOfRows") + Call(L"NumberOfColumns") +
                        Call(L"NumberOfElements") + Call(L"ModelName") + Call(L"strMPSFile") +
                        Call(L"ModelDescription") + Call(L"showFrm") + Call(L"ReadMPSFileErr");
    for (int i = 0; i < 3; ++i) {
      state += "\n" + Call(L"RowName", {i}) + Call(L"RowType", {i}) + Call(L"RowEquation", {i}) +
               Call(L"RowUpperBound", {i}) + Call(L"ColName", {i}) + Call(L"ColUpperBound", {i}) +
               Call(L"ColType", {i}) + Call(L"ColLowerBound", {i});
    }
    return state;
  }

 private:
  static constexpr int kPatience = 3;

  // As on every drawer, no failure of what the user does gets further than to him.
  void Close(platform::Form& form) {
    if (turns_++ < kPatience) return TryToClose(form);
    const EnoughMemory enough;
    TryToClose(form);
  }
  void TryToClose(platform::Form& form) {
    try {
      form.RequestClose();
    } catch (const std::exception&) {
      failed_ = true;
    }
  }

  ScarceDesktop* scarce_ = nullptr;
  int turns_ = 0;
  bool failed_ = false;
};

class CallTrial {
 public:
  CallTrial(const Member& member, int way) : member_(member), way_(way) {
    ScarceObject object;
    before_ = object.State();
    const Arguments arguments(member, way);
    std::vector<VARIANT> passed = arguments.Passed();
    wanted_ = object.Invoke(member, passed);
    after_ = object.State();
  }

  std::optional<std::string> operator()(std::int64_t n, Shortage shortage) const {
    ScarceObject object;
    const Arguments arguments(member_, way_);
    std::vector<VARIANT> passed = arguments.Passed();
    Told told;
    {
      const FailingAllocation failing(n, shortage);
      told = object.Invoke(member_, passed);
      if (!failing.happened()) return std::nullopt;
    }
    const bool says_so = told.lacks_memory() || object.told_of_shortage();
    if (!says_so && told != wanted_) return "not told: " + told.Text();
    const std::string state = object.State();
    if (!says_so) return state == after_ ? "" : "done, with another state";
    // A read may have emptied the model.
    if (state == before_ || state == after_ || member_.name == L"StartFileReding") return "";
    return "another state:\n" + state;
  }

 private:
  const Member& member_;
  int way_;
  Told wanted_;
  std::string before_;
  std::string after_;
};

// The tests of memory save and simplify with files of their own; a call adds nothing to that.
bool WritesFiles(const Member& member) {
  return member.name == L"SaveMPSFile" || member.name == L"SimplifyMPSModel";
}

TEST(CallMemory, LateBoundCallSaysThatMemoryRanOutAtEveryFailedAllocation) {
  const ScarceSystem& system = System();
  ASSERT_TRUE(system.works());
  Trials trials;
  for (const Member& member : Members()) {
    if (WritesFiles(member)) continue;
    const int ways = member.arguments().empty() ? 1 : Arguments::kWays;
    for (int way = 0; way < ways; ++way) {
      trials.Run(Utf8(member.name) + ", way " + std::to_string(way), CallTrial(member, way));
    }
  }
  EXPECT_GT(system.asked(), 100);
  trials.Expect(1000);
}

struct EarlyCall {
  const char* name;
  HRESULT (*run)(_LPModel* model);
};

HRESULT GetRowName(_LPModel* model) {
  Bstr name;
  return model->get_RowName(0, name.Receive());
}

HRESULT GetMissingRow(_LPModel* model) {
  Bstr name;
  return model->get_RowName(99, name.Receive());
}

HRESULT GetHostsValue(_LPModel* model) {
  VariantHolder value;
  return model->get_showFrm(value.Receive());
}

HRESULT AddRow(_LPModel* model) {
  static const Bstr name{std::string_view(kLongText)};
  SHORT result = 0;
  return model->AddRow(name.get(), &result);
}

HRESULT SetName(_LPModel* model) {
  static const Bstr name{std::string_view(kLongText)};
  VARIANT value;
  V_VT(&value) = VT_BSTR;
  V_BSTR(&value) = name.get();
  return model->put_SetRowName(0, &value);
}

HRESULT FindName(_LPModel* model) {
  static std::wstring name = L"NumberOfRows";
  LPOLESTR names[] = {name.data()};
  DISPID id = DISPID_UNKNOWN;
  return model->GetIDsOfNames(IID_NULL, names, 1, LOCALE_NEUTRAL, &id);
}

TEST(CallMemory, EarlyBoundCallSaysThatMemoryRanOutAtEveryFailedAllocation) {
  System();
  Trials trials;
  for (const EarlyCall& call : {EarlyCall{"get_RowName", GetRowName},
                                {"get_RowName, of none", GetMissingRow},
                                {"get_showFrm", GetHostsValue},
                                {"AddRow", AddRow},
                                {"put_SetRowName", SetName},
                                {"GetIDsOfNames", FindName}}) {
    const HRESULT wanted = call.run(ScarceObject().object());
    trials.Run(call.name, [&](std::int64_t n, Shortage shortage) -> std::optional<std::string> {
      ScarceObject object;
      const FailingAllocation failing(n, shortage);
      const HRESULT code = call.run(object.object());
      const EnoughMemory enough;
      if (!failing.happened()) return std::nullopt;
      return code == wanted || SaysOutOfMemory(code) ? "" : "code " + std::to_string(code);
    });
  }
  trials.Expect(10);
}

TEST(CallMemory, ObjectThatCannotBeMadeIsALackOfMemory) {
  System();
  Trials trials;
  const ComPtr<IClassFactory> factory(new ClassFactory(
      [] { return std::unique_ptr<platform::Desktop>(std::make_unique<ScarceDesktop>()); }));
  trials.Run("CreateInstance",
             [&](std::int64_t n, Shortage shortage) -> std::optional<std::string> {
               ComPtr<_LPModel> made;
               const FailingAllocation failing(n, shortage);
               const HRESULT code =
                   factory->CreateInstance(nullptr, __uuidof(_LPModel), made.ReceiveVoid());
               const EnoughMemory enough;
               if (!failing.happened()) return std::nullopt;
               if (!SaysOutOfMemory(code)) return "code " + std::to_string(code);
               return made.get() == nullptr ? "" : "an object all the same";
             });
  trials.Expect(4);
}

}  // namespace
}  // namespace quarvel::automation
