add_compile_options(-Wall -Wextra -Wpedantic -Wshadow -Wconversion)
if(QUARVEL_WERROR)
  add_compile_options(-Werror)
endif()
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  # gcc 12 reports overlaps inside its own std::string when a literal is added in front of one.
  add_compile_options(-Wno-restrict)
endif()
