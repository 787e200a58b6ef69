// The members of the component as Python calls them, one entry for each of the one list of members
// (automation/quarvel.idl): by name and kind, with arguments in the order of the list.
#pragma once

#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include <pybind11/pybind11.h>

#include "component/lp_model.h"

namespace quarvel::python {

namespace py = pybind11;

struct Member {
  std::string_view name;
  std::string_view kind;  // "get", "let", "set", "method"
  std::string_view
      arguments;            // "long j, long k", a type that is passed by address without its star
  std::string_view result;  // "double"; empty for none
  std::string_view help;
};

// The list, in its order.
std::span<const Member> Members();

using Arguments = std::span<const py::object>;

struct Binding {
  std::string types;  // of the arguments and of the result: "long, long: double"
  std::size_t arguments = 0;
  // Needs the interpreter lock, and gives it up where the work may take long.
  std::function<py::object(LPModel&, Arguments)> call;
};

// What is bound to a member; null for none.
const Binding* FindBinding(std::string_view name, std::string_view kind);

}  // namespace quarvel::python
