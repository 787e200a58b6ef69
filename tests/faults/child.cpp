#include "tests/faults/child.h"

#include <chrono>
#include <csignal>
#include <stdexcept>
#include <thread>

#include <fcntl.h>
#include <linux/capability.h>
#include <sys/mman.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace quarvel::faults {
namespace {

using Clock = std::chrono::steady_clock;

// Takes from an administrator the right to pass over permissions, for good.
bool GiveUpPrivileges() {
  if (geteuid() != 0) return true;
  for (const int privilege : {CAP_DAC_OVERRIDE, CAP_DAC_READ_SEARCH, CAP_FOWNER}) {
    if (prctl(PR_CAPBSET_DROP, privilege, 0, 0, 0) != 0) return false;
  }
  return true;
}

std::vector<std::string> EnvironmentOf(const Start& start) {
  std::vector<std::string> lines;
  for (char** line = environ; *line != nullptr; ++line) {
    const std::string text = *line;
    if (!text.starts_with("LD_PRELOAD=")) lines.push_back(text);
  }
  lines.push_back(std::string("LD_PRELOAD=") + QUARVEL_FAULT_LIBRARY);
  lines.push_back("QUARVEL_FAULT_FOLDER=" + start.folder);
  lines.push_back("QUARVEL_FAULTS=" + start.faults);
  lines.push_back("QUARVEL_FAULT_RECORD=" + start.record);
  return lines;
}

std::vector<char*> Pointers(std::vector<std::string>& texts) {
  std::vector<char*> pointers;
  for (std::string& text : texts) pointers.push_back(text.data());
  pointers.push_back(nullptr);
  return pointers;
}

// What the new process does until it is the program; it ends with 127 where that fails.
[[noreturn]] void Become(const Start& start, int out, int err) {
  std::vector<std::string> words = start.words;
  words.insert(words.begin(), QUARVEL_PROGRAM);
  std::vector<std::string> environment = EnvironmentOf(start);
  for (const int signal : {SIGINT, SIGTERM, SIGHUP}) std::signal(signal, SIG_DFL);
  const int nothing = open("/dev/null", O_RDONLY);
  const bool ready = chdir(start.folder.c_str()) == 0 && dup2(nothing, STDIN_FILENO) != -1 &&
                     dup2(out, STDOUT_FILENO) != -1 && dup2(err, STDERR_FILENO) != -1;
  if (ready && (!start.unprivileged || GiveUpPrivileges())) {
    execve(QUARVEL_PROGRAM, Pointers(words).data(), Pointers(environment).data());
  }
  _exit(127);
}

std::string TakeText(int& descriptor) {
  std::string text(static_cast<std::size_t>(lseek(descriptor, 0, SEEK_END)), '\0');
  if (pread(descriptor, text.data(), text.size(), 0) != static_cast<ssize_t>(text.size())) {
    throw std::runtime_error("a program's output cannot be read");
  }
  close(descriptor);
  descriptor = -1;
  return text;
}

}  // namespace

Child::Child(const Start& start)
    : out_(memfd_create("out", MFD_CLOEXEC)), err_(memfd_create("err", MFD_CLOEXEC)) {
  process_ = fork();
  if (process_ == -1) throw std::runtime_error("no process can be started");
  if (process_ == 0) Become(start, out_, err_);
}

Child::~Child() {
  if (!ended_) {
    kill(process_, SIGKILL);
    waitpid(process_, nullptr, 0);
  }
  for (const int descriptor : {out_, err_}) {
    if (descriptor != -1) close(descriptor);
  }
}

void Child::Note(int wait_status) {
  stopped_ = WIFSTOPPED(wait_status);
  if (stopped_) return;
  ended_ = true;
  result_.status = WIFEXITED(wait_status) ? WEXITSTATUS(wait_status) : -1;
  result_.signal = WIFSIGNALED(wait_status) ? WTERMSIG(wait_status) : 0;
  result_.out = TakeText(out_);
  result_.err = TakeText(err_);
  if (result_.status == 127) throw std::runtime_error("the program cannot be run");
}

bool Child::PausesWithin(int milliseconds) {
  const auto end = Clock::now() + std::chrono::milliseconds(milliseconds);
  while (!ended_) {
    int wait_status = 0;
    if (waitpid(process_, &wait_status, WUNTRACED | WNOHANG) == process_) {
      Note(wait_status);
      return true;
    }
    if (Clock::now() >= end) return false;
    std::this_thread::sleep_for(std::chrono::microseconds(200));
  }
  return true;
}

Ended Child::Wait() {
  constexpr int kMinute = 60000;
  while (!ended_) {
    if (!PausesWithin(kMinute)) Send(SIGKILL);
    if (stopped_) Send(SIGCONT);
  }
  return result_;
}

void Child::Send(int signal) const {
  if (!ended_) kill(process_, signal);
}

Ended RunChild(const Start& start) {
  Child child(start);
  return child.Wait();
}

}  // namespace quarvel::faults
