# QUARVEL_BUILDS_PYTHON: whether python/ is built: where that is asked for and pybind11 is there.
# QUARVEL_SANITIZER: in a build with the address sanitizer its shared library, which has to be loaded before an
# interpreter that was built without it. Builds with other sanitizers, and those where it is missing, go without.
set(QUARVEL_BUILDS_PYTHON OFF)
set(QUARVEL_SANITIZER "")
if(CMAKE_CXX_FLAGS MATCHES "-fsanitize=[a-z,-]*address" AND CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
  execute_process(
    COMMAND "${CMAKE_CXX_COMPILER}" "-print-file-name=libclang_rt.asan-${CMAKE_SYSTEM_PROCESSOR}.so"
    OUTPUT_VARIABLE QUARVEL_SANITIZER
    OUTPUT_STRIP_TRAILING_WHITESPACE)
  if(NOT EXISTS "${QUARVEL_SANITIZER}")
    set(QUARVEL_SANITIZER "")
  endif()
endif()
if(QUARVEL_PYTHON AND QUARVEL_PROGRAM AND NOT CMAKE_CROSSCOMPILING AND
   (QUARVEL_SANITIZER OR NOT CMAKE_CXX_FLAGS MATCHES "-fsanitize"))
  # The system's Python, whose packages cmake/setup.sh installs, before another that a path finds first.
  if(NOT DEFINED Python_EXECUTABLE AND EXISTS /usr/bin/python3)
    set(Python_EXECUTABLE /usr/bin/python3)
  endif()
  find_package(Python 3.9 QUIET COMPONENTS Interpreter Development.Module)
  find_package(pybind11 2.10 QUIET CONFIG)
  if(Python_Development.Module_FOUND AND pybind11_FOUND)
    set(QUARVEL_BUILDS_PYTHON ON)
  else()
    message(STATUS "Without the Python package: cmake/setup.sh python installs what it needs")
  endif()
endif()
# The libraries that its modules are linked with.
set(quarvel_below_python
    "^quarvel_(text|platform|model|mps|simplify|inspect|viewer|component|api|packing)$")
