// What the lines of an exact file (exact_writer.h) say of the limits of a row, chosen so that they read
// back to the same bits wherever some choice does that.
//
// A range is read as one limit plus or minus its size, which rounds. So the limit that is given and the
// size are chosen by trying: the lower limit with a size whose sum is the upper one, or the upper limit
// with a size whose difference is the lower one. There are pairs of limits that no choice gives back to
// the last digit, but for those that some file had: one of its choices is found.
#pragma once

#include <cstdint>
#include <optional>

#include "model/model_data.h"
#include "mps/file_facts.h"

namespace quarvel::mps {

struct RowLines {
  model::RowType type;  // in ROWS; kNone for a row without type, which cannot be written
  std::optional<double> right_hand_side;  // none where the limit is the one that the type gives
  std::optional<double> range;
  model::Bounds back;  // the limits that are read
};

// `may_be_free`: a line N is not taken for another objective. A row that limits nothing is written as N
// then, else as one whose limit is absent.
RowLines RowLinesOf(const model::RowRecord& row, bool may_be_free);

// The same of the row of that number in a model whose objective is row `objective`. The objective that the
// facts name is written as N even if it has numbers for limits, which limit nothing.
RowLines RowLinesOf(const model::ModelData& data, const FileFacts& facts, std::int32_t objective,
                    std::int32_t row);

// The row that readers take for the objective: the one that the facts name where it is of type N, else the
// first of that type that is written so; where none is, the first of the type. 0 when there is none.
std::int32_t ObjectiveOf(const model::ModelData& data, const FileFacts& facts);

}  // namespace quarvel::mps
