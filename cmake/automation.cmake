# Quarvel.dll: the interface, compiled from its one description, and the component around it.
set(generated "${PROJECT_BINARY_DIR}/automation")
set(idl "${PROJECT_SOURCE_DIR}/automation/quarvel.idl")
file(MAKE_DIRECTORY "${generated}")

# Debian keeps the compiler of interfaces, the system's own descriptions and the system's own type
# library in three packages.
find_program(QUARVEL_WIDL ${triple}-widl REQUIRED)
find_path(QUARVEL_SYSTEM_IDL oaidl.idl REQUIRED
          PATHS /usr/include/wine/wine/windows /usr/include/wine/windows NO_DEFAULT_PATH NO_CMAKE_FIND_ROOT_PATH)
find_path(QUARVEL_SYSTEM_TLB stdole2.tlb REQUIRED
          PATHS /usr/lib/x86_64-linux-gnu/wine/x86_64-windows
                /usr/lib/aarch64-linux-gnu/wine/aarch64-windows NO_DEFAULT_PATH NO_CMAKE_FIND_ROOT_PATH)
# A type library carries the time it was made at: one that stays keeps two builds alike.
set(widl "${CMAKE_COMMAND}" -E env WIDL_TIME_OVERRIDE=0 "${QUARVEL_WIDL}"
         "-I${QUARVEL_SYSTEM_IDL}" "-L${QUARVEL_SYSTEM_TLB}")
add_custom_command(
  OUTPUT "${generated}/quarvel_idl.h" "${generated}/quarvel.tlb"
  COMMAND ${widl} -h -H quarvel_idl.h "${idl}"
  COMMAND ${widl} -t -T quarvel.tlb "${idl}"
  WORKING_DIRECTORY "${generated}"
  DEPENDS "${idl}"
  VERBATIM)
quarvel_members(table "${generated}/quarvel_members.inc")
quarvel_members(declarations "${generated}/quarvel_object_members.inc")
add_custom_target(
  quarvel_idl_files
  DEPENDS "${generated}/quarvel_idl.h" "${generated}/quarvel.tlb"
          "${generated}/quarvel_members.inc" "${generated}/quarvel_object_members.inc")

# What an early-bound C++ host compiles against.
add_library(quarvel_idl INTERFACE)
add_dependencies(quarvel_idl quarvel_idl_files)
target_include_directories(quarvel_idl SYSTEM INTERFACE "${generated}")
target_link_libraries(quarvel_idl INTERFACE ole32 oleaut32 uuid)

# All but the entry points is a library, so that tests can link it.
quarvel_library(quarvel_automation automation)
target_link_libraries(quarvel_automation PUBLIC quarvel_component quarvel_idl)
target_compile_definitions(quarvel_automation PUBLIC NOMINMAX WIN32_LEAN_AND_MEAN)
# It defines the identifiers that every other source only declares.
set_source_files_properties(automation/registration.cpp PROPERTIES SKIP_UNITY_BUILD_INCLUSION ON)

add_library(Quarvel SHARED automation/main.cpp automation/quarvel.def automation/quarvel.rc
                           platform/win32/common_controls.rc)
set_target_properties(Quarvel PROPERTIES PREFIX "" IMPORT_PREFIX "")
target_link_libraries(Quarvel PRIVATE quarvel_automation quarvel_win32)
quarvel_harden(Quarvel)
# The entry points are listed by their plain names, whatever the calling convention adds to them.
target_link_options(Quarvel PRIVATE -Wl,--enable-stdcall-fixup)
set_source_files_properties(
  automation/quarvel.rc
  PROPERTIES INCLUDE_DIRECTORIES "${generated};${QUARVEL_MADE}"
             OBJECT_DEPENDS
             "${generated}/quarvel.tlb;${QUARVEL_MADE}/text/version.h;${PROJECT_SOURCE_DIR}/packaging/icons/quarvel.ico")

# What registers it from the set-up program.
add_executable(quarvel_register WIN32 packaging/windows/register.cpp packaging/windows/register.rc)
set_target_properties(quarvel_register PROPERTIES OUTPUT_NAME register)
target_compile_definitions(quarvel_register PRIVATE UNICODE _UNICODE _WIN32_WINNT=0x0A00)
quarvel_harden(quarvel_register)
set_source_files_properties(
  packaging/windows/register.rc
  PROPERTIES INCLUDE_DIRECTORIES "${QUARVEL_MADE}"
             OBJECT_DEPENDS
             "${QUARVEL_MADE}/text/version.h;${PROJECT_SOURCE_DIR}/packaging/icons/quarvel.ico")

# For programs that use the component without registering it, and one that does.
configure_file("${QUARVEL_MADE}/packaging/Quarvel.Component.manifest"
               "${CMAKE_RUNTIME_OUTPUT_DIRECTORY}/Quarvel.Component.manifest" COPYONLY)
add_executable(quarvel_tour examples/automation/tour.cpp examples/automation/tour.rc)
target_link_libraries(quarvel_tour PRIVATE quarvel_idl)
set_source_files_properties(
  examples/automation/tour.rc
  PROPERTIES INCLUDE_DIRECTORIES "${PROJECT_SOURCE_DIR}/examples/automation"
             OBJECT_DEPENDS "${PROJECT_SOURCE_DIR}/examples/automation/tour.manifest")
