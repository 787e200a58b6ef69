// The parts of the text of a row as an equation, which stand one after the other.
#pragma once

#include <string>

#include "model/model_data.h"

namespace quarvel::model {

// The lower bound of a ranged row, which stands in front of the terms; empty for others.
std::string EquationStart(const RowRecord& row);
// " + 3*X".
void AppendTerm(std::string& text, const ModelData& data, const ElementEntry& entry);
// The type of the row with the bound that stands behind the terms.
std::string EquationEnd(const RowRecord& row);
// What stands in the place of an equation without terms.
std::string EmptyRowText(const RowRecord& row);

}  // namespace quarvel::model
