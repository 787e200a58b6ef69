// Version 6 of the common controls, for this module alone: the host process keeps whatever it uses.
//
// The context comes from the module's manifest resource number 2, the number for libraries. A
// module without one (a program with a manifest of its own) goes on with what the process has.
#pragma once

#include "platform/win32/win32.h"

namespace quarvel::platform::win32 {

class ActivationContext {
 public:
  explicit ActivationContext(HINSTANCE module);
  ~ActivationContext();
  ActivationContext(const ActivationContext&) = delete;
  ActivationContext& operator=(const ActivationContext&) = delete;

  // Active on this thread while one of these lives: around making windows and showing boxes, never
  // around code of a host.
  class Use {
   public:
    explicit Use(const ActivationContext& context);
    ~Use();
    Use(const Use&) = delete;
    Use& operator=(const Use&) = delete;

   private:
    ULONG_PTR cookie_ = 0;
    bool active_;
  };

 private:
  HANDLE context_;
};

}  // namespace quarvel::platform::win32
