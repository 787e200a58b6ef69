// Long calls run without the interpreter's lock, and come back to it now and then.
#pragma once

#include <chrono>

#include <pybind11/pybind11.h>

namespace quarvel::python {

// Asks Python about ten times a second whether to go on: Ctrl-C is thrown as KeyboardInterrupt, and a
// function of the caller is called with the part that is done. To be used where the lock is given away.
class Pulse {
 public:
  // `progress` may be None. It lives as long as the call.
  explicit Pulse(const pybind11::object& progress) : progress_(progress) {}

  // True to go on: the caller's function has not said False. It gets `done` and `all`.
  template <class Number>
  bool Beat(Number done, Number all, bool is_last = false) {
    const auto now = std::chrono::steady_clock::now();
    if (!is_last && now < next_) return true;
    next_ = now + std::chrono::milliseconds(100);
    const pybind11::gil_scoped_acquire lock;
    if (PyErr_CheckSignals() != 0) throw pybind11::error_already_set();
    if (progress_.is_none()) return true;
    return !progress_(done, all).is(pybind11::bool_(false));
  }

 private:
  const pybind11::object& progress_;
  std::chrono::steady_clock::time_point next_ = {};  // the first beat is heard
};

}  // namespace quarvel::python
