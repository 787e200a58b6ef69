#include "tests/faults/preload/fault_plan.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <cerrno>
#include <charconv>
#include <climits>
#include <csignal>
#include <cstdlib>
#include <vector>

#include <fcntl.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace quarvel::faults {
namespace {

struct PlannedFault {
  int at = 0;
  bool lasts = false;
  std::string action;
  int number = 0;
};

std::string Variable(const char* name) {
  const char* const value = std::getenv(name);
  return value == nullptr ? "" : value;
}

int NumberAt(std::string_view text) {
  int number = 0;
  std::from_chars(text.data(), text.data() + text.size(), number);
  return number;
}

// "12+=error:28"
PlannedFault Parse(std::string_view word) {
  PlannedFault fault;
  const std::size_t sign = std::min(word.find('='), word.size());
  const std::size_t colon = std::min(word.find(':'), word.size());
  fault.at = NumberAt(word);
  fault.lasts = sign > 0 && word[sign - 1] == '+';
  fault.action = word.substr(std::min(sign + 1, word.size()), colon - sign - 1);
  fault.number = NumberAt(word.substr(std::min(colon + 1, word.size())));
  return fault;
}

struct Plan {
  std::string folder = Variable("QUARVEL_FAULT_FOLDER");
  std::vector<PlannedFault> faults;
  int record = -1;
  std::atomic<int> count = 0;

  Plan() {
    const std::string words = Variable("QUARVEL_FAULTS");
    for (std::size_t start = 0; start < words.size();) {
      const std::size_t end = std::min(words.find(',', start), words.size());
      faults.push_back(Parse(std::string_view(words).substr(start, end - start)));
      start = end + 1;
    }
    const std::string path = Variable("QUARVEL_FAULT_RECORD");
    if (path.empty()) return;
    const long opened = syscall(SYS_openat, AT_FDCWD, path.c_str(),
                                O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0600);
    // Out of the way of the program's own descriptors, whose numbers stay as they are without it.
    constexpr int kFarOff = 900;
    record = fcntl(static_cast<int>(opened), F_DUPFD_CLOEXEC, kFarOff);
    syscall(SYS_close, opened);
  }
};

Plan& ThePlan() {
  // Never destroyed: calls come until the very end of the process.
  static Plan* const plan = new Plan;
  return *plan;
}

bool IsBelow(const std::string& path, const std::string& folder) {
  return path.starts_with(folder) && (path.size() == folder.size() || path[folder.size()] == '/');
}

bool Meets(const PlannedFault& fault, int number, const Call& call) {
  if (number == fault.at) return true;
  if (!fault.lasts || number < fault.at) return false;
  return fault.number == ENOSPC || fault.number == EDQUOT ? call.needs_room : call.changes;
}

void WriteRecord(std::string_view text) {
  while (!text.empty()) {
    const long count = syscall(SYS_write, ThePlan().record, text.data(), text.size());
    if (count <= 0) Kill();
    text.remove_prefix(static_cast<std::size_t>(count));
  }
}

}  // namespace

bool Counts(const Call& call) {
  const std::string& folder = ThePlan().folder;
  if (folder.empty()) return false;
  return IsBelow(call.path, folder) || IsBelow(call.new_path, folder);
}

Fault NextFault(const Call& call) {
  const int number = ++ThePlan().count;
  Fault result;
  for (const PlannedFault& fault : ThePlan().faults) {
    if (!Meets(fault, number, call)) continue;
    if (fault.action == "error") result.error = fault.number;
    if (fault.action == "short") result.is_short = true;
    if (fault.action == "half") result.kills_half_way = true;
    if (fault.action == "after") result.signal_after = fault.number;
    if (fault.action == "before") kill(getpid(), fault.number);
  }
  return result;
}

void Finish(const Call& call, const Fault& fault, std::int64_t result) {
  const Plan& plan = ThePlan();
  if (plan.record != -1) {
    const bool written = call.bytes != nullptr && result > 0;
    std::string line(call.kind);
    for (const std::int64_t number :
         {result, std::int64_t{call.descriptor}, call.number, std::int64_t{call.changes},
          std::int64_t{call.needs_room}, written ? result : 0}) {
      line += '\t' + std::to_string(number);
    }
    line += '\t' + call.path + '\t' + call.new_path + '\n';
    if (written)
      line.append(static_cast<const char*>(call.bytes), static_cast<std::size_t>(result));
    WriteRecord(line);
  }
  if (fault.signal_after != 0) kill(getpid(), fault.signal_after);
}

void Kill() {
  kill(getpid(), SIGKILL);
  for (;;) pause();
}

std::string PathOf(int descriptor) {
  std::array<char, PATH_MAX> target;
  const std::string link = "/proc/self/fd/" + std::to_string(descriptor);
  const long count = syscall(SYS_readlinkat, AT_FDCWD, link.c_str(), target.data(), target.size());
  return count <= 0 ? "" : std::string(target.data(), static_cast<std::size_t>(count));
}

std::string RealPath(int folder, const char* path, bool follows) {
  if (path == nullptr) return "";
  const int code = errno;
  std::string text = path;
  if (!text.starts_with('/') && folder != AT_FDCWD) text = PathOf(folder) + '/' + text;
  std::array<char, PATH_MAX> real;
  std::string result;
  if (follows && realpath(text.c_str(), real.data()) != nullptr) {
    result = real.data();
  } else {
    const std::size_t slash = text.rfind('/');
    const std::string parent = slash == std::string::npos ? "." : text.substr(0, slash + 1);
    const std::string name = slash == std::string::npos ? text : text.substr(slash + 1);
    if (realpath(parent.c_str(), real.data()) != nullptr) {
      result = std::string(real.data()) + '/' + name;
    }
  }
  errno = code;
  return result;
}

}  // namespace quarvel::faults
