// Ctrl-C as a program at a terminal gets it.
#pragma once

#include <csignal>

namespace quarvel {

// While it lives, Ctrl-C ends the process unless somebody handles it, also where the tests were
// started with Ctrl-C ignored, as what runs in the background often is.
class DefaultInterrupt {
 public:
  DefaultInterrupt() : before_(std::signal(SIGINT, SIG_DFL)) {}
  ~DefaultInterrupt() { std::signal(SIGINT, before_); }
  DefaultInterrupt(const DefaultInterrupt&) = delete;
  DefaultInterrupt& operator=(const DefaultInterrupt&) = delete;

 private:
  void (*before_)(int);
};

}  // namespace quarvel
