# The two versions, which stand here and in the project's first line alone: the product's
# (PROJECT_VERSION, semantic versioning) and the component's own, which hosts are registered with and
# which stays as it is. Sources and resource files take them from text/version.h, the manifest of the
# component from QUARVEL_COMPONENT_QUAD.
set(QUARVEL_COMPONENT_VERSION "1.00.0001")

# The four numbers of a Windows version resource: major.minor.0.revision.
string(REGEX MATCH "^([0-9]+)\\.([0-9]+)\\.([0-9]+)$" matched "${QUARVEL_COMPONENT_VERSION}")
math(EXPR major "${CMAKE_MATCH_1}")
math(EXPR minor "${CMAKE_MATCH_2}")
math(EXPR revision "${CMAKE_MATCH_3}")
set(QUARVEL_COMPONENT_QUAD "${major}.${minor}.0.${revision}")
string(REPLACE "." ", " QUARVEL_COMPONENT_NUMBERS "${QUARVEL_COMPONENT_QUAD}")
string(REPLACE "." ", " QUARVEL_PRODUCT_NUMBERS "${PROJECT_VERSION}.0")

# Headers and files that are made while configuring.
set(QUARVEL_MADE "${PROJECT_BINARY_DIR}/generated")
configure_file(text/version.h.in "${QUARVEL_MADE}/text/version.h" @ONLY)
configure_file(packaging/Quarvel.Component.manifest
               "${QUARVEL_MADE}/packaging/Quarvel.Component.manifest" @ONLY)
set_source_files_properties(model/about.cpp PROPERTIES INCLUDE_DIRECTORIES "${QUARVEL_MADE}")
