# Quarvel::quarvel, the library for C++ programs: one file that holds the rooms it stands on, and the
# headers of include/quarvel, which are all that a program sees. Static, or shared where
# BUILD_SHARED_LIBS asks for that: then with hidden symbols and an SO version. docs/library.md tells what
# of it stays.
set(public_headers "${PROJECT_SOURCE_DIR}/include")
target_include_directories(quarvel_api PUBLIC "${public_headers}")
file(GLOB headers CONFIGURE_DEPENDS "${public_headers}/quarvel/*.h")

foreach(room text platform model mps simplify inspect api)
  list(APPEND objects "$<TARGET_OBJECTS:quarvel_${room}>")
endforeach()
add_library(quarvel_cpp ${objects})
add_library(Quarvel::quarvel ALIAS quarvel_cpp)
target_sources(quarvel_cpp PUBLIC FILE_SET HEADERS BASE_DIRS "${public_headers}" FILES ${headers})
target_compile_features(quarvel_cpp PUBLIC cxx_std_20)
# A minor version may add members to what is passed by value, so that it is another library to a program
# that is built already; its sources stay good until the next major version.
set_target_properties(
  quarvel_cpp
  PROPERTIES OUTPUT_NAME quarvel
             EXPORT_NAME quarvel
             LINKER_LANGUAGE CXX
             VERSION "${PROJECT_VERSION}"
             SOVERSION "${PROJECT_VERSION_MAJOR}.${PROJECT_VERSION_MINOR}")

if(BUILD_SHARED_LIBS)
  target_compile_definitions(quarvel_api PRIVATE QUARVEL_SHARED QUARVEL_BUILDING)
  target_compile_definitions(quarvel_cpp INTERFACE QUARVEL_SHARED)
  if(WIN32)
    target_link_options(quarvel_cpp PRIVATE -fstack-protector-strong)
  else()
    target_link_options(quarvel_cpp PRIVATE -Wl,-z,relro,-z,now,-z,noexecstack,--no-undefined)
  endif()
elseif(WIN32 AND CMAKE_BUILD_TYPE STREQUAL "Release")
  # Where the compiler has the check of the stack (cmake/hardening.cmake).
  target_link_libraries(quarvel_cpp INTERFACE ssp)
endif()
