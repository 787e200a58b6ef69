// Whether anybody uses this module: what decides when it may be unloaded.
#pragma once

namespace quarvel::automation {

// Counts as one use for as long as it lives: one in every object, one for every lock of a class
// factory. Any thread.
class ModuleUse {
 public:
  ModuleUse();
  ~ModuleUse();
  ModuleUse(const ModuleUse&) = delete;
  ModuleUse& operator=(const ModuleUse&) = delete;

  // For locks, which are not bound to a scope.
  static void Begin();
  static void End();
};

bool ModuleIsInUse();

}  // namespace quarvel::automation
