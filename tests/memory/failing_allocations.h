// Lets the memory run out at a chosen place: this program's operator new counts, and fails where a
// test says. One thread.
#pragma once

#include <cstdint>

namespace quarvel::testing {

// How long a shortage lasts once it has begun.
enum class Shortage { kOnce, kForEver };

// While it lives, the n-th allocation from its making on fails, counted from 1, and, for ever, all
// that follow it too. They do not nest.
class FailingAllocation {
 public:
  FailingAllocation(std::int64_t n, Shortage shortage);
  ~FailingAllocation();
  FailingAllocation(const FailingAllocation&) = delete;
  FailingAllocation& operator=(const FailingAllocation&) = delete;

  // Whether any has failed; false when there were fewer than n.
  bool happened() const;
};

// While it lives, no allocation fails and none counts: for what belongs to the test.
class EnoughMemory {
 public:
  EnoughMemory();
  ~EnoughMemory();
  EnoughMemory(const EnoughMemory&) = delete;
  EnoughMemory& operator=(const EnoughMemory&) = delete;

 private:
  bool armed_before_;
};

// For memory that does not come from operator new: counts as one allocation, and tells whether it is
// to fail.
bool AllocationFails();

// All allocations that have failed so far.
std::int64_t FailedAllocations();

}  // namespace quarvel::testing
