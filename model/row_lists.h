// Row lists made from column lists, for a whole model at once.
#pragma once

namespace quarvel::model {

struct StoredModel;

// Gives every row, which must have an empty list, the coefficients that the columns name it in,
// column by column. Every index must be that of a row. Changes nothing when there is no memory for
// it.
//
// Rows come in any order, and writing each coefficient where its row's list goes on would wait for
// memory at every one. Large models are therefore sorted twice: first the coefficients go to the
// group of rows they belong to, where each group's part of the memory is written from front to
// back; then each group, small enough for the processor's cache but for a row that holds most of it,
// is put in order by itself. The plain way is to append coefficient by coefficient, which small
// models get and which gives the same: tests/model/row_lists_test.cpp.
void FillRowLists(StoredModel& model);

}  // namespace quarvel::model
