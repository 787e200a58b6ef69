// One run of the simplifier over a public model, on whichever desktop.
#pragma once

#include <string>

#include "api/parts.h"
#include "platform/desktop.h"

namespace quarvel::api {

// Raises what stops it in the middle. `log` is emptied first; what was done stands in it afterwards.
void RunSimplifier(ModelParts& parts, platform::Desktop& desktop, std::string& log);

}  // namespace quarvel::api
