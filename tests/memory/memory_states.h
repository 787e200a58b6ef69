// Models in the states that what an operation has to do depends on: with work that is deferred, with
// lists that disagree, at the point where everything has to grow.
#pragma once

#include <vector>

#include "component/lp_model.h"
#include "tests/memory/scarce_desktop.h"

namespace quarvel::testing {

struct Subject {
  ScarceDesktop desktop;
  LPModel model{desktop};
};

struct NamedState {
  const char* name;
  void (*make)(LPModel& model);
};

const std::vector<NamedState>& States();
// So many rows get their lists group by group.
extern const NamedState kManyRowsHalfRead;

// Six rows of four types and five columns.
void MakeSmall(LPModel& model);

}  // namespace quarvel::testing
