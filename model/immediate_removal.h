// Removals carried out at once, whatever the lists say of each other: the definition of what any
// removal leaves. They cannot fail. Each takes a pass over the lists of the other kind. Nothing may be deferred.
// 1-based numbers.
#pragma once

#include <cstdint>

#include "model/stored_model.h"

namespace quarvel::model {

// Drops the first entry of the list that names `number`. False when none does.
bool DropFirst(ElementList& list, std::int32_t number);

// Every column loses its first coefficient in the row. The row indexes are to be made anew.
void RemoveRowNow(StoredModel& model, std::int32_t r);
// Every row loses its first coefficient in the column. Rows that are emptied by it stay.
void RemoveColumnNow(StoredModel& model, std::int32_t c);

}  // namespace quarvel::model
