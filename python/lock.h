// The interpreter's lock: given away for long calls, and taken back for a moment.
//
// Where the interpreter ends while a thread that nobody waits for is in a call, the system unwinds that
// thread's stack at its next wish for the lock, or within a function of the caller, and the functions of
// C++ there do not all let that through. The thread rests instead, and ends with the process; where the
// end has begun before that wish it rests at once, as there may be no lock any more.
#pragma once

#include <atomic>
#include <chrono>
#include <thread>
#include <utility>

#include <pybind11/pybind11.h>

namespace quarvel::python {

[[noreturn]] inline void RestForEver() {
  for (;;) std::this_thread::sleep_for(std::chrono::hours(1));
}

// Of the interpreter that ends with the process.
struct End {
  std::atomic<bool> has_begun = false;
  std::thread::id thread = {};  // which goes on
};
inline End end_of_interpreter;

// To be called by each module when it is loaded.
inline void ListenForTheEnd() {
  if (PyInterpreterState_Get() != PyInterpreterState_Main()) return;
  const auto begin = [] {
    end_of_interpreter.thread = std::this_thread::get_id();
    end_of_interpreter.has_begun = true;
  };
  pybind11::module_::import("atexit").attr("register")(pybind11::cpp_function(begin));
}

inline void RestAfterTheEnd() {
  const End& end = end_of_interpreter;
  if (end.has_begun && end.thread != std::this_thread::get_id()) RestForEver();
}

// What the work gives, unless the thread's end comes within it. The work must hold nothing of Python's
// in variables of its own: their ends would run without the lock.
template <class Work>
auto BeforeTheEnd(const Work& work) {
#ifdef __GLIBCXX__
  try {
    return work();
  } catch (abi::__forced_unwind&) {
    RestForEver();
  }
#else
  return work();
#endif
}

// What the function of Python gives, with the lock.
template <class... Given>
pybind11::object Called(pybind11::handle function, Given&&... given) {
  const pybind11::tuple arguments = pybind11::make_tuple(std::forward<Given>(given)...);
  PyObject* const result =
      BeforeTheEnd([&] { return PyObject_CallObject(function.ptr(), arguments.ptr()); });
  if (result == nullptr) throw pybind11::error_already_set();
  return pybind11::reinterpret_steal<pybind11::object>(result);
}

// Does the work with the lock, within the scope of an Unlocked.
template <class Work>
auto Locked(const Work& work) {
  RestAfterTheEnd();
  return BeforeTheEnd([&work] {
    const pybind11::gil_scoped_acquire lock;
    return work();
  });
}

// Without the lock, which this thread has, for its scope.
class Unlocked {
 public:
  Unlocked() : state_(PyEval_SaveThread()) {}
  ~Unlocked() {
    RestAfterTheEnd();
    BeforeTheEnd([this] { PyEval_RestoreThread(state_); });
  }
  Unlocked(const Unlocked&) = delete;
  Unlocked& operator=(const Unlocked&) = delete;

 private:
  PyThreadState* state_;
};

}  // namespace quarvel::python
