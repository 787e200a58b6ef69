// The losses of the names of rows and columns: what the words of a line cannot be, names that are
// not told apart, and names that read as something else.
#pragma once

#include <string_view>

#include "model/model_store.h"
#include "mps/file_layout.h"
#include "mps/loss.h"

namespace quarvel::mps {

// Of those that the file names: all, or with fixed columns those that have a line. Blanks are kept where
// `blanks_are_kept`, but for those around a name.
void AddNameLosses(const model::ModelStore& store, FileLayout layout, Losses& losses,
                   bool blanks_are_kept = false);

// Of ASCII or beyond it; valid UTF-8.
bool HasControlCharacter(std::string_view text);

}  // namespace quarvel::mps
