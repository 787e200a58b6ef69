// The entry points of Quarvel.dll, which the system calls.

#include <array>

#include <windows.h>
#include <quarvel_idl.h>

#include "automation/call_guard.h"
#include "automation/class_factory.h"
#include "automation/module_use.h"
#include "automation/registration.h"
#include "automation/type_library.h"
#include "platform/win32/win32_desktop.h"

namespace {

using namespace quarvel::automation;  // NOLINT(google-build-using-namespace)

const std::array<HKEY, 2> kPlaces = {HKEY_LOCAL_MACHINE, HKEY_CURRENT_USER};

}  // namespace

STDAPI DllGetClassObject(REFCLSID class_id, REFIID iid, void** object) {
  if (object == nullptr) return E_POINTER;
  *object = nullptr;
  if (class_id != __uuidof(::LPModel)) return CLASS_E_CLASSNOTAVAILABLE;
  return GuardedCall(nullptr, [&] {
    const ComPtr<IClassFactory> factory(
        new ClassFactory([] { return quarvel::platform::MakeWin32Desktop(ThisModule()); }));
    return factory->QueryInterface(iid, object);
  });
}

STDAPI DllCanUnloadNow() { return ModuleIsInUse() ? S_FALSE : S_OK; }

STDAPI DllRegisterServer() {
  return GuardedCall(nullptr, [] { return RegisterServer(kPlaces, ModulePath()); });
}

STDAPI DllUnregisterServer() {
  return GuardedCall(nullptr, [] { return UnregisterServer(kPlaces); });
}
