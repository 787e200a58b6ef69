#include "bench/child.h"

#include <array>
#include <cerrno>
#include <sstream>

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace quarvel::bench {
namespace {

struct Pipe {
  int read_end = -1;
  int write_end = -1;
};

std::optional<Pipe> OpenPipe() {
  std::array<int, 2> ends{};
  if (pipe(ends.data()) != 0) return std::nullopt;
  return Pipe{ends[0], ends[1]};
}

[[noreturn]] void BecomeProgram(const std::vector<std::string>& command, const Pipe& out) {
  std::vector<char*> arguments;
  for (const std::string& argument : command) {
    arguments.push_back(const_cast<char*>(argument.c_str()));  // execv leaves them alone
  }
  arguments.push_back(nullptr);
  dup2(out.write_end, STDOUT_FILENO);
  close(out.read_end);
  close(out.write_end);
  execv(arguments[0], arguments.data());
  _exit(127);
}

std::string ReadAll(int file) {
  std::string text;
  std::array<char, 4096> buffer;
  for (;;) {
    const ssize_t size = read(file, buffer.data(), buffer.size());
    if (size < 0 && errno == EINTR) continue;
    if (size <= 0) return text;
    text.append(buffer.data(), static_cast<std::size_t>(size));
  }
}

std::map<std::string, double> ParseValues(const std::string& text) {
  std::map<std::string, double> values;
  std::istringstream lines(text);
  std::string name;
  double value = 0;
  while (lines >> name >> value) values[name] = value;
  return values;
}

}  // namespace

std::optional<ChildResult> RunChild(const std::vector<std::string>& command) {
  const std::optional<Pipe> out = OpenPipe();
  if (!out) return std::nullopt;
  const pid_t child = fork();
  if (child == 0) BecomeProgram(command, *out);
  close(out->write_end);
  ChildResult result;
  if (child > 0) result.values = ParseValues(ReadAll(out->read_end));
  close(out->read_end);
  if (child < 0) return std::nullopt;

  int status = 0;
  rusage usage{};
  while (wait4(child, &status, 0, &usage) < 0) {
    if (errno != EINTR) return std::nullopt;
  }
  if (!WIFEXITED(status) || WEXITSTATUS(status) != 0) return std::nullopt;
  constexpr double kBytesOfUnit = 1024;
  result.peak_megabytes = static_cast<double>(usage.ru_maxrss) * kBytesOfUnit / 1e6;
  result.pages = static_cast<double>(usage.ru_minflt);
  return result;
}

}  // namespace quarvel::bench
