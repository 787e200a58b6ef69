// bench_start TIMES COMMAND [-- COMMAND]...: starts each command so many times, by turns, with its output thrown
// away, and prints the median of the seconds from a start to the end of the process: `seconds` of the first
// command, `seconds_2` of the second ...

#include <algorithm>
#include <charconv>
#include <cstdio>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include "bench/stopwatch.h"

namespace {

using Command = std::vector<char*>;  // ends in a null

// Commands stand between words "--".
std::vector<Command> CommandsOf(char** word) {
  std::vector<Command> commands(1);
  for (; *word != nullptr; ++word) {
    if (std::string_view(*word) != "--") {
      commands.back().push_back(*word);
      continue;
    }
    commands.back().push_back(nullptr);
    commands.emplace_back();
  }
  commands.back().push_back(nullptr);
  return commands;
}

// False when it does not start or its exit status is not 0.
bool Run(const Command& command) {
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
  pid_t child = 0;
  int status = -1;
  const bool started =
      posix_spawn(&child, command.front(), &actions, nullptr, command.data(), environ) == 0;
  posix_spawn_file_actions_destroy(&actions);
  return started && waitpid(child, &status, 0) == child && status == 0;
}

double Median(std::vector<double>& values) {
  const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
  std::nth_element(values.begin(), middle, values.end());
  return *middle;
}

int Measure(int times, const std::vector<Command>& commands) {
  std::vector<std::vector<double>> seconds(commands.size());
  for (int time = 0; time < times; ++time) {
    for (std::size_t k = 0; k < commands.size(); ++k) {
      bool good = false;
      seconds[k].push_back(quarvel::bench::SecondsOf([&] { good = Run(commands[k]); }));
      if (good) continue;
      std::fprintf(stderr, "bench_start: %s failed\n", commands[k].front());
      return 1;
    }
  }
  for (std::size_t k = 0; k < commands.size(); ++k) {
    const std::string name = k == 0 ? "seconds" : "seconds_" + std::to_string(k + 1);
    quarvel::bench::PrintResult(name.c_str(), Median(seconds[k]));
  }
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  int times = 0;
  const std::string_view text = argc > 1 ? argv[1] : "";
  std::from_chars(text.data(), text.data() + text.size(), times);
  const std::vector<Command> commands = argc > 2 ? CommandsOf(argv + 2) : std::vector<Command>(1);
  const bool usable = std::all_of(commands.begin(), commands.end(),
                                  [](const Command& command) { return command.size() > 1; });
  if (times > 0 && usable) return Measure(times, commands);
  std::fputs("usage: bench_start TIMES COMMAND [-- COMMAND]...\n", stderr);
  return 2;
}
