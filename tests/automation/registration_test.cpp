#include "automation/registration.h"

#include <algorithm>
#include <string>
#include <vector>

#include <windows.h>
#include <gtest/gtest.h>

#include "automation/bstr.h"
#include "automation/registry_key.h"
#include "tests/automation/component_file.h"
#include "tests/automation/object_fixture.h"
#include "tests/automation/registry_snapshot.h"

namespace quarvel::automation {
namespace {

const wchar_t kScratch[] = L"Software\\QuarvelTests";
const wchar_t kFile[] = L"C:\\a folder\\Quarvel.dll";

// Two places of the test's own, which stand for the machine's and the user's part of the registry.
class Registration : public ::testing::Test {
 protected:
  Registration() {
    DeleteKeyTree(HKEY_CURRENT_USER, kScratch);
    bool made = false;
    scratch_ = RegistryKey::Create(HKEY_CURRENT_USER, kScratch, made);
    machine_ = RegistryKey::Create(scratch_.get(), L"Machine", made);
    user_ = RegistryKey::Create(scratch_.get(), L"User", made);
  }
  ~Registration() override { DeleteKeyTree(HKEY_CURRENT_USER, kScratch); }

  std::vector<HKEY> Places() const { return {machine_.get(), user_.get()}; }
  static std::vector<std::string> Scratch() {
    return RegistrySnapshot(HKEY_CURRENT_USER, kScratch);
  }
  static bool Holds(const std::vector<std::string>& lines, const std::string& line) {
    return std::find(lines.begin(), lines.end(), "Software\\QuarvelTests\\" + line) != lines.end();
  }
  // Makes a key with all above it, without noting anything.
  void MakePath(const RegistryKey& place, const std::wstring& path) {
    HKEY key = nullptr;
    ASSERT_EQ(RegCreateKeyW(place.get(), path.c_str(), &key), ERROR_SUCCESS);
    RegCloseKey(key);
  }

