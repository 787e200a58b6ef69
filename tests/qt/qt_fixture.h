// A desktop of real windows and a user who does things in them.
#pragma once

#include <memory>

#include <gtest/gtest.h>

#include "platform/qt/qt_desktop.h"
#include "tests/qt/user.h"

namespace quarvel::platform {

class QtTest : public ::testing::Test, protected User {
 protected:
  void TearDown() override { EXPECT_EQ(LeftToDo(), 0u) << "doings that were never possible"; }

  std::unique_ptr<Desktop> desktop_ = MakeQtDesktop();
};

}  // namespace quarvel::platform
