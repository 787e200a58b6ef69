// Random edits against a model that does everything the plain way.

#include <algorithm>
#include <cstdint>
#include <random>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "tests/support/edit_operations.h"
#include "tests/support/test_length.h"

namespace quarvel {
namespace {

using testing::ChooseDeletion;
using testing::ChooseOperation;
using testing::EditComparison;
using testing::EditOperation;
using testing::EditStyle;

struct EditRun {
  EditStyle style;
  // The whole state is looked at after one of so many steps; deletions pile up in between.
  std::uint32_t steps_a_look = 1;
};

// A text with the seed and every operation when the models differ, else empty.
std::string RunEdits(std::uint32_t seed, int steps, const EditRun& run) {
  std::mt19937 generator(seed);
  const auto choose = [&generator](std::uint32_t bound) {
    return static_cast<std::uint32_t>(generator() % bound);
  };
  EditComparison models;
  std::string history;
  std::uint32_t deletions = 0;  // still to come, one after the other
  for (int step = 0; step < steps; ++step) {
    if (deletions == 0 && choose(40) == 0) deletions = choose(8);
    const EditOperation operation = deletions > 0
                                        ? ChooseDeletion(choose, models.naive())
                                        : ChooseOperation(choose, models.naive(), run.style);
    if (deletions > 0) --deletions;
    history += operation.text + "\n";
    std::string fault = models.Apply(operation);
    const bool look = choose(run.steps_a_look) == 0 || step + 1 == steps;
    if (fault.empty() && look) fault = models.CompareState();
    if (!fault.empty()) return fault + "\nseed " + std::to_string(seed) + "\n" + history;
  }
  return {};
}

// Many short lives of a model rather than one long one: most of them start from nothing.
void ExpectAgreement(std::uint32_t first_seed, int runs, int steps, const EditRun& run) {
  const int length = TestLength(runs);
  for (int i = 0; i < length; ++i) {
    const std::string fault = RunEdits(first_seed + static_cast<std::uint32_t>(i), steps, run);
    ASSERT_EQ(fault, "");
  }
}

TEST(EditProperty, EveryStepLeavesWhatTheNaiveModelLeaves) {
  ExpectAgreement(1000, 150, 200, {.style = {.duplicates = false}, .steps_a_look = 1});
}

TEST(EditProperty, StepsThatNobodyLooksAtAddUpToTheSame) {
  ExpectAgreement(2000, 200, 200, {.style = {.duplicates = false}, .steps_a_look = 12});
}

TEST(EditProperty, RepeatedCoefficientsAreRemovedFirstMatchFirst) {
  ExpectAgreement(3000, 150, 200, {.style = {.duplicates = true}, .steps_a_look = 1});
}

TEST(EditProperty, RepeatedCoefficientsAndPendingDeletionsGoTogether) {
  ExpectAgreement(4000, 150, 200, {.style = {.duplicates = true}, .steps_a_look = 12});
}

TEST(EditProperty, LongLivesKeepAgreeing) {
  const EditRun run = {.style = {.duplicates = true, .new_models = false}, .steps_a_look = 20};
  ExpectAgreement(5000, 10, 2000, run);
}

}  // namespace
}  // namespace quarvel
