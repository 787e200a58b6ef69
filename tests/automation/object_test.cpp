// The object as COM sees it: identity, references, description, life.

#include <functional>

#include "automation/bstr.h"
#include "automation/lp_model_object.h"
#include "automation/module_use.h"
#include "platform/basic_controls.h"
#include "tests/automation/object_fixture.h"
#include "tests/support/test_paths.h"

namespace quarvel::automation {
namespace {

// An object of a host: tells the test when it is let go.
class HostObject final : public IUnknown {
 public:
  explicit HostObject(std::function<void()> on_last_release)
      : on_last_release_(std::move(on_last_release)) {}
  STDMETHODIMP QueryInterface(REFIID iid, void** object) override {
    *object = iid == __uuidof(IUnknown) ? this : nullptr;
    if (*object == nullptr) return E_NOINTERFACE;
    AddRef();
    return S_OK;
  }
  STDMETHODIMP_(ULONG) AddRef() override { return ++references_; }
  STDMETHODIMP_(ULONG) Release() override {
    const ULONG left = --references_;
    if (left > 0) return left;
    on_last_release_();
    delete this;
    return 0;
  }

 private:
  ~HostObject() = default;
  ULONG references_ = 1;
  std::function<void()> on_last_release_;
};

Value UnknownValue(IUnknown* owned) {
  VARIANT value;
  V_VT(&value) = VT_UNKNOWN;
  V_UNKNOWN(&value) = owned;
  return Value(value);
}

using Object = ObjectFixture;

TEST_F(Object, AnswersToItsInterfacesAndToNoOthers) {
  for (const GUID& iid :
       {__uuidof(IUnknown), __uuidof(IDispatch), __uuidof(_LPModel), __uuidof(ISupportErrorInfo)}) {
    ComPtr<IUnknown> found;
    EXPECT_EQ(model_->QueryInterface(iid, found.ReceiveVoid()), S_OK);
    EXPECT_TRUE(found);
  }
  void* nothing = model_.get();
  EXPECT_EQ(model_->QueryInterface(__uuidof(IClassFactory), &nothing), E_NOINTERFACE);
  EXPECT_EQ(nothing, nullptr);
  EXPECT_EQ(model_->QueryInterface(__uuidof(IUnknown), nullptr), E_POINTER);
}

TEST_F(Object, IsTheSameObjectThroughEachInterface) {
  ComPtr<IUnknown> first;
  ComPtr<IUnknown> second;
  ComPtr<ISupportErrorInfo> support;
  model_->QueryInterface(__uuidof(IUnknown), first.ReceiveVoid());
  ASSERT_EQ(model_->QueryInterface(__uuidof(ISupportErrorInfo), support.ReceiveVoid()), S_OK);
  support->QueryInterface(__uuidof(IUnknown), second.ReceiveVoid());
  EXPECT_EQ(first.get(), second.get());
  EXPECT_EQ(support->InterfaceSupportsErrorInfo(__uuidof(_LPModel)), S_OK);
  EXPECT_EQ(support->InterfaceSupportsErrorInfo(__uuidof(IClassFactory)), S_FALSE);
}

TEST_F(Object, CountsItsOneTypeDescription) {
  UINT count = 0;
  EXPECT_EQ(model_->GetTypeInfoCount(&count), S_OK);
  EXPECT_EQ(count, 1u);
  EXPECT_EQ(model_->GetTypeInfoCount(nullptr), E_POINTER);
  ComPtr<ITypeInfo> info;
  EXPECT_EQ(model_->GetTypeInfo(1, LOCALE_NEUTRAL, info.Receive()), DISP_E_BADINDEX);
  EXPECT_EQ(model_->GetTypeInfo(0, LOCALE_NEUTRAL, nullptr), E_POINTER);
}

TEST_F(Object, GivesBackWhatTheHostStoredWhenItGoes) {
  bool gone = false;
  Value value = UnknownValue(new HostObject([&] { gone = true; }));
  ASSERT_EQ(model_->put_showFrm(value.variant()), S_OK);
  value = Value();
  EXPECT_FALSE(gone);
  EXPECT_EQ(model_.get()->Release(), 0u);
  model_.Detach();
  EXPECT_TRUE(gone);
}

TEST_F(Object, LetsGoOfWhatTheHostReplaces) {
  bool gone = false;
  ASSERT_EQ(model_->put_showFrm(UnknownValue(new HostObject([&] { gone = true; })).variant()),
            S_OK);
  EXPECT_FALSE(gone);
  ASSERT_EQ(model_->putref_showFrm(Value(5).variant()), S_OK);
  EXPECT_TRUE(gone);
}

TEST_F(Object, SurvivesAHostObjectThatUsesItWhileItGoes) {
  _LPModel* const raw = model_.get();
  LONG rows = -1;
  ASSERT_EQ(raw->put_showFrm(UnknownValue(new HostObject([&] {
                               raw->AddRef();
                               raw->get_NumberOfRows(&rows);
                               raw->Release();
                             })).variant()),
            S_OK);
  model_.Detach();
  EXPECT_EQ(raw->Release(), 0u);
  EXPECT_EQ(rows, 0);
}

// A file that is long enough for several points at which events run.
std::string LongFile() {
  std::string text = "NAME LONG\r\nROWS\r\n N COST\r\nCOLUMNS\r\n";
  for (int i = 0; i < 2000; ++i) text += " X" + std::to_string(i) + " COST 1\r\n";
  return text + "ENDATA\r\n";
}

class ObjectDuringRead : public ObjectFixture {
 protected:
  ObjectDuringRead() {
    WriteWholeFile(folder_.File("long.mps"), LongFile());
    desktop_->files.push_back(folder_.File("long.mps"));
    desktop_->on_idle = [](platform::Form& form) {
      static_cast<platform::Button*>(form.Find("cmdOK"))->on_click();
    };
    desktop_->on_box = [](const platform::ShownBox&) { return platform::MsgBoxResult::kNo; };
  }

