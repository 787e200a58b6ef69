// What a store has not done yet, so that its cost is that of one pass over the model however many
// small steps ask for it:
//   - the row lists of a read that goes on: made at once from the column lists when it ends;
//   - closing the gaps that removed rows or columns leave, which renumbers every list.
// Both are done (Settle) before anybody looks at what they change, so nobody can tell. Removals are
// deferred only where the order in which they are carried out does not matter, which ListAgreement
// knows; elsewhere they are carried out at once.
//
// Everything that changes lists or numbers counts as a change here (NoteChange). Part of a
// ModelStore, whose parts it settles.
#pragma once

#include <cstdint>
#include <vector>

#include "model/deferred_removals.h"
#include "model/list_agreement.h"

namespace quarvel::model {

struct StoredModel;

class DeferredWork {
 public:
  explicit DeferredWork(StoredModel& model) : model_(model) {}
  // The same work on a copy of the other's model.
  DeferredWork(StoredModel& model, const DeferredWork& other);
  DeferredWork(const DeferredWork&) = delete;
  DeferredWork& operator=(const DeferredWork&) = delete;

  // Every look at the store asks.
  bool empty() const { return empty_; }
  void Settle();

  // A read begins or goes on: until the next look only column lists are kept.
  void DeferRowLists();

  // Whether removals are deferred; names and numbers are current without.
  bool removals() const { return !removals_.empty(); }
  StoredModel& model() { return model_; }
  // Where what is now number `number` is stored. Settles all but removals of that same kind, which
  // do not change what other records of the kind hold.
  std::int32_t RowPosition(std::int32_t number) { return Position(Kind::kRows, number); }
  std::int32_t ColumnPosition(std::int32_t number) { return Position(Kind::kColumns, number); }

  // By current number, which must be one of a row or column.
  void RemoveRow(std::int32_t number);
  // Gives the rows that are emptied by it, ascending; they stay.
  std::vector<std::int32_t> RemoveColumn(std::int32_t number);

  // Lists or numbers are changed in a way that may make them disagree.
  void NoteChange() { ++changes_; }
  // Lists are changed, and agree as far as they did.
  void NoteAgreeingChange() { agreement_.Follow(++changes_); }
  // A coefficient is going to be appended to both of its lists.
  void NoteAdding(std::int32_t r, std::int32_t c);
  // All lists are gone.
  void NoteEmptied();

 private:
  using Kind = DeferredRemovals::Kind;

  std::int32_t Position(Kind kind, std::int32_t number);
  std::int32_t PositionToRemove(Kind kind, std::int32_t number);
  void CloseAllGaps();
  void Note(Kind kind, std::int32_t position, std::int32_t elements);
  std::vector<std::int32_t> NoteColumn(std::int32_t position);

  StoredModel& model_;
  bool empty_ = true;  // neither removals nor row lists are deferred
  DeferredRemovals removals_;
  ListAgreement::Changes changes_ = 0;
  ListAgreement agreement_;
};

}  // namespace quarvel::model
