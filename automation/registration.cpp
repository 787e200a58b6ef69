#include "automation/registration.h"

#include <algorithm>
#include <vector>

#include <windows.h>
#include <initguid.h>
#include <quarvel_idl.h>

#include "automation/registry_key.h"

namespace quarvel::automation {
namespace {

constexpr wchar_t kProgId[] = L"Quarvel.LPModel";
constexpr wchar_t kClassTitle[] = L"Quarvel LP model";
constexpr wchar_t kLibraryTitle[] =
    L"Quarvel: one LP or MIP model, read from MPS files, queried, "
    L"edited, simplified, shown and saved";
constexpr wchar_t kVersion[] = L"1.0";
// The system's marshaler of interfaces that a type library describes.
constexpr wchar_t kAutomationMarshaler[] = L"{00020424-0000-0000-C000-000000000046}";
#ifdef _WIN64
constexpr wchar_t kPlatform[] = L"win64";
#else
constexpr wchar_t kPlatform[] = L"win32";
#endif
// The library is English; the neutral locale makes it found in every other one.
constexpr const wchar_t* kLocales[] = {L"0", L"409"};
// Where the class's own key notes which shared keys registering has made.
constexpr wchar_t kMadeKeys[] = L"MadeKeys";

std::wstring GuidText(const GUID& guid) {
  std::wstring text(39, L'\0');
  StringFromGUID2(guid, text.data(), static_cast<int>(text.size()));
  text.pop_back();
  return text;
}

const std::wstring kClasses = L"Software\\Classes";

// The keys that belong to the component alone.
std::wstring ClassKey() { return kClasses + L"\\CLSID\\" + GuidText(__uuidof(::LPModel)); }
std::wstring ProgIdKey() { return kClasses + L"\\" + kProgId; }
std::wstring InterfaceKey() { return kClasses + L"\\Interface\\" + GuidText(__uuidof(_LPModel)); }
std::wstring LibraryKey() { return kClasses + L"\\TypeLib\\" + GuidText(LIBID_Quarvel); }
std::wstring LibraryVersionKey() { return LibraryKey() + L"\\" + kVersion; }

struct Value {
  std::wstring key;
  std::wstring name;
  std::wstring text;
};

// Everything that is registered, each key after the one that holds it.
std::vector<Value> Values(const std::wstring& path) {
  const std::wstring class_id = GuidText(__uuidof(::LPModel));
  const std::wstring library_id = GuidText(LIBID_Quarvel);
  const std::wstring folder = path.substr(0, path.find_last_of(L"\\/"));
  std::vector<Value> values = {
      {ClassKey(), L"", kClassTitle},
      {ClassKey() + L"\\InprocServer32", L"", path},
      {ClassKey() + L"\\InprocServer32", L"ThreadingModel", L"Apartment"},
      {ClassKey() + L"\\ProgID", L"", kProgId},
      {ClassKey() + L"\\Programmable", L"", L""},
      {ClassKey() + L"\\TypeLib", L"", library_id},
      {ClassKey() + L"\\Version", L"", kVersion},
      {ProgIdKey(), L"", kClassTitle},
      {ProgIdKey() + L"\\CLSID", L"", class_id},
      {InterfaceKey(), L"", L"_LPModel"},
      {InterfaceKey() + L"\\ProxyStubClsid32", L"", kAutomationMarshaler},
      {InterfaceKey() + L"\\TypeLib", L"", library_id},
      {InterfaceKey() + L"\\TypeLib", L"Version", kVersion},
      {LibraryVersionKey(), L"", kLibraryTitle},
      {LibraryVersionKey() + L"\\FLAGS", L"", L"0"},
      {LibraryVersionKey() + L"\\HELPDIR", L"", folder},
  };
  for (const wchar_t* locale : kLocales) {
    values.push_back({LibraryVersionKey() + L"\\" + locale + L"\\" + kPlatform, L"", path});
  }
  return values;
}

// Makes a key with all that are missing above it; shared ones are noted in `made`.
RegistryKey MakeKey(HKEY place, const std::wstring& path, std::vector<std::wstring>& made) {
  RegistryKey key;
  for (std::size_t end = 0; end != std::wstring::npos;) {
    end = path.find(L'\\', end + 1);
    const std::wstring above = path.substr(0, end);
    bool is_new = false;
    key = RegistryKey::Create(place, above, is_new);
    const bool shared = kClasses.starts_with(above) || above == kClasses + L"\\CLSID" ||
                        above == kClasses + L"\\Interface" || above == kClasses + L"\\TypeLib";
    if (is_new && shared) made.push_back(above);
  }
  return key;
}

void WriteValues(HKEY place, const std::wstring& path, std::vector<std::wstring>& made) {
  for (const Value& value : Values(path)) {
    MakeKey(place, value.key, made).SetText(value.name, value.text);
  }
}

std::vector<std::wstring> NotedKeys(HKEY place) {
  const RegistryKey key = RegistryKey::OpenToRead(place, ClassKey());
  return key ? key.Texts(kMadeKeys) : std::vector<std::wstring>();
}

void DeleteWhenEmpty(HKEY place, const std::wstring& path) {
  const RegistryKey key = RegistryKey::OpenToRead(place, path);
  if (key && key.CountSubkeys() == 0 && key.CountValues() == 0) DeleteKeyTree(place, path);
}

// The library's key goes when the component for the other kind of processes has no part in it.
void RemoveLibrary(HKEY place) {
  bool others = false;
  for (const wchar_t* locale : kLocales) {
    const std::wstring path = LibraryVersionKey() + L"\\" + locale;
    DeleteKeyTree(place, path + L"\\" + kPlatform);
    const RegistryKey key = RegistryKey::OpenToRead(place, path);
    others = others || (key && key.CountSubkeys() != 0);
  }
  if (!others) DeleteKeyTree(place, LibraryKey());
}

void RemoveFrom(HKEY place, std::vector<std::wstring> made) {
  RemoveLibrary(place);
  for (const std::wstring& path : {ClassKey(), ProgIdKey(), InterfaceKey()}) {
    DeleteKeyTree(place, path);
  }
  // The deepest first.
  std::sort(made.begin(), made.end(), std::greater<>());
  for (const std::wstring& path : made) DeleteWhenEmpty(place, path);
}

LSTATUS RegisterIn(HKEY place, const std::wstring& path) {
  std::vector<std::wstring> made;
  try {
    made = NotedKeys(place);
    WriteValues(place, path, made);
    if (!made.empty()) MakeKey(place, ClassKey(), made).SetTexts(kMadeKeys, made);
    return ERROR_SUCCESS;
  } catch (const RegistryFailure& failure) {
    try {
      RemoveFrom(place, made);
    } catch (const RegistryFailure&) {
      // The first failure tells more.
    }
    return failure.status;
  }
}

}  // namespace

HRESULT RegisterServer(std::span<const HKEY> places, const std::wstring& path) {
  LSTATUS status = ERROR_ACCESS_DENIED;
  for (const HKEY place : places) {
    status = RegisterIn(place, path);
    if (status == ERROR_SUCCESS) break;
  }
  return HRESULT_FROM_WIN32(status);
}

HRESULT UnregisterServer(std::span<const HKEY> places) {
  LSTATUS status = ERROR_SUCCESS;
  for (const HKEY place : places) {
    try {
      RemoveFrom(place, NotedKeys(place));
    } catch (const RegistryFailure& failure) {
      status = failure.status;
    }
  }
  return HRESULT_FROM_WIN32(status);
}

}  // namespace quarvel::automation
