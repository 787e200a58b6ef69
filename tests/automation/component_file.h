// Quarvel.dll itself, which stands beside the program of tests, used the way a host's system does.
#pragma once

#include <string>

#include <windows.h>
#include <quarvel_idl.h>

#include "automation/com_ptr.h"

namespace quarvel::automation {

// The file's path in the system's own form.
std::wstring ComponentFile();

// The loaded file. Throws std::runtime_error when it cannot be loaded or lacks an entry point.
class LoadedComponent {
 public:
  LoadedComponent();
  ~LoadedComponent();
  LoadedComponent(const LoadedComponent&) = delete;
  LoadedComponent& operator=(const LoadedComponent&) = delete;

  HMODULE module() const { return module_; }
  HRESULT GetClassObject(const GUID& class_id, const GUID& iid, void** object) const;
  bool CanUnloadNow() const;
  HRESULT Call(const char* entry_point) const;  // one of those without arguments
  // A new object of the class.
  ComPtr<_LPModel> MakeModel() const;

 private:
  HMODULE module_;
};

}  // namespace quarvel::automation
