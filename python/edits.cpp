// Changes of a model, one by one and in bulk.

#include <pybind11/numpy.h>

#include "python/core.h"
#include "python/texts.h"

namespace quarvel::python {
namespace {

namespace py = pybind11;
template <class T>
using Given = py::array_t<T, py::array::c_style | py::array::forcecast>;

ColumnType TypeOf(bool is_integer) {
  return is_integer ? ColumnType::kInteger : ColumnType::kContinuous;
}

void AddElements(SharedModel& shared, const Given<std::int32_t>& rows,
                 const Given<std::int32_t>& columns, const Given<double>& values) {
  const Use use(shared);
  if (rows.size() != columns.size() || rows.size() != values.size()) {
    throw Error(ErrorCode::kValue, "Rows, columns and values differ in number");
  }
  const std::int32_t* row = rows.data();
  const std::int32_t* column = columns.data();
  const double* value = values.data();
  for (py::ssize_t k = 0; k < rows.size(); ++k) {
    shared.model.AddElement(row[k], column[k], value[k]);
  }
}

void AddAdding(ModelClass& model) {
  model
      .def("add_row",
           [](SharedModel& shared, const py::str& name, double lower, double upper) {
             const Use use(shared);
             return shared.model.AddRow(Utf8(name, ErrorCode::kName), {lower, upper});
           })
      .def("add_column",
           [](SharedModel& shared, const py::str& name, double lower, double upper,
              bool is_integer) {
             const Use use(shared);
             return shared.model.AddColumn(Utf8(name, ErrorCode::kName), {lower, upper},
                                           TypeOf(is_integer));
           })
      .def("add_elements", &AddElements)
      .def("set_coefficient",
           [](SharedModel& shared, std::int32_t row, std::int32_t column, double value) {
             const Use use(shared);
             shared.model.SetCoefficient(row, column, value);
           });
}

void AddRemoving(ModelClass& model) {
  model
      .def("remove_row",
           [](SharedModel& shared, std::int32_t row) {
             const Use use(shared);
             shared.model.RemoveRow(row);
           })
      .def("remove_column",
           [](SharedModel& shared, std::int32_t column) {
             const Use use(shared);
             shared.model.RemoveColumn(column);
           })
      .def("remove_element", [](SharedModel& shared, std::int32_t row, std::int32_t k) {
        const Use use(shared);
        shared.model.RemoveElement(row, k);
      });
}

}  // namespace

void AddEdits(ModelClass& model) {
  AddAdding(model);
  AddRemoving(model);
  model
      .def("rename_row",
           [](SharedModel& shared, std::int32_t row, const py::str& name) {
             const Use use(shared);
             shared.model.RenameRow(row, Utf8(name, ErrorCode::kName));
           })
      .def("rename_column",
           [](SharedModel& shared, std::int32_t column, const py::str& name) {
             const Use use(shared);
             shared.model.RenameColumn(column, Utf8(name, ErrorCode::kName));
           })
      .def("set_row_bounds",
           [](SharedModel& shared, std::int32_t row, double lower, double upper) {
             const Use use(shared);
             shared.model.SetRowBounds(row, {lower, upper});
           })
      .def("set_column_bounds",
           [](SharedModel& shared, std::int32_t column, double lower, double upper) {
             const Use use(shared);
             shared.model.SetColumnBounds(column, {lower, upper});
           })
      .def("set_column_integer", [](SharedModel& shared, std::int32_t column, bool is_integer) {
        const Use use(shared);
        shared.model.SetColumnType(column, TypeOf(is_integer));
      });
}

}  // namespace quarvel::python
