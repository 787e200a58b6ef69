// Whether rows and columns can be deleted by noting it, without walking the lists of the model.
//
// The lists agree when every coefficient of a row's list stands exactly once in the list of its
// column, and no list names anything otherwise. Deleting a row then takes out exactly the entries
// that its own list names, in whatever order rows go; a column likewise. A pair of row and column that
// was added twice disagrees: a deletion takes out only the first of its entries, and what the other
// one names afterwards depends on the numbers at that moment.
//
// What is known is known as of one value of the store's change counter (model/deferred_work.h), so
// that any change ends it by itself. A change that cannot spoil it says so (Follow).
//
// Examining costs one pass over the model and 4 bytes a coefficient while it runs. What a read
// made, or a host coefficient by coefficient, only needs a glance at each row's list.
#pragma once

#include <cstdint>

namespace quarvel::model {

struct ModelData;

class ListAgreement {
 public:
  // The store's change counter: how many times its lists or numbers have changed.
  using Changes = std::uint64_t;

  // True while what Examine found still holds.
  bool Known(Changes now) const { return extent_ == Extent::kAll && as_of_ == now; }
  // Looks at all lists of settled data. Raises 9 when fewer rows or columns are stored than
  // counted.
  void Examine(const ModelData& data, Changes now);
  // There are no lists, or the row lists were just made from the column lists, column by column.
  void NoteFilled(Changes now);
  // The change that made `now` out of the value before it leaves everything as it was known.
  void Follow(Changes now) {
    if (as_of_ + 1 == now) as_of_ = now;
  }
  // True when the row lists were made from the column lists and nothing has changed since, so that both hold
  // the same coefficients in the same order. Pairs may stand there twice.
  bool JustFilled(Changes now) const { return filled_as_of_ == now; }
  // True when it is known that no pair stands twice; looks at the row lists where a glance at each tells. False
  // also where only Examine would tell.
  bool KnowsPairsDistinct(const ModelData& data, Changes now);
  // The value of a coefficient is set, of the first one of a pair in the column's list.
  void NoteValueSet() { filled_as_of_ = kNever; }
  // True when appending a coefficient to both of its lists will leave what is known as it is, when
  // neither names the other yet. Numbers that are not there may come true.
  bool WillSurviveNewPair() const { return everywhere(); }
  // True when Examine found no disagreement at all, or has not looked.
  bool everywhere() const { return !disagree_; }

 private:
  // Everything, or that nothing can disagree but pairs that were added twice: those stand side by
  // side in their row.
  enum class Extent : std::uint8_t { kNothing, kAllButPairs, kAll };
  static constexpr Changes kNever = ~Changes{0};

  Extent extent_ = Extent::kNothing;
  Changes as_of_ = 0;
  Changes filled_as_of_ = kNever;
  bool disagree_ = false;
};

}  // namespace quarvel::model
