// What a model has that its file would not give back. The writer (mps_writer.h) writes whatever a
// model holds, and the component saves it so; whoever promises that the file is the model looks here
// before it is written.
//
// A model without losses is read again with every name, type, value, limit and bound, all records
// and coefficients in their order, with default bounds of 0. tests/mps/unwritable_test.cpp writes
// odd models and reads them back to hold that.
//
// Cost: one pass over the model; text is made only for values of many digits. Names are sorted when
// some are not in upper case.
#pragma once

#include "model/model_store.h"
#include "mps/loss.h"

namespace quarvel::mps {

Losses LossesOf(const model::ModelStore& store);

}  // namespace quarvel::mps
