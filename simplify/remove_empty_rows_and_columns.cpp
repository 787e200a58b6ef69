// Pass 2: every column and row without elements goes, columns first, objective rows too.

#include "simplify/simplifier.h"

namespace quarvel::simplify {
namespace {

// No blank before the parenthesis, unlike pass 1.
constexpr std::string_view kCaption = "Progress:  Simplifying MPS Model(";
constexpr std::int64_t kInterval = 200;

}  // namespace

void Simplifier::RemoveEmptyRowsAndColumns() {
  if (RemoveEmptyColumns()) RemoveEmptyRows();
}

bool Simplifier::RemoveEmptyColumns() {
  const std::int32_t limit = store_.NumberOfColumns();
  store_.data();  // nothing stays deferred: every column is looked at
  for (std::int32_t j = 1; j <= limit; ++j) {
    if (StoppedAfterSteps(1, kInterval, kCaption)) return false;
    if (j > store_.NumberOfColumns()) return true;  // a host that was called back has deleted some
    if (store_.looks().ElementsInColumn(j) == 0) {
      log_.Append("Removed empty column:  " + store_.looks().NameOfColumn(j));
      changed_ = true;
      store_.RemoveColumn(
          j, [this](const model::RowRecord& row) { log_.AppendEmptyRow(row.Type, row.Name); });
      --j;  // what has moved into this place comes next
    }
    if (j == store_.NumberOfColumns()) return true;
  }
  return true;
}

bool Simplifier::RemoveEmptyRows() {
  const std::int32_t limit = store_.NumberOfRows();
  for (std::int32_t i = 1; i <= limit; ++i) {
    if (StoppedAfterSteps(1, kInterval, kCaption)) return false;
    if (i > store_.NumberOfRows()) return true;
    if (store_.ElementsInRow(i) == 0) {
      log_.AppendEmptyRow(store_.looks().TypeOfRow(i), store_.looks().NameOfRow(i));
      changed_ = true;
      store_.RemoveRow(i);
      --i;
    }
    if (i == store_.NumberOfRows()) return true;
  }
  return true;
}

}  // namespace quarvel::simplify
