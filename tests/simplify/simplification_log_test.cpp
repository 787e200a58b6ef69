#include "simplify/simplification_log.h"

#include <cstdlib>

#include <gtest/gtest.h>

#include "platform/files.h"
#include "tests/support/test_paths.h"

namespace quarvel::simplify {
namespace {

TEST(SimplificationLog, IsNamedByCuttingFourCharacters) {
  const struct {
    const char* path;
    const char* log;
  } cases[] = {
      {"C:\\m\\model.mps", "C:\\m\\model.log"},
      {"C:\\m\\model.data", "C:\\m\\model..log"},
      {"C:\\m\\model", "C:\\m\\m.log"},
      {"/m/model.mps", "/m/model.log"},
      {".mps", ".log"},
      {"abc", ".log"},
      {"a", ".log"},
      {"", ".log"},
  };
  for (const auto& c : cases) EXPECT_EQ(BesideModel(c.path), c.log) << c.path;
}

TEST(SimplificationLog, CutsCharactersAndNotBytes) {
  EXPECT_EQ(BesideModel("/m/caf\u00e9.\u00e4\u00f6\u00fc"), "/m/caf\u00e9.log");
  EXPECT_EQ(BesideModel("/m/x\u20ac\U0001F600\u00e9z"), "/m/x.log");
}

TEST(SimplificationLog, ForeignBytesAreCutWithoutRunningOffTheStart) {
  EXPECT_EQ(BesideModel("\x80\x80\x80\x80\x80"), ".log");
}

TEST(SimplificationLog, HeadingNamesTheModelsFile) {
  EXPECT_EQ(LogHeading("C:\\m\\model.mps"), "Log file for simplification of C:\\m\\model.mps");
  EXPECT_EQ(LogHeading(""), "Log file for simplifications of unsaved model");
}

TEST(SimplificationLog, StandsBesideTheModelsFile) {
  EXPECT_EQ(LogFileName("/m/model.mps"), "/m/model.log");
}

#ifdef _WIN32
TEST(SimplificationLog, OfAnUnsavedModelStandsInTheComponentsFolder) {
  EXPECT_EQ(LogFileName(""), platform::ComponentFolder() + "\\newmodel.log");
}
#else
TEST(SimplificationLog, OfAnUnsavedModelStandsInTheUsersStateFolder) {
  const TemporaryFolder state;
  ASSERT_EQ(setenv("XDG_STATE_HOME", state.path().c_str(), 1), 0);
  EXPECT_EQ(LogFileName(""), state.path() + "/quarvel/newmodel.log");
  ASSERT_EQ(unsetenv("XDG_STATE_HOME"), 0);
}
#endif

}  // namespace
}  // namespace quarvel::simplify
