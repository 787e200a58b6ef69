#include "mps/left_by_saves.h"

#include <filesystem>

#include <gtest/gtest.h>

#include "mps/backup.h"
#include "platform/files.h"
#include "platform/temporary_file.h"
#include "tests/support/test_paths.h"

namespace quarvel::mps {
namespace {

using Names = std::vector<std::string>;

class LeftBySaves : public ::testing::Test {
 protected:
  LeftBySaves() { WriteWholeFile(path_, "ROWS\n N C"); }
  std::string Temporary(int number) const {
    return folder_.File(".model.mps.quarvel-" + std::to_string(number) + "~");
  }

  TemporaryFolder folder_;
  const std::string path_ = folder_.File("model.mps");
  const std::string backup_ = folder_.File("model.bkp");
};

TEST_F(LeftBySaves, AreWholeBackupsAndTemporaryFiles) {
  EXPECT_EQ(WholeCopiesBeside(path_), Names());
  WriteWholeFile(backup_, "ROWS\nENDATA\n");
  WriteWholeFile(Temporary(3), "ROWS\nendata\n");
  EXPECT_EQ(WholeCopiesBeside(path_), (Names{Temporary(3), backup_}));
  WriteWholeFile(backup_, "ROWS\n");
  EXPECT_EQ(WholeCopiesBeside(path_), Names{Temporary(3)});
}

TEST_F(LeftBySaves, AreNoOtherFiles) {
  WriteWholeFile(folder_.File("model.mps.quarvel-0~"), "ENDATA\n");
  WriteWholeFile(folder_.File(".model.mps.quarvel-~"), "ENDATA\n");
  WriteWholeFile(folder_.File(".other.mps.quarvel-0~"), "ENDATA\n");
  std::filesystem::create_directory(ToPath(backup_));
  EXPECT_EQ(WholeCopiesBeside(path_), Names());
  const std::string own = folder_.File("own.bkp");
  WriteWholeFile(own, "ENDATA\n");
  EXPECT_EQ(WholeCopiesBeside(own), Names());
}

TEST_F(LeftBySaves, AreFoundWhereSavesMakeThem) {
  WriteWholeFile(path_, "ROWS\nENDATA\n");
  Backup(path_, BackupManner::kBeside).Make();
  {
    platform::TemporaryFile temporary(path_, path_, nullptr);
    temporary.output().Write("ENDATA\n");
    temporary.output().Flush();
    EXPECT_EQ(WholeCopiesBeside(path_), Names{backup_}) << "the save goes on";
    temporary.Keep();
  }
  EXPECT_EQ(WholeCopiesBeside(path_), (Names{Temporary(0), backup_}));
}

#ifndef _WIN32
TEST_F(LeftBySaves, StandBesideWhatALinkLeadsTo) {
  const std::string link = folder_.File("link.mps");
  std::filesystem::create_symlink("model.mps", link);
  WriteWholeFile(Temporary(0), "ENDATA\n");
  EXPECT_EQ(WholeCopiesBeside(link), Names{Temporary(0)});
}
#endif

}  // namespace
}  // namespace quarvel::mps
