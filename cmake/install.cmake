# What `cmake --install` puts where, and by what programs outside of this tree find it: the CMake package Tavrikconfig, and
# modules for pkg-config. Every path in it is relative, so the installed tree may be moved.
# Components: runtime (the libraries), development (headers, links, documents), host (the sample host).
if(EXISTS /etc/debian_version AND CMAKE_LIBRARY_ARCHITECTURE)
  # Where Debian's linker looks below /usr and /usr/local alike.
  set(CMAKE_INSTALL_LIBDIR lib/${CMAKE_LIBRARY_ARCHITECTURE} CACHE PATH "Folder of libraries")
endif()
include(GNUInstallDirs)
include(CMakePackageConfigHelpers)
set(CMAKE_INSTALL_DEFAULT_COMPONENT_NAME development)
set(WINDOW_HEADERS ${CMAKE_INSTALL_INCLUDEDIR}/tavrikwindow)
set(CMAKE_PACKAGE ${CMAKE_INSTALL_LIBDIR}/cmake/Tavrikconfig)

# A change that old hosts cannot bear changes SOVERSION too.
set_target_properties(tavrikconfig tavrikwindow PROPERTIES VERSION ${PROJECT_VERSION} SOVERSION ${PROJECT_VERSION_MAJOR})
# The run paths serve the build folder too. One that is changed when it is installed has an empty entry until then, and that
# is the current folder.
file(RELATIVE_PATH BIN_TO_LIB ${CMAKE_INSTALL_FULL_BINDIR} ${CMAKE_INSTALL_FULL_LIBDIR})
set_target_properties(tavrikconfig PROPERTIES INSTALL_RPATH $ORIGIN BUILD_WITH_INSTALL_RPATH ON)
set_target_properties(tavrikhost PROPERTIES INSTALL_RPATH "$ORIGIN/${BIN_TO_LIB};$ORIGIN" BUILD_WITH_INSTALL_RPATH ON)
set_target_properties(tavrikstore PROPERTIES EXPORT_NAME store)
set_target_properties(tavrikwindow PROPERTIES EXPORT_NAME window)
foreach(library tavrikconfig tavrikstore tavrikwindow)
  target_compile_features(${library} INTERFACE cxx_std_17)
endforeach()

install(TARGETS tavrikconfig tavrikstore EXPORT Tavrikconfig
        LIBRARY COMPONENT runtime NAMELINK_COMPONENT development
        INCLUDES DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})
install(TARGETS tavrikwindow EXPORT Tavrikconfig
        LIBRARY COMPONENT runtime NAMELINK_COMPONENT development
        INCLUDES DESTINATION ${WINDOW_HEADERS})
install(FILES include/tavrikconfig.h TYPE INCLUDE)
# In a folder of their own, for some have the names of a system's headers.
install(DIRECTORY platform/include/ DESTINATION ${WINDOW_HEADERS})
install(FILES docs/hosts.md docs/settings.md docs/keyboard.md docs/minimal_host.cpp CHANGELOG.md TYPE DOC)

install(EXPORT Tavrikconfig NAMESPACE Tavrikconfig:: DESTINATION ${CMAKE_PACKAGE} FILE TavrikconfigTargets.cmake)
configure_package_config_file(cmake/packages/TavrikconfigConfig.cmake.in TavrikconfigConfig.cmake
                              INSTALL_DESTINATION ${CMAKE_PACKAGE})
write_basic_package_version_file(TavrikconfigConfigVersion.cmake COMPATIBILITY SameMajorVersion)
install(FILES ${PROJECT_BINARY_DIR}/TavrikconfigConfig.cmake ${PROJECT_BINARY_DIR}/TavrikconfigConfigVersion.cmake
        DESTINATION ${CMAKE_PACKAGE})

file(RELATIVE_PATH MODULE_TO_PREFIX ${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig ${CMAKE_INSTALL_PREFIX})
string(REGEX REPLACE "/$" "" MODULE_TO_PREFIX ${MODULE_TO_PREFIX})
function(tavrik_module NAME DESCRIPTION HEADERS)
  configure_file(cmake/packages/module.pc.in ${NAME}.pc @ONLY)
  install(FILES ${PROJECT_BINARY_DIR}/${NAME}.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
endfunction()
tavrik_module(tavrikconfig "Settings sheet of an electrical-schematic drafting add-on" ${CMAKE_INSTALL_INCLUDEDIR})
tavrik_module(tavrikstore "Settings store that hosts share with tavrikconfig" ${CMAKE_INSTALL_INCLUDEDIR})
tavrik_module(tavrikwindow "Window library of tavrikconfig" ${WINDOW_HEADERS})

set(CMAKE_INSTALL_DEFAULT_COMPONENT_NAME host)
install(TARGETS tavrikhost)
install(DIRECTORY host/samples/ DESTINATION ${CMAKE_INSTALL_DATADIR}/tavrikhost)
install(FILES packaging/tavrikhost.1 DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
install(FILES packaging/tavrikhost.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
install(FILES packaging/tavrikhost.xml DESTINATION ${CMAKE_INSTALL_DATADIR}/mime/packages)
install(FILES packaging/tavrikhost.svg DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps)
install(FILES packaging/tavrikhost.bash-completion RENAME tavrikhost
        DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions)

include(cmake/packages/debian.cmake)
