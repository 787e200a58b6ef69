// The losses of what a file said beside its model: sense, constant and objective, names of sets.
#pragma once

#include "model/model_store.h"
#include "mps/file_facts.h"
#include "mps/file_layout.h"
#include "mps/loss.h"

namespace quarvel::mps {

void AddFactLosses(const model::ModelStore& store, const FileFacts& facts, FileLayout layout,
                   Losses& losses);

}  // namespace quarvel::mps
