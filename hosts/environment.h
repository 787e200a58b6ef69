// What the environment chooses where the command line does not.
#pragma once

#include "hosts/arguments.h"

namespace quarvel::hosts {

// Takes QUARVEL_DEFAULT_BOUNDS for --default-bounds; an empty one is none. Raises a CommandError of
// status kUsage for a value that the option does not take.
void TakeEnvironment(Arguments& arguments);

}  // namespace quarvel::hosts
