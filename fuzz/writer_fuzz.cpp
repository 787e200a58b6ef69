// Models chosen by the input, saved by the component and by the naive writer, and read back. Half of
// them are of the kind that a file keeps whole, so that what comes back must be what was saved.

#include <cstddef>
#include <cstdint>

#include "fuzz/choices.h"
#include "tests/support/save_comparison.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace quarvel::testing;
  static SaveComparison files;
  quarvel::fuzz::Choices bytes(data, size);
  const auto choose = [&bytes](std::uint32_t bound) { return bytes(bound); };
  const bool is_kept = choose(2) == 1;
  const SavePlan plan = ChooseSavePlan(choose);
  const NaiveModel model = is_kept ? ChooseKeptModel(choose) : ChooseAnyModel(choose);
  quarvel::fuzz::Require(files.Save(model, plan));
  quarvel::fuzz::Require(files.ReadBack(model, is_kept));
  return 0;
}
