// Random models saved by the component and by the naive writer, and read back.

#include <cstdint>
#include <random>
#include <string>

#include <gtest/gtest.h>

#include "tests/support/save_comparison.h"
#include "tests/support/test_length.h"

namespace quarvel::mps {
namespace {

using namespace quarvel::testing;

TEST(WriterAgreement, SavesAndReadsBackAsTheNaiveWriterSays) {
  SaveComparison files;
  const int count = TestLength(1000);
  for (int seed = 1; seed <= count; ++seed) {
    std::mt19937 random(static_cast<std::uint32_t>(seed));
    const auto choose = [&random](std::uint32_t bound) { return random() % bound; };
    const bool is_kept = seed % 2 == 0;
    const SavePlan plan = ChooseSavePlan(choose);
    const NaiveModel model = is_kept ? ChooseKeptModel(choose) : ChooseAnyModel(choose);
    ASSERT_EQ(files.Save(model, plan), "") << "seed " << seed;
    ASSERT_EQ(files.ReadBack(model, is_kept), "") << "seed " << seed;
  }
}

}  // namespace
}  // namespace quarvel::mps
