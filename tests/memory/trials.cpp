#include "tests/memory/trials.h"

#include <algorithm>

#include <gtest/gtest.h>

#include "tests/support/test_length.h"

namespace quarvel::testing {

std::string Text(const Outcome& outcome) {
  return outcome.error != 0 ? "error " + std::to_string(outcome.error)
                            : "result " + std::to_string(outcome.result);
}

int Trials::StepWithFiles() {
#ifdef _WIN32
  constexpr int kFew = 8;
#else
  constexpr int kFew = 1;
#endif
  return kFew * std::max(1, 4 / TestLength(4));
}

void Trials::Run(const std::string& name, const Attempt& attempt) {
  for (const Shortage shortage : {Shortage::kOnce, Shortage::kForEver}) {
    for (std::int64_t n = first_;; n += step_) {
      const std::optional<std::string> fault = attempt(n, shortage);
      if (!fault) break;
      ++attempts_;
      if (fault->empty()) continue;
      faults_.push_back(name + ", allocation " + std::to_string(n) +
                        (shortage == Shortage::kOnce ? " once: " : " and all that follow: ") +
                        *fault);
    }
    first_ = first_ % step_ + 1;
  }
}

void Trials::Expect(std::size_t least) const {
  constexpr std::size_t kShown = 20;
  std::string shown;
  for (std::size_t i = 0; i < std::min(faults_.size(), kShown); ++i) shown += faults_[i] + '\n';
  EXPECT_EQ(faults_.size(), 0u) << "of " << attempts_ << " failed allocations; the first:\n"
                                << shown;
  EXPECT_GE(attempts_, least / static_cast<std::size_t>(step_));
  ::testing::Test::RecordProperty("failed_allocations", static_cast<int>(attempts_));
}

}  // namespace quarvel::testing
