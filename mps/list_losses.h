// Whether the row lists and the column lists of a model hold the same elements. They do in whatever was
// read; of a row and a column that have several elements together, the deletion of one of the two takes
// out only one, and the others stay in the lists of the other record, under numbers that mean something
// else by then. A file is written from the column lists, so that such a model is not what its rows show.
#pragma once

#include "model/model_store.h"
#include "mps/loss.h"

namespace quarvel::mps {

// False when they differ: nothing else can be said of such a model, whose lists may name records that
// are not there. After a read that is known; else one pass over each of the lists and 8 bytes
// for each row.
bool AddListLosses(const model::ModelStore& store, Losses& losses);

}  // namespace quarvel::mps
