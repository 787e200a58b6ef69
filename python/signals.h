// Long calls run without the interpreter's lock, and come back to it now and then.
#pragma once

#include <chrono>
#include <optional>

#include <pybind11/pybind11.h>

#include "python/lock.h"

namespace quarvel::python {

// Asks Python about ten times a second whether to go on: Ctrl-C is thrown as KeyboardInterrupt, and a
// function of the caller is called with the part that is done. Ctrl-C also ends what waits at a pipe in
// this thread while the pulse lives. To be used where the lock is given away, but made and ended where it is not.
class Pulse {
 public:
  // `progress` may be None. It lives as long as the call.
  explicit Pulse(const pybind11::object& progress);
  ~Pulse();
  Pulse(const Pulse&) = delete;
  Pulse& operator=(const Pulse&) = delete;

  // True to go on: the caller's function has not said False. It gets `done` and `all`.
  template <class Number>
  bool Beat(Number done, Number all) {
    const auto now = std::chrono::steady_clock::now();
    if (now < next_) return true;
    next_ = now + std::chrono::milliseconds(100);
    Locked([&] {
      if (PyErr_CheckSignals() != 0) throw pybind11::error_already_set();
      if (progress_.is_none()) return;
      if (IsFalse(Called(progress_, done, all))) is_stopped_ = true;
    });
    return !is_stopped_;
  }

  // The next beat is heard, however soon it comes.
  void Hurry() { next_ = {}; }

  // All is done; what the function says to that makes no difference.
  template <class Number>
  void End(Number all) {
    Locked([&] {
      if (!progress_.is_none()) Called(progress_, all, all);
    });
  }

  // Throws KeyboardInterrupt for a Ctrl-C that has come. To be called before a wait.
  static void Listen() {
    Locked([] {
      if (PyErr_CheckSignals() != 0) throw pybind11::error_already_set();
    });
  }

  // Whether the caller's function has said False.
  bool is_stopped() const { return is_stopped_; }
  // Throws the KeyboardInterrupt that has ended a wait.
  void Rethrow() const {
    if (interrupt_) throw pybind11::error_already_set(*interrupt_);
  }

 private:
  static bool IsWaitOver();
  // False, or that of numpy. None goes on.
  static bool IsFalse(const pybind11::object& answer);

  const pybind11::object& progress_;
  Pulse* outer_;
  std::chrono::steady_clock::time_point next_ = {};  // the first beat is heard
  std::optional<pybind11::error_already_set> interrupt_ = {};
  bool is_stopped_ = false;
};

}  // namespace quarvel::python
