# What automation/members.awk makes of the one list of the component's members, automation/quarvel.idl.
find_program(QUARVEL_AWK awk REQUIRED)

# quarvel_members(<what> <file>)
function(quarvel_members what file)
  get_filename_component(folder "${file}" DIRECTORY)
  file(MAKE_DIRECTORY "${folder}")
  add_custom_command(
    OUTPUT "${file}"
    COMMAND "${QUARVEL_AWK}" -v WANT=${what} -v "OUT=${file}" -f members.awk quarvel.idl
    WORKING_DIRECTORY "${PROJECT_SOURCE_DIR}/automation"
    DEPENDS "${PROJECT_SOURCE_DIR}/automation/members.awk"
            "${PROJECT_SOURCE_DIR}/automation/quarvel.idl"
            "${PROJECT_SOURCE_DIR}/automation/members_notes.txt"
            "${PROJECT_SOURCE_DIR}/automation/members_model.vbs"
    VERBATIM)
endfunction()

# The page is kept in docs/ for readers; a test compares it with what is made here, and the target
# members_page brings it up to date.
set(page "${QUARVEL_MADE}/docs/members.md")
quarvel_members(page "${page}")
add_custom_target(quarvel_members_page DEPENDS "${page}")
add_custom_target(
  members_page
  COMMAND "${CMAKE_COMMAND}" -E copy_if_different "${page}" "${PROJECT_SOURCE_DIR}/docs/members.md"
  DEPENDS "${page}"
  VERBATIM)
