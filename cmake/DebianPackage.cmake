# The Debian package. Which packages it depends on, dpkg-shlibdeps tells from what the programs load.
set(CPACK_DEBIAN_PACKAGE_MAINTAINER "The Panelkit authors <panelkit@panelkit.example>")
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS fonts-liberation)
set(CPACK_DEBIAN_PACKAGE_SUGGESTS wine)
set(CPACK_DEBIAN_PACKAGE_SECTION utils)
set(CPACK_DEBIAN_PACKAGE_HOMEPAGE "${PANELKIT_SITE_SCHEME}://${PANELKIT_SITE_HOST}/")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "find the missing gauges of flight simulator panels")
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION
"The panels of aircraft for Microsoft Flight Simulator 2002 name gauges that
may or may not be installed. Panelkit compares what the panels name with what
the simulator's Gauges folder holds, in a Wine prefix: it lists the missing
gauges, lists all, moves gauge files that no panel names to a folder of their
own and brings them back, and switches the simulator's red brake messages.
.
panelkit has a window; panelkit-console is for scripts and terminals.")

set(documents ${CMAKE_INSTALL_DATADIR}/doc/panelkit)
install(FILES packaging/Linux/copyright docs/json.md DESTINATION ${documents})
execute_process(
  COMMAND ${CMAKE_SOURCE_DIR}/packaging/Linux/debian_changelog ${CMAKE_SOURCE_DIR}/CHANGELOG.md
          ${CPACK_DEBIAN_PACKAGE_MAINTAINER}
  OUTPUT_FILE ${CMAKE_BINARY_DIR}/changelog COMMAND_ERROR_IS_FATAL ANY)
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/CHANGELOG.md)
compressed(${CMAKE_BINARY_DIR}/changelog changelog ${documents})
