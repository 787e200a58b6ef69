// quarvel._component: the model and the list of its members. What scripts use of it is
// python/quarvel/component.py.

#include <utility>

#include <pybind11/pybind11.h>

#include "platform/automation_error.h"
#include "python/component/bindings.h"
#include "python/component/core.h"
#include "python/component/values.h"
#include "python/lock.h"

namespace quarvel::python {
namespace {

// The class of what the component raises: quarvel.LPModelError.
void RaiseInPython(const AutomationError& error) {
  const py::object type = py::module_::import("quarvel.component").attr("LPModelError");
  const py::object raised =
      type(error.number(), ToPythonText(error.source()), ToPythonText(error.description()));
  PyErr_SetObject(type.ptr(), raised.ptr());
}

void Translate(std::exception_ptr failure) {
  try {
    if (failure) std::rethrow_exception(std::move(failure));
  } catch (const AutomationError& error) {
    RaiseInPython(error);
  }
}

// The list as tuples: name, kind, arguments, result, help, and the types that are bound to it.
py::list MembersForPython() {
  py::list rows;
  for (const Member& member : Members()) {
    const Binding* const binding = FindBinding(member.name, member.kind);
    rows.append(
        py::make_tuple(member.name, member.kind, member.arguments, member.result, member.help,
                       binding == nullptr ? py::object(py::none()) : py::str(binding->types)));
  }
  return rows;
}

// The desktop of a model may be what holds the model: the collector is shown the way there.
int Traverse(PyObject* self, visitproc visit, void* arg) {
  Py_VISIT(Py_TYPE(self));
  auto* const instance = reinterpret_cast<py::detail::instance*>(self);
  if (instance->get_value_and_holder().holder_constructed()) {
    Py_VISIT(py::cast<Core&>(py::handle(self)).desktop().user().ptr());
  }
  return 0;
}

int Clear(PyObject* self) {
  auto* const instance = reinterpret_cast<py::detail::instance*>(self);
  if (instance->get_value_and_holder().holder_constructed()) {
    py::cast<Core&>(py::handle(self)).desktop().set_user(py::none());
  }
  return 0;
}

void MakeCollectable(PyHeapTypeObject* type) {
  type->ht_type.tp_flags |= Py_TPFLAGS_HAVE_GC;
  type->ht_type.tp_traverse = Traverse;
  type->ht_type.tp_clear = Clear;
}

}  // namespace

PYBIND11_MODULE(_component, module) {
  module.doc() = "The model of quarvel.component.";
  ListenForTheEnd();
  py::register_local_exception_translator(Translate);
  py::class_<Core>(module, "Core", py::custom_type_setup(MakeCollectable))
      .def(py::init<py::object>(), py::arg("desktop"))
      .def("call", &Core::Call)
      .def_property(
          "desktop", [](Core& core) { return core.desktop().user(); },
          [](Core& core, py::object user) { core.desktop().set_user(std::move(user)); });
  module.def("members", MembersForPython);
}

}  // namespace quarvel::python
