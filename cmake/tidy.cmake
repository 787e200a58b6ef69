# clang-tidy runs beside the compiler, so that the build system knows which files need it again. The
# configuration stands in the command line: a changed .clang-tidy checks everything anew.
if(QUARVEL_TIDY)
  find_program(QUARVEL_CLANG_TIDY clang-tidy REQUIRED)
  set(config "${PROJECT_SOURCE_DIR}/.clang-tidy")
  set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS "${config}")
  file(SHA256 "${config}" config_hash)
  set(CMAKE_CXX_CLANG_TIDY "${QUARVEL_CLANG_TIDY}" --quiet "--config-file=${config}"
                           "--extra-arg=-DQUARVEL_TIDY_CONFIGURATION=0x${config_hash}")
endif()
