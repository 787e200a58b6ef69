// The row or column that a user means on the command line.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string_view>

#include "component/lp_model.h"
#include "model/record_kind.h"

namespace quarvel::hosts {

// The number of the record that `text` means: an exact name, else the name in upper case as every
// file is read, else a number. Where a number may stand for a name, "#5" is number 5 also when there is
// a record of that name. Nothing for no such record. Constant time.
std::optional<std::int32_t> LookUpRecord(const LPModel& model, const model::RecordKind& kind,
                                         std::string_view text, bool may_be_number = true);

// The same; `note` hears where a name was taken that could be a number too, and the other way round.
// Raises a CommandError for no such name and the component's own error for a number out of range.
std::int32_t FindRecord(const LPModel& model, const model::RecordKind& kind, std::string_view text,
                        const std::function<void(std::string_view)>& note = {});

// Raises what FindRecord raises of a record that is not there: with the names that come nearest, after
// one look at each.
[[noreturn]] void RaiseNoRecord(const LPModel& model, const model::RecordKind& kind,
                                std::string_view text);

}  // namespace quarvel::hosts
