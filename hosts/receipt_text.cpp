#include "hosts/receipt_text.h"

#include <string_view>

#include "hosts/printing.h"
#include "text/numbers.h"

namespace quarvel::hosts {
namespace {

// "28 rows", or "27 of 28 rows".
std::string Part(std::int64_t equal, std::int64_t all, std::string_view noun) {
  const std::string text = Counted(all, noun);
  return equal == all ? text : text::IntegerText(equal) + " of " + text;
}

std::string Parts(std::int64_t rows, std::int64_t columns, std::int64_t coefficients,
                  const inspect::Receipt& receipt) {
  return Part(rows, receipt.rows, "row") + ", " + Part(columns, receipt.columns, "column") + ", " +
         Part(coefficients, receipt.coefficients, "coefficient");
}

}  // namespace

std::string ReceiptText(const inspect::Receipt& receipt) {
  if (!receipt.is_read_again) {
    return "written, but not read again, as it cannot be replaced: " +
           Parts(receipt.rows, receipt.columns, receipt.coefficients, receipt);
  }
  return (receipt.is_whole() ? "written and verified: " : "written and read again: ") +
         Parts(receipt.equal_rows, receipt.equal_columns, receipt.equal_coefficients, receipt) +
         " equal";
}

}  // namespace quarvel::hosts
