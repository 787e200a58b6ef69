// The program on a terminal of its own: what it asks there, with names that try to steer it.
#include <algorithm>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <iostream>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <fcntl.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include "platform/console/console_system.h"
#include "tests/hosts/on_terminal_posix.h"
#include "tests/support/run_quarvel.h"
#include "text/cell_width.h"

namespace quarvel {
namespace {

TEST(Terminal, AsksAboutARowInItsOwnWords) {
  const HostFolder folder;
  OnTerminal terminal({"simplify", folder.Write("a.mps", kConflictModel), folder.Path("b.mps")});
  if (!terminal.started()) GTEST_SKIP() << "no terminal to be had";
  ASSERT_TRUE(terminal.WaitFor("[yes/no/cancel/all/quit] ")) << terminal.shown();
  EXPECT_NE(
      terminal.shown().find("A row of " + folder.Path("a.mps") +
                            " against its column's bounds\r\nThe equality R2 violates variable "
                            "bounds."),
      std::string::npos)
      << terminal.shown();
  EXPECT_EQ(terminal.shown().find("lick"), std::string::npos) << terminal.shown();
  terminal.Type("re\n");
  ASSERT_TRUE(terminal.WaitToSee("Answer yes, no, cancel, all or quit."));
  terminal.Type("reset\n");
  EXPECT_EQ(terminal.Finish(), 0) << terminal.shown();
  EXPECT_NE(RunQuarvel({"column", folder.Path("b.mps"), "X"}).out.find("Lower     4\n"),
            std::string::npos);
}

TEST(Terminal, IsNotSteeredByTheNamesInItsQuestions) {
  const HostFolder folder;
  const std::string model = folder.Write("a.mps",
                                         "ROWS\n L R1\nCOLUMNS\n X R1 1\n X \x1b]0;T\a\xC2\x9B"
                                         "J\xE2\x80\xAE 0\nENDATA\n");
  OnTerminal terminal({"info", model});
  if (!terminal.started()) GTEST_SKIP() << "no terminal to be had";
  ASSERT_TRUE(terminal.WaitFor("[yes/no/all/quit] ")) << terminal.shown();
  terminal.Type("n\n");
  EXPECT_EQ(terminal.Finish(), 1) << terminal.shown();
  const std::string& shown = terminal.shown();
  EXPECT_NE(shown.find("no row of this name: \\x1B]0;T\\x07\\u009BJ\\u202E\r\n"), std::string::npos)
      << shown;
  for (const char* const raw : {"\x1b", "\a", "\xC2\x9B", "\xE2\x80\xAE"}) {
    EXPECT_EQ(shown.find(raw), std::string::npos) << shown;
  }
}

constexpr std::string_view kTwoMistakes =
    "ROWS\n N C\n L R1\nCOLUMNS\n X C 1 R1 1,5\n Y C 1 R1 2,5\nENDATA\n";

TEST(Terminal, ShowsTheLineOfAProblemAndTakesAllForAnAnswer) {
  const HostFolder folder;
  OnTerminal terminal({"info", folder.Write("a.mps", kTwoMistakes)});
  if (!terminal.started()) GTEST_SKIP() << "no terminal to be had";
  ASSERT_TRUE(terminal.WaitFor("[yes/no/all/quit] ")) << terminal.shown();
  EXPECT_NE(terminal.shown().find("A problem in " + folder.Path("a.mps") +
                                  "\r\nline 5: not a number: 1,5\r\n     X C 1 R1 1,5\r\n"
                                  "              ^^^\r\nGo on reading the file?\r\n"),
            std::string::npos)
      << terminal.shown();
  terminal.Type("al\n");
  EXPECT_EQ(terminal.Finish(), 0) << terminal.shown();
  EXPECT_NE(
      terminal.shown().find("quarvel: " + folder.Path("a.mps") + ": line 6: not a number: 2,5\r\n"),
      std::string::npos)
      << terminal.shown();
}

TEST(Terminal, EndsTheCommandWhereTheUserQuits) {
  const HostFolder folder;
  const std::string model = folder.Write("a.mps", kTwoMistakes);
  for (const char* const typed : {"q\n", "\x04"}) {
    OnTerminal terminal({"convert", model, folder.Path("b.mps")});
    if (!terminal.started()) GTEST_SKIP() << "no terminal to be had";
    ASSERT_TRUE(terminal.WaitFor("[yes/no/all/quit] ")) << terminal.shown();
    terminal.Type(typed);
    EXPECT_EQ(terminal.Finish(), 1) << terminal.shown();
    EXPECT_TRUE(terminal.shown().ends_with("quarvel: stopped at a question\r\n"))
        << terminal.shown();
    EXPECT_FALSE(folder.Has("b.mps"));
  }
}

TEST(Terminal, AsksForDefaultBoundsOnlyWhereAskedTo) {
  const HostFolder folder;
  const std::string model = folder.Write("a.mps", kSmallModel);
  const std::vector<std::string> listed = {"columns",    model,     "--columns",
                                           "name,lower", "--color", "never"};
  for (const char* const dialect : {"wide", "component"}) {
    std::vector<std::string> words = listed;
    words.insert(words.end(), {"--dialect", dialect});
    OnTerminal unasked(words);
    if (!unasked.started()) GTEST_SKIP() << "no terminal to be had";
    EXPECT_EQ(unasked.Finish(), 0);
    EXPECT_EQ(unasked.shown(), "Name  Lower\r\nX         0\r\nY         0\r\n") << dialect;
  }
  std::vector<std::string> words = listed;
  words.emplace_back("--ask");
  OnTerminal asked(words);
  ASSERT_TRUE(asked.WaitFor("or Enter for the marked: ")) << asked.shown();
  asked.Type("2\n");
  ASSERT_TRUE(asked.WaitFor("[yes/no/quit] ")) << asked.shown();
  asked.Type("n\n");
  EXPECT_EQ(asked.Finish(), 0) << asked.shown();
  EXPECT_TRUE(asked.shown().ends_with("X      -inf\r\nY      -inf\r\n")) << asked.shown();
}

// Sets a variable of the environment while it lives.
class Variable {
 public:
  Variable(const char* name, const char* value) : name_(name) {
    const char* const before = getenv(name);
    if (before != nullptr) before_ = before;
    setenv(name, value, 1);
  }
  ~Variable() {
    if (before_) {
      setenv(name_, before_->c_str(), 1);
    } else {
      unsetenv(name_);
    }
  }
  Variable(const Variable&) = delete;
  Variable& operator=(const Variable&) = delete;

