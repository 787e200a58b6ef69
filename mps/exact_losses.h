// What an exact file (exact_writer.h) would not give back of a model. A model without losses is read
// again with every name, type, value, limit and bound bit for bit, all records and coefficients in their
// order. Reversed bounds are told though they come back: who reads the file stops there.
// tests/mps/exact_losses_test.cpp writes odd models and reads them back to hold that.
//
// Cost: one pass over the model, and one more where names have blanks.
#pragma once

#include "model/model_store.h"
#include "mps/file_facts.h"
#include "mps/file_layout.h"
#include "mps/loss.h"

namespace quarvel::mps {

Losses ExactLossesOf(const model::ModelStore& store, const FileFacts& facts);

// Of a file of either layout, with what is lost of the facts.
Losses LossesOf(const model::ModelStore& store, const FileFacts& facts, FileLayout layout);

}  // namespace quarvel::mps
