// The built program `quarvel` as a process of its own, with faults at its calls of the file system.
#pragma once

#include <string>
#include <vector>

#include <sys/types.h>

namespace quarvel::faults {

struct Start {
  // The words after the program's name.
  std::vector<std::string> words{};
  // The folder that it runs in and whose calls count.
  std::string folder{};
  // What happens at which call, as tests/faults/preload/fault_plan.h has it.
  std::string faults{};
  // A file that is to tell of its calls; none when empty.
  std::string record{};
  // Whether permissions hold for it too where the tests run as the administrator.
  bool unprivileged = false;
};

struct Ended {
  // The exit status; -1 when a signal ended the process.
  int status = -1;
  int signal = 0;
  std::string out;
  std::string err;
};

// A running process. Whoever starts one waits for it; one that is not waited for is killed.
class Child {
 public:
  explicit Child(const Start& start);
  ~Child();
  Child(const Child&) = delete;
  Child& operator=(const Child&) = delete;

  // Waits for its end. One that takes more than a minute is killed, which shows as signal 9.
  Ended Wait();
  // True when it has ended or stopped within `milliseconds`; `Stopped` tells which.
  bool PausesWithin(int milliseconds);
  bool stopped() const { return stopped_; }
  void Send(int signal) const;

 private:
  void Note(int wait_status);

  pid_t process_ = -1;
  int out_ = -1;
  int err_ = -1;
  bool stopped_ = false;
  bool ended_ = false;
  Ended result_;
};

// Starts it and waits for its end.
Ended RunChild(const Start& start);

}  // namespace quarvel::faults
