// Registering the component with the system: class, programmatic identifier, interface and type
// library, under Software\Classes of the machine or of the user.
//
// What registering makes, unregistering removes, down to the keys that were missing before.
// The 32-bit and the 64-bit component share the keys of the type library; each takes away its own
// part, the last one the rest.
#pragma once

#include <span>
#include <string>

#include <windows.h>

namespace quarvel::automation {

// Registers the file `path` in the first of `places` that lets itself be written, such as
// HKEY_LOCAL_MACHINE and HKEY_CURRENT_USER. When it fails nothing is left behind.
HRESULT RegisterServer(std::span<const HKEY> places, const std::wstring& path);

// Removes the registration from each of `places`.
HRESULT UnregisterServer(std::span<const HKEY> places);

}  // namespace quarvel::automation
