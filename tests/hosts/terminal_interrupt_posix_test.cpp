// Ctrl-C at a terminal while the program waits for what it reads.
#include <string>
#include <string_view>
#include <vector>

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include "tests/hosts/on_terminal_posix.h"
#include "tests/support/run_quarvel.h"

namespace quarvel {
namespace {

// Until a process waits for bytes.
bool WaitUntilAsleep(pid_t process) {
  constexpr int kMostTurns = 6000;
  int turns_asleep = 0;
  for (int turn = 0; turn < kMostTurns && turns_asleep < 10; ++turn) {
    const std::string status = ReadWholeFile("/proc/" + std::to_string(process) + "/stat");
    const bool is_asleep = status.find(") S ") != std::string::npos;
    turns_asleep = is_asleep ? turns_asleep + 1 : 0;
    usleep(10'000);
  }
  return turns_asleep == 10;
}

TEST(Terminal, StopsAtTheFirstCtrlCWhileAReadWaits) {
  const HostFolder folder;
  const std::string model = folder.Example("diet.mps");
  const std::string pipe = folder.Path("pipe");
  ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
  const std::vector<std::vector<std::string>> commands = {{"info", "-"},
                                                          {"check", "-"},
                                                          {"why", model, "-"},
                                                          {"info", pipe},
                                                          {"spy", pipe},
                                                          {"explain", "-", "X"},
                                                          {"convert", "-", folder.Path("o.mps")},
                                                          {"check", pipe},
                                                          {"info", pipe, "--dialect", "component"}};
  for (const std::vector<std::string>& words : commands) {
    OnTerminal terminal(words);
    if (!terminal.started()) GTEST_SKIP() << "no terminal to be had";
    ASSERT_TRUE(WaitUntilAsleep(terminal.process())) << words[0];
    terminal.Type("\x03");
    EXPECT_EQ(terminal.Finish(), 130) << words[0];
    EXPECT_EQ(terminal.shown(), "^Cquarvel: stopped\r\n") << words[0];
  }
}

// The writer may die of the same Ctrl-C.
TEST(Terminal, TellsNoProblemsOfAPipeThatACtrlCEnded) {
  const HostFolder folder;
  const std::string pipe = folder.Path("pipe");
  ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
  for (const char* const command : {"info", "check"}) {
    OnTerminal terminal({command, pipe});
    if (!terminal.started()) GTEST_SKIP() << "no terminal to be had";
    const int writer = open(pipe.c_str(), O_WRONLY);
    constexpr std::string_view kStart = "ROWS\n N C\n L R\n L S\nCOLUMNS\n";
    EXPECT_EQ(write(writer, kStart.data(), kStart.size()), static_cast<ssize_t>(kStart.size()));
    ASSERT_TRUE(WaitUntilAsleep(terminal.process()));
    terminal.Type("\x03");
    ASSERT_TRUE(terminal.WaitToSee("^C"));
    close(writer);
    EXPECT_EQ(terminal.Finish(), 130);
    EXPECT_EQ(terminal.shown(), "^Cquarvel: stopped\r\n");
  }
}

}  // namespace
}  // namespace quarvel
