// Errors that are raised and told when there is no memory at all.
#include <string>

#include <gtest/gtest.h>

#include "platform/automation_error.h"
#include "tests/memory/failing_allocations.h"

namespace quarvel::testing {
namespace {

constexpr const char* kLongText = "a description that does not stand in its own room alone";

TEST(ErrorMemory, OutOfMemoryIsRaisedWithoutMemory) {
  bool raised = false;
  const FailingAllocation failing(1, Shortage::kForEver);
  try {
    RaiseRunTimeError(RunTimeError::kOutOfMemory);
  } catch (const AutomationError& error) {
    raised = error.number() == 7 && error.description() == "Out of memory";
  }
  EXPECT_TRUE(raised);
  EXPECT_FALSE(failing.happened());
}

TEST(ErrorMemory, ErrorThatCannotBeCopiedIsALackOfMemory) {
  const AutomationError original(1, kLongText, kLongText);
  int number = 0;
  try {
    throw original;
  } catch (...) {
    const FailingAllocation failing(1, Shortage::kForEver);
    number = CurrentError().number();
  }
  EXPECT_EQ(number, 7);
}

TEST(ErrorMemory, ErrorWhoseTextCannotBeMadeLeavesAnOperationAsALackOfMemory) {
  int number = 0;
  const FailingAllocation failing(1, Shortage::kForEver);
  try {
    Guarded([] { RaiseRunTimeError(RunTimeError::kSubscriptOutOfRange); });
  } catch (const AutomationError& error) {
    number = error.number();
  }
  EXPECT_EQ(number, 7);
}

}  // namespace
}  // namespace quarvel::testing
