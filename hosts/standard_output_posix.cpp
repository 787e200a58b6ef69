#ifndef _WIN32

#include <cerrno>
#include <csignal>

#include <unistd.h>

#include "hosts/standard_output.h"
#include "platform/automation_error.h"

namespace quarvel::hosts {

WriteResult WriteStandardOutput(std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t count = write(STDOUT_FILENO, bytes.data(), bytes.size());
    if (count >= 0) {
      bytes.remove_prefix(static_cast<std::size_t>(count));
    } else if (errno != EINTR) {
      return errno == EPIPE ? WriteResult::kClosed : WriteResult::kFailed;
    }
  }
  return WriteResult::kWritten;
}

std::size_t ReadStandardInput(char* buffer, std::size_t capacity) {
  ssize_t count = 0;
  do {
    count = read(STDIN_FILENO, buffer, capacity);
  } while (count == -1 && errno == EINTR);
  if (count == -1) RaiseRunTimeError(RunTimeError::kDeviceIoError);
  return static_cast<std::size_t>(count);
}

void PrepareStandardOutput() { std::signal(SIGPIPE, SIG_IGN); }

std::vector<std::string> CommandLineWords(int argc, const char* const* argv) {
  if (argc < 1) return {};
  return {argv + 1, argv + argc};
}

}  // namespace quarvel::hosts

#endif
