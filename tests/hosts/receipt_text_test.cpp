#include "hosts/receipt_text.h"

#include <gtest/gtest.h>

namespace quarvel::hosts {
namespace {

inspect::Receipt Receipt() {
  inspect::Receipt receipt;
  receipt.rows = receipt.equal_rows = 28;
  receipt.columns = receipt.equal_columns = 1;
  receipt.coefficients = receipt.equal_coefficients = 88;
  receipt.is_read_again = true;
  return receipt;
}

TEST(ReceiptText, SaysWhetherAllComesBack) {
  inspect::Receipt receipt = Receipt();
  EXPECT_EQ(ReceiptText(receipt), "written and verified: 28 rows, 1 column, 88 coefficients equal");
  receipt.losses.Add(mps::LossKind::kSetName, [] { return mps::Loss{}; });
  EXPECT_EQ(ReceiptText(receipt),
            "written and read again: 28 rows, 1 column, 88 coefficients equal");
  receipt.equal_rows = 27;
  receipt.equal_columns = 0;
  receipt.equal_coefficients = 80;
  EXPECT_EQ(ReceiptText(receipt),
            "written and read again: 27 of 28 rows, 0 of 1 column, 80 of 88 coefficients equal");
}

TEST(ReceiptText, SaysThatNothingWasVerified) {
  inspect::Receipt receipt = Receipt();
  receipt.is_read_again = false;
  EXPECT_EQ(ReceiptText(receipt),
            "written, but not read again, as it cannot be replaced: 28 rows, 1 column, 88 "
            "coefficients");
}

}  // namespace
}  // namespace quarvel::hosts
