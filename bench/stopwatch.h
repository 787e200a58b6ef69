// What the job programs share: each prints its results to standard output as lines "name value",
// which the table reads. "seconds" is the time of the job alone, without starting the program or
// preparing its data.
#pragma once

#include <chrono>
#include <cstdio>

namespace quarvel::bench {

template <class Step>
double SecondsOf(const Step& step) {
  const auto start = std::chrono::steady_clock::now();
  step();
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

inline void PrintResult(const char* name, double value) { std::printf("%s %.17g\n", name, value); }

}  // namespace quarvel::bench