 private:
  const char* name_;
  std::optional<std::string> before_;
};

std::string ShownOn(unsigned short width, const std::vector<std::string>& words) {
  OnTerminal terminal(words, width);
  EXPECT_TRUE(terminal.started());
  EXPECT_EQ(terminal.Finish(), 0);
  std::string shown = terminal.shown();
  std::erase(shown, '\r');
  return shown;
}

TEST(Terminal, HasListsAsWideAsItIs) {
  const HostFolder folder;
  const std::vector<std::string> words = {"rows", folder.Example("diet.mps"), "--equations"};
  const Variable term("TERM", "xterm");
  const Variable no_color("NO_COLOR", "");
  const Variable columns("COLUMNS", "");
  const auto expected = [&words](std::size_t width, bool colors) {
    return RunQuarvelOn({.is_terminal = true, .width = width, .takes_colors = colors}, words).out;
  };
  EXPECT_EQ(ShownOn(60, words), expected(60, true));
  EXPECT_EQ(ShownOn(120, words), expected(120, true));
  EXPECT_EQ(ShownOn(0, words), expected(0, true));
  {
    const Variable given("COLUMNS", "70");
    EXPECT_EQ(ShownOn(120, words), expected(70, true));
  }
  {
    const Variable plain("NO_COLOR", "1");
    EXPECT_EQ(ShownOn(60, words), expected(60, false));
  }
  const Variable dumb("TERM", "dumb");
  EXPECT_EQ(ShownOn(60, words), expected(60, false));
}

// What stands on the screen in the end, without empty lines at its end.
std::string ScreenAfter(std::string_view shown) {
  std::vector<std::vector<std::string>> lines(1);
  std::size_t column = 0;
  for (const char c : shown) {
    std::vector<std::string>& line = lines.back();
    if (c == '\r') {
      column = 0;
    } else if (c == '\n') {
      lines.emplace_back();
    } else if ((static_cast<unsigned char>(c) & 0xC0U) == 0x80U && column > 0) {
      line[column - 1] += c;  // the rest of a character
    } else {
      line.resize(std::max(line.size(), column + 1), " ");
      line[column++] = c;
    }
  }
  std::string screen;
  for (const std::vector<std::string>& line : lines) {
    for (const std::string& cell : line) screen += cell;
    screen.erase(screen.find_last_not_of(' ') + 1);
    screen += '\n';
  }
  return screen.erase(screen.find_last_not_of('\n') + 1);
}

// A pipe with a name, which somebody is slow at.
class SlowPipe {
 public:
  SlowPipe(const HostFolder& folder, const char* name) : path_(folder.Path(name)) {
    EXPECT_EQ(mkfifo(path_.c_str(), 0600), 0);
  }
  ~SlowPipe() {
    if (file_ >= 0) close(file_);
  }
  SlowPipe(const SlowPipe&) = delete;
  SlowPipe& operator=(const SlowPipe&) = delete;

  const std::string& path() const { return path_; }
  void Open(int flags) { file_ = open(path_.c_str(), flags); }
  void Write(std::string_view text) {
    EXPECT_EQ(write(file_, text.data(), text.size()), static_cast<ssize_t>(text.size()));
  }
  // Until nobody reads it any more.
  void WriteToWhoMayBeGone(std::string_view text) {
    const auto before = std::signal(SIGPIPE, SIG_IGN);
    while (!text.empty()) {
      const ssize_t count = write(file_, text.data(), text.size());
      if (count <= 0) break;
      text.remove_prefix(static_cast<std::size_t>(count));
    }
    std::signal(SIGPIPE, before);
  }
  void Close() { close(std::exchange(file_, -1)); }
  std::string ReadAll() {
    std::string all;
    char buffer[65536];
    for (ssize_t count = 1; count > 0;) {
      count = read(file_, buffer, sizeof(buffer));
      if (count > 0) all.append(buffer, static_cast<std::size_t>(count));
    }
    return all;
  }

