// The same questions to LPModel and to NaiveModel, of one record or name that is there, each with a
// number for an answer.
#pragma once

#include <cstdint>
#include <string>

#include "component/lp_model.h"
#include "tests/support/naive_model.h"

namespace quarvel::testing {

// A number that tells a 0-based row or column, with its list, from others. Of a row: with what the
// lists of binding and of non-binding rows hold at that number.
std::int32_t RowAnswers(const LPModel& model, std::int32_t i);
std::int32_t RowAnswers(const NaiveModel& model, std::int32_t i);
std::int32_t ColumnAnswers(const LPModel& model, std::int32_t j);
std::int32_t ColumnAnswers(const NaiveModel& model, std::int32_t j);

// The 1-based number of the first of that name, 0 when there is none.
std::int32_t RowNamed(const LPModel& model, const std::string& name);
std::int32_t RowNamed(const NaiveModel& model, const std::string& name);
std::int32_t ColumnNamed(const LPModel& model, const std::string& name);
std::int32_t ColumnNamed(const NaiveModel& model, const std::string& name);

}  // namespace quarvel::testing
