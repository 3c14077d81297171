# The Debian packages, one a component; packaging/debian makes them.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_CONTACT "Tavrikconfig maintainers <maintainers@localhost>")
set(CPACK_VERBATIM_VARIABLES ON)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_ENABLE_COMPONENT_DEPENDS ON)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
# What a binary needs of other packages is read from it; the project's own libraries stand in the build folder.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${CMAKE_LIBRARY_OUTPUT_DIRECTORY})
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)

set(CPACK_DEBIAN_RUNTIME_PACKAGE_NAME libtavrikconfig${PROJECT_VERSION_MAJOR})
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SECTION libs)
# Other fonts do; with these the sheet has the looks that it was drawn for.
set(CPACK_DEBIAN_RUNTIME_PACKAGE_RECOMMENDS fonts-liberation)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME libtavrikconfig-dev)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_HOST_PACKAGE_NAME tavrikhost)
set(CPACK_DEBIAN_HOST_PACKAGE_SECTION editors)

include(CPack)
cpack_add_component(runtime DESCRIPTION "settings sheet of an electrical-schematic drafting add-on
A library with one function, which shows the project and drawing settings of
the host's store in a modal sheet, and the window library that it runs on.")
cpack_add_component(development DEPENDS runtime DESCRIPTION "settings sheet of a drafting add-on, development files
Headers, the static library of the settings store, the CMake package
Tavrikconfig, modules for pkg-config, and documents for a host's programmer.")
cpack_add_component(host DEPENDS runtime DESCRIPTION "edits project and drawing settings in a file
Opens a file of settings in the sheet of libtavrikconfig, saves what was
changed and lists it.")
