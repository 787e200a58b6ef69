// What keeps the commands of `quarvel edit` from making one model equal to another: what its language
// has no words for, or the component refuses.
#pragma once

#include <string>
#include <vector>

#include "inspect/compare.h"
#include "model/model_store.h"
#include "mps/file_facts.h"

namespace quarvel::hosts {

// One of the two models with what its file says.
struct ScriptSide {
  const model::ModelStore& store;
  const mps::FileFacts* facts = nullptr;  // null where nothing is known
};

// Sentences; the first few when there are many. None when EditScript (edit_script.h) makes A equal to B.
std::vector<std::string> ScriptObstacles(const ScriptSide& a, const ScriptSide& b,
                                         const inspect::Tolerance& tolerance);

}  // namespace quarvel::hosts
