// What a store has not done yet, so that its cost is that of one pass over the model however many
// small steps ask for it:
//   - the row lists of a read that goes on: made at once from the column lists when it ends;
//   - closing the gaps that removed rows and columns leave, which renumbers every list;
//   - making the lists of binding and non-binding rows anew.
// All are done (Settle) before anybody looks at what they change, so nobody can tell. Where lists
// disagree, which ListAgreement knows, removals are noted in their order (model/deferred_removals.h);
// whatever looks at or changes coefficients closes the gaps then.
//
// While there are gaps, a loop of removals may go on with anything that concerns one record or one
// coefficient: it is found by number or name, looked at, changed, or added, all by its position
// (model/gaps.h). A record whose list may hold entries that are gone is shown as a copy when it is
// asked for as a whole. Such looks are paid for: as soon as they have cost a part of what a pass over
// the model does, all gaps are closed.
//
// Long lists that are walked often are looked up and thinned out through model/list_places.h.
//
// Everything that changes lists or numbers counts as a change here (NoteChange). Part of a
// ModelStore, whose parts it settles.
#pragma once

#include <cstdint>
#include <functional>
#include <string_view>
#include <vector>

#include "model/deferred_removals.h"
#include "model/deferred_row_indexes.h"
#include "model/list_agreement.h"
#include "model/list_places.h"
#include "model/stored_model.h"

namespace quarvel::model {

class DeferredWork {
 public:
  explicit DeferredWork(StoredModel& model) : model_(model) {}
  // The same work on a copy of the other's model.
  DeferredWork(StoredModel& model, const DeferredWork& other);
  DeferredWork(const DeferredWork&) = delete;
  DeferredWork& operator=(const DeferredWork&) = delete;

  // Every look at the store asks.
  bool empty() const { return model_.ready.settled(); }
  // When memory runs out, everybody still sees the same.
  // Without row lists those stay behind where they are.
  void Settle(bool with_row_lists = true);

  // A read begins or goes on: until the next look only column lists are kept.
  void DeferRowLists();
  // Whether there are gaps; positions are numbers without.
  bool removals() const { return !removals_.empty(); }

  // --- looking; numbers of none raise 9 ---
  // Where what is now number `number` is stored.
  std::int32_t RowPosition(std::int32_t number) const { return removals_.rows.PositionOf(number); }
  std::int32_t ColumnPosition(std::int32_t number) const {
    return removals_.columns.PositionOf(number);
  }
  // One record as it is seen without gaps; valid until the next look.
  const RowRecord& Row(std::int32_t number);
  const ColumnRecord& Column(std::int32_t number);
  // How many coefficients are left in a row.
  std::int32_t ElementsInRow(std::int32_t number);
  // Which entry of row r is the first that names column c; 0 when there is none.
  std::int32_t FindElement(std::int32_t r, std::int32_t c);
  // The number of what has that name; 0 when there is none.
  std::int32_t FindRow(const NameKey& key, std::string_view name) {
    return empty() ? model::FindRow(model_, key, name) : FindRowWhileDeferring(key, name);
  }
  std::int32_t FindColumn(const NameKey& key, std::string_view name);

  // --- changing, by current numbers, which must be those of records ---
  // Whatever may fail comes before the first change.
  void RemoveRow(std::int32_t number);
  // As ModelStore::RemoveColumn.
  using RowNotice = std::function<void(const RowRecord&)>;
  void RemoveColumn(std::int32_t number, const RowNotice& before);
  // A record behind the counted ones, with a name that is not in the index yet; gives its position.
  std::int32_t AppendRow(const NameKey& key, std::string_view name);
  std::int32_t AppendColumn(const NameKey& key, std::string_view name);
  void RenameRow(std::int32_t number, std::string_view name);
  void RenameColumn(std::int32_t number, std::string_view name);
  void SetRowType(std::int32_t number, RowType type);
  void AddElement(std::int32_t r, std::int32_t c, double value);
  void SetElementValue(std::int32_t r, std::int32_t k, double value);
  // Entry k of a row that has others too.
  void RemoveElement(std::int32_t r, std::int32_t k);

  // --- what others change ---
  // Lists or numbers are changed in a way that may make them disagree.
  void NoteChange() { ++changes_; }
  // Lists are changed, and agree as far as they did.
  void NoteAgreeingChange() { agreement_.Follow(++changes_); }
  // Does what outlives the records: closes all gaps and catches up on the row indexes.
  void CloseAllGaps();
  // All records are going, with what is deferred for them. Cannot fail.
  void NoteEmptied();
  // Lists are going to be changed elsewhere, by number.
  void HandOver();

 private:
  friend class RecordLooks;
  friend class ChangeCheck;
  void FillRowListsIfBehind() {
    if (model_.row_lists_behind) [[unlikely]]
      FillRowListsThatAreBehind();
  }
  void FillRowListsThatAreBehind();
  // Gaps that a coefficient leaves say nothing of an order.
  void ReadyForElements() {
    FillRowListsIfBehind();
    if (!removals_.in_order) return;
    if (removals()) Settle();
    removals_.in_order = false;
  }
  std::int32_t FindRowWhileDeferring(const NameKey& key, std::string_view name);
  bool LooksHavePaid(std::int32_t elements);
  void ReadyForRemoval();
  // By position: the first place in one's list that names the other, 0 when none does.
  std::int32_t FirstInRow(std::int32_t row, std::int32_t column);
  std::int32_t FirstInColumn(std::int32_t column, std::int32_t row);
  // The place in its list of the k-th entry of a row that is not gone; 0 when there is none.
  std::int32_t PlaceInRow(std::int32_t position, std::int32_t k);
  void TakeOutRow(std::int32_t position) noexcept;
  void TakeOutColumn(std::int32_t position, const std::vector<std::int32_t>& emptied) noexcept;

  StoredModel& model_;
  DeferredRemovals removals_;
  DeferredRowIndexes row_indexes_;
  ListAgreement::Changes changes_ = 0;
  ListAgreement agreement_;
  LongListsOfBoth long_;
  std::int64_t paid_ = 0;  // by looks since gaps were last closed
  // What was looked at last behind gaps.
  RowRecord seen_row_;
  ColumnRecord seen_column_;
};

}  // namespace quarvel::model
