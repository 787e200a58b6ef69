#include <cerrno>
#include <cstring>
#include <string>
#include <vector>

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

}  // namespace

int BecomeViewer(Session& session) {
  // Beside this program and nowhere else: what PATH or the current folder holds may be anybody's.
  const std::string program = platform::ComponentFolder() + "/" + kViewerProgram;
  std::vector<std::string> words = ViewerWords(program, session.arguments);
  std::vector<char*> pointers;
  pointers.reserve(words.size() + 1);
  for (std::string& word : words) pointers.push_back(word.data());
  pointers.push_back(nullptr);
  execv(program.c_str(), pointers.data());
  throw CommandError(kProblem, Objection(program, errno));
}

}  // namespace quarvel::hosts
