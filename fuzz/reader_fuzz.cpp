// Any bytes as an MPS file, read by the component and by the plain reader side by side. The first
// byte chooses the user: through the dialogs or not, the default bounds, a host that looks at the
// model at every hundredth line, where Stop is pressed, and which questions are answered No.

#include <cstddef>
#include <cstdint>
#include <string>

#include "fuzz/choices.h"
#include "tests/support/read_comparison.h"
#include "tests/support/test_paths.h"

namespace {

using quarvel::TemporaryFolder;
using quarvel::fuzz::Require;
using quarvel::testing::ReadComparison;
using quarvel::testing::ReadPlan;

ReadPlan PlanOf(std::uint8_t byte) {
  ReadPlan plan;
  plan.through_dialogs = (byte & 1) != 0;
  plan.lower_bounds_absent = (byte & 2) != 0;
  const bool looks = (byte & 4) != 0;
  plan.looks = [looks](std::int64_t) { return looks; };
  if (plan.through_dialogs) plan.stop_point = (byte >> 3) & 3;
  const std::int64_t no = byte >> 5;  // every so many boxes
  plan.says_yes = [no](std::int64_t box) { return no == 0 || box % no != 0; };
  return plan;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const TemporaryFolder folder;
  if (size == 0) return 0;
  const std::string file(data + 1, data + size);
  const ReadPlan plan = PlanOf(data[0]);
  ReadComparison readers(folder.File("model.mps"));
  // The second read starts from what the first one left.
  for (int round = 0; round < 2; ++round) {
    Require(readers.Read(file, plan), "read " + std::to_string(round) + " before\n");
  }
  return 0;
}
