// The program on a terminal of its own.
#pragma once

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <iostream>
#include <string>
#include <string_view>
#include <vector>

#include <fcntl.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <sys/ioctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include "hosts/program.h"
#include "platform/console/console_system.h"

namespace quarvel {

// Runs the program in a process of its own, whose terminal the test holds the other end of.
class OnTerminal {
 public:
  explicit OnTerminal(const std::vector<std::string>& words, unsigned short width = 0)
      : master_(posix_openpt(O_RDWR | O_NOCTTY)) {
    winsize size = {};
    size.ws_col = width;
    ioctl(master_, TIOCSWINSZ, &size);
    if (grantpt(master_) != 0 || unlockpt(master_) != 0) return;
    const std::string slave = ptsname(master_);
    std::fflush(nullptr);  // or the child shows once more what waits in the test's own buffers
    child_ = fork();
    if (child_ == 0) RunChild(slave, words);
  }
  ~OnTerminal() {
    close(master_);
    if (child_ > 0) {
      kill(child_, SIGKILL);
      waitpid(child_, nullptr, 0);
    }
  }
  OnTerminal(const OnTerminal&) = delete;
  OnTerminal& operator=(const OnTerminal&) = delete;

  bool started() const { return child_ > 0; }
  pid_t process() const { return child_; }
  const std::string& shown() const { return shown_; }

  // Waits until the screen ends in `prompt`; false when it never does.
  bool WaitFor(std::string_view prompt) {
    while (!shown_.ends_with(prompt)) {
      if (!ReadMore()) return false;
    }
    return true;
  }
  // Waits until that has been on the screen.
  bool WaitToSee(std::string_view text) {
    while (shown_.find(text) == std::string::npos) {
      if (!ReadMore()) return false;
    }
    return true;
  }
  void Type(std::string_view text) {
    EXPECT_EQ(write(master_, text.data(), text.size()), static_cast<ssize_t>(text.size()));
  }
  // The exit status, after all that is still shown.
  int Finish() {
    while (ReadMore()) {
    }
    int status = 0;
    waitpid(child_, &status, 0);
    child_ = -1;
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  }

 private:
  static constexpr int kPatienceMs = 60'000;

  [[noreturn]] static void RunChild(const std::string& slave,
                                    const std::vector<std::string>& words) {
    setsid();
    // As at a terminal, also where the tests were started without: in the background they are ignored.
    for (const int signal : {SIGINT, SIGQUIT, SIGHUP}) std::signal(signal, SIG_DFL);
    const int terminal = open(slave.c_str(), O_RDWR);
    for (const int standard : {0, 1, 2}) dup2(terminal, standard);
    const hosts::Streams streams = {platform::console::ReadInputLine,
                                    std::cout,
                                    std::cerr,
                                    true,
                                    platform::console::ReadInputBytes,
                                    hosts::Screen::OfStandardOutput()};
    const int status = hosts::RunProgram(words, streams);
    std::cout.flush();
    _exit(status);
  }

  // False at the end, and after a long time without anything, which ends the program.
  bool ReadMore() {
    pollfd waiting = {master_, POLLIN, 0};
    if (poll(&waiting, 1, kPatienceMs) <= 0) {
      kill(child_, SIGKILL);
      return false;
    }
    char buffer[4096];
    const ssize_t count = read(master_, buffer, sizeof(buffer));
    if (count <= 0) return false;
    shown_.append(buffer, static_cast<std::size_t>(count));
    return true;
  }

  int master_;
  pid_t child_ = -1;
  std::string shown_;
};

}  // namespace quarvel
