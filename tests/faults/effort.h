// How much the tests of faults do: a share of it in every run of the tests, all where the environment
// variable QUARVEL_FAULTS_ALL is set, as ./test all does.
#pragma once

#include <cstdlib>

namespace quarvel::faults {

inline bool IsThorough() { return std::getenv("QUARVEL_FAULTS_ALL") != nullptr; }

inline int Rounds(int few, int many) { return IsThorough() ? many : few; }

}  // namespace quarvel::faults
