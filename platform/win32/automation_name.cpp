#include "platform/win32/automation_name.h"

#include "platform/win32/wide_text.h"
#include "platform/win32/win32.h"

// Stands behind windows.h, which leaves out what it needs.
#include <oleacc.h>

namespace quarvel::platform::win32 {
namespace {

// Not every import library has these: the services' class and interface, and the property that
// holds an automation identifier.
constexpr GUID kServicesClass = {
    0xb5f8350b, 0x0548, 0x48b1, {0xa6, 0xee, 0x88, 0xbd, 0x00, 0xb4, 0xa5, 0xe7}};
constexpr GUID kServicesInterface = {
    0x6e26e776, 0x04f0, 0x495d, {0x80, 0xe4, 0x33, 0x30, 0x35, 0x2e, 0x31, 0x69}};
constexpr GUID kAutomationId = {
    0xc82c0500, 0xb60e, 0x4310, {0xa2, 0x67, 0x30, 0x3c, 0x53, 0x1f, 0x8e, 0xe5}};

// Works with the services, where the thread has them.
template <typename Work>
void WithServices(Work work) {
  void* found = nullptr;
  const HRESULT result =
      CoCreateInstance(kServicesClass, nullptr, CLSCTX_INPROC_SERVER, kServicesInterface, &found);
  if (FAILED(result) || found == nullptr) return;
  auto* const services = static_cast<IAccPropServices*>(found);
  work(*services);
  services->Release();
}

}  // namespace

void GiveAutomationName(HWND window, std::string_view name) {
  const std::wstring wide = ToWide(name);
  const ATOM atom = GlobalAddAtomW(wide.c_str());
  if (atom != 0) SetPropW(window, kNameProperty, reinterpret_cast<HANDLE>(UINT_PTR{atom}));
  WithServices([&](IAccPropServices& services) {
    services.SetHwndPropStr(window, static_cast<DWORD>(OBJID_CLIENT), CHILDID_SELF, kAutomationId,
                            wide.c_str());
  });
}

void TakeAutomationName(HWND window) {
  const HANDLE atom = RemovePropW(window, kNameProperty);
  if (atom == nullptr) return;
  GlobalDeleteAtom(static_cast<ATOM>(reinterpret_cast<UINT_PTR>(atom)));
  WithServices([&](IAccPropServices& services) {
    services.ClearHwndProps(window, static_cast<DWORD>(OBJID_CLIENT), CHILDID_SELF, &kAutomationId,
                            1);
  });
}

}  // namespace quarvel::platform::win32
