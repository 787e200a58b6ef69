// What only a POSIX system can be made to refuse.
#ifndef _WIN32

#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include <fcntl.h>
#include <gtest/gtest.h>
#include <stdlib.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include "platform/files.h"
#include "tests/platform/file_failures.h"
#include "tests/platform/ordinary_user.h"
#include "tests/support/test_paths.h"

namespace quarvel::platform {
namespace {

namespace fs = std::filesystem;

// Sets a variable of the environment, or takes it away, for a scope.
class ScopedVariable {
 public:
  ScopedVariable(const char* name, const std::optional<std::string>& value) : name_(name) {
    if (const char* before = getenv(name)) before_ = before;
    Set(value);
  }
  ~ScopedVariable() { Set(before_); }
  ScopedVariable(const ScopedVariable&) = delete;
  ScopedVariable& operator=(const ScopedVariable&) = delete;

 private:
  void Set(const std::optional<std::string>& value) {
    if (value) {
      setenv(name_, value->c_str(), 1);
    } else {
      unsetenv(name_);
    }
  }

  const char* name_;
  std::optional<std::string> before_;
};

TEST(FilesPosix, AFullDeviceIsDiskFullWhenFlushed) {
  OutputFile file("/dev/full");
  file.Write("stays in the buffer");
  EXPECT_EQ(FailureOf([&] { file.Flush(); }), 61);
}

TEST(FilesPosix, AFullDeviceIsDiskFullWhenClosed) {
  OutputFile file("/dev/full");
  file.Write("stays in the buffer");
  EXPECT_EQ(FailureOf([&] { file.Close(); }), 61);
}

TEST(FilesPosix, AFullDeviceIsDiskFullForALargeWrite) {
  OutputFile file("/dev/full");
  EXPECT_EQ(FailureOf([&] { file.Write(std::string(1'000'000, 'x')); }), 61);
}

TEST(FilesPosix, AFailureIsRaisedByEveryLaterCall) {
  OutputFile file("/dev/full");
  file.Write("lost");
  EXPECT_EQ(FailureOf([&] { file.Flush(); }), 61);
  EXPECT_EQ(FailureOf([&] { file.Write("more"); }), 61);
  EXPECT_EQ(FailureOf([&] { file.Flush(); }), 61);
  EXPECT_EQ(FailureOf([&] { file.Close(); }), 61);
}

TEST(FilesPosix, AFailureNobodyAsksForIsSilent) {
  EXPECT_NO_THROW({ OutputFile("/dev/full").Write("lost"); });
}

TEST(FilesPosix, CopyingToAFullDeviceIsDiskFull) {
  const TemporaryFolder folder;
  WriteWholeFile(folder.File("file"), "text");
  EXPECT_EQ(FailureOf([&] { CopyFileContents(folder.File("file"), "/dev/full"); }), 61);
}

TEST(FilesPosix, NamesTheSystemCannotFollowAreAccessErrors) {
  const TemporaryFolder folder;
  fs::create_symlink(folder.File("loop"), folder.File("loop"));
  EXPECT_EQ(OpeningFailure(folder.File("loop")), 75);
  EXPECT_EQ(OpeningFailure(folder.File(std::string(300, 'x'))), 75);
  EXPECT_EQ(CreatingFailure(folder.File(std::string(300, 'x'))), 75);
  EXPECT_EQ(CreatingFailure(folder.File("new/")), 75);
}

TEST(FilesPosix, ALinkToNowhereIsAMissingFile) {
  const TemporaryFolder folder;
  fs::create_symlink(folder.File("nowhere"), folder.File("link"));
  EXPECT_EQ(OpeningFailure(folder.File("link")), 53);
  EXPECT_FALSE(FileExists(folder.File("link")));
}

TEST(FilesPosix, AMissingFileOfTheCurrentFolderIsFileNotFound) {
  EXPECT_EQ(OpeningFailure("no such file of quarvel.mps"), 53);
  EXPECT_EQ(OpeningFailure("/no such file of quarvel.mps"), 53);
}

TEST(FilesPosix, AFileThatMayNotBeReadIsPermissionDenied) {
  const TemporaryFolder folder;
  fs::permissions(folder.path(), fs::perms::all);
  WriteWholeFile(folder.File("locked"), "text");
  ASSERT_EQ(chmod(folder.File("locked").c_str(), 0), 0);
  const OrdinaryUser user;
  EXPECT_EQ(OpeningFailure(folder.File("locked")), 70);
  EXPECT_EQ(CreatingFailure(folder.File("locked")), 70);
}

TEST(FilesPosix, AFolderThatMayNotBeReadIsAnAccessError) {
  const TemporaryFolder folder;
  fs::permissions(folder.path(), fs::perms::all);
  fs::create_directory(folder.File("locked"));
  ASSERT_EQ(chmod(folder.File("locked").c_str(), 0), 0);
  const OrdinaryUser user;
  EXPECT_EQ(OpeningFailure(folder.File("locked")), 75);
}

TEST(FilesPosix, RunningOutOfDescriptorsIsTooManyFiles) {
  rlimit before = {};
  ASSERT_EQ(getrlimit(RLIMIT_NOFILE, &before), 0);
  const rlimit few = {64, before.rlim_max};
  ASSERT_EQ(setrlimit(RLIMIT_NOFILE, &few), 0);
  std::vector<InputFile> files;
  const int failure = FailureOf([&] {
    for (int i = 0; i < 100; ++i) files.emplace_back("/dev/null");
  });
  files.clear();
  ASSERT_EQ(setrlimit(RLIMIT_NOFILE, &before), 0);
  EXPECT_EQ(failure, 67);
}

TEST(FilesPosix, APipeHasNoSizeAndIsReadToItsEnd) {
  int ends[2] = {};
  ASSERT_EQ(pipe(ends), 0);
  ASSERT_EQ(write(ends[1], "through", 7), 7);
  close(ends[1]);
  InputFile file("/dev/fd/" + std::to_string(ends[0]));
  EXPECT_EQ(file.size(), 0U);
  char buffer[16];
  EXPECT_EQ(file.Read(buffer, sizeof buffer), 7U);
  EXPECT_EQ(file.Read(buffer, sizeof buffer), 0U);
  close(ends[0]);
}

TEST(FilesPosix, CopyingToALinkToItselfKeepsTheFile) {
  const TemporaryFolder folder;
  WriteWholeFile(folder.File("file"), "kept");
  fs::create_symlink(folder.File("file"), folder.File("link"));
  EXPECT_EQ(FailureOf([&] { CopyFileContents(folder.File("file"), folder.File("link")); }), 70);
  EXPECT_EQ(ReadWholeFile(folder.File("file")), "kept");
}

TEST(StateFolder, IsMadeInTheFolderTheUserNames) {
  const TemporaryFolder folder;
  const ScopedVariable state("XDG_STATE_HOME", folder.File("a/b"));
  EXPECT_EQ(StateFolder(), folder.File("a/b/quarvel"));
  EXPECT_TRUE(fs::is_directory(folder.File("a/b/quarvel")));
  EXPECT_EQ(StateFolder(), folder.File("a/b/quarvel"));
}

TEST(StateFolder, IsInTheHomeFolderOtherwise) {
  const TemporaryFolder folder;
  const ScopedVariable home("HOME", folder.path());
  const std::optional<std::string> ignored[] = {std::nullopt, "not/absolute"};
  for (const auto& value : ignored) {
    const ScopedVariable state("XDG_STATE_HOME", value);
    EXPECT_EQ(StateFolder(), folder.File(".local/state/quarvel"));
  }
  EXPECT_TRUE(fs::is_directory(folder.File(".local/state/quarvel")));
}

TEST(StateFolder, RaisesWhereAFileIsInItsWay) {
  const TemporaryFolder folder;
  WriteWholeFile(folder.File("file"), "");
  const ScopedVariable state("XDG_STATE_HOME", folder.File("file"));
  EXPECT_EQ(FailureOf([] { StateFolder(); }), 75);
}

}  // namespace
}  // namespace quarvel::platform

#endif
