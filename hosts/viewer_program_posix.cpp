#include <array>
#include <cerrno>
#include <cstring>
#include <string>
#include <string_view>
#include <vector>

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include "hosts/viewer_program.h"
#include "platform/files.h"

namespace quarvel::hosts {
namespace {

// The words of the command line that say the same as these arguments of `view`.
std::vector<std::string> ViewerWords(const std::string& program, const Arguments& arguments) {
  std::vector<std::string> words = {program};
  if (arguments.edit) words.emplace_back("--edit");
  words.emplace_back("--");
  words.insert(words.end(), arguments.operands.begin(), arguments.operands.end());
  return words;
}

std::string Objection(const std::string& program, int error) {
  if (error == ENOENT) {
    return "the viewer is not installed: there is no " + program +
           ", which a build with Qt 6 makes; \"quarvel rows\" prints a model";
  }
  return program + " does not start: " + std::strerror(error);
}

std::string ReadAll(int file) {
  constexpr std::size_t kPiece = 4096;
  std::string text;
  std::array<char, kPiece> piece;
  for (;;) {
    const ssize_t count = read(file, piece.data(), piece.size());
    if (count == -1 && errno == EINTR) continue;
    if (count <= 0) return text;
    text.append(piece.data(), static_cast<std::size_t>(count));
  }
}

// Runs the program with one more setting in its environment and nothing to read; its output.
std::string OutputOf(std::string program, std::string setting) {
  std::array<int, 2> ends{};
  if (pipe2(ends.data(), O_CLOEXEC) != 0) return "";
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_addopen(&actions, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
  posix_spawn_file_actions_adddup2(&actions, ends[1], STDOUT_FILENO);
  posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
  std::vector<char*> environment = {setting.data()};
  for (char** known = environ; *known != nullptr; ++known) environment.push_back(*known);
  environment.push_back(nullptr);
  const std::array<char*, 2> words = {program.data(), nullptr};
  pid_t child = 0;
  const int error =
      posix_spawn(&child, program.c_str(), &actions, nullptr, words.data(), environment.data());
  posix_spawn_file_actions_destroy(&actions);
  close(ends[1]);
  std::string output = error == 0 ? ReadAll(ends[0]) : "";
  close(ends[0]);
  while (error == 0 && waitpid(child, nullptr, 0) == -1 && errno == EINTR) {
  }
  return output;
}

// The libraries, with commas between them, that the program needs and the system's loader does not find:
// asked for them, it lists all instead of running the program ("\tlibQt6Gui.so.6 => not found").
std::string MissingLibraries(const std::string& program) {
  constexpr std::string_view kNotFound = " => not found";
  const std::string list = OutputOf(program, "LD_TRACE_LOADED_OBJECTS=1");
  std::string missing;
  for (std::size_t end = list.find(kNotFound); end != std::string::npos;
       end = list.find(kNotFound, end + 1)) {
    const std::size_t start = list.find_last_of("\t\n", end) + 1;
    const std::string library = list.substr(start, end - start);
    if ((", " + missing + ", ").find(", " + library + ", ") != std::string::npos) continue;
    missing += (missing.empty() ? "" : ", ") + library;
  }
  return missing;
}

}  // namespace

int BecomeViewer(Session& session) {
  // Beside this program and nowhere else: what PATH or the current folder holds may be anybody's.
  const std::string program = platform::ComponentFolder() + "/" + kViewerProgram;
  const std::string missing = MissingLibraries(program);
  if (!missing.empty()) {
    throw CommandError(kProblem, program + " needs what is not installed: " + missing +
                                     "; Debian's package libqt6widgets6 has Qt 6; \"quarvel rows\" "
                                     "prints a model");
  }
  std::vector<std::string> words = ViewerWords(program, session.arguments);
  std::vector<char*> pointers;
  pointers.reserve(words.size() + 1);
  for (std::string& word : words) pointers.push_back(word.data());
  pointers.push_back(nullptr);
  execv(program.c_str(), pointers.data());
  throw CommandError(kProblem, Objection(program, errno));
}

}  // namespace quarvel::hosts
