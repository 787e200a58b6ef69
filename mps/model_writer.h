// Turns a model into the text of an MPS file of either layout.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string_view>

#include "model/model_store.h"
#include "mps/exact_writer.h"
#include "mps/file_facts.h"
#include "mps/file_layout.h"
#include "mps/mps_writer.h"

namespace quarvel::mps {

class ModelWriter {
 public:
  // Both must outlive the writer and stay as they are. What memory writing needs is taken here. The facts
  // are written by the free layout alone.
  ModelWriter(const model::ModelStore& store, FileLayout layout, const FileFacts& facts);

  // Hands all of the file to `take`, piece by piece. Raises what that raises.
  void Write(const std::function<void(std::string_view)>& take);
  // Of what was written: what the component calls a standard file (mps_writer.h); of the free layout one whose
  // fields all stand where fixed columns have them.
  bool is_standard() const { return fixed_ ? fixed_->standard() : !exact_->long_field(); }
  // The first field that does not; its names live as long as the writer and what it was given.
  const std::optional<LongField>& long_field() const {
    return fixed_ ? fixed_->long_field() : exact_->long_field();
  }

 private:
  std::optional<MpsWriter> fixed_;
  std::optional<ExactWriter> exact_;
};

// How many lines the file will have, but for a few. Cost: one look at each row and column.
std::int64_t LinesToWrite(const model::ModelStore& store);

}  // namespace quarvel::mps
