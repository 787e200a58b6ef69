// Rows or columns that are deleted already but whose gaps are not closed yet.
//
// Closing a gap renumbers every list of the model. Deletions that follow each other (a
// simplification, the rows that a deleted column empties, a host's loop) are therefore only noted
// here and closed together in one pass over the model, as soon as anything else looks at it. The
// counts of the model are up to date at once. Only one kind is deferred at a time.
#pragma once

#include <cstdint>
#include <vector>

#include "model/one_based.h"

namespace quarvel::model {

class DeferredRemovals {
 public:
  enum class Kind { kRows, kColumns };

  bool empty() const { return positions_.empty(); }
  Kind kind() const { return kind_; }
  // Removals of the other kind stand in the way of noting one of `kind`.
  bool HasOther(Kind kind) const { return !empty() && kind_ != kind; }

  // The stored position of what is now number `number` among those of `kind`, counting only what is
  // left. The number itself when nothing of that kind is deferred.
  std::int32_t Position(Kind kind, std::int32_t number) const;

  // Notes that the record at a stored position is gone. Constant time in ascending order, else the
  // cost of moving the positions behind it.
  void Note(Kind kind, std::int32_t position);
  // True when noting `position` would move so many others that closing the gaps is no dearer.
  bool IsCostly(std::int32_t position) const;

  // The stored positions of what is gone, ascending.
  const std::vector<std::int32_t>& positions() const { return positions_; }
  void Clear() {
    std::vector<std::int32_t>().swap(positions_);
    elements_left_.Release();
  }

  // While columns are deferred: the number of coefficients left in each row. Absent until a column
  // with coefficients goes.
  OneBased<std::int32_t>& elements_left() { return elements_left_; }

 private:
  Kind kind_ = Kind::kRows;
  std::vector<std::int32_t> positions_;
  OneBased<std::int32_t> elements_left_;
};

struct StoredModel;

// Closes the gaps that `removals` names and forgets them: records, lists, numbers in lists, names,
// and the row indexes when rows went. The counts say already what is left. One pass over the model;
// nothing to do when there is no gap.
void CloseGaps(StoredModel& model, DeferredRemovals& removals);

}  // namespace quarvel::model
