// Owns one model: its stored fields, the indexes of names, the memory of the lists, and the work
// that is deferred. Every look at a model and every change of one is an operation of this class, so
// what is deferred and whether the lists of rows and columns agree is nobody else's business.
//
// Rows, columns and entries of lists are numbered from 1; a number of none raises 9 (subscript out
// of range), one record or coefficient too many 6 (overflow). Operations take any text and value:
// what a host may set is checked above.
//
// An operation that raises, or for which there is no memory (std::bad_alloc), changes nothing and can
// be repeated: whatever may fail comes before the first change. What is deferred stays so then.
//
// References that a look gives are valid until the next operation that is not const, and the next
// look.
//
// Cost: constant time, or that of a logarithm after removals, but for one pass over the model where deferred
// work is caught up on, and for what is said below. A loop that removes records one by one, and
// finds, looks at, changes and adds others in between, costs a few passes in all.
#pragma once

#include <cstdint>
#include <functional>
#include <span>
#include <string_view>

#include "model/change_check.h"
#include "model/deferred_work.h"
#include "model/model_fill.h"
#include "model/record_looks.h"
#include "model/stored_model.h"

namespace quarvel::model {

class ModelStore {
 public:
  ModelStore() = default;
  ModelStore(const ModelStore&) = delete;
  ModelStore& operator=(const ModelStore&) = delete;

  // --- looking ---
  // All stored fields with nothing deferred.
  const ModelData& data() const {
    if (!deferred_.empty()) [[unlikely]]
      deferred_.Settle();
    return model_.data;
  }
  std::int32_t NumberOfRows() const { return model_.data.NumberOfRows; }
  std::int32_t NumberOfColumns() const { return model_.data.NumberOfColumns; }
  std::int32_t NumberOfElements() const { return model_.data.NumberOfElements; }
  // One record with its list.
  const RowRecord& Row(std::int32_t r) const {
    if (!deferred_.empty()) [[unlikely]]
      return deferred_.Row(r);
    return model_.data.Rows[r];
  }
  const ColumnRecord& Column(std::int32_t c) const {
    if (!deferred_.empty()) [[unlikely]]
      return deferred_.Column(c);
    return model_.data.Columns[c];
  }
  // The rows and columns that can be looked at as they are stored, by numbers from 0: all of them, or none
  // while work is deferred. For who looks often: one comparison tells both.
  struct Ready {
    std::span<const RowRecord> rows;
    std::span<const ColumnRecord> columns;
  };
  Ready ready() const {
    const ModelData& data = model_.data;
    return {.rows = {data.Rows.store().data(), model_.ready.rows()},
            .columns = {data.Columns.store().data(), model_.ready.columns()}};
  }
  // How many coefficients stand in a row's list.
  std::int32_t ElementsInRow(std::int32_t r) const {
    if (!deferred_.empty()) [[unlikely]]
      return deferred_.ElementsInRow(r);
    return model_.data.Rows[r].ElementCount();
  }
  // Which entry of a row's list is the first that names column c; 0 when there is none.
  std::int32_t FindElement(std::int32_t r, std::int32_t c) const {
    return deferred_.FindElement(r, c);
  }
  // Anything else about one record or coefficient.
  RecordLooks looks() const { return {model_, deferred_}; }
  // The first of that name, 0 when there is none. Exact comparison.
  std::int32_t FindRow(std::string_view name) const { return FindRow(NameKey::Of(name), name); }
  std::int32_t FindRow(const NameKey& key, std::string_view name) const;
  std::int32_t FindColumn(std::string_view name) const {
    return FindColumn(NameKey::Of(name), name);
  }
  std::int32_t FindColumn(const NameKey& key, std::string_view name) const;

  // Whether work is deferred, which makes no difference to what is seen; for tests of the cost.
  bool has_deferred_work() const { return !deferred_.empty(); }
  bool has_gaps() const { return deferred_.removals(); }

  // --- what nothing else depends on: for setting too ---
  ModelSettings& settings() { return model_.data; }
  const ModelSettings& settings() const { return model_.data; }
  Bounds& RowBounds(std::int32_t r) { return model_.data.Rows[deferred_.RowPosition(r)]; }
  Bounds& ColumnBounds(std::int32_t c) { return model_.data.Columns[deferred_.ColumnPosition(c)]; }
  // The bounds of the column that an entry of a row's list names.
  Bounds& ColumnBoundsAt(const ElementEntry& entry) { return ColumnBounds(entry.Index); }

  // --- changing ---
  void RenameRow(std::int32_t r, std::string_view name);
  void RenameColumn(std::int32_t c, std::string_view name);
  // The row indexes follow. A row that gets its first type is taken for the last one there.
  void SetRowType(std::int32_t r, RowType type);
  void SetColumnType(std::int32_t c, ColumnType type);
  // Gives every row the type that its bounds make it. Without memory for the row indexes the types are
  // changed all the same, and it is to be repeated.
  void DeriveRowTypes();
  // Entry k of the row's list, and the first that names the row in its column's list. Walks that
  // list.
  void SetElementValue(std::int32_t r, std::int32_t k, double value);

  // --- adding ---
  // Behind the counted ones; takes over a hidden record with all it holds. Gives its number.
  std::int32_t AddRow(const NameKey& key, std::string_view name);
  std::int32_t AddColumn(const NameKey& key, std::string_view name);
  // In both lists. One that stands there already is not looked for.
  void AddElement(std::int32_t r, std::int32_t c, double value);

  // --- removing ---
  // Coefficients go with their row or column. Where a pair was added twice, only the first entry of
  // the other list goes.
  void RemoveRow(std::int32_t r);
  // Rows that lose their last coefficient by it go too; `before` is called with each of them, in
  // ascending order, before anything goes, for its name and type; it must not change the store.
  void RemoveColumn(std::int32_t c, const std::function<void(const RowRecord&)>& before = nullptr);
  // Entry k of the row's list; a row whose only one it is goes.
  void RemoveElement(std::int32_t r, std::int32_t k);

  // --- as a whole ---
  // Drops all records with their lists and memory, and the texts that tell of the model: its name,
  // description and files. The row indexes and all other settings stay.
  void Clear();
  // As Clear; then one record of each kind is stored but not counted.
  void StartAnew(RowRecord row, ColumnRecord column);
  // What a reader fills the store through.
  ModelFill fill() { return {model_, deferred_}; }
  // Takes over any fields, settings too. Lists and counts may disagree in any way.
  void Take(ModelData data);

 private:
  // The fields with nothing deferred, for changing them.
  ModelData& Settled() {
    if (!deferred_.empty()) deferred_.Settle();
    return model_.data;
  }
  void DropRecords();
  void CheckChange() { change_check_.After(model_, deferred_); }

  StoredModel model_;
  mutable DeferredWork deferred_{model_};  // mutable: whoever looks first has it done
  [[no_unique_address]] ChangeCheck change_check_;
};

}  // namespace quarvel::model
