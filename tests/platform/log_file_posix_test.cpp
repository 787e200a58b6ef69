// What may stand where a log belongs on a POSIX system, and who may read it.
#ifndef _WIN32

#include <filesystem>
#include <string>

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include "platform/log_file.h"
#include "tests/platform/ordinary_user.h"
#include "tests/support/form_fixture.h"
#include "tests/support/test_paths.h"

namespace quarvel::platform {
namespace {

namespace fs = std::filesystem;

mode_t ModeOf(const std::string& path) {
  struct stat status = {};
  EXPECT_EQ(stat(path.c_str(), &status), 0) << path;
  return status.st_mode & 0777;
}

class LogFilePosix : public testing::Test {
 protected:
  LogFilePosix() { WriteWholeFile(model_, "a model"); }
  ~LogFilePosix() override { umask(umask_); }

  void Write() {
    OutputFile log = OpenLog({log_, model_, {}});
    log.Write("a log");
    log.Close();
  }
  void ExpectRefused() {
    try {
      OpenLog({log_, model_, {}});
      ADD_FAILURE() << "opened";
    } catch (const AutomationError& error) {
      EXPECT_EQ(error.run_time_error(), RunTimeError::kPathFileAccessError);
      EXPECT_EQ(error.description(), kNoPlainFile);
    }
  }

  const mode_t umask_ = umask(022);
  TemporaryFolder folder_;
  std::string log_ = folder_.File("model.log");
  std::string model_ = folder_.File("model.mps");
};

TEST_F(LogFilePosix, APlantedLinkIsNotFollowed) {
  const std::string notes = folder_.File("notes");
  WriteWholeFile(notes, "my own notes");
  fs::create_symlink(notes, log_);
  ExpectRefused();
  EXPECT_EQ(ReadWholeFile(notes), "my own notes");
  EXPECT_TRUE(fs::is_symlink(log_));
}

TEST_F(LogFilePosix, ALinkToNowhereMakesNoFile) {
  fs::create_symlink(folder_.File("new"), log_);
  ExpectRefused();
  EXPECT_FALSE(fs::exists(folder_.File("new")));
}

TEST_F(LogFilePosix, APipeThatNobodyReadsIsRefusedAtOnce) {
  ASSERT_EQ(mkfifo(log_.c_str(), 0600), 0);
  ExpectRefused();
}

TEST_F(LogFilePosix, ADeviceIsRefused) {
  log_ = "/dev/null";
  ExpectRefused();
}

TEST_F(LogFilePosix, WhoMayNotReadTheModelMayNotReadItsLog) {
  const struct {
    mode_t model;
    mode_t umask;
    mode_t log;
  } cases[] = {
      {0600, 022, 0600}, {0644, 022, 0644}, {0640, 022, 0640}, {0666, 022, 0644}, {0644, 077, 0600},
      {0400, 022, 0600}, {0755, 022, 0644}, {0604, 022, 0600}, {0664, 002, 0664},
  };
  for (const auto& c : cases) {
    ASSERT_EQ(chmod(model_.c_str(), c.model), 0);
    umask(c.umask);
    Write();
    EXPECT_EQ(ModeOf(log_), c.log) << std::oct << c.model << " with " << c.umask;
    ASSERT_EQ(unlink(log_.c_str()), 0);
  }
}

TEST_F(LogFilePosix, WithoutAModelOnlyTheUserMayReadIt) {
  for (const char* model : {"", "/no such folder/model.mps"}) {
    model_ = model;
    Write();
    EXPECT_EQ(ModeOf(log_), 0600u) << model;
    ASSERT_EQ(unlink(log_.c_str()), 0);
  }
}

TEST_F(LogFilePosix, AnOlderLogLosesWhatTheModelDoesNotGive) {
  ASSERT_EQ(chmod(model_.c_str(), 0600), 0);
  WriteWholeFile(log_, "an older log");
  ASSERT_EQ(chmod(log_.c_str(), 0644), 0);
  Write();
  EXPECT_EQ(ModeOf(log_), 0600u);
  EXPECT_EQ(ReadWholeFile(log_), "a log");
}

TEST_F(LogFilePosix, AnOlderLogIsNotOpenedWiderThanItWas) {
  ASSERT_EQ(chmod(model_.c_str(), 0644), 0);
  WriteWholeFile(log_, "an older log");
  ASSERT_EQ(chmod(log_.c_str(), 0600), 0);
  Write();
  EXPECT_EQ(ModeOf(log_), 0600u);
}

TEST_F(LogFilePosix, AnotherUsersFileIsReplacedAndNotWrittenTo) {
  if (geteuid() != 0) GTEST_SKIP() << "only root can give files away";
  ASSERT_EQ(chmod(model_.c_str(), 0600), 0);
  WriteWholeFile(log_, "planted");
  ASSERT_EQ(chown(log_.c_str(), kNobody, kNobody), 0);
  Write();
  struct stat status = {};
  ASSERT_EQ(stat(log_.c_str(), &status), 0);
  EXPECT_EQ(status.st_uid, geteuid());
  EXPECT_EQ(ModeOf(log_), 0600u);
}

TEST_F(LogFilePosix, AnotherGroupMayOnlyWhatEverybodyMay) {
  if (geteuid() != 0) GTEST_SKIP() << "only root can give files away";
  constexpr gid_t kNoGroup = 65534;
  ASSERT_EQ(chown(model_.c_str(), geteuid(), kNoGroup), 0);
  ASSERT_EQ(chmod(model_.c_str(), 0660), 0);
  umask(0);
  Write();
  EXPECT_EQ(ModeOf(log_), 0600u);
}

TEST_F(LogFilePosix, ALogThatMayNotBeWrittenStays) {
  WriteWholeFile(log_, "protected");
  ASSERT_EQ(chmod(log_.c_str(), 0400), 0);
  fs::permissions(folder_.path(), fs::perms::all);
  {
    const OrdinaryUser user;
    EXPECT_EQ(FailureOf([this] { OpenLog({log_, model_, {}}); }), 70);
  }
  EXPECT_EQ(ReadWholeFile(log_), "protected");
}

}  // namespace
}  // namespace quarvel::platform

#endif
