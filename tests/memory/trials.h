// The loop that all tests of this folder share: something is tried again and again, with its first,
// second, third ... allocation failing, until it has no more that could fail.
#pragma once

#include <cstddef>
#include <cstdint>
#include <exception>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "platform/automation_error.h"
#include "tests/memory/failing_allocations.h"

namespace quarvel::testing {

inline constexpr int kOutOfMemory = 7;

// What a call has come to: a result, or the number of an error; kForeignError for an exception that
// no operation may raise.
struct Outcome {
  static constexpr int kForeignError = -1;

  int result = 0;
  int error = 0;
  bool operator==(const Outcome&) const = default;
};

template <class Call>
Outcome OutcomeOf(const Call& call) {
  try {
    return {.result = call()};
  } catch (const AutomationError& error) {
    return {.error = error.number()};
  } catch (const std::exception&) {
    return {.error = Outcome::kForeignError};
  }
}
std::string Text(const Outcome& outcome);

class Trials {
 public:
  // What is wrong after the n-th allocation has failed, empty when nothing is; none when there are
  // not so many.
  using Attempt = std::function<std::optional<std::string>(std::int64_t n, Shortage shortage)>;

  // With a step, one in so many allocations fails, others in each run.
  explicit Trials(int step = 1) : step_(step) {}
  // For attempts that make files: these take their time, most of all on Windows.
  static int StepWithFiles();

  void Run(const std::string& name, const Attempt& attempt);
  // The test fails when anything was wrong, or when there were fewer failed allocations for a step.
  void Expect(std::size_t least) const;

 private:
  int step_;
  int first_ = 1;
  std::size_t attempts_ = 0;
  std::vector<std::string> faults_;
};

}  // namespace quarvel::testing
