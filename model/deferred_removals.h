// Rows and columns that are deleted already but whose gaps are not closed yet.
//
// Closing a gap renumbers every list of the model. Deletions (a simplification, the rows that a
// deleted column empties, a host's loop) are therefore only noted here and closed together in one
// pass over the model, as soon as somebody looks at all of it. The counts of the model are up to date at
// once. Meanwhile records stay where they are stored, lists and indexes of names name them by their
// positions, and an entry that names one that is gone is gone too.
#pragma once

#include <cstdint>

#include "model/gaps.h"
#include "model/one_based.h"

namespace quarvel::model {

struct StoredModel;

struct DeferredRemovals {
  bool empty() const { return !rows.open() && !columns.open(); }
  void Clear() {
    rows.Close();
    columns.Close();
    elements_left.Release();
  }

  // Positions and numbers of that kind are told apart from now on. Hidden records give way. When
  // memory runs out nothing has changed.
  void OpenRows(StoredModel& model);
  void OpenColumns(StoredModel& model);

  Gaps rows;
  Gaps columns;
  // While gaps of columns are open: how many coefficients are left in the row at a position.
  OneBased<std::int32_t> elements_left;
};

// Closes all gaps and forgets them: records, lists, numbers in lists and names; the row indexes are
// not touched. The counts say already what is left. One pass over the model; nothing to do when
// there is no gap. When memory runs out nothing has changed.
void CloseGaps(StoredModel& model, DeferredRemovals& removals);

}  // namespace quarvel::model
