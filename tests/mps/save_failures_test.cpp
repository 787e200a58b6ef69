// SaveMPSFile when it cannot do its work: what the user hears and what happens to the files.

#include <filesystem>
#include <new>
#include <string>

#include <gtest/gtest.h>

#include "platform/files.h"
#include "tests/mps/saving.h"

namespace quarvel::mps {
namespace {

using platform::FileExists;
using platform::MsgBoxResult;
using platform::ShownBox;

TEST_F(Saving, RestoresTheOwnFileAndKeepsItsBackupWhenItFails) {
  OwnFile(path);
  BreakModel();
  EXPECT_EQ(model.SaveMPSFile(path), kNotSaved);
  EXPECT_EQ(desktop.boxes(), Box(RunTimeError::kSubscriptOutOfRange));
  EXPECT_EQ(ReadWholeFile(path), kOldText);
  EXPECT_EQ(ReadWholeFile(backup), kOldText);
  EXPECT_EQ(model.FileLocation(), path);
}

TEST_F(Saving, HasRestoredAndClosedTheFileWhenItReportsTheFailure) {
  OwnFile(path);
  BreakModel();
  std::string seen;
  desktop.on_box = [&](const ShownBox&) {
    seen = ReadWholeFile(path);
    platform::RemoveFile(path);
    return MsgBoxResult::kOk;
  };
  EXPECT_EQ(model.SaveMPSFile(path), kNotSaved);
  EXPECT_EQ(seen, kOldText);
}

TEST_F(Saving, RestoresFromNoBackupOfAnotherSave) {
  OwnFile(path);
  BreakModel();
  const std::string other = folder.File("other.mps");
  WriteWholeFile(folder.File("other.bkp"), "the user's");
  EXPECT_EQ(model.SaveMPSFile(other), kNotSaved);
  EXPECT_EQ(desktop.boxes(), Box(RunTimeError::kSubscriptOutOfRange));
  EXPECT_FALSE(FileExists(other));
  EXPECT_EQ(ReadWholeFile(folder.File("other.bkp")), "the user's");
  EXPECT_EQ(model.FileLocation(), path);
}

TEST_F(Saving, LeavesTheOwnFileAloneWhenItsBackupCannotBeMade) {
  OwnFile(path);
  MakeFolder(backup);
  EXPECT_EQ(model.SaveMPSFile(path), kNotSaved);
  EXPECT_EQ(desktop.boxes(), Box(RunTimeError::kPathFileAccessError));
  EXPECT_EQ(ReadWholeFile(path), kOldText);
  EXPECT_TRUE(std::filesystem::is_directory(ToPath(backup)));
}

TEST_F(Saving, FailsWhenTheOwnFileIsGone) {
  build.Location(path);
  EXPECT_EQ(model.SaveMPSFile(path), kNotSaved);
  EXPECT_EQ(desktop.boxes(), Box(RunTimeError::kFileNotFound));
  EXPECT_FALSE(FileExists(path));
}

TEST_F(Saving, SaysWhyTheFileCannotBeCreated) {
  MakeFolder(folder.File("folder.mps"));
  const struct {
    const char* name;
    RunTimeError error;
  } cases[] = {
      {"missing/model.mps", RunTimeError::kPathNotFound},
      {"folder.mps", RunTimeError::kPathFileAccessError},
  };
  for (const auto& [name, error] : cases) {
    desktop.Clear();
    EXPECT_EQ(model.SaveMPSFile(folder.File(name)), kNotSaved) << name;
    EXPECT_EQ(desktop.boxes(), Box(error)) << name;
    EXPECT_EQ(model.FileLocation(), "") << name;
  }
}

#ifndef _WIN32
TEST_F(Saving, HearsOfAFullDiskWhenTheFileIsClosed) {
  build.Row("NINEROWSX", 'L');
  EXPECT_EQ(model.SaveMPSFile("/dev/full"), kNotSaved);
  EXPECT_EQ(desktop.boxes(), Box(RunTimeError::kDiskFull));
  EXPECT_EQ(model.FileLocation(), "");
}
#endif

TEST_F(Saving, RestoresTheOwnFileWhenAHostFailsInTheBox) {
  OwnFile(path);
  build.Row("NINEROWSX", 'L');
  desktop.on_box = [&](const ShownBox& box) {
    if (box.text == kNotStandard) RaiseRunTimeError(RunTimeError::kDeviceIoError);
    return MsgBoxResult::kOk;
  };
  EXPECT_EQ(model.SaveMPSFile(path), kNotSaved);
  ASSERT_EQ(desktop.boxes().size(), 2u);
  EXPECT_EQ(desktop.boxes()[1].text, Describe(RunTimeError::kDeviceIoError));
  EXPECT_EQ(ReadWholeFile(path), kOldText);
}

TEST_F(Saving, LeavesAnotherFileAsItWasWhenItFails) {
  const std::string other = folder.File("other.mps");
  WriteWholeFile(other, kOldText);
  BreakModel();
  EXPECT_EQ(model.SaveMPSFile(other), kNotSaved);
  EXPECT_EQ(ReadWholeFile(other), kOldText);
}

TEST_F(Saving, SaysWhereAnOlderBackupIsKeptWhenItFails) {
  WriteWholeFile(path, "");
  WriteWholeFile(backup, kSmallModel);
  build.Location(path);
  BreakModel();
  EXPECT_EQ(model.SaveMPSFile(path), kNotSaved);
  EXPECT_EQ(desktop.boxes(), Box(std::string(Describe(RunTimeError::kSubscriptOutOfRange)) +
                                 "\r\nAn older backup is kept as " + backup + ".1"));
  EXPECT_EQ(ReadWholeFile(backup + ".1"), kSmallModel);
}

TEST_F(Saving, LeavesWhatAnotherProcessSavedMeanwhile) {
  OwnFile(path);
  build.Row("NINEROWSX", 'L');
  desktop.on_box = [&](const ShownBox& box) {
    if (box.text == kNotStandard) {
      WriteWholeFile(folder.File("other"), "another's model");
      std::filesystem::rename(ToPath(folder.File("other")), ToPath(path));
      RaiseRunTimeError(RunTimeError::kDeviceIoError);
    }
    return MsgBoxResult::kOk;
  };
  EXPECT_EQ(model.SaveMPSFile(path), kNotSaved);
  ASSERT_EQ(desktop.boxes().size(), 2u);
  EXPECT_EQ(desktop.boxes()[1].text,
            std::string(Describe(RunTimeError::kDeviceIoError)) +
                "\r\nThe file has been saved by another program meanwhile and is left as it is." +
                "\r\nWhat it held before is in " + backup);
  EXPECT_EQ(ReadWholeFile(path), "another's model");
}

TEST_F(Saving, SaysWhenItCannotRestoreTheFile) {
  OwnFile(path);
  build.Row("NINEROWSX", 'L');
  desktop.on_box = [&](const ShownBox& box) {
    if (box.text == kNotStandard) {
      platform::RemoveFile(backup);
      RaiseRunTimeError(RunTimeError::kDeviceIoError);
    }
    return MsgBoxResult::kOk;
  };
  EXPECT_EQ(model.SaveMPSFile(path), kNotSaved);
  ASSERT_EQ(desktop.boxes().size(), 2u);
  EXPECT_EQ(desktop.boxes()[1].text, std::string(Describe(RunTimeError::kDeviceIoError)) +
                                         "\r\nWhat the file held before could not be restored."
                                         "\r\nThe file has the new contents, which a loss of "
                                         "power may undo.");
  EXPECT_EQ(ReadWholeFile(path), kSmallModel);
}

TEST_F(Saving, ReportsMemoryThatRanOut) {
  OwnFile(path);
  build.Row("NINEROWSX", 'L');
  desktop.on_box = [&](const ShownBox& box) {
    if (box.text == kNotStandard) throw std::bad_alloc();
    return MsgBoxResult::kOk;
  };
  EXPECT_EQ(model.SaveMPSFile(path), kNotSaved);
  ASSERT_EQ(desktop.boxes().size(), 2u);
  EXPECT_EQ(desktop.boxes()[1].text, Describe(RunTimeError::kOutOfMemory));
  EXPECT_EQ(ReadWholeFile(path), kOldText);
}

}  // namespace
}  // namespace quarvel::mps
