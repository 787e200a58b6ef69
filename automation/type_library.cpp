#include "automation/type_library.h"

#include <windows.h>
#include <quarvel_idl.h>

#include "automation/com_ptr.h"

namespace quarvel::automation {

HMODULE ThisModule() {
  HMODULE module = nullptr;
  GetModuleHandleExW(
      GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
      reinterpret_cast<LPCWSTR>(&ThisModule), &module);
  return module;
}

std::wstring ModulePath() {
  std::wstring path(MAX_PATH, L'\0');
  for (;;) {
    const DWORD length =
        GetModuleFileNameW(ThisModule(), path.data(), static_cast<DWORD>(path.size()));
    if (length < path.size()) {
      path.resize(length);
      return path;
    }
    path.resize(path.size() * 2);
  }
}

HRESULT LoadInterfaceInfo(ITypeInfo** info) {
  ComPtr<ITypeLib> library;
  const HRESULT loaded = LoadTypeLibEx(ModulePath().c_str(), REGKIND_NONE, library.Receive());
  if (FAILED(loaded)) return loaded;
  return library->GetTypeInfoOfGuid(__uuidof(_LPModel), info);
}

}  // namespace quarvel::automation
