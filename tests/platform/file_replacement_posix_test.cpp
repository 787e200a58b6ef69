// What replacing a file keeps on a POSIX system, and what it does not follow.
#ifndef _WIN32

#include <csignal>
#include <filesystem>
#include <set>
#include <string>
#include <vector>

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/file.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <sys/xattr.h>
#include <unistd.h>

#include "platform/file_replacement.h"
#include "platform/save_lock.h"
#include "platform/system_file.h"
#include "platform/temporary_file.h"
#include "tests/platform/ordinary_user.h"
#include "tests/support/file_faults.h"
#include "tests/support/form_fixture.h"
#include "tests/support/test_paths.h"

namespace quarvel::platform {
namespace {

namespace fs = std::filesystem;

struct stat StatusUnder(const std::string& path) {
  struct stat status = {};
  EXPECT_EQ(lstat(path.c_str(), &status), 0) << path;
  return status;
}

unsigned ModeUnder(const std::string& path) { return StatusUnder(path).st_mode & 07777U; }

std::size_t CountNames(const TemporaryFolder& folder) {
  return static_cast<std::size_t>(
      std::distance(fs::directory_iterator(folder.path()), fs::directory_iterator()));
}

void Rewrite(const std::string& path) {
  FileReplacement replacement(path);
  replacement.output().Write("new");
  replacement.Commit();
}

TEST(FileReplacementPosix, KeepsModeOwnerAndAttributes) {
  const TemporaryFolder folder;
  const std::string path = folder.File("model.mps");
  for (const unsigned mode : {0600U, 0640U, 0664U, 0755U, 02775U}) {
    WriteWholeFile(path, "old");
    if (geteuid() == 0) {
      ASSERT_EQ(chown(path.c_str(), 1234, 4321), 0);
    }
    ASSERT_EQ(chmod(path.c_str(), mode), 0);
    const bool has_attributes = setxattr(path.c_str(), "user.note", "kept", 4, 0) == 0;
    const struct stat before = StatusUnder(path);
    Rewrite(path);
    const struct stat after = StatusUnder(path);
    EXPECT_NE(after.st_ino, before.st_ino);
    // The system takes the set-group-ID bit away with each write of an ordinary user.
    const mode_t taken_away = geteuid() == 0 ? 0 : S_ISGID;
    EXPECT_EQ(after.st_mode, before.st_mode & ~taken_away);
    EXPECT_EQ(after.st_uid, before.st_uid);
    EXPECT_EQ(after.st_gid, before.st_gid);
    char value[8] = {};
    const ssize_t size = getxattr(path.c_str(), "user.note", value, sizeof value);
    EXPECT_EQ(std::string(value), has_attributes ? "kept" : "");
    EXPECT_EQ(size > 0, has_attributes);
  }
}

TEST(FileReplacementPosix, GivesANewFileTheModeThatTheUserWants) {
  const TemporaryFolder folder;
  const mode_t before = umask(027);
  Rewrite(folder.File("model.mps"));
  umask(before);
  EXPECT_EQ(ModeUnder(folder.File("model.mps")), 0640U);
}

TEST(FileReplacementPosix, LetsNobodyElseReadTheTemporaryFileOfAnExistingOne) {
  const TemporaryFolder folder;
  WriteWholeFile(folder.File("model.mps"), "old");
  ASSERT_EQ(chmod(folder.File("model.mps").c_str(), 0666), 0);
  const FileReplacement replacement(folder.File("model.mps"));
  EXPECT_EQ(ModeUnder(folder.File(".model.mps.quarvel-0~")), 0600U);
}

TEST(FileReplacementPosix, ReplacesWhatAChainOfLinksLeadsTo) {
  const TemporaryFolder folder;
  fs::create_directory(folder.File("sub"));
  WriteWholeFile(folder.File("sub/real.mps"), "old");
  fs::create_symlink("sub/second", folder.File("first"));
  fs::create_symlink("real.mps", folder.File("sub/second"));
  Rewrite(folder.File("first"));
  EXPECT_TRUE(fs::is_symlink(folder.File("first")));
  EXPECT_TRUE(fs::is_symlink(folder.File("sub/second")));
  EXPECT_FALSE(fs::is_symlink(folder.File("sub/real.mps")));
  EXPECT_EQ(ReadWholeFile(folder.File("sub/real.mps")), "new");
}

TEST(FileReplacementPosix, MakesWhatALinkLeadsTo) {
  const TemporaryFolder folder;
  fs::create_symlink(folder.File("real.mps"), folder.File("link"));
  Rewrite(folder.File("link"));
  EXPECT_TRUE(fs::is_symlink(folder.File("link")));
  EXPECT_EQ(ReadWholeFile(folder.File("real.mps")), "new");
}

TEST(FileReplacementPosix, RefusesLinksInACircleAndNamesOfFolders) {
  const TemporaryFolder folder;
  fs::create_symlink(folder.File("loop"), folder.File("loop"));
  EXPECT_EQ(FailureOf([&] { Rewrite(folder.File("loop")); }), 75);
  EXPECT_EQ(FailureOf([&] { Rewrite(folder.File("new/")); }), 75);
  EXPECT_EQ(FailureOf([&] { Rewrite(folder.File(std::string(300, 'x'))); }), 75);
  EXPECT_EQ(CountNames(folder), 1u);
}

TEST(FileReplacementPosix, WritesADeviceItself) {
  Rewrite("/dev/null");
  EXPECT_TRUE(S_ISCHR(StatusUnder("/dev/null").st_mode));
  EXPECT_EQ(FailureOf([] { Rewrite("/dev/full"); }), 61);
}

TEST(FileReplacementPosix, GoesOnWithWhatIsOpenWhateverItIsCalled) {
  const TemporaryFolder folder;
  const std::string path = folder.File("all.txt");
  const int own = open(path.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, 0600);
  ASSERT_EQ(write(own, "first ", 6), 6);
  const std::string number = std::to_string(own);
  fs::create_symlink("/proc/self/fd/" + number, folder.File("link"));
  const std::vector<std::string> names = {"/proc/self/fd/" + number, folder.File("link"),
                                          "/proc/" + std::to_string(getpid()) + "/fd/" + number};
  for (const std::string& name : names) {
    EXPECT_TRUE(IsNameOfOpenFile(name)) << name;
    Rewrite(name);
  }
  ASSERT_EQ(write(own, " last", 5), 5);
  close(own);
  EXPECT_EQ(ReadWholeFile(path), "first newnewnew last");
  EXPECT_FALSE(IsNameOfOpenFile(path));
  EXPECT_FALSE(IsNameOfOpenFile(folder.File("missing")));
  EXPECT_EQ(CountNames(folder), 2u);
}

TEST(FileReplacementPosix, WritesBehindWhatAnotherProcessHasOpen) {
  const TemporaryFolder folder;
  const std::string path = folder.File("all.txt");
  WriteWholeFile(path, "first ");
  int ends[2] = {};
  ASSERT_EQ(pipe(ends), 0);
  const pid_t child = fork();
  if (child == 0) {
    const int opened = open(path.c_str(), O_WRONLY);
    char byte = opened >= 0 && dup2(opened, 100) == 100 ? 'y' : 'n';
    close(ends[0]);
    if (write(ends[1], &byte, 1) == 1) pause();
    _exit(0);
  }
  char byte = 0;
  ASSERT_EQ(read(ends[0], &byte, 1), 1);
  ASSERT_EQ(byte, 'y');
  EXPECT_EQ(FailureOf([&] { Rewrite("/proc/" + std::to_string(child) + "/fd/100"); }), 0);
  kill(child, SIGKILL);
  EXPECT_EQ(waitpid(child, nullptr, 0), child);
  close(ends[0]);
  close(ends[1]);
  EXPECT_EQ(ReadWholeFile(path), "first new");
}

// Files of this process may not grow beyond so many bytes, for a scope.
class SizeLimit {
 public:
  explicit SizeLimit(rlim_t bytes) {
    getrlimit(RLIMIT_FSIZE, &before_);
    const rlimit limit = {bytes, before_.rlim_max};
    EXPECT_EQ(setrlimit(RLIMIT_FSIZE, &limit), 0);
  }
  ~SizeLimit() { setrlimit(RLIMIT_FSIZE, &before_); }
  SizeLimit(const SizeLimit&) = delete;
  SizeLimit& operator=(const SizeLimit&) = delete;