  TemporaryFolder folder_;
};

TEST_F(ObjectDuringRead, StaysUntilTheCallReturnsWhenItsLastReferenceIsReleased) {
  ASSERT_TRUE(ModuleIsInUse());
  bool released = false;
  desktop_->on_events = [&](std::int64_t) {
    if (released) return;
    released = true;
    model_.Detach()->Release();
    EXPECT_TRUE(ModuleIsInUse());
  };
  SHORT result = 5;
  EXPECT_EQ(model_->ReadMPSFile(&result), S_OK);
  EXPECT_TRUE(released);
  EXPECT_EQ(result, -1);
  EXPECT_FALSE(ModuleIsInUse());
}

TEST_F(ObjectDuringRead, StaysUntilALateBoundCallReturnsToo) {
  bool released = false;
  desktop_->on_events = [&](std::int64_t) {
    if (released) return;
    released = true;
    model_.Detach()->Release();
  };
  EXPECT_EQ(Call(L"ReadMPSFile"), "= I2 -1");
  EXPECT_TRUE(released);
  EXPECT_FALSE(ModuleIsInUse());
}

TEST_F(ObjectDuringRead, TakesANewModelInTheMiddle) {
  bool made = false;
  desktop_->on_events = [&](std::int64_t) {
    if (made) return;
    made = true;
    EXPECT_EQ(model_->MakeNewModel(), S_OK);
  };
  SHORT result = 5;
  EXPECT_EQ(model_->ReadMPSFile(&result), S_OK);
  EXPECT_TRUE(made);
  LONG columns = -1;
  EXPECT_EQ(model_->get_NumberOfColumns(&columns), S_OK);
  EXPECT_LT(columns, 2000);
  model_ = ComPtr<_LPModel>();
  EXPECT_FALSE(ModuleIsInUse());
}

TEST_F(ObjectDuringRead, RefusesASecondReadByNumber) {
  std::string second;
  desktop_->on_events = [&](std::int64_t) {
    if (second.empty()) second = Call(L"ReadMPSFile");
  };
  EXPECT_EQ(Call(L"ReadMPSFile"), "= I2 -1");
  EXPECT_EQ(second, "! -2146827888 |  | Form already displayed; can't show modally");
}

}  // namespace
}  // namespace quarvel::automation
