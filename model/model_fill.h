// How a reader fills a store: by appending rows, columns and coefficients in the order of a file,
// with row lists deferred and nothing allocated for a coefficient. A handle that the store gives out,
// valid as long as that; 1-based numbers.
//
// A call that raises, or for which there is no memory, changes nothing; the fill can go on.
//
// While events run, anybody may look at the store and change it, and the fill goes on with what is
// there then. It only must be told (AfterCallback), as it does not look whether numbers are current.
#pragma once

#include <cstdint>
#include <string_view>

#include "model/deferred_work.h"
#include "model/stored_model.h"

namespace quarvel::model {

// What a file says of a row after ROWS may depend on its type, and changes its bounds.
struct RowLimits {
  RowType Type;
  double& LowerBound;
  double& UpperBound;
};

class ModelFill {
 public:
  // For the store.
  ModelFill(StoredModel& model, DeferredWork& deferred) : model_(model), deferred_(deferred) {}

  // Drops all records and row indexes; the settings stay. Cannot fail.
  void Begin();

  ModelSettings& settings() { return model_.data; }
  // Counts, records and column lists as they are now; row lists may be behind.
  const ModelData& data() const { return model_.data; }
  // For having the processor fetch what a look-up will touch.
  const NameIndex& row_names() const { return model_.row_names; }
  const NameIndex& column_names() const { return model_.column_names; }
  // 0 when there is none of that name.
  std::int32_t FindRow(const NameKey& key, std::string_view name) const {
    return model::FindRow(model_, key, name);
  }
  std::int32_t FindColumn(const NameKey& key, std::string_view name) const {
    return model::FindColumn(model_, key, name);
  }

  // Room for so many in all; nothing when there is as much already.
  void ReserveRows(std::int32_t count) { model_.data.Rows.Reserve(count); }
  void ReserveColumns(std::int32_t count) {
    model_.data.Columns.Reserve(count);
    model_.column_names.Reserve(static_cast<std::size_t>(count));
  }
  // A record of a name that no other has yet; gives its number. Stored records behind the counted
  // ones give way.
  std::int32_t AppendRow(const NameKey& key, std::string_view name, RowType type, Bounds bounds);
  std::int32_t AppendColumn(const NameKey& key, std::string_view name, ColumnType type,
                            Bounds bounds);
  RowLimits Row(std::int32_t r) {
    RowRecord& row = model_.data.Rows[r];
    return {row.Type, row.LowerBound, row.UpperBound};
  }
  Bounds& ColumnBounds(std::int32_t c) { return model_.data.Columns[c]; }
  void SetColumnType(std::int32_t c, ColumnType type) { model_.data.Columns[c].Type = type; }

  // Both numbers must be of records. What stands there already is not looked for.
  void AppendElement(std::int32_t r, std::int32_t c, double value) {
    CheckOneMore(model_.data.NumberOfElements);
    if (!model_.row_lists_behind) [[unlikely]]
      return AppendToBoth(r, c, value);
    model_.column_arena.Append(model_.data.Columns[c].Elements.store(), {r, value});
    ++model_.data.NumberOfElements;  // making the row lists counts as the change
  }
  // An earlier column gets more coefficients. Row lists keep the order in which coefficients come,
  // which walking the columns no longer gives: from here on they are kept up to date one by one.
  void TakeUpAgain() {
    if (model_.row_lists_behind) deferred_.Settle();
  }
  // A host may have removed something: the numbers of what is left become current.
  void AfterCallback() { deferred_.HandOver(); }

 private:
  void AppendToBoth(std::int32_t r, std::int32_t c, double value);

  StoredModel& model_;
  DeferredWork& deferred_;
};

}  // namespace quarvel::model
