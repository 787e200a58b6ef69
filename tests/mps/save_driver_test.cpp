#include <filesystem>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "model/model_check.h"
#include "platform/file_dialog.h"
#include "platform/files.h"
#include "tests/mps/saving.h"

namespace quarvel::mps {
namespace {

using platform::FileDialog;
using platform::FileExists;
using platform::MsgBoxResult;
using platform::ShownBox;

TEST_F(Saving, WritesTheModelAndTakesThePathOver) {
  EXPECT_EQ(model.SaveMPSFile(path), kSaved);
  EXPECT_EQ(ReadWholeFile(path), kSmallModel);
  EXPECT_EQ(model.FileLocation(), path);
  EXPECT_EQ(desktop.transcript(), std::vector<std::string>());
}

TEST_F(Saving, LeavesTheModelAsItIs) {
  build.Row("EMPTY", 'L', 2).Column("UNUSED");
  model.SaveMPSFile(path);
  EXPECT_EQ(model.NumberOfRows(), 2);
  EXPECT_EQ(model.NumberOfColumns(), 2);
  EXPECT_EQ(model::CheckModelData(model.store()), "");
}

TEST_F(Saving, DoesNothingWithoutAPath) {
  EXPECT_EQ(model.SaveMPSFile(""), kNotSaved);
  EXPECT_EQ(desktop.transcript(), std::vector<std::string>());
  EXPECT_EQ(model.FileLocation(), "");
}

TEST_F(Saving, ReplacesALongerFileWhole) {
  WriteWholeFile(path, std::string(10000, 'x'));
  EXPECT_EQ(model.SaveMPSFile(path), kSaved);
  EXPECT_EQ(ReadWholeFile(path), kSmallModel);
}

TEST_F(Saving, WarnsOnceOfAFileThatIsNotStandard) {
  build.Row("NINEROWSX", 'L').Column("NINECOLSX").Element("NINECOLSX", "NINEROWSX", 1);
  EXPECT_EQ(model.SaveMPSFile(path), kSaved);
  EXPECT_EQ(desktop.boxes(), Box(kNotStandard));
  EXPECT_EQ(model.FileLocation(), path);
}

TEST_F(Saving, WarnsAfterTheFileIsCompleteAndClosed) {
  build.Row("NINEROWSX", 'L');
  std::string seen;
  std::string location_then;
  desktop.on_box = [&](const ShownBox&) {
    seen = ReadWholeFile(path);
    platform::RemoveFile(path);
    location_then = model.FileLocation();
    return MsgBoxResult::kOk;
  };
  EXPECT_EQ(model.SaveMPSFile(path), kSaved);
  EXPECT_EQ(seen, kSmallModel);
  EXPECT_EQ(location_then, "");
}

TEST_F(Saving, SurvivesAHostThatChangesThePathAndTheModelFromTheBox) {
  build.Row("NINEROWSX", 'L');
  std::string location = path;
  desktop.on_box = [&](const ShownBox&) {
    location = "elsewhere";
    model.MakeNewModel();
    return MsgBoxResult::kOk;
  };
  EXPECT_EQ(model.SaveMPSFile(location), kSaved);
  EXPECT_EQ(ReadWholeFile(path), kSmallModel);
  EXPECT_EQ(model.FileLocation(), path);
}

// --- no elements ---

TEST_F(Saving, LeavesAnEmptyFileForAModelWithoutElements) {
  model.MakeNewModel();
  WriteWholeFile(path, kOldText);
  EXPECT_EQ(model.SaveMPSFile(path), kSaved);
  EXPECT_EQ(desktop.boxes(), Box("No elements in the model.  Aborting save."));
  EXPECT_EQ(ReadWholeFile(path), "");
  EXPECT_EQ(model.FileLocation(), "");
}

TEST_F(Saving, HasClosedTheEmptyFileWhenItSaysSo) {
  model.MakeNewModel();
  desktop.on_box = [&](const ShownBox&) {
    platform::RemoveFile(path);
    return MsgBoxResult::kOk;
  };
  EXPECT_EQ(model.SaveMPSFile(path), kSaved);
  EXPECT_FALSE(FileExists(path));
}

TEST_F(Saving, KeepsTheBackupOfAFileEmptiedForAModelWithoutElements) {
  model.MakeNewModel();
  OwnFile(path);
  EXPECT_EQ(model.SaveMPSFile(path), kSaved);
  EXPECT_EQ(ReadWholeFile(path), "");
  EXPECT_EQ(ReadWholeFile(backup), kOldText);
  EXPECT_EQ(model.FileLocation(), path);
}

// --- SaveAsMPSFile ---

TEST_F(Saving, AsksForAPathWithAnEmptyNameEachTime) {
  desktop.files = {path, "", folder.File("other.mps")};
  EXPECT_EQ(model.SaveAsMPSFile(), kSaved);
  EXPECT_EQ(model.SaveAsMPSFile(), kCancelled);
  EXPECT_EQ(model.SaveAsMPSFile(), kSaved);
  EXPECT_EQ(model.FileLocation(), folder.File("other.mps"));
  ASSERT_EQ(desktop.file_dialogs().size(), 3u);
  for (const FileDialog& dialog : desktop.file_dialogs()) {
    EXPECT_EQ(dialog.kind, FileDialog::Kind::kSave);
    EXPECT_EQ(dialog.title, "Save As...");
    EXPECT_EQ(dialog.filter, "MPS files (*.mps)|*.mps|all files (*.*)|*.*");
    EXPECT_EQ(dialog.default_extension, ".mps");
    EXPECT_EQ(dialog.file_name, "");
  }
}

TEST_F(Saving, AsksWhereTheFileIsOrWasLast) {
  const TemporaryFolder elsewhere;
  const std::string other = elsewhere.File("other.mps");
  desktop.files = {path, other, other};
  model.SaveAsMPSFile();
  model.SaveAsMPSFile();
  model.MakeNewModel();
  model.SaveAsMPSFile();
  ASSERT_EQ(desktop.file_dialogs().size(), 3u);
  EXPECT_EQ(desktop.file_dialogs()[0].folder, "");
  EXPECT_EQ(desktop.file_dialogs()[1].folder, folder.path());
  EXPECT_EQ(desktop.file_dialogs()[2].folder, elsewhere.path());
}

TEST_F(Saving, OnlyBeepsWhenTheDialogIsCancelled) {
  OwnFile(path);
  desktop.files = {""};
  EXPECT_EQ(model.SaveAsMPSFile(), kCancelled);
  EXPECT_EQ(desktop.beeps(), 1);
  EXPECT_EQ(desktop.boxes(), Boxes());
  EXPECT_EQ(ReadWholeFile(path), kOldText);
  EXPECT_EQ(model.FileLocation(), path);
}

TEST_F(Saving, AsAnotherFilePassesAFailureOn) {
  desktop.files = {folder.File("missing/model.mps")};
  EXPECT_EQ(model.SaveAsMPSFile(), kNotSaved);
  EXPECT_EQ(desktop.boxes(), Box(RunTimeError::kPathNotFound));
  EXPECT_EQ(desktop.beeps(), 0);
}

TEST_F(Saving, AsItsOwnFileKeepsABackupMeanwhile) {
  OwnFile(path);
  BreakModel();
  desktop.files = {path};
  EXPECT_EQ(model.SaveAsMPSFile(), kNotSaved);
  EXPECT_EQ(ReadWholeFile(path), kOldText);
  EXPECT_EQ(ReadWholeFile(backup), kOldText);
}

}  // namespace
}  // namespace quarvel::mps
