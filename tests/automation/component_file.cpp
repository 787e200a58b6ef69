#include "tests/automation/component_file.h"

#include <stdexcept>

#include "automation/type_library.h"

namespace quarvel::automation {
namespace {

FARPROC EntryPoint(HMODULE module, const char* name) {
  const FARPROC found = GetProcAddress(module, name);
  if (found == nullptr) throw std::runtime_error(std::string("no entry point ") + name);
  return found;
}

}  // namespace

std::wstring ComponentFile() {
  const std::wstring program = ModulePath();
  return program.substr(0, program.find_last_of(L'\\') + 1) + L"Quarvel.dll";
}

LoadedComponent::LoadedComponent() : module_(LoadLibraryW(ComponentFile().c_str())) {
  if (module_ == nullptr) throw std::runtime_error("Quarvel.dll cannot be loaded");
}

LoadedComponent::~LoadedComponent() { FreeLibrary(module_); }

HRESULT LoadedComponent::GetClassObject(const GUID& class_id, const GUID& iid,
                                        void** object) const {
  using Function = HRESULT(STDMETHODCALLTYPE*)(REFCLSID, REFIID, void**);
  return reinterpret_cast<Function>(
      reinterpret_cast<void*>(EntryPoint(module_, "DllGetClassObject")))(class_id, iid, object);
}

bool LoadedComponent::CanUnloadNow() const { return Call("DllCanUnloadNow") == S_OK; }

HRESULT LoadedComponent::Call(const char* entry_point) const {
  using Function = HRESULT(STDMETHODCALLTYPE*)();
  return reinterpret_cast<Function>(reinterpret_cast<void*>(EntryPoint(module_, entry_point)))();
}

ComPtr<_LPModel> LoadedComponent::MakeModel() const {
  ComPtr<IClassFactory> factory;
  ComPtr<_LPModel> model;
  if (FAILED(GetClassObject(__uuidof(::LPModel), __uuidof(IClassFactory), factory.ReceiveVoid())) ||
      FAILED(factory->CreateInstance(nullptr, __uuidof(_LPModel), model.ReceiveVoid()))) {
    throw std::runtime_error("no model can be made");
  }
  return model;
}

}  // namespace quarvel::automation
