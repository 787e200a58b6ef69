// A desktop of real windows and a user who does things in them.
#pragma once

#include <QTest>
#include <memory>

#include <gtest/gtest.h>

#include "platform/form.h"
#include "platform/qt/qt_desktop.h"
#include "tests/qt/user.h"

namespace quarvel::platform {

class QtTest : public ::testing::Test, protected User {
 protected:
  void TearDown() override { EXPECT_EQ(LeftToDo(), 0u) << "doings that were never possible"; }

  // Shows a form and waits until its window has the keyboard, for which a real display takes its time.
  static void ShowActive(Form& form) {
    form.Show();
    QWidget* const window = WindowNamed(form.name());
    ASSERT_NE(window, nullptr) << form.name();
    EXPECT_TRUE(QTest::qWaitForWindowActive(window)) << form.name();
  }

  std::unique_ptr<Desktop> desktop_ = MakeQtDesktop();
};

}  // namespace quarvel::platform
