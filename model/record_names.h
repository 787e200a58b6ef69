// How a name index reads back the names of rows or columns.
#pragma once

#include <cstdint>
#include <string_view>

#include "model/one_based.h"

namespace quarvel::model {

// Gives the name of a number. Valid as long as `records` is.
template <class Record>
auto NamesOf(const OneBased<Record>& records) {
  return [&records](std::int32_t number) { return records[number].Name.view(); };
}

}  // namespace quarvel::model
