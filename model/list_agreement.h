// Which rows and columns can be deleted by noting it, without walking the lists of the model.
//
// A row agrees when every coefficient of its list stands exactly once in the list of its column,
// and no column names the row otherwise; a column likewise. Deleting such a row takes out exactly
// the entries its own list names, in whatever order rows go. A pair of row and column that was
// added twice disagrees: a deletion takes out only the first of its entries, and what the other one
// names afterwards depends on the numbers at that moment.
//
// Examining costs one pass over the model and 4 bytes a coefficient while it runs. What a read
// made, or a host coefficient by coefficient, only needs a glance at each row's list.
#pragma once

#include <cstdint>
#include <vector>

namespace quarvel {

struct ModelData;

class ListAgreement {
 public:
  // True while what Examine found still holds. A coefficient added since then ends it by itself, as
  // long as nobody takes one out without saying so.
  bool Known(const ModelData& data) const;
  // Looks at all lists of settled data. Raises 9 when fewer rows or columns are stored than
  // counted.
  void Examine(const ModelData& data);
  void Forget() { elements_ = filled_elements_ = kUnknown; }
  // There are no lists, or the row lists were just made from the column lists, column by column.
  void NoteFilled(const ModelData& data);
  // A coefficient is going to be appended to both of its lists.
  void NoteAdding(const ModelData& data, std::int32_t r, std::int32_t c);
  // `count` coefficients went from both of their lists.
  void NoteRemoved(std::int32_t count);
  // True when there is no disagreement at all.
  bool everywhere() const { return odd_rows_.empty(); }

  // By stored position. Only while Known.
  bool RowAgrees(std::int32_t position) const { return !Has(odd_rows_, position); }
  bool ColumnAgrees(std::int32_t position) const { return !Has(odd_columns_, position); }

 private:
  static constexpr std::int64_t kUnknown = -1;
  bool Knows(std::int64_t elements, const ModelData& data) const;
  static bool Has(const std::vector<bool>& marks, std::int32_t position) {
    const auto offset = static_cast<std::size_t>(position);
    return offset < marks.size() && marks[offset];
  }

  // NumberOfElements as far as it was examined, and as far as all is known but pairs that were
  // added twice: those stand side by side in their row.
  std::int64_t elements_ = kUnknown;
  std::int64_t filled_elements_ = kUnknown;
  // Marked by position, both absent when everything agrees.
  std::vector<bool> odd_rows_;
  std::vector<bool> odd_columns_;
};

}  // namespace quarvel
