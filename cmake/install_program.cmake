# What cmake --install puts where for users. Components: `program` is the command, `viewer` its windows on
# Linux, with what a desktop needs to open a model in them, `automation` Quarvel.dll with what stands beside it, `documentation` the manual, the scripts that
# complete command lines, the pages of docs/ and the licence.
include(GNUInstallDirs)
set(doc_folder "${CMAKE_INSTALL_DATAROOTDIR}/doc/quarvel")
set(readme "${CMAKE_RUNTIME_OUTPUT_DIRECTORY}/quarvel.readme.txt")

install(TARGETS quarvel RUNTIME COMPONENT program)
if(TARGET quarvel-view)
  install(TARGETS quarvel-view RUNTIME COMPONENT viewer)
endif()
if(TARGET quarvel-view AND NOT WIN32)
  set(share "${CMAKE_INSTALL_DATAROOTDIR}")
  install(FILES packaging/desktop/quarvel-view.desktop DESTINATION "${share}/applications"
          COMPONENT viewer)
  install(FILES packaging/desktop/quarvel.xml DESTINATION "${share}/mime/packages"
          COMPONENT viewer)
  install(FILES packaging/icons/quarvel.svg DESTINATION "${share}/icons/hicolor/scalable/apps"
          COMPONENT viewer)
  # What its Help shows: no document, as systems may be without theirs.
  install(FILES "${readme}" DESTINATION "${share}/quarvel" COMPONENT viewer)
endif()
if(WIN32)
  install(TARGETS Quarvel RUNTIME COMPONENT automation)
  install(FILES "${QUARVEL_MADE}/packaging/Quarvel.Component.manifest"
                "${PROJECT_BINARY_DIR}/automation/quarvel.tlb"
          DESTINATION "${CMAKE_INSTALL_BINDIR}" COMPONENT automation)
  # Beside whatever has a Help menu.
  install(FILES "${readme}" DESTINATION "${CMAKE_INSTALL_BINDIR}" COMPONENT program)
endif()

install(FILES LICENSE README.md DESTINATION "${doc_folder}" COMPONENT documentation)
install(DIRECTORY docs/ DESTINATION "${doc_folder}/docs" COMPONENT documentation)
install(DIRECTORY examples DESTINATION "${doc_folder}" COMPONENT documentation
        PATTERN "__pycache__" EXCLUDE)
if(TARGET quarvel_manual)
  install(DIRECTORY "${CMAKE_BINARY_DIR}/share/" DESTINATION "${CMAKE_INSTALL_DATAROOTDIR}"
          COMPONENT documentation)
endif()
