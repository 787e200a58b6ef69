// Random models saved by the component and by the naive writer, and read back.

#include <cstdint>
#include <random>
#include <string>

#include <gtest/gtest.h>

#include "tests/support/naive_simplify.h"
#include "tests/support/save_comparison.h"

namespace quarvel::mps {
namespace {

using namespace quarvel::testing;

TEST(WriterAgreement, SavesAndReadsBackAsTheNaiveWriterSays) {
  SaveComparison files;
  for (std::uint32_t seed = 1; seed <= 1000; ++seed) {
    std::mt19937 random(seed);
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
