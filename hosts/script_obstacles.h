// What keeps the commands of `quarvel edit` from making one model equal to another: what its language
// has no words for, or the component refuses.
#pragma once

#include <string>
#include <vector>

#include "hosts/edit_script.h"
#include "inspect/compare.h"

namespace quarvel::hosts {

// Sentences; the first few when there are many. None when EditScript (edit_script.h) makes A equal to B.
std::vector<std::string> ScriptObstacles(const ScriptSide& a, const ScriptSide& b,
                                         const inspect::Tolerance& tolerance);

}  // namespace quarvel::hosts
