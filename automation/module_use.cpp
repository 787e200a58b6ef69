#include "automation/module_use.h"

#include <atomic>

namespace quarvel::automation {
namespace {

std::atomic<long> uses = 0;

}  // namespace

ModuleUse::ModuleUse() { Begin(); }

ModuleUse::~ModuleUse() { End(); }

void ModuleUse::Begin() { ++uses; }

void ModuleUse::End() { --uses; }

bool ModuleIsInUse() { return uses != 0; }

}  // namespace quarvel::automation