 private:
  rlimit before_ = {};
};

TEST(FileReplacementPosix, OutlivesAFileThatGrowsOverTheLimit) {
  const TemporaryFolder folder;
  const std::string path = folder.File("model.mps");
  const std::string text(300'000, 'x');
  for (const bool in_place : {false, true}) {
    WriteWholeFile(path, "old");
    if (in_place) fs::create_hard_link(path, folder.File("second"));
    const auto handler = std::signal(SIGXFSZ, SIG_DFL);
    std::string told;
    try {
      const SizeLimit limit(100'000);
      FileReplacement replacement(path);
      replacement.output().Write(text);
      replacement.Commit();
    } catch (const AutomationError& error) {
      told = error.description();
    }
    // The signal waits for nobody.
    sigset_t waiting;
    sigpending(&waiting);
    EXPECT_EQ(sigismember(&waiting, SIGXFSZ), 0);
    std::signal(SIGXFSZ, handler);
    EXPECT_EQ(told, "Disk full: the file grows over a limit of this process or of the file system");
    EXPECT_EQ(ReadWholeFile(path), "old");
    EXPECT_EQ(CountNames(folder), in_place ? 2u : 1u);
  }
}

TEST(FileReplacementPosix, TellsOfALock) {
  const TemporaryFolder folder;
  const std::string path = folder.File("model.mps");
  WriteWholeFile(path, "old");
  const int other = open(path.c_str(), O_RDWR | O_CLOEXEC);
  ASSERT_EQ(flock(other, LOCK_EX), 0);
  std::string told;
  try {
    const InputFile file(path);
  } catch (const AutomationError& error) {
    EXPECT_EQ(error.number(), 70);
    told = error.description();
  }
  close(other);
  EXPECT_EQ(told, "Permission denied: another program has locked the file");
}

TEST(FileReplacementPosix, FollowsNoPlantedNames) {
  const TemporaryFolder folder;
  WriteWholeFile(folder.File("victim"), "the user's");
  WriteWholeFile(folder.File("other"), "the user's");
  fs::create_symlink(folder.File("victim"), folder.File(".model.mps.quarvel-0~"));
  fs::create_symlink(folder.File("nowhere"), folder.File(".model.mps.quarvel-1~"));
  fs::create_hard_link(folder.File("other"), folder.File(".model.mps.quarvel-2~"));
  ASSERT_EQ(mkfifo(folder.File(".model.mps.quarvel-3~").c_str(), 0600), 0);
  WriteWholeFile(folder.File("model.mps"), "old");
  Rewrite(folder.File("model.mps"));
  EXPECT_EQ(ReadWholeFile(folder.File("model.mps")), "new");
  EXPECT_EQ(ReadWholeFile(folder.File("victim")), "the user's");
  EXPECT_EQ(ReadWholeFile(folder.File("other")), "the user's");
  EXPECT_FALSE(fs::exists(folder.File("nowhere")));
  EXPECT_EQ(CountNames(folder), 7u);
}

TEST(FileReplacementPosix, ClearsNothingThatAnotherUserMade) {
  if (geteuid() != 0) GTEST_SKIP() << "only root can make a file that another user owns";
  const TemporaryFolder folder;
  fs::permissions(folder.path(), fs::perms::all);
  WriteWholeFile(folder.File(".model.mps.quarvel-0~"), "another's");
  ASSERT_EQ(chmod(folder.File(".model.mps.quarvel-0~").c_str(), 0666), 0);
  {
    const OrdinaryUser user;
    EXPECT_EQ(FailureOf([&] { Rewrite(folder.File("model.mps")); }), 0);
  }
  EXPECT_EQ(ReadWholeFile(folder.File(".model.mps.quarvel-0~")), "another's");
}

TEST(FileReplacementPosix, WritesInPlaceWhatAnotherUserOwns) {
  if (geteuid() != 0) GTEST_SKIP() << "only root can make a file that another user owns";
  const TemporaryFolder folder;
  const std::string path = folder.File("model.mps");
  fs::permissions(folder.path(), fs::perms::all);
  WriteWholeFile(path, "a longer old text");
  ASSERT_EQ(chmod(path.c_str(), 0666), 0);
  const struct stat before = StatusUnder(path);
  {
    const OrdinaryUser user;
    EXPECT_EQ(FailureOf([&] { Rewrite(path); }), 0);
  }
  EXPECT_EQ(StatusUnder(path).st_ino, before.st_ino);
  EXPECT_EQ(StatusUnder(path).st_uid, before.st_uid);
  EXPECT_EQ(ReadWholeFile(path), "new");
  EXPECT_EQ(CountNames(folder), 1u);
}

// An ordinary user can write the file, and make none beside it.
struct ClosedFolder {
  ClosedFolder() {
    WriteWholeFile(path, "a longer old text");
    EXPECT_EQ(chmod(path.c_str(), 0666), 0);
    fs::permissions(folder.path(), fs::perms(0555));
  }
  ~ClosedFolder() { fs::permissions(folder.path(), fs::perms(0755)); }
  ClosedFolder(const ClosedFolder&) = delete;
  ClosedFolder& operator=(const ClosedFolder&) = delete;

  TemporaryFolder folder;
  const std::string path = folder.File("model.mps");
};

TEST(FileReplacementPosix, WritesInPlaceWhereTheFolderTakesNoFile) {
  const ClosedFolder folder;
  const std::string& path = folder.path;
  {
    const OrdinaryUser user;
    EXPECT_EQ(FailureOf([&] { Rewrite(path); }), 0);
    EXPECT_EQ(FailureOf([&] { Rewrite(folder.folder.File("new.mps")); }), 70);
  }
  EXPECT_EQ(ReadWholeFile(path), "new");
}

TEST(FileReplacementPosix, WritesNothingInPlaceWhileAnotherSaveGoesOn) {
  const ClosedFolder folder;
  const std::string& path = folder.path;
  {
    const OrdinaryUser user;
    const FileStamp stamp = StampUnder(path).value();
    const SaveLock other(path, stamp);
    EXPECT_EQ(FailureOf([&] { const FileReplacement replacement(path, nullptr, stamp); }), 70);
  }
  EXPECT_EQ(ReadWholeFile(path), "a longer old text");
}

TEST(FileReplacementPosix, WritesInPlaceAloneOrNotAtAll) {
  const TemporaryFolder folder;
  const std::string path = folder.File("model.mps");
  WriteWholeFile(path, "old");
  fs::create_hard_link(path, folder.File("second"));
  const int other = open(path.c_str(), O_RDWR | O_CLOEXEC);
  ASSERT_EQ(flock(other, LOCK_EX), 0);
  EXPECT_EQ(FailureOf([&] { Rewrite(path); }), 70);
  EXPECT_EQ(FailureOf([&] { CopyBeside(path, folder.File("model.bkp")); }), 70);
  close(other);
  EXPECT_EQ(ReadWholeFile(path), "old");
  EXPECT_EQ(CountNames(folder), 2u);
  EXPECT_EQ(FailureOf([&] { Rewrite(path); }), 0);
}

TEST(CopyBesidePosix, WaitsForAFileThatIsInUseForAMoment) {
  const TemporaryFolder folder;
  const std::string path = folder.File("model.mps");
  WriteWholeFile(path, "text");
  const int used = open(path.c_str(), O_RDWR | O_CLOEXEC);
  ASSERT_EQ(flock(used, LOCK_EX), 0);
  // The lock belongs to both processes until the child, too, has closed the file.
  const pid_t child = fork();
  if (child == 0) {
    usleep(30'000);
    _exit(0);
  }
  close(used);
  EXPECT_EQ(FailureOf([&] { CopyBeside(path, folder.File("model.bkp")); }), 0);
  EXPECT_EQ(waitpid(child, nullptr, 0), child);
}

TEST(CopyBesidePosix, IsNoMoreReadableThanTheFile) {
  const TemporaryFolder folder;
  WriteWholeFile(folder.File("model.mps"), "text");
  for (const unsigned mode : {0600U, 0644U, 0440U}) {
    ASSERT_EQ(chmod(folder.File("model.mps").c_str(), mode), 0);
    const auto copy = CopyBeside(folder.File("model.mps"), folder.File("model.bkp"));
    EXPECT_EQ(ModeUnder(copy->path()), mode);
    EXPECT_EQ(ReadWholeFile(copy->path()), "text");
  }
}

}  // namespace
}  // namespace quarvel::platform

#endif
