# GTest::gtest_main: Debian's libraries, or their sources compiled for Windows.
if(NOT CMAKE_CROSSCOMPILING)
  find_package(GTest REQUIRED)
  return()
endif()

set(QUARVEL_GOOGLETEST "/usr/src/googletest/googletest" CACHE PATH "GoogleTest's sources")
if(NOT EXISTS "${QUARVEL_GOOGLETEST}/src/gtest-all.cc")
  message(FATAL_ERROR "GoogleTest's sources are not in ${QUARVEL_GOOGLETEST}")
endif()
add_library(googletest STATIC "${QUARVEL_GOOGLETEST}/src/gtest-all.cc"
                              "${QUARVEL_GOOGLETEST}/src/gtest_main.cc")
target_include_directories(
  googletest SYSTEM
  PUBLIC "${PROJECT_SOURCE_DIR}/tests/googletest" "${QUARVEL_GOOGLETEST}/include"
  PRIVATE "${QUARVEL_GOOGLETEST}")
target_compile_definitions(googletest PUBLIC GTEST_HAS_PTHREAD=0)
target_compile_options(googletest PRIVATE -w)
add_library(GTest::gtest_main ALIAS googletest)
