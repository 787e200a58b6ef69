#include "platform/log_file.h"

#include <filesystem>
#include <string>

#include <gtest/gtest.h>

#include "tests/support/form_fixture.h"
#include "tests/support/test_paths.h"

namespace quarvel::platform {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view kHeading = "Log of";

fs::path Native(const std::string& utf8) {
  return fs::path(std::u8string(utf8.begin(), utf8.end()));
}

class LogFile : public testing::Test {
 protected:
  LogPlace Place(std::string_view replaces = {}) const { return {log_, model_, replaces}; }
  void WriteLog(const LogPlace& place) {
    OutputFile log = OpenLog(place);
    log.Write("Log of model\r\n");
    log.Close();
  }
  std::string RefusalOf(const LogPlace& place) {
    try {
      OpenLog(place);
    } catch (const AutomationError& error) {
      EXPECT_EQ(error.run_time_error(), RunTimeError::kPathFileAccessError);
      return error.description();
    }
    return "";
  }

  TemporaryFolder folder_;
  std::string log_ = folder_.File("model.log");
  std::string model_ = folder_.File("model.mps");
};

TEST_F(LogFile, IsMadeWhereNothingStands) {
  WriteLog(Place());
  EXPECT_EQ(ReadWholeFile(log_), "Log of model\r\n");
}

TEST_F(LogFile, ReplacesAnOlderOneFromItsStart) {
  WriteWholeFile(log_, std::string(1000, 'x'));
  WriteLog(Place());
  EXPECT_EQ(ReadWholeFile(log_), "Log of model\r\n");
}

TEST_F(LogFile, ReplacesOnlyLogsWhereItIsTold) {
  WriteLog(Place(kHeading));
  WriteLog(Place(kHeading));
  EXPECT_EQ(ReadWholeFile(log_), "Log of model\r\n");
  WriteWholeFile(log_, "");
  WriteLog(Place(kHeading));
  EXPECT_EQ(ReadWholeFile(log_), "Log of model\r\n");
}

TEST_F(LogFile, LeavesAloneWhatIsNoLogWhereItIsTold) {
  for (const char* text : {"Log o", "my own notes", "log of model"}) {
    WriteWholeFile(log_, text);
    EXPECT_EQ(RefusalOf(Place(kHeading)), kNoLog) << text;
    EXPECT_EQ(ReadWholeFile(log_), text);
  }
}

TEST_F(LogFile, LeavesAFileAloneThatHasItsNameToo) {
  const std::string notes = folder_.File("notes");
  WriteWholeFile(notes, "my own notes");
  fs::create_hard_link(Native(notes), Native(log_));
  WriteLog(Place());
  EXPECT_EQ(ReadWholeFile(notes), "my own notes");
  EXPECT_EQ(ReadWholeFile(log_), "Log of model\r\n");
}

TEST_F(LogFile, CannotBeAFolder) {
  fs::create_directory(Native(log_));
  EXPECT_EQ(FailureOf([this] { OpenLog(Place()); }), 75);
}

TEST_F(LogFile, NeedsItsFolder) {
  log_ = folder_.File("none") + "/model.log";
  EXPECT_EQ(FailureOf([this] { OpenLog(Place()); }), 76);
}

TEST_F(LogFile, NeedsAName) {
  log_.clear();
  EXPECT_EQ(FailureOf([this] { OpenLog(Place()); }), 75);
}

}  // namespace
}  // namespace quarvel::platform
