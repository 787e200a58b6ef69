// Removals carried out at once, whatever the lists say of each other: the definition of what any
// removal leaves. Each takes a pass over the lists of the other kind. Nothing may be deferred.
// 1-based numbers.
#pragma once

#include <cstdint>
#include <vector>

#include "model/stored_model.h"

namespace quarvel::model {

// Drops the first entry of the list that names `number`. False when none does.
bool DropFirst(ElementList& list, std::int32_t number);

// Every column loses its first coefficient in the row.
void RemoveRowNow(StoredModel& model, std::int32_t r);
// Every row loses its first coefficient in the column. Gives the rows that are emptied by it,
// ascending; they stay.
std::vector<std::int32_t> RemoveColumnNow(StoredModel& model, std::int32_t c);

}  // namespace quarvel::model
