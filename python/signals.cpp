#include "python/signals.h"

#include <string_view>
#include <utility>

#include "platform/wait_end.h"

namespace quarvel::python {
namespace {

// The innermost of this thread: a function that is told of a read may read another model.
thread_local Pulse* pulse_of_thread = nullptr;

}  // namespace

Pulse::Pulse(const pybind11::object& progress)
    : progress_(progress), outer_(std::exchange(pulse_of_thread, this)) {
  platform::is_wait_over = &Pulse::IsWaitOver;
}

Pulse::~Pulse() { pulse_of_thread = outer_; }

bool Pulse::IsFalse(const pybind11::object& answer) {
  if (answer.is(pybind11::bool_(false))) return true;
  const std::string_view type = Py_TYPE(answer.ptr())->tp_name;
  if (type != "numpy.bool_" && type != "numpy.bool") return false;
  return !answer.cast<bool>();
}

bool Pulse::IsWaitOver() {
  Pulse* const pulse = pulse_of_thread;
  if (pulse == nullptr) return false;
  if (pulse->interrupt_) return true;
  Locked([pulse] {
    if (PyErr_CheckSignals() != 0) pulse->interrupt_.emplace();
  });
  return pulse->interrupt_.has_value();
}

}  // namespace quarvel::python
