# quarvel_files(<variable> <pattern> <folder>...)
# The files of that pattern that stand directly in the folders, without those of another system:
# names that end in _win32 or _posix (and tests of such files) belong to that system alone.
function(quarvel_files variable pattern)
  list(TRANSFORM ARGN APPEND "/${pattern}")
  list(TRANSFORM ARGN PREPEND "${PROJECT_SOURCE_DIR}/")
  file(GLOB found CONFIGURE_DEPENDS ${ARGN})
  if(WIN32)
    set(other_system posix)
  else()
    set(other_system win32)
  endif()
  list(FILTER found EXCLUDE REGEX "_${other_system}(_test)?\\.[a-z]+$")
  set(${variable} ${found} PARENT_SCOPE)
endfunction()

# quarvel_together(<target>)
# Sources of a target are compiled several at a time, which reads the headers they share once: a build
# takes a third of the time. What is measured is compiled file by file all the same, so that a figure
# hangs on no neighbour. So names without linkage are told apart within a room, not within a file alone.
# QUARVEL_TOGETHER=OFF compiles every file on its own; then an include that a source forgets shows.
set(quarvel_each_alone "^${PROJECT_SOURCE_DIR}/(text|model|mps|simplify)/")
function(quarvel_together target)
  if(NOT QUARVEL_TOGETHER)
    return()
  endif()
  set_target_properties(${target} PROPERTIES UNITY_BUILD ON UNITY_BUILD_BATCH_SIZE 8)
  get_target_property(sources ${target} SOURCES)
  list(FILTER sources INCLUDE REGEX "${quarvel_each_alone}")
  set_source_files_properties(${sources} PROPERTIES SKIP_UNITY_BUILD_INCLUSION ON)
endfunction()

# quarvel_library(<name> <folder>...)
# A static library of the folders' sources; main.cpp and view_main.cpp belong to programs, and what is called _win32 in
# the drawer's folder of that name to the component.
function(quarvel_library name)
  quarvel_files(sources "*.cpp" ${ARGN})
  quarvel_files(headers "*.h" ${ARGN})
  list(FILTER sources EXCLUDE REGEX "/(view_)?main\\.cpp$|platform/win32/[^/]*_win32\\.cpp$")
  add_library(${name} STATIC ${sources})
  quarvel_together(${name})
  # A module of Python is a shared library. Hidden symbols keep the code of the programs as fast as ever.
  if(QUARVEL_BUILDS_PYTHON AND name MATCHES "${quarvel_below_python}")
    set_target_properties(${name} PROPERTIES POSITION_INDEPENDENT_CODE ON CXX_VISIBILITY_PRESET hidden
                                             VISIBILITY_INLINES_HIDDEN ON)
  endif()
  quarvel_harden(${name})
  target_sources(${name} PUBLIC FILE_SET HEADERS BASE_DIRS "${PROJECT_SOURCE_DIR}"
                                FILES ${headers})
endfunction()
