# GTest::gtest and GTest::gtest_main: Debian's libraries, or their sources compiled for Windows.
if(NOT CMAKE_CROSSCOMPILING)
  find_package(GTest REQUIRED)
  return()
endif()

set(QUARVEL_GOOGLETEST "/usr/src/googletest/googletest" CACHE PATH "GoogleTest's sources")
if(NOT EXISTS "${QUARVEL_GOOGLETEST}/src/gtest-all.cc")
  message(FATAL_ERROR "GoogleTest's sources are not in ${QUARVEL_GOOGLETEST}")
endif()
add_library(gtest STATIC "${QUARVEL_GOOGLETEST}/src/gtest-all.cc")
target_include_directories(
  gtest SYSTEM
  PUBLIC "${PROJECT_SOURCE_DIR}/tests/googletest" "${QUARVEL_GOOGLETEST}/include"
  PRIVATE "${QUARVEL_GOOGLETEST}")
target_compile_definitions(gtest PUBLIC GTEST_HAS_PTHREAD=0)
target_compile_options(gtest PRIVATE -w)
add_library(gtest_main STATIC "${QUARVEL_GOOGLETEST}/src/gtest_main.cc")
target_link_libraries(gtest_main PUBLIC gtest)
add_library(GTest::gtest ALIAS gtest)
add_library(GTest::gtest_main ALIAS gtest_main)
