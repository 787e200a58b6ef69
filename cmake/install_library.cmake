# What cmake --install puts where for C++ programs. Components: `library` is what a program that is linked
# with a shared library needs, `development` what one needs to be built.
include(GNUInstallDirs)
include(CMakePackageConfigHelpers)
set(package_folder "${CMAKE_INSTALL_LIBDIR}/cmake/Quarvel")

install(TARGETS quarvel_cpp EXPORT QuarvelTargets
        RUNTIME COMPONENT library
        LIBRARY COMPONENT library NAMELINK_COMPONENT development
        ARCHIVE COMPONENT development
        FILE_SET HEADERS COMPONENT development)
install(EXPORT QuarvelTargets NAMESPACE Quarvel:: DESTINATION "${package_folder}"
        COMPONENT development)

configure_package_config_file(cmake/QuarvelConfig.cmake.in "${QUARVEL_MADE}/QuarvelConfig.cmake"
                              INSTALL_DESTINATION "${package_folder}" NO_SET_AND_CHECK_MACRO)
write_basic_package_version_file("${QUARVEL_MADE}/QuarvelConfigVersion.cmake"
                                 COMPATIBILITY SameMajorVersion)
install(FILES "${QUARVEL_MADE}/QuarvelConfig.cmake" "${QUARVEL_MADE}/QuarvelConfigVersion.cmake"
        DESTINATION "${package_folder}" COMPONENT development)

# The same for whoever asks pkg-config, by paths from where its file stands, so that the folder of an
# installation can be moved.
foreach(what INCLUDEDIR LIBDIR)
  if(IS_ABSOLUTE "${CMAKE_INSTALL_${what}}")
    set(pc_${what} "${CMAKE_INSTALL_${what}}")
  else()
    set(pc_${what} "\${prefix}/${CMAKE_INSTALL_${what}}")
  endif()
endforeach()
file(RELATIVE_PATH pc_up "${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig" "${CMAKE_INSTALL_PREFIX}")
string(REGEX REPLACE "/$" "" pc_up "${pc_up}")
if(WIN32 AND BUILD_SHARED_LIBS)
  set(pc_cflags " -DQUARVEL_SHARED")
elseif(WIN32 AND CMAKE_BUILD_TYPE STREQUAL "Release")
  set(pc_libs " -lssp")
endif()
configure_file(cmake/quarvel.pc.in "${QUARVEL_MADE}/quarvel.pc" @ONLY)
install(FILES "${QUARVEL_MADE}/quarvel.pc" DESTINATION "${CMAKE_INSTALL_LIBDIR}/pkgconfig"
        COMPONENT development)
