// The lists of binding and of non-binding rows while making them anew is deferred.
//
// A removal, or a type that makes a row binding or takes that from it, has both lists made anew
// from the rows that there are then. All that is kept of that is how many rows there were: what a
// list holds of them follows from their types. A row that gets its first type is appended to what
// is there, so that it stands behind the rows that were listed.
//
// Who asks for one row of a list meanwhile is answered in the time of a logarithm: from the first
// such question on, the listed rows of each kind are marked by their positions (model/gaps.h), until
// the lists are made.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "model/counted_marks.h"
#include "model/gaps.h"
#include "model/model_data.h"

namespace quarvel::model {

enum class RowList : std::uint8_t { kNonBinding, kBinding };

class DeferredRowIndexes {
 public:
  bool due() const { return due_; }

  // Both lists are to be made anew from rows 1..rows as they are when somebody looks.
  void Rebuild(std::int32_t rows) noexcept {
    due_ = true;
    listed_ = rows;
    for (Numbers& appended : appended_) appended.clear();
  }
  // Row `number` gets its first type, and `last` is listed. False, with nothing done, when the
  // lists have to be made before: the row is listed by what it was without a type.
  bool Append(std::int32_t number, std::int32_t last, RowType type);
  // The row at that position is removed, or changes to that list.
  void NoteGone(std::int32_t position) noexcept {
    if (marks_[0].size() > 0) Unmark(position);
  }
  void NoteChanged(std::int32_t position, RowList list) noexcept;
  // The gaps of rows are closed.
  void NoteMoved() noexcept;

  // --- while due: what the lists will hold ---
  std::int32_t Count(RowList list, const ModelData& data, const Gaps& rows);
  // The k-th row's number; raises 9 when there is none.
  std::int32_t At(RowList list, std::int32_t k, const ModelData& data, const Gaps& rows);

  // Nothing is due; the lists stay as they are.
  void Forget() noexcept;
  // Makes the lists, of data without gaps. Nothing is due then.
  void CatchUp(ModelData& data);

 private:
  using Numbers = std::vector<std::int32_t>;
  static std::size_t Place(RowList list) { return static_cast<std::size_t>(list); }
  void Unmark(std::int32_t position) noexcept;
  void MarkListed(const ModelData& data, const Gaps& rows);

  bool due_ = false;
  std::int32_t listed_ = 0;
  // By kind: the rows appended to its list, and marks of the listed ones; of as many positions, which may
  // be fewer than there are.
  std::array<Numbers, 2> appended_;
  std::array<CountedMarks, 2> marks_;
};

inline RowList ListOf(RowType type) {
  return TraitsOf(type).binds ? RowList::kBinding : RowList::kNonBinding;
}

// Lists row `last` at the end of that list.
void AppendToRowIndex(ModelData& data, std::int32_t last, RowList list);

}  // namespace quarvel::model
