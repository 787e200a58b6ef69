// Questions about one record, one coefficient, or one row of a list that close no gaps, so that a
// loop of removals may ask them after each. A handle that the store gives out (model/model_store.h),
// to be used at once. Numbers are 1-based; those of none raise 9. And a look at all fields that makes no
// row lists.
#pragma once

#include <cstdint>

#include "model/deferred_work.h"
#include "model/stored_model.h"

namespace quarvel::model {

class RecordLooks {
 public:
  RecordLooks(const StoredModel& model, DeferredWork& work)
      : model_(model), data_(model.data), work_(work) {}

  // What a record is but for its list.
  const NameText& NameOfRow(std::int32_t r) const { return data_.Rows[work_.RowPosition(r)].Name; }
  RowType TypeOfRow(std::int32_t r) const { return data_.Rows[work_.RowPosition(r)].Type; }
  const Bounds& BoundsOfRow(std::int32_t r) const { return data_.Rows[work_.RowPosition(r)]; }
  const NameText& NameOfColumn(std::int32_t c) const {
    return data_.Columns[work_.ColumnPosition(c)].Name;
  }
  ColumnType TypeOfColumn(std::int32_t c) const {
    return data_.Columns[work_.ColumnPosition(c)].Type;
  }
  const Bounds& BoundsOfColumn(std::int32_t c) const {
    return data_.Columns[work_.ColumnPosition(c)];
  }

  // True when no two rows and no two columns have one name, as after nearly every read. False also
  // where only looking each name up would tell.
  bool KnowsNamesDistinct() const {
    return model_.row_names.IsDistinct() && model_.column_names.IsDistinct();
  }
  // True when row lists and column lists hold the same coefficients in the same order, as they do after a
  // read until the first change of them. False also where only comparing them would tell.
  bool KnowsListsAlike() const {
    work_.Settle();
    return work_.agreement_.JustFilled(work_.changes_);
  }
  // True when no pair of row and column has two coefficients; one look at each row list, once. False also
  // where only comparing rows and columns would tell.
  bool KnowsPairsDistinct() const {
    work_.Settle();
    return work_.agreement_.KnowsPairsDistinct(data_, work_.changes_);
  }
  // How many rows are stored, with a hidden one that is not counted.
  std::int32_t StoredRows() const;
  // How many coefficients stand in a column's list. One pass when it is first asked of a long list
  // after a removal of a row.
  std::int32_t ElementsInColumn(std::int32_t c) const {
    return work_.empty() ? data_.Columns[c].ElementCount() : DeferredElementsInColumn(c);
  }
  // Entry k of a record's list.
  ElementEntry RowElement(std::int32_t r, std::int32_t k) const;
  ElementEntry ColumnElement(std::int32_t c, std::int32_t k) const;
  // The value of the first coefficient in a row that stands at a column; 0 when there is none.
  double ElementValue(std::int32_t r, std::int32_t c) const;

  // How many rows stand in that list, and the number of the k-th.
  std::int32_t CountListed(RowList list) const;
  std::int32_t Listed(RowList list, std::int32_t k) const;

  // All stored fields with no gaps, for who looks at no row list: those may be behind. The same reference
  // as the store's data().
  const ModelData& DataWithoutRowLists() const {
    if (!work_.empty()) [[unlikely]]
      work_.Settle(false);
    return data_;
  }

 private:
  std::int32_t DeferredElementsInColumn(std::int32_t c) const;

  const StoredModel& model_;
  const ModelData& data_;
  DeferredWork& work_;
};

}  // namespace quarvel::model
