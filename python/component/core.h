// One model for Python, with the desktop it asks. A call comes in with the interpreter lock, and while it
// runs no other thread may come in: that is an error, and touches nothing. The thread that is in may come
// in again, from a question or from a progress call.
#pragma once

#include <cstddef>
#include <exception>
#include <memory>
#include <thread>

#include <pybind11/pybind11.h>

#include "component/lp_model.h"
#include "python/component/bindings.h"
#include "python/component/python_desktop.h"

namespace quarvel::python {

class Core {
 public:
  explicit Core(py::object user) : desktop_(std::move(user)), model_(desktop_) {}

  // Runs a member of the list by its number in it.
  py::object Call(std::size_t member, const py::args& given);

  PythonDesktop& desktop() { return desktop_; }

 private:
  class Turn;

  PythonDesktop desktop_;
  LPModel model_;
  std::thread::id owner_;
  int depth_ = 0;
};

}  // namespace quarvel::python