 private:
  std::string path_;
  int file_ = -1;
};

constexpr useconds_t kLongerThanTheDelay = 700'000;

std::string RowLines(int from, int to) {
  std::string lines;
  for (int i = from; i < to; ++i) lines += " L R" + std::to_string(i) + "\n";
  return lines;
}

TEST(Terminal, ShowsTheProgressOfASlowReadAndNothingOfItInTheEnd) {
  const HostFolder folder;
  SlowPipe pipe(folder, "slow.mps");
  OnTerminal terminal({"info", pipe.path(), folder.Example("diet.mps"), "--color=never"});
  ASSERT_TRUE(terminal.started());
  pipe.Open(O_WRONLY);
  pipe.Write("ROWS\n N C\n" + RowLines(0, 5000));
  usleep(kLongerThanTheDelay);
  pipe.Write(RowLines(5000, 100'000));
  ASSERT_TRUE(terminal.WaitToSee("B/s)")) << terminal.shown();
  EXPECT_NE(terminal.shown().find("\rReading " + pipe.path().substr(0, 20)), std::string::npos);
  pipe.Write("COLUMNS\n X C 1\nENDATA\n");
  pipe.Close();
  EXPECT_EQ(terminal.Finish(), 0);
  const std::string screen = ScreenAfter(terminal.shown());
  EXPECT_EQ(screen.find("Reading"), std::string::npos) << screen;
  EXPECT_EQ(screen.find('['), std::string::npos) << screen;
  EXPECT_TRUE(screen.ends_with("2 files")) << screen;
}

TEST(Terminal, ShowsNothingOfAReadThatIsStopped) {
  const HostFolder folder;
  SlowPipe pipe(folder, "slow.mps");
  OnTerminal terminal({"check", pipe.path()});
  ASSERT_TRUE(terminal.started());
  pipe.Open(O_WRONLY);
  pipe.Write("ROWS\n N C\n" + RowLines(0, 5000));
  usleep(kLongerThanTheDelay);
  pipe.Write(RowLines(5000, 100'000));
  ASSERT_TRUE(terminal.WaitToSee("B/s)")) << terminal.shown();
  terminal.Type("\x03");
  pipe.WriteToWhoMayBeGone(RowLines(100'000, 200'000));
  pipe.Close();
  EXPECT_EQ(terminal.Finish(), 130);
  EXPECT_TRUE(ScreenAfter(terminal.shown()).ends_with("quarvel: stopped")) << terminal.shown();
  EXPECT_EQ(ScreenAfter(terminal.shown()).find('['), std::string::npos) << terminal.shown();
}

// What begins a new line of a narrow terminal could not be taken back.
TEST(Terminal, ShowsTheProgressOfASlowWriteOnOneLineHoweverNarrowItIs) {
  constexpr unsigned short kWidth = 40;
  const HostFolder folder;
  std::string model = "ROWS\n N C\nCOLUMNS\n";
  for (int i = 0; i < 40'000; ++i) model += " X" + std::to_string(i) + " C 1\n";
  SlowPipe pipe(folder, "slow.out");
  OnTerminal terminal({"convert", folder.Write("a.mps", model + "ENDATA\n"), pipe.path()}, kWidth);
  ASSERT_TRUE(terminal.started());
  pipe.Open(O_RDONLY);
  usleep(kLongerThanTheDelay);
  const std::string written = pipe.ReadAll();
  EXPECT_EQ(terminal.Finish(), 0) << terminal.shown();
  EXPECT_TRUE(written.ends_with("ENDATA\r\n"));
  const std::size_t drawn = terminal.shown().find("\rWriting ");
  ASSERT_NE(drawn, std::string::npos) << terminal.shown();
  const std::size_t end = terminal.shown().find('\r', drawn + 1);
  EXPECT_LT(text::CellCount(terminal.shown().substr(drawn + 1, end - drawn - 1)), kWidth - 2U);
  EXPECT_EQ(ScreenAfter(terminal.shown()),
            "quarvel: " + pipe.path() +
                ": written, but not read again, as it cannot be replaced: 1 row, 40000 columns, "
                "40000 coefficients");
}

TEST(Terminal, ShowsNoProgressOfWhatTakesNoTime) {
  const HostFolder folder;
  OnTerminal terminal({"simplify", folder.Example("ranges.mps"), folder.Path("b.mps")});
  ASSERT_TRUE(terminal.started());
  EXPECT_EQ(terminal.Finish(), 0);
  EXPECT_EQ(terminal.shown().find('['), std::string::npos) << terminal.shown();
}

}  // namespace
}  // namespace quarvel
