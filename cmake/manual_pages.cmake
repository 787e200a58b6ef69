# The manual as HTML, by mkdocs of Debian's packages, and as one file for paper where there is a browser that
# prints: the target `manual`. Nothing of it is needed to build or to test the programs.
find_program(QUARVEL_MKDOCS mkdocs)
find_program(QUARVEL_PRINTER chromium)
set(site "${PROJECT_BINARY_DIR}/manual")
if(QUARVEL_MKDOCS)
  set(make_manual COMMAND "${QUARVEL_MKDOCS}" build --quiet --strict --clean --site-dir "${site}")
  if(QUARVEL_PRINTER)
    list(APPEND make_manual COMMAND "${PROJECT_SOURCE_DIR}/cmake/print_manual.sh" "${QUARVEL_PRINTER}" "${site}")
  endif()
  list(APPEND make_manual COMMAND "${CMAKE_COMMAND}" -E echo "The manual begins at ${site}/index.html")
else()
  set(make_manual COMMAND "${CMAKE_COMMAND}" -E echo
                  "There is no mkdocs: cmake/setup.sh manual installs it; then configure again."
          COMMAND "${CMAKE_COMMAND}" -E false)
endif()
add_custom_target(manual ${make_manual} WORKING_DIRECTORY "${PROJECT_SOURCE_DIR}" VERBATIM)
