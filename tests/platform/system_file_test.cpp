// Files go with the objects that hold them.
#include "platform/system_file.h"

#include <filesystem>
#include <string>
#include <system_error>
#include <utility>

#include <gtest/gtest.h>
#ifdef _WIN32
#include <windows.h>
#endif

#include "tests/support/test_paths.h"

namespace quarvel::platform {
namespace {

namespace fs = std::filesystem;

class SystemFileTest : public testing::Test {
 protected:
  SystemFileTest() { WriteWholeFile(path_, "text"); }

  // Whether this process holds the file open.
  bool IsOpen() const {
    const fs::path path(std::u8string(path_.begin(), path_.end()));
#ifdef _WIN32
    // Nobody may have it for himself while it is.
    const HANDLE handle =
        CreateFileW(path.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr);
    if (handle == INVALID_HANDLE_VALUE) return true;
    CloseHandle(handle);
#else
    std::error_code gone;
    for (const auto& entry : fs::directory_iterator("/proc/self/fd")) {
      if (fs::read_symlink(entry.path(), gone) == fs::canonical(path)) return true;
    }
#endif
    return false;
  }

  TemporaryFolder folder_;
  std::string path_ = folder_.File("file");
};

TEST_F(SystemFileTest, IsClosedWithItsObject) {
  {
    const SystemFile reading = SystemFile::OpenForReading(path_);
    EXPECT_TRUE(IsOpen());
  }
  EXPECT_FALSE(IsOpen());
}

TEST_F(SystemFileTest, IsClosedWhenItsObjectTakesAnother) {
  const std::string other = folder_.File("other");
  WriteWholeFile(other, "text");
  SystemFile file = SystemFile::OpenForReading(path_);
  EXPECT_TRUE(IsOpen());
  file = SystemFile::OpenForReading(other);
  EXPECT_FALSE(IsOpen());
  EXPECT_TRUE(file.IsOpen());
}

TEST_F(SystemFileTest, GoesOnInTheObjectItIsMovedTo) {
  {
    SystemFile file = SystemFile::OpenForReading(path_);
    const SystemFile other = std::move(file);
    EXPECT_TRUE(other.IsOpen());
    EXPECT_TRUE(IsOpen());
  }
  EXPECT_FALSE(IsOpen());
}

TEST_F(SystemFileTest, IsClosedOnceByClose) {
  SystemFile file = SystemFile::OpenForReading(path_);
  file.Close();
  EXPECT_FALSE(file.IsOpen());
  EXPECT_FALSE(IsOpen());
  EXPECT_NO_THROW(file.Close());
}

}  // namespace
}  // namespace quarvel::platform
