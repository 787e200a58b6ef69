#include "simplify/simplification_log.h"

#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

#include <gtest/gtest.h>
#ifndef _WIN32
#include <signal.h>
#include <sys/resource.h>
#include <sys/stat.h>
#endif

#include "platform/files.h"
#include "tests/simplify/simplify_helpers.h"
#include "tests/support/test_paths.h"

namespace quarvel::simplify {
namespace {

// Something to simplify.
void AddEmptyColumn(SimplifySession& session) { session.Build().Column("EMPTY"); }

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

TEST(SimplificationLog, ReplacesOnlyItsOwnLogsOutsideOfTheModelsFolder) {
  SimplifySession session;
  std::filesystem::create_directory(std::filesystem::u8path(session.folder.File("m")));
  session.log_name = session.folder.File("m") + ".log";
  session.Build().Location(session.folder.File("m") + "/abc");
  AddEmptyColumn(session);
  session.Simplify();
  EXPECT_EQ(session.LogLines(), std::vector<std::string>{"Removed empty column:  EMPTY"});
  session.Build().Column("ANOTHER");
  session.Simplify();
  EXPECT_EQ(session.LogLines(), std::vector<std::string>{"Removed empty column:  ANOTHER"});
  WriteWholeFile(session.log_name, "my own notes");
  session.Build().Column("ANOTHER");
  EXPECT_EQ(session.FailureOfSimplify(), 75);
  EXPECT_EQ(ReadWholeFile(session.log_name), "my own notes");
}

#ifndef _WIN32
// No file may grow beyond a few bytes for a scope.
class SmallFiles {
 public:
  SmallFiles() {
    EXPECT_EQ(getrlimit(RLIMIT_FSIZE, &before_), 0);
    const rlimit small = {16, before_.rlim_max};
    EXPECT_EQ(setrlimit(RLIMIT_FSIZE, &small), 0);
  }
  ~SmallFiles() {
    EXPECT_EQ(setrlimit(RLIMIT_FSIZE, &before_), 0);
    signal(SIGXFSZ, handler_);
  }
  SmallFiles(const SmallFiles&) = delete;
  SmallFiles& operator=(const SmallFiles&) = delete;

 private:
  rlimit before_ = {};
  void (*handler_)(int) = signal(SIGXFSZ, SIG_IGN);
};

TEST(SimplificationLog, HearsOfALogThatCouldNotBeWritten) {
  SimplifySession session;
  AddEmptyColumn(session);
  const SmallFiles limit;
  EXPECT_EQ(session.FailureOfSimplify(), 61);
  EXPECT_TRUE(session.desktop.boxes().empty());
}

TEST(SimplificationLog, FollowsNoLinkThatStandsWhereItsLogBelongs) {
  SimplifySession session;
  AddEmptyColumn(session);
  const std::string notes = session.folder.File("notes");
  WriteWholeFile(notes, "my own notes");
  std::filesystem::create_symlink(notes, session.log_name);
  EXPECT_EQ(session.FailureOfSimplify(), 75);
  EXPECT_EQ(ReadWholeFile(notes), "my own notes");
  EXPECT_EQ(session.model.NumberOfColumns(), 1);
}

TEST(SimplificationLog, DoesNotWaitForTheReaderOfAPipe) {
  SimplifySession session;
  AddEmptyColumn(session);
  ASSERT_EQ(mkfifo(session.log_name.c_str(), 0600), 0);
  EXPECT_EQ(session.FailureOfSimplify(), 75);
  EXPECT_EQ(session.model.NumberOfColumns(), 1);
}

TEST(SimplificationLog, LogsAPrivateModelPrivately) {
  SimplifySession session;
  AddEmptyColumn(session);
  WriteWholeFile(session.model.FileLocation(), "ROWS");
  ASSERT_EQ(chmod(session.model.FileLocation().c_str(), 0600), 0);
  session.Simplify();
  struct stat status = {};
  ASSERT_EQ(stat(session.log_name.c_str(), &status), 0);
  EXPECT_EQ(status.st_mode & 0777, 0600u);
}
#endif

}  // namespace
}  // namespace quarvel::simplify
