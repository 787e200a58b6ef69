#include "python/component/core.h"

#include <optional>
#include <vector>

#include "platform/automation_error.h"

namespace quarvel::python {
namespace {

// What the automation object's callers know as a call from another thread than its own.
constexpr auto kWrongThread = static_cast<std::int32_t>(0x8001010EU);

}  // namespace

// The interpreter lock guards what it changes.
class Core::Turn {
 public:
  explicit Turn(Core& core) : core_(core) {
    const auto thread = std::this_thread::get_id();
    if (core.depth_ > 0 && core.owner_ != thread) {
      throw AutomationError(kWrongThread, "LPModel", "The model is in use by another thread.");
    }
    core.owner_ = thread;
    ++core.depth_;
  }
  ~Turn() { --core_.depth_; }
  Turn(const Turn&) = delete;
  Turn& operator=(const Turn&) = delete;

 private:
  Core& core_;
};

py::object Core::Call(std::size_t member, const py::args& given) {
  if (member >= Members().size()) throw py::index_error("no such member");
  const Member& listed = Members()[member];
  const Binding* const binding = FindBinding(listed.name, listed.kind);
  if (binding == nullptr) throw py::index_error("a member without a binding");
  if (given.size() != binding->arguments) throw py::type_error("a wrong count of arguments");
  std::vector<py::object> arguments;
  for (const py::handle argument : given) {
    arguments.push_back(py::reinterpret_borrow<py::object>(argument));
  }
  const Turn turn(*this);
  PythonDesktop::Call call(desktop_);
  try {
    py::object result = binding->call(model_, arguments);
    call.Rethrow();
    return result;
  } catch (...) {
    call.Rethrow();
    throw;
  }
}

}  // namespace quarvel::python
