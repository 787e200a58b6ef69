#include "model/change_check.h"

#ifdef QUARVEL_CHECK_EACH_CHANGE

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <new>
#include <set>
#include <string>

#include "model/deferred_work.h"
#include "model/model_check.h"
#include "model/stored_model.h"

namespace quarvel::model {
namespace {

// Counted in rows, columns and coefficients: a model of so many is looked at each time, and for a
// larger one each change pays so much.
constexpr std::size_t kLookedAtEachTime = 100;
constexpr std::size_t kPaidByAChange = 10;

std::size_t SizeOf(const ModelData& data) {
  return static_cast<std::size_t>(data.NumberOfRows) +
         static_cast<std::size_t>(data.NumberOfColumns) +
         static_cast<std::size_t>(data.NumberOfElements);
}

bool HasAPairTwice(const ModelData& data) {
  for (std::int32_t r = 1; r <= data.NumberOfRows; ++r) {
    std::set<std::int32_t> columns;
    for (const ElementEntry& entry : data.Rows[r].Elements) {
      if (!columns.insert(entry.Index).second) return true;
    }
  }
  return false;
}

}  // namespace

void ChangeCheck::After(const StoredModel& model, const DeferredWork& deferred) {
  if (model.row_lists_behind) return;  // a read's next look at them is soon enough
  const std::size_t size = SizeOf(model.data);
  credit_ += kPaidByAChange;
  if (size > kLookedAtEachTime && credit_ < size) {
    has_skipped_ = true;
    return;
  }
  credit_ = 0;
  try {
    Look(model, deferred);
  } catch (const std::bad_alloc&) {
    // What there is no memory to look at now is looked at after the next change.
  }
}

void ChangeCheck::Look(const StoredModel& model, const DeferredWork& deferred) {
  StoredModel copy;
  copy.data = model.data;
  copy.row_names = model.row_names;
  copy.column_names = model.column_names;
  DeferredWork(copy, deferred).Settle();
  const std::string fault = CheckStoredModel(copy);
  const bool may_differ = has_skipped_ && !deferred.agreement_.everywhere();
  if (was_whole_ && !may_differ && !fault.empty()) {
    std::fprintf(stderr, "quarvel: a change left a broken model: %s\n", fault.c_str());
    std::abort();
  }
  has_skipped_ = false;
  was_whole_ = fault.empty() && !HasAPairTwice(copy.data);
}

}  // namespace quarvel::model

#endif
