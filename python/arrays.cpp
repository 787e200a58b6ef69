// The model as arrays of numpy, each filled in one call.

#include <string>
#include <string_view>
#include <vector>

#include <pybind11/numpy.h>

#include "python/core.h"
#include "python/lock.h"

namespace quarvel::python {
namespace {

namespace py = pybind11;
using Numbers = py::array_t<double, py::array::c_style | py::array::forcecast>;

template <class T>
std::span<T> SpanOf(py::array_t<T>& array) {
  return {array.mutable_data(), static_cast<std::size_t>(array.size())};
}

template <class Copy>
py::tuple BoundsOf(SharedModel& shared, std::int32_t count, const Copy& copy) {
  py::array_t<double> lower(count);
  py::array_t<double> upper(count);
  copy(shared.model, SpanOf(lower), SpanOf(upper));
  return py::make_tuple(lower, upper);
}

template <class Copy>
py::tuple MatrixOf(SharedModel& shared, std::int32_t lists, const Copy& copy) {
  const std::int32_t elements = shared.model.element_count();
  py::array_t<std::int32_t> starts(static_cast<py::ssize_t>(lists) + 1);
  py::array_t<std::int32_t> indices(elements);
  py::array_t<double> values(elements);
  {
    const auto first = SpanOf(starts);
    const auto second = SpanOf(indices);
    const auto third = SpanOf(values);
    const Unlocked unlocked;
    copy(shared.model, first, second, third);
  }
  return py::make_tuple(starts, indices, values);
}

template <class Visit>
py::list NamesOf(SharedModel& shared, std::int32_t count, const Visit& visit) {
  py::list names(count);
  std::size_t at = 0;
  visit(shared.model,
        [&](std::string_view name) { names[at++] = py::str(name.data(), name.size()); });
  return names;
}

// One code a record: the letter of a row's type, 1 for an integer column.
py::array_t<std::uint8_t> RowTypesOf(SharedModel& shared) {
  const Use use(shared);
  std::vector<RowType> types(static_cast<std::size_t>(shared.model.row_count()));
  CopyRowTypes(shared.model, types);
  py::array_t<std::uint8_t> codes(shared.model.row_count());
  std::uint8_t* code = codes.mutable_data();
  for (const RowType type : types) *code++ = static_cast<std::uint8_t>(type);
  return codes;
}

py::array_t<std::uint8_t> IntegralityOf(SharedModel& shared) {
  const Use use(shared);
  std::vector<ColumnType> types(static_cast<std::size_t>(shared.model.column_count()));
  CopyColumnTypes(shared.model, types);
  py::array_t<std::uint8_t> codes(shared.model.column_count());
  std::uint8_t* code = codes.mutable_data();
  for (const ColumnType type : types) *code++ = type == ColumnType::kInteger ? 1 : 0;
  return codes;
}

py::array_t<double> ActivitiesOf(SharedModel& shared, const Numbers& point) {
  const Use use(shared);
  py::array_t<double> activities(shared.model.row_count());
  CopyActivities(shared.model, {point.data(), static_cast<std::size_t>(point.size())},
                 SpanOf(activities));
  return activities;
}

}  // namespace

void AddArrays(ModelClass& model) {
  model
      .def("row_bounds",
           [](SharedModel& shared) {
             const Use use(shared);
             return BoundsOf(shared, shared.model.row_count(), &CopyRowBounds);
           })
      .def("column_bounds",
           [](SharedModel& shared) {
             const Use use(shared);
             return BoundsOf(shared, shared.model.column_count(), &CopyColumnBounds);
           })
      .def("row_types", &RowTypesOf)
      .def("integrality", &IntegralityOf)
      .def("matrix_by_rows",
           [](SharedModel& shared) {
             const Use use(shared);
             return MatrixOf(shared, shared.model.row_count(), &CopyMatrixByRows);
           })
      .def("matrix_by_columns",
           [](SharedModel& shared) {
             const Use use(shared);
             return MatrixOf(shared, shared.model.column_count(), &CopyMatrixByColumns);
           })
      .def("activities", &ActivitiesOf)
      .def("row_names",
           [](SharedModel& shared) {
             const Use use(shared);
             return NamesOf(shared, shared.model.row_count(), &VisitRowNames);
           })
      .def("column_names", [](SharedModel& shared) {
        const Use use(shared);
        return NamesOf(shared, shared.model.column_count(), &VisitColumnNames);
      });
}

}  // namespace quarvel::python
