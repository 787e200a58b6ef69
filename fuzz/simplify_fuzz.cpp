// A model, a user and a host chosen by the input, simplified by the component and step by step by
// the naive simplifier: the model, every box, caption, event point and the log must agree.

#include <cstddef>
#include <cstdint>

#include "fuzz/choices.h"
#include "tests/support/simplify_comparison.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static quarvel::testing::SimplifyComparison models;
  quarvel::fuzz::Choices bytes(data, size);
  quarvel::fuzz::Require(models.Run([&bytes](std::uint32_t bound) { return bytes(bound); }));
  return 0;
}
