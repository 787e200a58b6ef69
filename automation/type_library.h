// The type library that is embedded in this module.
#pragma once

#include <string>

#include <windows.h>
#include <oleauto.h>

#include "automation/com_ptr.h"

namespace quarvel::automation {

// The module that holds this code: Quarvel.dll, or the program that this library is linked into.
HMODULE ThisModule();

// The full path of its file. Empty when the system does not tell.
std::wstring ModulePath();

// Gives the embedded library without registering it.
HRESULT LoadModuleTypeLibrary(ComPtr<ITypeLib>& library);

// The description of _LPModel, as IDispatch hands it out.
HRESULT LoadInterfaceInfo(ITypeInfo** info);

}  // namespace quarvel::automation
