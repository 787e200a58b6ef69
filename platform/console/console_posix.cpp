#ifndef _WIN32

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <iostream>

#include <sys/ioctl.h>
#include <unistd.h>

#include "platform/automation_error.h"
#include "platform/console/console_system.h"
#include "platform/wait_end.h"

namespace quarvel::platform::console {
namespace {

// A signal handler reaches nothing but variables of static life.
volatile std::sig_atomic_t interrupt_count = 0;
int watch_count = 0;
int count_at_first_watch = 0;
struct sigaction action_before = {};

void NoteInterrupt(int) { interrupt_count = interrupt_count + 1; }

TerminalSize SizeOf(int descriptor) {
  winsize size = {};
  if (ioctl(descriptor, TIOCGWINSZ, &size) != 0) return {};
  return {.width = size.ws_col, .height = size.ws_row};
}

}  // namespace

bool InputIsTerminal() { return isatty(STDIN_FILENO) == 1; }

bool ErrorIsTerminal() { return isatty(STDERR_FILENO) == 1; }

bool OutputIsTerminal() { return isatty(STDOUT_FILENO) == 1; }

TerminalSize OutputSize() { return SizeOf(STDOUT_FILENO); }

TerminalSize ErrorSize() { return SizeOf(STDERR_FILENO); }

bool OutputTakesColors() { return OutputIsTerminal(); }

void WriteError(std::string_view text) {
  std::fwrite(text.data(), 1, text.size(), stderr);
  std::fflush(stderr);
}

std::optional<std::string> ReadInputLine() {
  std::string line;
  const bool has_line = static_cast<bool>(std::getline(std::cin, line));
  const int code = errno;
  // The stream gives out the start of a line whose rest could not be read.
  const bool has_failed = std::ferror(stdin) != 0;
  if (has_line && !has_failed) {
    if (line.ends_with('\r')) line.pop_back();
    return line;
  }
  // After the end, or an interrupted read, a later question may still be answered.
  std::cin.clear();
  std::clearerr(stdin);
  if (has_failed && code != EINTR) RaiseRunTimeError(RunTimeError::kDeviceIoError);
  return std::nullopt;
}

std::size_t ReadInputBytes(char* buffer, std::size_t capacity) {
  ssize_t count = -1;
  do {
    if (InterruptNoted()) break;
    count = read(STDIN_FILENO, buffer, capacity);
  } while (count == -1 && errno == EINTR);
  if (count == -1 || InterruptNoted()) RaiseRunTimeError(RunTimeError::kDeviceIoError);
  return static_cast<std::size_t>(count);
}

bool InterruptNoted() { return watch_count > 0 && interrupt_count != count_at_first_watch; }

InterruptWatch::InterruptWatch() : count_at_start_(interrupt_count) {
  if (watch_count++ > 0) return;
  count_at_first_watch = interrupt_count;
  is_wait_over = InterruptNoted;
  struct sigaction action = {};
  action.sa_handler = NoteInterrupt;
  // Without SA_RESTART, so that a waiting question or read ends; files retry their other calls.
  action.sa_flags = static_cast<int>(SA_RESETHAND);
  sigemptyset(&action.sa_mask);
  sigaction(SIGINT, &action, &action_before);
  if (action_before.sa_handler == SIG_IGN) sigaction(SIGINT, &action_before, nullptr);
}

InterruptWatch::~InterruptWatch() {
  if (--watch_count > 0) return;
  is_wait_over = nullptr;
  sigaction(SIGINT, &action_before, nullptr);
}

bool InterruptWatch::Arrived() const { return interrupt_count != count_at_start_; }

}  // namespace quarvel::platform::console

#endif
