// The losses of a model's own texts: its name and its description.
#pragma once

#include "model/model_data.h"
#include "mps/file_layout.h"
#include "mps/loss.h"

namespace quarvel::mps {

void AddTextLosses(const model::ModelSettings& model, FileLayout layout, Losses& losses);

}  // namespace quarvel::mps
