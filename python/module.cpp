// The module quarvel._core: the library as the package's sources in Python stand on it.

#include <array>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

#include "python/core.h"
#include "python/lock.h"
#include "python/texts.h"

namespace quarvel::python {
namespace {

namespace py = pybind11;

// Of quarvel.errors, in the order of ErrorCode.
constexpr std::array kClasses = {"NumberError", "NameRefused", "ValueRefused", "FullError",
                                 "BusyError",   "FileError",   "Error"};

// A number that there is none of is told as the component tells its hosts; here it is one sentence.
std::string Sentence(std::string text) {
  constexpr std::string_view kSource = "Quarvel.dll error: ";
  if (!text.starts_with(kSource)) return text;
  text.erase(0, kSource.size());
  return text.substr(0, text.find_first_of(".\r\n"));
}

void Translate(std::exception_ptr thrown) {
  try {
    if (thrown) std::rethrow_exception(std::move(thrown));
  } catch (const Error& error) {
    const py::object type = py::module_::import("quarvel.errors")
                                .attr(kClasses.at(static_cast<std::size_t>(error.code())));
    PyErr_SetString(type.ptr(), Sentence(error.what()).c_str());
  }
}

std::unique_ptr<SharedModel> Copied(SharedModel& shared) {
  const Use use(shared);
  auto copy = std::make_unique<SharedModel>();
  const Unlocked unlocked;
  copy->model = shared.model.Copy();
  return copy;
}

py::dict FactsOf(SharedModel& shared) {
  const Use use(shared);
  const Facts facts = shared.model.facts();
  py::dict told;
  told["sense"] = static_cast<int>(facts.sense);
  told["objective"] = facts.objective;
  told["objective_constant"] = facts.objective_constant;
  told["rhs_set"] = facts.rhs_set;
  told["ranges_set"] = facts.ranges_set;
  told["bounds_set"] = facts.bounds_set;
  return told;
}

void SetFacts(SharedModel& shared, const py::dict& told) {
  const Use use(shared);
  Facts facts;
  facts.sense = static_cast<ObjectiveSense>(told["sense"].cast<int>());
  facts.objective = Utf8(told["objective"].cast<py::str>(), ErrorCode::kValue);
  facts.objective_constant = told["objective_constant"].cast<double>();
  facts.rhs_set = told["rhs_set"].cast<std::string>();
  facts.ranges_set = told["ranges_set"].cast<std::string>();
  facts.bounds_set = told["bounds_set"].cast<std::string>();
  shared.model.set_facts(facts);
}

void AddWhole(ModelClass& model) {
  model.def(py::init<>())
      .def("copy", &Copied)
      // What a failed group of edits goes back to.
      .def("take",
           [](SharedModel& shared, SharedModel& other) {
             const Use use(shared);
             const Use other_use(other);
             shared.model = std::move(other.model);
             other.model = Model();
           })
      .def("counts",
           [](SharedModel& shared) {
             const Use use(shared);
             return py::make_tuple(shared.model.row_count(), shared.model.column_count(),
                                   shared.model.element_count());
           })
      .def("texts",
           [](SharedModel& shared) {
             const Use use(shared);
             return py::make_tuple(shared.model.name(), shared.model.description(),
                                   Told(shared.model.path()));
           })
      .def("set_name",
           [](SharedModel& shared, const py::str& name) {
             const Use use(shared);
             shared.model.set_name(Utf8(name, ErrorCode::kValue));
           })
      .def("set_description",
           [](SharedModel& shared, const py::str& description) {
             const Use use(shared);
             shared.model.set_description(Utf8(description, ErrorCode::kValue));
           })
      .def("facts", &FactsOf)
      .def("set_facts", &SetFacts);
}

void AddAll(py::module_& module) {
  py::register_exception_translator(&Translate);
  module.def("version", [] { return std::string(Version()); });
  ModelClass model(module, "Model");
  AddWhole(model);
  AddReading(model);
  AddArrays(model);
  AddRecords(model);
  AddEdits(model);
  AddWriting(model);
  AddSimplifying(model);
  AddComparing(module);
}

}  // namespace
}  // namespace quarvel::python

PYBIND11_MODULE(_core, module) {
  quarvel::python::ListenForTheEnd();
  quarvel::python::AddAll(module);
}
