// The row or column that a user means on the command line.
#pragma once

#include <cstdint>
#include <string_view>

#include "component/lp_model.h"
#include "model/record_kind.h"

namespace quarvel::hosts {

// The number of the record that `text` means: an exact name, else the name in upper case as every
// file is read, else a number. Raises a CommandError for no such name and the component's own error
// for a number out of range. Constant time.
std::int32_t FindRecord(const LPModel& model, const model::RecordKind& kind, std::string_view text);

}  // namespace quarvel::hosts
