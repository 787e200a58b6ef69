// Devices, pipes, rights and memory, as only a POSIX system lets a test set them up.
#ifndef _WIN32

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include "mps/frm_progress.h"
#include "platform/files.h"
#include "tests/mps/read_helpers.h"
#include "tests/support/sanitizers.h"
#include "tests/support/shown_form.h"

namespace quarvel::mps {
namespace {

using Texts = std::vector<std::string>;

// What `work` gives in a process of its own, so that its memory and its rights are its own as well.
int InOtherProcess(const std::function<int()>& work) {
  const pid_t child = fork();
  if (child == 0) _exit(work());
  int status = 0;
  EXPECT_EQ(waitpid(child, &status, 0), child);
  return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

// Megabytes at most, ever.
long PeakMemory() {
  rusage usage = {};
  getrusage(RUSAGE_SELF, &usage);
#ifdef __APPLE__
  return usage.ru_maxrss >> 20;
#else
  return usage.ru_maxrss >> 10;
#endif
}

TEST(BadInputPosix, OfOneHugeLineTakesLittleMemory) {
  ReadSession session;
  const std::string path = session.folder.File("huge.mps");
  {
    platform::OutputFile file(path);
    file.Write("ROWS\n L A\n");
    for (int i = 0; i < 40; ++i) file.Write(std::string(std::size_t{1} << 20, 'x'));
    file.Close();
  }
  const int growth = InOtherProcess([&] {
    const long before = PeakMemory();
    session.ReadFile(path);
    return static_cast<int>(PeakMemory() - before);
  });
  EXPECT_LT(growth, kAddressSanitizer ? 256 : 16);
  EXPECT_GE(growth, 0);
  session.ReadFile(path);
  EXPECT_EQ(session.Problems().at(0),
            Question("MPS file read error: a line is longer than 1048576 bytes (line 3)"));
  EXPECT_EQ(session.model.NumberOfRows(), 1);
}

TEST(BadInputPosix, OfAnEmptyDeviceIsAnEmptyFile) {
  ReadSession session;
  EXPECT_EQ(session.ReadFile("/dev/null"), -1);
  EXPECT_EQ(session.Problems(), (Texts{Question("Quarvel.dll error: no rows"),
                                       Question("Quarvel.dll error: no columns"),
                                       Question("Quarvel.dll error: no elements")}));
}

TEST(BadInputPosix, WithoutTheRightToReadIsAskedAboutOnce) {
  ReadSession session;
  const std::string path = session.folder.File("secret.mps");
  WriteWholeFile(path, "ROWS\n L A\n");
  ASSERT_EQ(chmod(path.c_str(), 0), 0);
  const int faults = InOtherProcess([&] {
    constexpr uid_t kNobody = 65534;
    if (geteuid() == 0 && setuid(kNobody) != 0) return 1;
    session.otherwise = kNo;
    if (session.ReadFile(path) != 0) return 2;
    return session.Problems() == Texts{Question("Permission denied")} ? 0 : 3;
  });
  EXPECT_EQ(faults, 0);
}

#ifdef __linux__
TEST(BadInputPosix, ThatFailsWhileItIsReadIsAskedAboutOnceAndEndsThere) {
  // Opens like a file, but holds nothing at its start.
  ReadSession session;
  EXPECT_EQ(session.ReadFile("/proc/self/mem"), -1);
  EXPECT_EQ(session.Problems().at(0), Question("Device I/O error"));
  EXPECT_EQ(session.Problems().size(), 4u);
}
#endif

// A pipe has no length, so there is no percentage to tell.
TEST(BadInputPosix, FromAPipeIsReadWithProgressOfNothing) {
  ReadSession session;
  const std::string path = session.folder.File("pipe");
  ASSERT_EQ(mkfifo(path.c_str(), 0600), 0);
  std::string text = "ROWS\n L A\nCOLUMNS\n";
  for (int i = 0; i < 500; ++i) text += " X" + std::to_string(i) + " A 1\n";
  const pid_t writer = fork();
  if (writer == 0) {
    const int file = open(path.c_str(), O_WRONLY);
    // In small pieces, as another program would give them.
    for (std::size_t from = 0; from < text.size(); from += 700) {
      const std::string piece = text.substr(from, 700);
      if (write(file, piece.data(), piece.size()) < 0) _exit(1);
    }
    _exit(0);
  }
  Texts captions;
  session.desktop.on_events = [&](std::int64_t) {
    captions.push_back(ShownForm<frmProgress>(session.desktop).caption());
    EXPECT_EQ(ShownForm<frmProgress>(session.desktop).bar.max(), 0);
  };
  EXPECT_EQ(session.ReadFile(path), -1);
  int status = -1;
  EXPECT_EQ(waitpid(writer, &status, 0), writer);
  EXPECT_EQ(status, 0);
  EXPECT_EQ(session.Problems(), Texts{});
  EXPECT_EQ(session.model.NumberOfColumns(), 500);
  EXPECT_EQ(captions, Texts(5, "Progress:  Reading MPS File (0.%)"));
}

}  // namespace
}  // namespace quarvel::mps

#endif  // _WIN32
