// What a written file gives back of the model, found by reading it again: what is equal, and what the
// layout does not keep, with its reasons (mps/loss.h).
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "inspect/difference.h"
#include "model/model_store.h"
#include "mps/file_facts.h"
#include "mps/file_layout.h"
#include "mps/loss.h"
#include "platform/byte_source.h"

namespace quarvel::inspect {

struct Receipt {
  mps::Losses losses;  // what the layout does not keep of the model, known before it is written
  std::int64_t rows = 0;
  std::int64_t columns = 0;
  std::int64_t coefficients = 0;

  // The rest is what was found in the file; false when that cannot be read again (a pipe, a device), and
  // nothing of the rest is known.
  bool is_read_again = false;
  std::int64_t equal_rows = 0;  // with their types and limits
  std::int64_t equal_columns = 0;
  std::int64_t equal_coefficients = 0;
  // What differs and is no loss that the layout is known for: "2 differences: column-upper, the first at
  // column X". The file is then none to be trusted.
  std::vector<std::string> unexpected = {};

  // Whether the file gives back all there is.
  bool is_whole() const { return is_read_again && losses.groups().empty() && unexpected.empty(); }
};

// Of a store that is about to be written, with nothing found yet.
Receipt ReceiptOf(const model::ModelStore& store, const mps::FileFacts& facts,
                  mps::FileLayout layout);

// Reads what was written and compares it with what the receipt is of; the rest of the receipt is made.
// `on_progress` is that of a read (mps/read_file.h); when it ends the read, that is unexpected.
// Cost: a read of the file, a comparison, and the memory of the model.
void CompareWithFile(
    const model::ModelStore& store, const mps::FileFacts& facts,
    std::unique_ptr<platform::ByteSource> file, Receipt& receipt,
    const std::function<bool(std::uint64_t done, std::uint64_t all)>& on_progress = {});

}  // namespace quarvel::inspect
