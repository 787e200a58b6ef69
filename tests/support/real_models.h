// The fixture of tests that read the folder of real models.
#pragma once

#include <gtest/gtest.h>

#include "tests/support/test_paths.h"

namespace quarvel {

// Where there is no such folder (see DataFolder) its tests are skipped, and counted as skipped.
class OnRealModels : public ::testing::Test {
 protected:
  void SetUp() override {
    if (!DataFolder()) {
      GTEST_SKIP() << "no folder of real models: shared/data beside the project, or QUARVEL_DATA";
    }
  }
};

}  // namespace quarvel
