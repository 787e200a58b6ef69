// Which rows and columns can be deleted by noting it, without walking the lists of the model.
//
// A row agrees when every coefficient of its list stands exactly once in the list of its column,
// and no column names the row otherwise; a column likewise. Deleting such a row takes out exactly
// the entries its own list names, in whatever order rows go. A pair of row and column that was
// added twice disagrees: a deletion takes out only the first of its entries, and what the other one
// names afterwards depends on the numbers at that moment.
//
// Examining costs one pass over the model and 4 bytes a coefficient while it runs.
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
  void Forget() { elements_ = kUnknown; }
  // `count` coefficients went from both of their lists.
  void NoteRemoved(std::int32_t count);
  // True when there is no disagreement at all.
  bool everywhere() const { return odd_rows_.empty(); }

  // By stored position. Only while Known.
  bool RowAgrees(std::int32_t position) const { return !Has(odd_rows_, position); }
  bool ColumnAgrees(std::int32_t position) const { return !Has(odd_columns_, position); }

 private:
  static constexpr std::int64_t kUnknown = -1;
  static bool Has(const std::vector<bool>& marks, std::int32_t position) {
    const auto offset = static_cast<std::size_t>(position);
    return offset < marks.size() && marks[offset];
  }

  std::int64_t elements_ = kUnknown;  // NumberOfElements as far as it was examined
  // Marked by position, both absent when everything agrees.
  std::vector<bool> odd_rows_;
  std::vector<bool> odd_columns_;
};

}  // namespace quarvel
