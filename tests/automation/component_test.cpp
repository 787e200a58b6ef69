// The component's file: entry points, class factory, when it may be unloaded, what it imports and
// what its resources say.

#include <algorithm>
#include <set>
#include <string>
#include <vector>

#include <windows.h>
#include <gtest/gtest.h>

#include "automation/bstr.h"
#include "automation/class_factory.h"
#include "automation/module_use.h"
#include "model/about.h"
#include "platform/scripted/scripted_desktop.h"
#include "tests/automation/component_file.h"
#include "tests/automation/object_fixture.h"

namespace quarvel::automation {
namespace {

const std::byte* BaseOf(HMODULE module) { return reinterpret_cast<const std::byte*>(module); }

template <class T>
const T* At(HMODULE module, DWORD offset) {
  return reinterpret_cast<const T*>(BaseOf(module) + offset);
}

const IMAGE_DATA_DIRECTORY& Directory(HMODULE module, int number) {
  const auto* dos = At<IMAGE_DOS_HEADER>(module, 0);
  const auto* headers = At<IMAGE_NT_HEADERS>(module, static_cast<DWORD>(dos->e_lfanew));
  return headers->OptionalHeader.DataDirectory[number];
}

std::set<std::string> Imports(HMODULE module) {
  std::set<std::string> names;
  const DWORD start = Directory(module, IMAGE_DIRECTORY_ENTRY_IMPORT).VirtualAddress;
  for (const auto* i = At<IMAGE_IMPORT_DESCRIPTOR>(module, start); i->Name != 0; ++i) {
    std::string name = At<char>(module, i->Name);
    std::transform(name.begin(), name.end(), name.begin(),
                   [](char c) { return static_cast<char>(std::tolower(c)); });
    names.insert(name);
  }
  return names;
}

std::vector<std::string> Exports(HMODULE module) {
  const DWORD start = Directory(module, IMAGE_DIRECTORY_ENTRY_EXPORT).VirtualAddress;
  const auto* table = At<IMAGE_EXPORT_DIRECTORY>(module, start);
  const auto* names = At<DWORD>(module, table->AddressOfNames);
  std::vector<std::string> found;
  for (DWORD i = 0; i < table->NumberOfNames; ++i) found.emplace_back(At<char>(module, names[i]));
  return found;
}

// A text of a file's version resource, "(none)" when it is missing.
std::string VersionText(const std::wstring& file, const std::wstring& name) {
  std::vector<std::byte> block(GetFileVersionInfoSizeW(file.c_str(), nullptr));
  void* text = nullptr;
  UINT length = 0;
  if (!GetFileVersionInfoW(file.c_str(), 0, static_cast<DWORD>(block.size()), block.data()) ||
      !VerQueryValueW(block.data(), (L"\\StringFileInfo\\040904B0\\" + name).c_str(), &text,
                      &length)) {
    return "(none)";
  }
  return Utf8(static_cast<const wchar_t*>(text));
}

TEST(Component, ExportsTheFourEntryPoints) {
  const LoadedComponent component;
  EXPECT_EQ(Exports(component.module()),
            (std::vector<std::string>{"DllCanUnloadNow", "DllGetClassObject", "DllRegisterServer",
                                      "DllUnregisterServer"}));
}

TEST(Component, ImportsOnlyTheSystemsOwnFiles) {
  const std::set<std::string> system = {
      "advapi32.dll", "comctl32.dll", "comdlg32.dll", "gdi32.dll",   "kernel32.dll", "msvcrt.dll",
      "ole32.dll",    "oleaut32.dll", "shell32.dll",  "shlwapi.dll", "user32.dll",   "uxtheme.dll"};
  const LoadedComponent component;
  const std::set<std::string> imports = Imports(component.module());
  EXPECT_TRUE(imports.contains("oleaut32.dll"));
  for (const std::string& name : imports) EXPECT_TRUE(system.contains(name)) << name;
}

TEST(Component, TellsItsVersionAndThatItRegistersItself) {
  const std::wstring file = ComponentFile();
  EXPECT_EQ(VersionText(file, L"FileVersion"), "1.00.0001");
  EXPECT_EQ(VersionText(file, L"ProductVersion"), "1.00.0001");
  EXPECT_EQ(VersionText(file, L"ProductName"), "Quarvel");
  EXPECT_NE(VersionText(file, L"OLESelfRegister"), "(none)");
}

TEST(Component, StandsBesideAProgramOfTheProductsVersion) {
  const std::wstring folder = ComponentFile().substr(0, ComponentFile().find_last_of(L'\\') + 1);
  EXPECT_EQ(VersionText(folder + L"quarvel.exe", L"FileVersion"), model::ProductVersion());
  EXPECT_EQ(VersionText(folder + L"quarvel.exe", L"ProductName"), "Quarvel");
}

TEST(Component, CarriesTheManifestOfItsOwnVisualStyles) {
  const LoadedComponent component;
  EXPECT_NE(FindResourceW(component.module(), MAKEINTRESOURCEW(2), MAKEINTRESOURCEW(24)), nullptr);
}

TEST(Component, HandsOutTheFactoryOfItsOneClass) {
  const LoadedComponent component;
  ComPtr<IClassFactory> factory;
  EXPECT_EQ(
      component.GetClassObject(__uuidof(::LPModel), __uuidof(IClassFactory), factory.ReceiveVoid()),
      S_OK);
  void* nothing = factory.get();
  EXPECT_EQ(component.GetClassObject(__uuidof(_LPModel), __uuidof(IClassFactory), &nothing),
            CLASS_E_CLASSNOTAVAILABLE);
  EXPECT_EQ(nothing, nullptr);
  nothing = factory.get();
  EXPECT_EQ(component.GetClassObject(__uuidof(::LPModel), __uuidof(IDispatch), &nothing),
            E_NOINTERFACE);
  EXPECT_EQ(nothing, nullptr);
  EXPECT_EQ(component.GetClassObject(__uuidof(::LPModel), __uuidof(IClassFactory), nullptr),
            E_POINTER);
}

TEST(Component, MakesNoAggregateAndNoObjectOfAnotherInterface) {
  const LoadedComponent component;
  ComPtr<IClassFactory> factory;
  ASSERT_EQ(
      component.GetClassObject(__uuidof(::LPModel), __uuidof(IClassFactory), factory.ReceiveVoid()),
      S_OK);
  void* nothing = factory.get();
  EXPECT_EQ(factory->CreateInstance(factory.get(), __uuidof(IUnknown), &nothing),
            CLASS_E_NOAGGREGATION);
  EXPECT_EQ(nothing, nullptr);
  nothing = factory.get();
  EXPECT_EQ(factory->CreateInstance(nullptr, __uuidof(IClassFactory), &nothing), E_NOINTERFACE);
  EXPECT_EQ(nothing, nullptr);
  EXPECT_EQ(factory->CreateInstance(nullptr, __uuidof(IUnknown), nullptr), E_POINTER);
  factory = ComPtr<IClassFactory>();
  EXPECT_TRUE(component.CanUnloadNow());
}

TEST(Component, StaysWhileAnObjectOrALockIsAlive) {
  const LoadedComponent component;
  EXPECT_TRUE(component.CanUnloadNow());
  ComPtr<_LPModel> model = component.MakeModel();
  EXPECT_FALSE(component.CanUnloadNow());
  ComPtr<ISupportErrorInfo> other;
  model->QueryInterface(__uuidof(ISupportErrorInfo), other.ReceiveVoid());
  model = ComPtr<_LPModel>();
  EXPECT_FALSE(component.CanUnloadNow());
  other = ComPtr<ISupportErrorInfo>();
  EXPECT_TRUE(component.CanUnloadNow());
  ComPtr<IClassFactory> factory;
  component.GetClassObject(__uuidof(::LPModel), __uuidof(IClassFactory), factory.ReceiveVoid());
  factory->LockServer(TRUE);
  factory = ComPtr<IClassFactory>();
  EXPECT_FALSE(component.CanUnloadNow());
  component.GetClassObject(__uuidof(::LPModel), __uuidof(IClassFactory), factory.ReceiveVoid());
  factory->LockServer(FALSE);
  factory = ComPtr<IClassFactory>();
  EXPECT_TRUE(component.CanUnloadNow());
}

TEST(Component, MayGoAfterTenThousandObjectsAndTheirErrors) {
  const LoadedComponent component;
  std::vector<ComPtr<_LPModel>> models;
  for (int i = 0; i < 10000; ++i) {
    models.push_back(component.MakeModel());
    Bstr name;
    EXPECT_EQ(models.back()->get_RowName(0, name.Receive()), static_cast<HRESULT>(0x80040214));
  }
  EXPECT_FALSE(component.CanUnloadNow());
  models.clear();
  EXPECT_TRUE(component.CanUnloadNow());
}

TEST(Component, LoadsWorksAndGoesAgainAndAgain) {
  for (int round = 0; round < 5; ++round) {
    {
      const LoadedComponent component;
      ComPtr<_LPModel> model = component.MakeModel();
      SHORT added = 0;
      EXPECT_EQ(model->MakeNewModel(), S_OK);
      EXPECT_EQ(model->AddRow(Bstr("R1").get(), &added), S_OK);
      EXPECT_EQ(added, -1);
      Bstr name;
      EXPECT_EQ(model->get_RowName(5, name.Receive()), static_cast<HRESULT>(0x80040214));
      model = ComPtr<_LPModel>();
      EXPECT_TRUE(component.CanUnloadNow());
    }
    EXPECT_EQ(GetModuleHandleW(L"Quarvel.dll"), nullptr);
  }
}

// One host thread: a model of `rows` rows, and errors whose texts tell that number.
struct HostThread {
  const LoadedComponent* component;
  LONG rows;
  int mismatches;
};

DWORD WINAPI RunHostThread(void* parameter) {
  auto& host = *static_cast<HostThread*>(parameter);
  if (FAILED(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED))) return 1;
  {
    const ComPtr<_LPModel> model = host.component->MakeModel();
    model->MakeNewModel();
    for (LONG i = 0; i < host.rows; ++i) {
      SHORT added = 0;
      model->AddRow(Bstr("R" + std::to_string(i)).get(), &added);
    }
    const std::string last = "Rows range from 0 to " + std::to_string(host.rows - 1) + ".";
    for (int i = 0; i < 2000; ++i) {
      Bstr name;
      const HRESULT code = model->get_RowName(host.rows, name.Receive());
      if (!TextOfFailure(code).ends_with(last)) ++host.mismatches;
    }
  }
  CoUninitialize();
  return 0;
}

TEST(Component, SharesNothingBetweenThreads) {
  const LoadedComponent component;
  HostThread hosts[] = {{&component, 5, 0}, {&component, 300, 0}};
  HANDLE threads[2] = {};
  for (int i = 0; i < 2; ++i) {
    threads[i] = CreateThread(nullptr, 0, RunHostThread, &hosts[i], 0, nullptr);
  }
  EXPECT_EQ(WaitForMultipleObjects(2, threads, TRUE, 60000), WAIT_OBJECT_0);
  for (int i = 0; i < 2; ++i) {
    DWORD code = 99;
    GetExitCodeThread(threads[i], &code);
    EXPECT_EQ(code, 0u);
    CloseHandle(threads[i]);
    EXPECT_EQ(hosts[i].mismatches, 0);
  }
  EXPECT_TRUE(component.CanUnloadNow());
}

TEST(Component, DescribesItsObjects) {
  const LoadedComponent component;
  const ComPtr<_LPModel> model = component.MakeModel();
  ComPtr<ITypeInfo> info;
  ASSERT_EQ(model->GetTypeInfo(0, LOCALE_NEUTRAL, info.Receive()), S_OK);
  LPOLESTR names[] = {const_cast<LPOLESTR>(L"RowBodyValue"), const_cast<LPOLESTR>(L"Answer")};
  MEMBERID ids[2] = {};
  ASSERT_EQ(info->GetIDsOfNames(names, 2, ids), S_OK);
  DISPID own[2] = {};
  ASSERT_EQ(model->GetIDsOfNames(IID_NULL, names, 2, LOCALE_NEUTRAL, own), S_OK);
  EXPECT_EQ(own[0], ids[0]);
  EXPECT_EQ(own[1], ids[1]);
}

}  // namespace
}  // namespace quarvel::automation
