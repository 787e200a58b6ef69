// One row or column by its number.

#include <cmath>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <pybind11/numpy.h>
#include <pybind11/stl.h>

#include "python/core.h"

namespace quarvel::python {
namespace {

namespace py = pybind11;

py::tuple BoundsTuple(const Bounds& bounds) {
  return py::make_tuple(bounds.has_lower() ? bounds.lower : -HUGE_VAL,
                        bounds.has_upper() ? bounds.upper : HUGE_VAL);
}

py::tuple ElementsTuple(const std::vector<Element>& elements) {
  const auto count = static_cast<py::ssize_t>(elements.size());
  py::array_t<std::int32_t> indices(count);
  py::array_t<double> values(count);
  std::int32_t* index = indices.mutable_data();
  double* value = values.mutable_data();
  for (const Element& element : elements) {
    *index++ = element.index;
    *value++ = element.value;
  }
  return py::make_tuple(indices, values);
}

}  // namespace

void AddRecords(ModelClass& model) {
  // A look at the model by a function of its number.
  const auto add = [&model](const char* name, auto look) {
    model.def(name, [look](SharedModel& shared, std::int32_t number) {
      const Use use(shared);
      return look(shared.model, number);
    });
  };
  const auto find = [&model](const char* name, auto look) {
    model.def(name, [look](SharedModel& shared, const py::str& record) {
      const Use use(shared);
      py::ssize_t size = 0;
      const char* const bytes = PyUnicode_AsUTF8AndSize(record.ptr(), &size);
      // A name with a surrogate is nobody's.
      if (bytes == nullptr) PyErr_Clear();
      return bytes == nullptr ? std::nullopt
                              : look(shared.model, {bytes, static_cast<std::size_t>(size)});
    });
  };
  find("find_row", [](const Model& m, std::string_view name) { return m.FindRow(name); });
  find("find_column", [](const Model& m, std::string_view name) { return m.FindColumn(name); });
  add("row_name", [](const Model& m, std::int32_t i) { return m.NameOfRow(i); });
  add("row_type", [](const Model& m, std::int32_t i) {
    return std::string(1, static_cast<char>(m.TypeOfRow(i)));
  });
  add("bounds_of_row",
      [](const Model& m, std::int32_t i) { return BoundsTuple(m.BoundsOfRow(i)); });
  add("row_elements",
      [](const Model& m, std::int32_t i) { return ElementsTuple(ElementsOfRow(m, i)); });
  add("equation", [](const Model& m, std::int32_t i) { return EquationOfRow(m, i); });
  add("column_name", [](const Model& m, std::int32_t j) { return m.NameOfColumn(j); });
  add("column_is_integer",
      [](const Model& m, std::int32_t j) { return m.TypeOfColumn(j) == ColumnType::kInteger; });
  add("bounds_of_column",
      [](const Model& m, std::int32_t j) { return BoundsTuple(m.BoundsOfColumn(j)); });
  add("column_elements",
      [](const Model& m, std::int32_t j) { return ElementsTuple(ElementsOfColumn(m, j)); });
  model.def("coefficient", [](SharedModel& shared, std::int32_t row, std::int32_t column) {
    const Use use(shared);
    return shared.model.Coefficient(row, column);
  });
}

}  // namespace quarvel::python
