// The backup of a model's own file while it is saved, and what has its name already.
#include <filesystem>
#include <string>
#include <string_view>

#include <gtest/gtest.h>

#include "platform/files.h"
#include "platform/temporary_file.h"
#include "tests/mps/saving.h"

namespace quarvel::mps {
namespace {

using platform::FileExists;
using platform::MsgBoxResult;
using platform::ShownBox;

// Makes a folder the current one for a while.
class WorkingFolder {
 public:
  explicit WorkingFolder(const std::string& path) { std::filesystem::current_path(ToPath(path)); }
  ~WorkingFolder() { std::filesystem::current_path(before_); }
  WorkingFolder(const WorkingFolder&) = delete;
  WorkingFolder& operator=(const WorkingFolder&) = delete;

 private:
  std::filesystem::path before_ = std::filesystem::current_path();
};
TEST_F(Saving, KeepsABackupOfTheOwnFileOnlyWhileItRuns) {
  OwnFile(path);
  build.Row("NINEROWSX", 'L');
  std::string copy;
  desktop.on_box = [&](const ShownBox&) {
    copy = ReadWholeFile(backup);
    return MsgBoxResult::kOk;
  };
  EXPECT_EQ(model.SaveMPSFile(path), kSaved);
  EXPECT_EQ(copy, kOldText);
  EXPECT_FALSE(FileExists(backup));
  EXPECT_EQ(ReadWholeFile(path), kSmallModel);
}

// What a save that ended before its time leaves: a copy of a file that held this text.
void LeaveBackup(const TemporaryFolder& folder, const std::string& backup, std::string_view text) {
  const std::string file = folder.File("saved.mps");
  WriteWholeFile(file, text);
  ASSERT_TRUE(platform::CopyBeside(file, backup)->TakeName(backup));
  platform::RemoveFile(file);
}

TEST_F(Saving, ReplacesAnOldBackupAndDeletesTheNewOne) {
  OwnFile(path);
  LeaveBackup(folder, backup, "an older backup");
  EXPECT_EQ(model.SaveMPSFile(path), kSaved);
  EXPECT_FALSE(FileExists(backup));
  EXPECT_FALSE(FileExists(backup + ".1"));
  EXPECT_EQ(ReadWholeFile(path), kSmallModel);
}

TEST_F(Saving, KeepsWhatIsNoBackupAndHasItsName) {
  OwnFile(path);
  WriteWholeFile(backup, kSmallModel);
  EXPECT_EQ(model.SaveMPSFile(path), kSaved);
  EXPECT_EQ(desktop.boxes(), Boxes{});
  EXPECT_FALSE(FileExists(backup));
  EXPECT_EQ(ReadWholeFile(backup + ".1"), kSmallModel);
  EXPECT_EQ(ReadWholeFile(path), kSmallModel);
}

TEST_F(Saving, KeepsABackupThatWasWrittenTo) {
  OwnFile(path);
  LeaveBackup(folder, backup, "an older backup");
  WriteWholeFile(backup, "notes");
  EXPECT_EQ(model.SaveMPSFile(path), kSaved);
  EXPECT_FALSE(FileExists(backup));
  EXPECT_EQ(ReadWholeFile(backup + ".1"), "notes");
}

TEST_F(Saving, KeepsAFileOutsideOfAFolderWithAPoint) {
  MakeFolder(folder.File("a.folder"));
  WriteWholeFile(folder.File("a.bkp"), "a thesis");
  OwnFile(folder.File("a.folder/model"));
  EXPECT_EQ(model.SaveMPSFile(folder.File("a.folder/model")), kSaved);
  EXPECT_FALSE(FileExists(folder.File("a.bkp")));
  EXPECT_EQ(ReadWholeFile(folder.File("a.bkp.1")), "a thesis");
}

TEST_F(Saving, ToleratesABackupThatWentAwayMeanwhile) {
  OwnFile(path);
  build.Row("NINEROWSX", 'L');
  desktop.on_box = [&](const ShownBox&) {
    platform::RemoveFile(backup);
    return MsgBoxResult::kOk;
  };
  EXPECT_EQ(model.SaveMPSFile(path), kSaved);
  EXPECT_EQ(desktop.boxes().size(), 1u);
}

TEST_F(Saving, TouchesNoBackupFileWhenSavedElsewhere) {
  OwnFile(path);
  const std::string other = folder.File("other.mps");
  const std::string other_backup = folder.File("other.bkp");
  WriteWholeFile(other, "overwritten");
  WriteWholeFile(backup, "the user's");
  WriteWholeFile(other_backup, "the user's too");
  EXPECT_EQ(model.SaveMPSFile(other), kSaved);
  EXPECT_EQ(ReadWholeFile(path), kOldText);
  EXPECT_EQ(ReadWholeFile(backup), "the user's");
  EXPECT_EQ(ReadWholeFile(other_backup), "the user's too");
  EXPECT_EQ(model.FileLocation(), other);
}

TEST_F(Saving, ComparesThePathWithItsOwnAsText) {
  OwnFile(path);
  WriteWholeFile(backup, "the user's");
  const std::string same_file = folder.path() + "/./model.mps";
  EXPECT_EQ(model.SaveMPSFile(same_file), kSaved);
  EXPECT_EQ(ReadWholeFile(backup), "the user's");
  EXPECT_EQ(model.FileLocation(), same_file);
}

TEST_F(Saving, NamesTheBackupByTheLastPointOfThePath) {
  MakeFolder(folder.File("a.folder"));
  const struct {
    std::string own;
    std::string copy;
  } cases[] = {
      {"model.old.mps", "model.old.bkp"},
      {".mps", ".bkp"},
      {"a.folder/model", "a.bkp"},
  };
  for (const auto& [own, copy] : cases) {
    OwnFile(folder.File(own));
    BreakModel();
    EXPECT_EQ(model.SaveMPSFile(folder.File(own)), kNotSaved) << own;
    ASSERT_TRUE(FileExists(folder.File(copy))) << own;
    EXPECT_EQ(ReadWholeFile(folder.File(copy)), kOldText) << own;
    platform::RemoveFile(folder.File(copy));
  }
}

TEST_F(Saving, AppendsToAPathWithoutAPointForTheBackup) {
  // A relative path has no point of a folder above it.
  const WorkingFolder inside(folder.path());
  OwnFile("model");
  BreakModel();
  EXPECT_EQ(model.SaveMPSFile("model"), kNotSaved);
  EXPECT_EQ(ReadWholeFile("modelbkp"), kOldText);
}

TEST_F(Saving, BacksAFileOfABackupsNameUpUnderANumber) {
  OwnFile(backup);
  WriteWholeFile(backup + ".1", "the user's");
  build.Row("NINEROWSX", 'L');
  std::string copy;
  desktop.on_box = [&](const ShownBox&) {
    copy = ReadWholeFile(backup + ".2");
    return MsgBoxResult::kOk;
  };
  EXPECT_EQ(model.SaveMPSFile(backup), kSaved);
  EXPECT_EQ(ReadWholeFile(backup), kSmallModel);
  EXPECT_EQ(copy, kOldText);
  EXPECT_FALSE(FileExists(backup + ".2"));
  EXPECT_EQ(ReadWholeFile(backup + ".1"), "the user's");
}

TEST_F(Saving, CreatesAFileOfItsOwnBackupName) {
  build.Location(backup);
  EXPECT_EQ(model.SaveMPSFile(backup), kSaved);
  EXPECT_EQ(ReadWholeFile(backup), kSmallModel);
}

#ifndef _WIN32
TEST_F(Saving, BacksAFileThatIsALinkToABackupUpUnderANumber) {
  WriteWholeFile(backup, kOldText);
  std::filesystem::create_symlink(ToPath(backup), ToPath(path));
  build.Location(path);
  desktop.on_box = [&](const ShownBox&) {
    EXPECT_EQ(ReadWholeFile(backup + ".1"), kOldText);
    return MsgBoxResult::kOk;
  };
  build.Row("NINEROWSX", 'L');
  EXPECT_EQ(model.SaveMPSFile(path), kSaved);
  EXPECT_EQ(desktop.boxes().size(), 1u);
  EXPECT_EQ(ReadWholeFile(backup), kSmallModel);
  EXPECT_TRUE(std::filesystem::is_symlink(ToPath(path)));
  EXPECT_FALSE(FileExists(backup + ".1"));
}

TEST_F(Saving, ReplacesAPlantedLinkOfTheBackupsNameAndFollowsItNowhere) {
  OwnFile(path);
  const std::string victim = folder.File("victim");
  WriteWholeFile(victim, "the user's");
  std::filesystem::create_symlink(ToPath(victim), ToPath(backup));
  BreakModel();
  EXPECT_EQ(model.SaveMPSFile(path), kNotSaved);
  EXPECT_EQ(ReadWholeFile(victim), "the user's");
  EXPECT_FALSE(std::filesystem::is_symlink(ToPath(backup)));
  EXPECT_EQ(ReadWholeFile(backup), kOldText);
}

TEST_F(Saving, KeepsTheBackupOfAPrivateFilePrivate) {
  OwnFile(path);
  std::filesystem::permissions(ToPath(path), std::filesystem::perms(0640));
  BreakModel();
  EXPECT_EQ(model.SaveMPSFile(path), kNotSaved);
  EXPECT_EQ(std::filesystem::status(ToPath(backup)).permissions(), std::filesystem::perms(0640));
  EXPECT_EQ(std::filesystem::status(ToPath(path)).permissions(), std::filesystem::perms(0640));
}
#endif

// --- backups that are better than the file ---

TEST_F(Saving, KeepsAGoodBackupWhenTheFileIsEmpty) {
  model.MakeNewModel();
  OwnFile(path);
  EXPECT_EQ(model.SaveMPSFile(path), kSaved);
  EXPECT_EQ(model.SaveMPSFile(path), kSaved);
  EXPECT_EQ(model.SaveMPSFile(path), kSaved);
  EXPECT_EQ(ReadWholeFile(path), "");
  EXPECT_EQ(ReadWholeFile(backup), "");
  EXPECT_EQ(ReadWholeFile(backup + ".1"), kOldText);
  EXPECT_FALSE(FileExists(backup + ".2"));
}

TEST_F(Saving, KeepsABackupThatEndsAsAModelWhenTheFileDoesNot) {
  const struct {
    std::string_view own;
    std::string_view old_backup;
    bool kept;
  } cases[] = {
      {"ROWS\r\n N  CO", kSmallModel, true},
      {"ROWS\r\n N  CO", "ROWS\n  endata  \nrest", true},
      {"ROWS\r\n N  CO", "ROWS\r\n", false},
      {"ROWS\r\n N  ENDATA\r\n", kSmallModel, true},
      {"ROWS\r\nENDATA1\r\n", kSmallModel, true},
      {"NAME\nENDATA", kSmallModel, false},
      {kSmallModel, kSmallModel, false},
      {"", "", false},
  };
  for (const auto& [own, old_backup, kept] : cases) {
    WriteWholeFile(path, own);
    LeaveBackup(folder, backup, old_backup);
    build.Location(path);
    EXPECT_EQ(model.SaveMPSFile(path), kSaved) << own;
    EXPECT_FALSE(FileExists(backup)) << own;
    ASSERT_EQ(FileExists(backup + ".1"), kept) << own;
    if (!kept) continue;
    EXPECT_EQ(ReadWholeFile(backup + ".1"), old_backup);
    platform::RemoveFile(backup + ".1");
  }
}

TEST_F(Saving, DeletesNoBackupThatAnotherProcessMadeMeanwhile) {
  OwnFile(path);
  build.Row("NINEROWSX", 'L');
  desktop.on_box = [&](const ShownBox&) {
    WriteWholeFile(folder.File("other"), "another's backup");
    std::filesystem::rename(ToPath(folder.File("other")), ToPath(backup));
    return MsgBoxResult::kOk;
  };
  EXPECT_EQ(model.SaveMPSFile(path), kSaved);
  EXPECT_EQ(ReadWholeFile(backup), "another's backup");
}

}  // namespace
}  // namespace quarvel::mps
