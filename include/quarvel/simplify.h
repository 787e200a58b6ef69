// Takes out of a model what says no more than something else does: rows of one element become bounds of
// their column, then empty columns go, then empty rows, as the automation component simplifies. Its rules are kept
// where they make another model: SimplifyResult::altered tells.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "quarvel/export.h"
#include "quarvel/model.h"

namespace quarvel {

// What becomes of a row of one element that no value of its column within the column's bounds keeps.
enum class OnConflict : std::uint8_t {
  kEnd,          // no more rows are converted; the rest goes on
  kRemoveRow,    // the bounds of the column stay
  kResetBounds,  // the column gets the bounds that the row says
};

struct SimplifyOptions {
  OnConflict on_conflict = OnConflict::kEnd;
  // Called now and then with the part that is done, 0 to 1; false ends the work. What was done stays. It
  // must not change the model.
  std::function<bool(double part)> on_progress = {};
};

struct SimplifyResult {
  bool is_stopped = false;           // by on_progress
  std::int32_t conflicts = 0;        // rows that were decided on by the options
  std::int32_t removed_rows = 0;     // converted ones and empty ones
  std::int32_t removed_columns = 0;  // empty ones
  // A line for each row and column that was converted, removed or decided on, behind one that names the
  // model; each ends in CR LF. Empty when nothing was done.
  std::string log = {};
  // A sentence for each row that became other bounds than it was, so that the model is another one: the sign of a
  // coefficient is not looked at, and a ranged row that tightens one bound of its column moves the other.
  std::vector<std::string> altered = {};

  bool is_changed() const { return !log.empty(); }
};

// Error kFailed for a row whose only coefficient is 0: what was done before stays done.
// Cost: one pass over the model for each kind of record.
QUARVEL_API SimplifyResult Simplify(Model& model, const SimplifyOptions& options = {});

}  // namespace quarvel
