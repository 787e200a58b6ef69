// What check calls clean, a conversion keeps.

#include <random>
#include <sstream>
#include <string>

#include <gtest/gtest.h>

#include "tests/support/naive_writer.h"
#include "tests/support/run_quarvel.h"
#include "tests/support/save_comparison.h"
#include "tests/support/test_length.h"

namespace quarvel {
namespace {

// What is told of a file that another reader may not take is no loss.
std::string LossesIn(const std::string& err) {
  std::string losses;
  std::istringstream lines(err);
  for (std::string line; std::getline(lines, line);) {
    if (line.find("is not a standard MPS file") == std::string::npos) losses += line + '\n';
  }
  return losses;
}

TEST(CheckProperty, CallsNoFileCleanThatAConversionLosesSomethingOf) {
  const HostFolder folder;
  std::mt19937 random(20);
  const auto choose = [&random](std::uint32_t bound) {
    return static_cast<std::uint32_t>(random() % bound);
  };
  int clean = 0;
  int lossy = 0;
  for (int round = TestLength(400); round > 0; --round) {
    const bool is_kept = choose(2) == 0;
    const std::string text = testing::WriteNaively(is_kept ? testing::ChooseKeptModel(choose)
                                                           : testing::ChooseAnyModel(choose))
                                 .text;
    const std::string model = folder.Write("a.mps", text);
    const Outcome check = RunQuarvel({"check", model});
    const Outcome written = RunQuarvel({"convert", model, folder.Path("b.mps"), "--on-error",
                                        "continue", "--allow-loss", "--layout=fixed"});
    const bool is_lossless = written.status == 0 && LossesIn(written.err).empty();
    is_lossless ? ++clean : ++lossy;
    if (check.status == 0) {
      EXPECT_TRUE(is_lossless) << text << check.out << written.err;
    }
  }
  // The models are of both kinds.
  EXPECT_GT(clean, 0);
  EXPECT_GT(lossy, 0);
}

}  // namespace
}  // namespace quarvel
