// Files go with the objects that hold them.
#include "platform/system_file.h"

#include <filesystem>
#include <iterator>
#include <string>
#include <utility>

#include <gtest/gtest.h>
#ifdef _WIN32
#include <windows.h>
#endif

#include "tests/support/test_paths.h"

namespace quarvel::platform {
namespace {

// How many files, and whatever else counts as one, this process has open.
std::ptrdiff_t OpenFiles() {
#ifdef _WIN32
  DWORD count = 0;
  EXPECT_NE(GetProcessHandleCount(GetCurrentProcess(), &count), 0);
  return static_cast<std::ptrdiff_t>(count);
#else
  return std::distance(std::filesystem::directory_iterator("/proc/self/fd"),
                       std::filesystem::directory_iterator());
#endif
}

class SystemFileTest : public testing::Test {
 protected:
  SystemFileTest() { WriteWholeFile(path_, "text"); }

  TemporaryFolder folder_;
  std::string path_ = folder_.File("file");
};

TEST_F(SystemFileTest, IsClosedWithItsObject) {
  const std::ptrdiff_t before = OpenFiles();
  {
    const SystemFile reading = SystemFile::OpenForReading(path_);
    EXPECT_EQ(OpenFiles(), before + 1);
  }
  EXPECT_EQ(OpenFiles(), before);
}

TEST_F(SystemFileTest, IsClosedWhenItsObjectTakesAnother) {
  const std::ptrdiff_t before = OpenFiles();
  {
    SystemFile file = SystemFile::OpenForReading(path_);
    file = SystemFile::OpenForReading(path_);
    EXPECT_EQ(OpenFiles(), before + 1);
    SystemFile other = std::move(file);
    EXPECT_TRUE(other.IsOpen());
    EXPECT_EQ(OpenFiles(), before + 1);
  }
  EXPECT_EQ(OpenFiles(), before);
}

TEST_F(SystemFileTest, IsClosedOnceByClose) {
  const std::ptrdiff_t before = OpenFiles();
  SystemFile file = SystemFile::OpenForReading(path_);
  file.Close();
  EXPECT_FALSE(file.IsOpen());
  EXPECT_EQ(OpenFiles(), before);
  EXPECT_NO_THROW(file.Close());
}

}  // namespace
}  // namespace quarvel::platform
