#include "mps/backup.h"

#include <filesystem>
#include <string>

#include <gtest/gtest.h>
#ifndef _WIN32
#include <sys/stat.h>
#endif

#include "platform/automation_error.h"
#include "platform/files.h"
#include "tests/support/file_faults.h"
#include "tests/support/test_paths.h"

namespace quarvel::mps {
namespace {

using platform::FileExists;
using enum BackupManner;

TEST(Backup, IsNamedAsItsMannerSays) {
  const struct {
    const char* path;
    const char* component;
    const char* beside;
  } cases[] = {
      {"model.mps", "model.bkp", "model.bkp"},
      {"a.b/model.old.mps", "a.b/model.old.bkp", "a.b/model.old.bkp"},
      {"model", "modelbkp", "model.bkp"},
      {"y.d/model", "y.bkp", "y.d/model.bkp"},
      {"./model", ".bkp", "./model.bkp"},
      {"../model", "..bkp", "../model.bkp"},
      {".mps", ".bkp", ".mps.bkp"},
      {"a/.mps", "a/.bkp", "a/.mps.bkp"},
  };
  for (const auto& [path, component, beside] : cases) {
    EXPECT_EQ(Backup(path, kComponent).name(), component);
    EXPECT_EQ(Backup(path, kBeside).name(), beside);
  }
}

class BackupOfAFile : public ::testing::Test {
 protected:
  BackupOfAFile() { WriteWholeFile(path_, kText); }
  // A save that ends before its time.
  void LeaveBackup() const { Backup(path_, kBeside).Make(); }

  static constexpr std::string_view kText = "ROWS\nENDATA\n";
  TemporaryFolder folder_;
  const std::string path_ = folder_.File("model.mps");
  const std::string name_ = folder_.File("model.bkp");
};

TEST_F(BackupOfAFile, IsACopyThatIsDeletedAgain) {
  Backup backup(path_, kBeside);
  backup.Make();
  EXPECT_TRUE(backup.is_made());
  EXPECT_EQ(ReadWholeFile(name_), kText);
  EXPECT_EQ(backup.kept(), "");
  WriteWholeFile(path_, "torn");
  EXPECT_TRUE(backup.Restore());
  EXPECT_EQ(ReadWholeFile(path_), kText);
  backup.Delete();
  EXPECT_FALSE(FileExists(name_));
}

TEST_F(BackupOfAFile, KeepsWhatHasItsNameAndIsNone) {
  for (const char* const number : {".1", ".2"}) {
    WriteWholeFile(name_, kText);
    Backup backup(path_, kBeside);
    backup.Make();
    EXPECT_EQ(backup.kept(), name_ + number);
    EXPECT_EQ(ReadWholeFile(name_ + number), kText);
    backup.Delete();
    EXPECT_FALSE(FileExists(name_));
  }
}

TEST_F(BackupOfAFile, TakesThePlaceOfOneThatASaveHasLeft) {
  LeaveBackup();
  WriteWholeFile(path_, "NAME NEW\nENDATA\n");
  Backup backup(path_, kBeside);
  backup.Make();
  EXPECT_EQ(backup.kept(), "");
  EXPECT_EQ(ReadWholeFile(name_), "NAME NEW\nENDATA\n");
}

TEST_F(BackupOfAFile, KeepsOneThatIsBetterThanTheFileOrWasWrittenTo) {
  LeaveBackup();
  WriteWholeFile(path_, "ROWS\nEND");
  Backup better(path_, kBeside);
  better.Make();
  EXPECT_EQ(better.kept(), name_ + ".1");
  EXPECT_EQ(ReadWholeFile(name_ + ".1"), kText);
  WriteWholeFile(path_, kText);
  WriteWholeFile(name_, "notes");
  Backup other(path_, kBeside);
  other.Make();
  EXPECT_EQ(other.kept(), name_ + ".2");
  EXPECT_EQ(ReadWholeFile(name_ + ".2"), "notes");
}

struct FaultyBackup {
  bool happened = false;  // there was such a call
  bool failed = false;
};

// Nothing is left but the file, and the backup where it was made; of another file of its name, that one.
FaultyBackup MakeWithFault(FaultKind kind, int call, bool has_other) {
  const std::string text = "ROWS\nENDATA\n";
  const TemporaryFolder folder;
  const std::string path = folder.File("model.mps");
  const std::string name = folder.File("model.bkp");
  WriteWholeFile(path, text);
  if (has_other) WriteWholeFile(name, "other");
  Backup backup(path, kBeside);
  FaultyBackup result;
  {
    const FileFaults faults(kind, call);
    try {
      backup.Make();
    } catch (const AutomationError&) {
      result.failed = true;
    }
    result.happened = faults.happened();
  }
  const bool is_kept = !backup.kept().empty();
  EXPECT_EQ(ReadWholeFile(path), text);
  if (has_other) {
    EXPECT_EQ(ReadWholeFile(is_kept ? backup.kept() : name), "other");
  }
  if (result.failed) {
    EXPECT_EQ(FileExists(name), has_other && !is_kept);
  } else {
    EXPECT_EQ(ReadWholeFile(name), text);
  }
  return result;
}

// Whatever call to the system fails, and from which on the disk is full.
TEST(Backup, LeavesNothingWhereItCannotBeMade) {
  int failures = 0;
  for (const FaultKind kind : {FaultKind::kDeviceError, FaultKind::kDiskFull,
                               FaultKind::kNotPermitted, FaultKind::kCutShort}) {
    for (const bool has_other : {false, true}) {
      FaultyBackup result = {.happened = true};
      for (int call = 1; result.happened; ++call) {
        SCOPED_TRACE(std::to_string(static_cast<int>(kind)) + " at " + std::to_string(call));
        result = MakeWithFault(kind, call, has_other);
        if (result.failed) ++failures;
      }
    }
  }
  EXPECT_GT(failures, 50);
}

#ifndef _WIN32
TEST_F(BackupOfAFile, KeepsAPipeOfItsNameAndForACommandALink) {
  namespace fs = std::filesystem;
  for (const BackupManner manner : {kComponent, kBeside}) {
    ASSERT_EQ(mkfifo(name_.c_str(), 0600), 0);
    Backup backup(path_, manner);
    backup.Make();
    EXPECT_TRUE(fs::is_fifo(backup.kept())) << backup.kept();
    backup.Delete();
  }
  fs::create_symlink("nowhere", name_);
  Backup backup(path_, kBeside);
  backup.Make();
  EXPECT_TRUE(fs::is_symlink(backup.kept())) << backup.kept();
  EXPECT_EQ(ReadWholeFile(name_), kText);
}
#endif

TEST_F(BackupOfAFile, ThatIsGoneIsNotNeededBesideIt) {
  platform::RemoveFile(path_);
  Backup beside(path_, kBeside);
  beside.Make();
  EXPECT_FALSE(beside.is_made());
  Backup component(path_, kComponent);
  EXPECT_THROW(component.Make(), AutomationError);
  EXPECT_FALSE(component.is_made());
}

TEST_F(BackupOfAFile, CannotTakeThePlaceOfAFolder) {
  std::filesystem::create_directory(ToPath(name_));
  Backup backup(path_, kBeside);
  EXPECT_THROW(backup.Make(), AutomationError);
  EXPECT_FALSE(backup.is_made());
  EXPECT_TRUE(std::filesystem::is_directory(ToPath(name_)));
}

}  // namespace
}  // namespace quarvel::mps
