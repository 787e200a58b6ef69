// The times of a job: by the clock, and those of the processor outside of the system, on which memory that
// the system has to get from somewhere else does not count.
#pragma once

#include <sys/resource.h>

#include "bench/stopwatch.h"

namespace quarvel::bench {

struct Times {
  double seconds = 0;
  double user = 0;

  friend Times operator+(const Times& a, const Times& b) {
    return {a.seconds + b.seconds, a.user + b.user};
  }
};

inline double UserSeconds() {
  rusage usage{};
  getrusage(RUSAGE_SELF, &usage);
  return static_cast<double>(usage.ru_utime.tv_sec) +
         static_cast<double>(usage.ru_utime.tv_usec) / 1e6;
}

template <class Step>
Times TimesOf(const Step& step) {
  const double user = UserSeconds();
  const double seconds = SecondsOf(step);
  return {seconds, UserSeconds() - user};
}

inline void PrintTimes(const Times& times) {
  PrintResult("seconds", times.seconds);
  PrintResult("user", times.user);
}

}  // namespace quarvel::bench
