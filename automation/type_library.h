// The type library that is embedded in this module.
#pragma once

#include <string>

#include <windows.h>
#include <oleauto.h>

namespace quarvel::automation {

// The module that holds this code: Quarvel.dll, or the program that this library is linked into.
HMODULE ThisModule();

// The full path of its file. Empty when the system does not tell.
std::wstring ModulePath();

// The description of _LPModel in the embedded library, as IDispatch hands it out. Nothing is
// registered for it.
HRESULT LoadInterfaceInfo(ITypeInfo** info);

}  // namespace quarvel::automation
