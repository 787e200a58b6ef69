#ifndef _WIN32

#include <cerrno>
#include <csignal>

#include <fcntl.h>
#include <unistd.h>

#include "hosts/standard_output.h"

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

void PrepareStandardStreams() {
  for (const int signal : {SIGPIPE, SIGXFSZ}) std::signal(signal, SIG_IGN);
  // Each is opened for what is not done with it, and gets the lowest number, which is its own.
  for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
    if (fcntl(stream, F_GETFD) != -1) continue;
    if (open("/dev/null", stream == STDIN_FILENO ? O_WRONLY : O_RDONLY) == -1) return;
  }
}

std::vector<std::string> CommandLineWords(int argc, const char* const* argv) {
  if (argc < 1) return {};
  return {argv + 1, argv + argc};
}

}  // namespace quarvel::hosts

#endif
