// Edit operations chosen by the input, on the component and on the naive model side by side.

#include <cstddef>
#include <cstdint>
#include <string>

#include "fuzz/choices.h"
#include "tests/support/edit_operations.h"
#include "tests/support/query_comparison.h"

namespace {

using quarvel::fuzz::Choices;
using quarvel::fuzz::Require;
using quarvel::testing::ChooseDeletion;
using quarvel::testing::ChooseOperation;
using quarvel::testing::CompareQueries;
using quarvel::testing::EditComparison;
using quarvel::testing::EditOperation;
using quarvel::testing::EditStyle;

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  Choices bytes(data, size);
  const auto choose = [&bytes](std::uint32_t bound) { return bytes(bound); };
  const EditStyle style = {.duplicates = choose(2) == 0};
  EditComparison models;
  std::string history;
  for (int step = 0; step < 400 && !bytes.at_end(); ++step) {
    // Looking completes what was deferred, so not every step is looked at.
    const std::uint32_t kind = choose(8);
    const EditOperation operation = kind < 2 ? ChooseDeletion(choose, models.naive())
                                             : ChooseOperation(choose, models.naive(), style);
    history += operation.text + "\n";
    Require(models.Apply(operation), history);
    if (kind == 6) Require(CompareQueries(models.model(), models.naive(), choose), history);
    if (kind == 7) Require(models.CompareState(), history);
  }
  Require(models.CompareState(), history);
  return 0;
}
