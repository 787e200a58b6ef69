// The tests of real windows. Without a display of the caller's choice they are shown to nobody.
#include <QApplication>
#include <QLoggingCategory>

#include <gtest/gtest.h>

int main(int argc, char** argv) {
  ::testing::InitGoogleTest(&argc, argv);
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  // What a platform cannot do is no news to a test.
  QLoggingCategory::setFilterRules("default.warning=false");
  const QApplication application(argc, argv);
  return RUN_ALL_TESTS();
}
