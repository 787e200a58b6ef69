// One run of the simplifier over a public model, on whichever desktop.
#pragma once

#include <string>
#include <vector>

#include "api/parts.h"
#include "platform/desktop.h"

namespace quarvel::api {

// Raises what stops it in the middle. `log` is emptied first; what was done stands in it afterwards.
// `altered`: as SimplifyResult has it, if it is wanted.
void RunSimplifier(ModelParts& parts, platform::Desktop& desktop, std::string& log,
                   std::vector<std::string>* altered = nullptr);

}  // namespace quarvel::api
