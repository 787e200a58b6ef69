// Makes LPModel objects for COM.
#pragma once

#include <functional>
#include <memory>

#include <windows.h>
#include <unknwn.h>

#include "automation/module_use.h"
#include "platform/desktop.h"

namespace quarvel::automation {

// Gives each object a desktop of its own.
using DesktopMaker = std::function<std::unique_ptr<platform::Desktop>()>;

class ClassFactory final : public IClassFactory {
 public:
  // Starts with one reference, the caller's.
  explicit ClassFactory(DesktopMaker make_desktop);
  ClassFactory(const ClassFactory&) = delete;
  ClassFactory& operator=(const ClassFactory&) = delete;

  STDMETHODIMP QueryInterface(REFIID iid, void** object) override;
  STDMETHODIMP_(ULONG) AddRef() override;
  STDMETHODIMP_(ULONG) Release() override;
  // CLASS_E_NOAGGREGATION for any `outer`.
  STDMETHODIMP CreateInstance(IUnknown* outer, REFIID iid, void** object) override;
  STDMETHODIMP LockServer(BOOL lock) override;

 protected:
  // Only the last release ends its life.
  ~ClassFactory() = default;

 private:
  // A factory's code is needed as long as somebody holds it.
  ModuleUse module_use_;
  LONG references_ = 1;
  DesktopMaker make_desktop_;
};

}  // namespace quarvel::automation
