// Arguments and results between Python and the component, by the rules that a caller of the automation
// object knows: a number may come as text, a text as a number, True is -1. What cannot be converted is
// error 13 (type mismatch), what a number of that size cannot hold is error 6 (overflow).
//
// All of this needs the interpreter lock.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include <pybind11/pybind11.h>

#include "model/variant.h"

namespace quarvel::python {

namespace py = pybind11;

// A path of a file: a str, or what os.fspath takes. Its bytes are the system's, UTF-8 or not.
struct PathText {
  std::string text;
};

// The value behind variants by reference (IsVariant), each of which holds the next.
py::object PlainValue(py::handle value);
// Whether it is what quarvel.component calls a VARIANT: an object with a type and a value that is handed back.
bool IsVariant(py::handle value);

// None and what is neither a number nor a text become Null.
model::Variant ToVariant(py::handle value);

template <class Value>
Value FromPython(py::handle value);
template <>
std::int32_t FromPython(py::handle value);
template <>
std::int16_t FromPython(py::handle value);
template <>
double FromPython(py::handle value);
template <>
bool FromPython(py::handle value);
template <>
std::string FromPython(py::handle value);
template <>
PathText FromPython(py::handle value);
template <>
model::Variant FromPython(py::handle value);
// Any sequence of numbers.
template <>
std::vector<double> FromPython(py::handle value);

// Text that is no UTF-8 (the path of a file) comes as os.fsdecode gives it.
py::str ToPythonText(const std::string& text);
inline py::object ToPython(std::int32_t value) { return py::int_(value); }
inline py::object ToPython(std::int16_t value) { return py::int_(value); }
inline py::object ToPython(double value) { return py::float_(value); }
inline py::object ToPython(bool value) { return py::bool_(value); }
inline py::object ToPython(const std::string& value) { return ToPythonText(value); }
py::tuple ToPython(const std::vector<double>& values);

// The types by the words of the list of members.
template <class Value>
struct TypeWord;
template <>
struct TypeWord<std::int32_t> {
  static constexpr const char* kWord = "long";
};
template <>
struct TypeWord<std::int16_t> {
  static constexpr const char* kWord = "short";
};
template <>
struct TypeWord<double> {
  static constexpr const char* kWord = "double";
};
template <>
struct TypeWord<bool> {
  static constexpr const char* kWord = "VARIANT_BOOL";
};
template <>
struct TypeWord<std::string> {
  static constexpr const char* kWord = "BSTR";
};
template <>
struct TypeWord<PathText> {
  static constexpr const char* kWord = "BSTR";
};
template <>
struct TypeWord<model::Variant> {
  static constexpr const char* kWord = "VARIANT";
};
template <>
struct TypeWord<void> {
  static constexpr const char* kWord = "";
};

}  // namespace quarvel::python