  RegistryKey scratch_;
  RegistryKey machine_;
  RegistryKey user_;
};

TEST_F(Registration, WritesClassIdentifierInterfaceAndLibrary) {
  ASSERT_EQ(RegisterServer(Places(), kFile), S_OK);
  const auto lines = Scratch();
  const std::string classes = "Machine\\Software\\Classes\\";
  const std::string class_id = "{480126B4-CC43-4F36-A962-315BDB6A6F47}";
  const std::string library_id = "{A9D2343D-748E-4E1F-8F9D-D8BA6342554C}";
  const std::string interface_id = "{890AB0F0-6BD1-43DB-A6A1-08A6E8A504BB}";
  const std::string platform = sizeof(void*) == 8 ? "win64" : "win32";
  for (const std::string& line : {
           "CLSID\\" + class_id + "\\InprocServer32 [] 1 C:\\a folder\\Quarvel.dll;",
           "CLSID\\" + class_id + "\\InprocServer32 [ThreadingModel] 1 Apartment;",
           "CLSID\\" + class_id + "\\ProgID [] 1 Quarvel.LPModel;",
           "CLSID\\" + class_id + "\\TypeLib [] 1 " + library_id + ";",
           "CLSID\\" + class_id + "\\Version [] 1 1.0;",
           "Quarvel.LPModel\\CLSID [] 1 " + class_id + ";",
           "Interface\\" + interface_id + " [] 1 _LPModel;",
           "Interface\\" + interface_id +
               "\\ProxyStubClsid32 [] 1 {00020424-0000-0000-C000-000000000046};",
           "Interface\\" + interface_id + "\\TypeLib [] 1 " + library_id + ";",
           "Interface\\" + interface_id + "\\TypeLib [Version] 1 1.0;",
           "TypeLib\\" + library_id + "\\1.0\\409\\" + platform +
               " [] 1 C:\\a folder\\Quarvel.dll;",
           "TypeLib\\" + library_id + "\\1.0\\0\\" + platform + " [] 1 C:\\a folder\\Quarvel.dll;",
           "TypeLib\\" + library_id + "\\1.0\\HELPDIR [] 1 C:\\a folder;",
       }) {
    EXPECT_TRUE(Holds(lines, classes + line)) << line;
  }
  EXPECT_TRUE(RegistrySnapshot(user_.get(), L"Software").empty());
}

TEST_F(Registration, LeavesNothingBehind) {
  const auto before = Scratch();
  ASSERT_EQ(RegisterServer(Places(), kFile), S_OK);
  EXPECT_NE(Scratch(), before);
  EXPECT_EQ(UnregisterServer(Places()), S_OK);
  EXPECT_EQ(Scratch(), before);
}

TEST_F(Registration, LeavesEmptyKeysOfOthersAlone) {
  MakePath(machine_, L"Software\\Classes\\Interface");
  const auto before = Scratch();
  ASSERT_EQ(RegisterServer(Places(), kFile), S_OK);
  EXPECT_EQ(UnregisterServer(Places()), S_OK);
  EXPECT_EQ(Scratch(), before);
}

TEST_F(Registration, LeavesSharedKeysThatOthersHaveUsedSince) {
  ASSERT_EQ(RegisterServer(Places(), kFile), S_OK);
  MakePath(machine_, L"Software\\Classes\\CLSID\\{another}");
  EXPECT_EQ(UnregisterServer(Places()), S_OK);
  EXPECT_TRUE(Holds(Scratch(), "Machine\\Software\\Classes\\CLSID\\{another}"));
  EXPECT_FALSE(Holds(Scratch(), "Machine\\Software\\Classes\\TypeLib"));
}

TEST_F(Registration, TwiceIsAsGoodAsOnce) {
  const auto before = Scratch();
  ASSERT_EQ(RegisterServer(Places(), kFile), S_OK);
  const auto once = Scratch();
  ASSERT_EQ(RegisterServer(Places(), kFile), S_OK);
  EXPECT_EQ(Scratch(), once);
  EXPECT_EQ(UnregisterServer(Places()), S_OK);
  EXPECT_EQ(UnregisterServer(Places()), S_OK);
  EXPECT_EQ(Scratch(), before);
}

TEST_F(Registration, KeepsThePartOfTheOtherKindOfProcesses) {
  const std::wstring other =
      L"Software\\Classes\\TypeLib\\{A9D2343D-748E-4E1F-8F9D-D8BA6342554C}\\1.0\\409\\" +
      std::wstring(sizeof(void*) == 8 ? L"win32" : L"win64");
  ASSERT_EQ(RegisterServer(Places(), kFile), S_OK);
  MakePath(machine_, other);
  EXPECT_EQ(UnregisterServer(Places()), S_OK);
  EXPECT_TRUE(Holds(Scratch(), "Machine\\" + Utf8(other)));
}

// A key that lasts only until the system stops: nothing lasting can be made in it.
RegistryKey ClosedPlace(const RegistryKey& parent) {
  HKEY key = nullptr;
  EXPECT_EQ(RegCreateKeyExW(parent.get(), L"Closed", 0, nullptr, REG_OPTION_VOLATILE,
                            KEY_READ | KEY_WRITE, nullptr, &key, nullptr),
            ERROR_SUCCESS);
  return RegistryKey(key);
}

TEST_F(Registration, GoesToTheUserWhenTheMachineMayNotBeWritten) {
  const RegistryKey closed = ClosedPlace(scratch_);
  const HKEY places[] = {closed.get(), user_.get()};
  ASSERT_EQ(RegisterServer(places, kFile), S_OK);
  EXPECT_TRUE(RegistrySnapshot(closed.get(), L"Software").empty());
  EXPECT_TRUE(Holds(Scratch(), "User\\Software\\Classes\\Quarvel.LPModel"));
  EXPECT_EQ(UnregisterServer(places), S_OK);
  EXPECT_TRUE(RegistrySnapshot(user_.get(), L"Software").empty());
}

TEST_F(Registration, FailsWithTheReasonWhenNoPlaceMayBeWritten) {
  const RegistryKey closed = ClosedPlace(scratch_);
  const HKEY places[] = {closed.get()};
  EXPECT_EQ(RegisterServer(places, kFile), HRESULT_FROM_WIN32(ERROR_CHILD_MUST_BE_VOLATILE));
  EXPECT_TRUE(RegistrySnapshot(closed.get(), L"Software").empty());
}

std::vector<std::string> AllClasses() {
  auto lines = RegistrySnapshot(HKEY_LOCAL_MACHINE, L"Software\\Classes");
  const auto of_user = RegistrySnapshot(HKEY_CURRENT_USER, L"Software\\Classes");
  lines.insert(lines.end(), of_user.begin(), of_user.end());
  return lines;
}

TEST(RegisteredComponent, IsMadeByNameAndLeavesTheRegistryAsItWas) {
  const LoadedComponent component;
  const auto before = AllClasses();
  ASSERT_EQ(component.Call("DllRegisterServer"), S_OK);
  ASSERT_EQ(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED), S_OK);
  CLSID class_id = {};
  EXPECT_EQ(CLSIDFromProgID(L"Quarvel.LPModel", &class_id), S_OK);
  {
    ComPtr<_LPModel> model;
    EXPECT_EQ(CoCreateInstance(class_id, nullptr, CLSCTX_INPROC_SERVER, __uuidof(_LPModel),
                               model.ReceiveVoid()),
              S_OK);
  }
  for (const LCID locale : {LCID{0}, LCID{0x409}, LCID{0x407}}) {
    ComPtr<ITypeLib> library;
    const GUID library_id = {
        0xa9d2343d, 0x748e, 0x4e1f, {0x8f, 0x9d, 0xd8, 0xba, 0x63, 0x42, 0x55, 0x4c}};
    EXPECT_EQ(LoadRegTypeLib(library_id, 1, 0, locale, library.Receive()), S_OK) << locale;
  }
  CoUninitialize();
  EXPECT_NE(AllClasses(), before);
  ASSERT_EQ(component.Call("DllUnregisterServer"), S_OK);
  EXPECT_EQ(AllClasses(), before);
}

}  // namespace
}  // namespace quarvel::automation
