// Rows and columns that are deleted already but whose gaps are not closed yet.
//
// Closing a gap renumbers every list of the model. Deletions (a simplification, the rows that a
// deleted column empties, a host's loop) are therefore only noted here and closed together in one
// pass over the model, as soon as somebody looks at all of it. The counts of the model are up to date at
// once. Meanwhile records stay where they are stored, and lists and indexes of names name them by
// their positions.
//
// Where the lists agree, an entry that names a record that is gone is gone too. Where they disagree
// (a pair that was added twice), a removal takes the first entry that names the record out of each
// list of the other kind, in the order of the removals, and the others name what comes next
// (model/occurrences.h).
#pragma once

#include <cstdint>
#include <vector>

#include "model/gaps.h"
#include "model/occurrences.h"
#include "model/one_based.h"

namespace quarvel::model {

struct ModelData;
struct StoredModel;

struct DeferredRemovals {
  bool empty() const { return !rows.open() && !columns.open(); }
  void Clear() noexcept { *this = DeferredRemovals(); }

  // Positions and numbers of that kind are told apart from now on. Hidden records give way. When
  // memory runs out nothing has changed.
  void OpenRows(StoredModel& model);
  void OpenColumns(StoredModel& model);
  // Makes left_in_columns while gaps of rows are open.
  void CountInColumns(const ModelData& data);

  // By position, ascending: the rows that lose their last coefficient with that column, whose gaps are
  // open.
  std::vector<std::int32_t> RowsEmptiedBy(const StoredModel& model, std::int32_t column);

  // Removals where lists disagree. What may fail of one comes before it.
  void PrepareRow(std::int32_t row) { naming_rows.Prepare(row); }
  void RemoveRowInOrder(StoredModel& model, std::int32_t row) noexcept;
  void RemoveColumnInOrder(StoredModel& model, std::int32_t column) noexcept;

  Gaps rows;
  Gaps columns;
  // Whether lists disagree. Set while there are no gaps.
  bool in_order = false;
  // Of what is left: how many coefficients are in the row at a position, while gaps of columns are
  // open; how many are in a column, once somebody has asked while gaps of rows are open.
  OneBased<std::int32_t> left_in_rows;
  OneBased<std::int32_t> left_in_columns;
  // While lists disagree and gaps of rows, of columns, are open.
  Occurrences naming_rows;
  Occurrences naming_columns;
};

// Closes all gaps and forgets them: records, lists, numbers in lists and names; the row indexes are
// not touched. The counts say already what is left. One pass over the model; nothing to do when
// there is no gap. When memory runs out nothing has changed.
void CloseGaps(StoredModel& model, DeferredRemovals& removals);

}  // namespace quarvel::model
