// Texts between Python and the library, which has UTF-8.
#pragma once

#include <string>
#include <string_view>

#include <pybind11/pybind11.h>

#include "quarvel/error.h"

namespace quarvel::python {

// Paths, and messages that name one, may have bytes that are no UTF-8, which Python has as surrogates.
inline pybind11::str Told(std::string_view text) {
  PyObject* const decoded = PyUnicode_DecodeUTF8(
      text.data(), static_cast<pybind11::ssize_t>(text.size()), "surrogateescape");
  if (decoded == nullptr) throw pybind11::error_already_set();
  return pybind11::reinterpret_steal<pybind11::str>(decoded);
}

// Error `code` where the text has surrogates, which stand for no letter.
inline std::string Utf8(const pybind11::str& text, ErrorCode code) {
  pybind11::ssize_t size = 0;
  const char* const bytes = PyUnicode_AsUTF8AndSize(text.ptr(), &size);
  if (bytes != nullptr) return {bytes, static_cast<std::size_t>(size)};
  if (PyErr_ExceptionMatches(PyExc_UnicodeEncodeError) == 0) throw pybind11::error_already_set();
  PyErr_Clear();
  throw Error(code, "A text has a surrogate, which is no letter");
}

}  // namespace quarvel::python
