#include "python/component/values.h"

#include <cmath>
#include <limits>
#include <string_view>
#include <utility>

#include "platform/automation_error.h"

namespace quarvel::python {
namespace {

[[noreturn]] void RaiseTypeMismatch() { RaiseRunTimeError(RunTimeError::kTypeMismatch); }

// What the interpreter could not convert: what it says of that is dropped.
template <class Value>
Value Converted(Value value, bool failed, RunTimeError number) {
  if (!failed) return value;
  PyErr_Clear();
  RaiseRunTimeError(number);
}

std::string Encoded(py::handle text, const char* errors) {
  const auto bytes =
      py::reinterpret_steal<py::object>(PyUnicode_AsEncodedString(text.ptr(), "utf-8", errors));
  if (!bytes) {
    PyErr_Clear();
    RaiseTypeMismatch();
  }
  return {PyBytes_AS_STRING(bytes.ptr()), static_cast<std::size_t>(PyBytes_GET_SIZE(bytes.ptr()))};
}

double FromInteger(py::handle value) {
  const double number = PyLong_AsDouble(value.ptr());
  return Converted(number, PyErr_Occurred() != nullptr, RunTimeError::kOverflow);
}

// A number of a library's own type: one that stands for an integer, or for a float.
model::Variant FromNumber(py::handle value) {
  const PyNumberMethods* const methods = Py_TYPE(value.ptr())->tp_as_number;
  if (methods == nullptr) return model::Variant::Null{};
  if (methods->nb_index != nullptr) {
    const auto integer = py::reinterpret_steal<py::object>(PyNumber_Index(value.ptr()));
    if (integer) return FromInteger(integer);
    PyErr_Clear();
  }
  if (methods->nb_float == nullptr) return model::Variant::Null{};
  const double number = PyFloat_AsDouble(value.ptr());
  return Converted(number, PyErr_Occurred() != nullptr, RunTimeError::kTypeMismatch);
}

// Halves go to the even neighbour, as they do in the hosts of the automation object.
template <class Integer>
Integer Rounded(py::handle value) {
  const double number = std::nearbyint(ToVariant(value).ToDouble());
  using Limits = std::numeric_limits<Integer>;
  const bool fits = number >= double{Limits::min()} && number <= double{Limits::max()};
  if (!fits) RaiseRunTimeError(RunTimeError::kOverflow);
  return static_cast<Integer>(number);
}

}  // namespace

bool IsVariant(py::handle value) {
  return py::hasattr(value, "varianttype") && py::hasattr(value, "value");
}

py::object PlainValue(py::handle value) {
  auto plain = py::reinterpret_borrow<py::object>(value);
  while (IsVariant(plain)) plain = plain.attr("value");
  return plain;
}

model::Variant ToVariant(py::handle value) {
  if (value.is_none()) return model::Variant::Null{};
  if (PyBool_Check(value.ptr())) return value.ptr() == Py_True;
  if (PyUnicode_Check(value.ptr())) return Encoded(value, "strict");
  if (PyLong_Check(value.ptr())) return FromInteger(value);
  if (PyFloat_Check(value.ptr())) return PyFloat_AS_DOUBLE(value.ptr());
  if (IsVariant(value)) return ToVariant(PlainValue(value));
  return FromNumber(value);
}

template <>
std::int32_t FromPython(py::handle value) {
  return Rounded<std::int32_t>(value);
}

template <>
std::int16_t FromPython(py::handle value) {
  return Rounded<std::int16_t>(value);
}

template <>
double FromPython(py::handle value) {
  return ToVariant(value).ToDouble();
}

template <>
bool FromPython(py::handle value) {
  const py::object plain = PlainValue(value);
  if (PyUnicode_Check(plain.ptr())) {
    const std::string word = Encoded(plain.attr("lower")(), "strict");
    if (word == "true" || word == "false") return word == "true";
  }
  return ToVariant(plain).ToDouble() != 0;
}

template <>
std::string FromPython(py::handle value) {
  return ToVariant(value).ToText();
}

template <>
PathText FromPython(py::handle value) {
  const py::object plain = PlainValue(value);
  if (!PyUnicode_Check(plain.ptr()) && !py::hasattr(plain, "__fspath__")) {
    return {ToVariant(plain).ToText()};
  }
  return {Encoded(py::module_::import("os").attr("fsdecode")(plain), "surrogateescape")};
}

template <>
model::Variant FromPython(py::handle value) {
  return ToVariant(value);
}

template <>
std::vector<double> FromPython(py::handle value) {
  const py::object plain = PlainValue(value);
  if (PyUnicode_Check(plain.ptr()) || PySequence_Check(plain.ptr()) == 0) RaiseTypeMismatch();
  const auto items =
      py::reinterpret_steal<py::object>(PySequence_Fast(plain.ptr(), "a sequence of numbers"));
  if (!items) throw py::error_already_set();
  std::vector<double> numbers;
  numbers.reserve(static_cast<std::size_t>(PySequence_Fast_GET_SIZE(items.ptr())));
  // A conversion may run code that changes the list.
  for (Py_ssize_t i = 0; i < PySequence_Fast_GET_SIZE(items.ptr()); ++i) {
    const auto item = py::reinterpret_borrow<py::object>(PySequence_Fast_GET_ITEM(items.ptr(), i));
    numbers.push_back(FromPython<double>(item));
  }
  return numbers;
}

py::str ToPythonText(const std::string& text) {
  PyObject* const decoded =
      PyUnicode_DecodeUTF8(text.data(), static_cast<Py_ssize_t>(text.size()), "surrogateescape");
  if (decoded == nullptr) throw py::error_already_set();
  return py::reinterpret_steal<py::str>(decoded);
}

py::tuple ToPython(const std::vector<double>& values) {
  py::tuple items(values.size());
  for (std::size_t i = 0; i < values.size(); ++i) items[i] = py::float_(values[i]);
  return items;
}

}  // namespace quarvel::python
