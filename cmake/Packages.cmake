# The Debian packages that cpack writes: libqxtools1, libqxtools-dev and qxtool, and the desktop host's two where it is built.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME qxtools)
set(CPACK_PACKAGE_VENDOR "qxTools")
set(CPACK_PACKAGE_CONTACT "qxTools maintainers <maintainers@qxtools.invalid>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "${PROJECT_DESCRIPTION}")
set(CPACK_PACKAGING_INSTALL_PREFIX ${CMAKE_INSTALL_PREFIX})
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${PROJECT_BINARY_DIR}/qxTools)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_STRIP_FILES ON)

# What each package says of itself, in /usr/share/doc: the notices of all that is inside, and its changes.
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS LICENSE THIRD-PARTY-NOTICES.md)
set(copyright ${PROJECT_BINARY_DIR}/debian/copyright)
file(READ LICENSE license)
file(READ THIRD-PARTY-NOTICES.md notices)
file(WRITE ${copyright} "${license}\n${notices}
On Debian systems the Apache License, Version 2.0, is in /usr/share/common-licenses/Apache-2.0.
")
qxtools_compress(${PROJECT_SOURCE_DIR}/cmake/debian/changelog changelog)

# qxtools_package(<component> <package> <section> <depends> <text>)
macro(qxtools_package component package section depends text)
  list(APPEND CPACK_COMPONENTS_ALL ${component})
  string(TOUPPER ${component} key)
  set(CPACK_DEBIAN_${key}_PACKAGE_NAME ${package})
  set(CPACK_DEBIAN_${key}_PACKAGE_SECTION ${section})
  set(CPACK_DEBIAN_${key}_PACKAGE_DEPENDS "${depends}")
  set(CPACK_COMPONENT_${key}_DESCRIPTION "${text}")
  install(FILES ${copyright} ${changelog} DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/${package} COMPONENT ${component})
  if("${section}" STREQUAL "libs")
    # The trigger does what CPack's own scripts would do. Of a script that is named here CPack makes none, and a file
    # that is not there is left out.
    set(CPACK_DEBIAN_${key}_PACKAGE_CONTROL_EXTRA ${PROJECT_SOURCE_DIR}/cmake/debian/triggers
      ${PROJECT_BINARY_DIR}/none/postinst ${PROJECT_BINARY_DIR}/none/postrm)
  endif()
endmacro()

set(CPACK_COMPONENTS_ALL)
set(same "(= ${PROJECT_VERSION})")
qxtools_package(core libqxtools1 libs "" "The shared library.")
qxtools_package(core-dev libqxtools-dev libdevel "libqxtools1 ${same}" "Headers, the static library and what CMake and pkg-config read.")
if(QXTOOLS_BUILD_TOOLS)
  qxtools_package(tool qxtool utils "libqxtools1 ${same}" "The command-line tool.")
  set(CPACK_DEBIAN_TOOL_PACKAGE_SUGGESTS "libsqliteodbc, tdsodbc")
endif()
if(TARGET qxTools-desktop)
  qxtools_package(desktop libqxtools-desktop1 libs "libqxtools1 ${same}" "The desktop host over Qt 6 Widgets, shared library.")
  qxtools_package(desktop-dev libqxtools-desktop-dev libdevel
    "libqxtools-desktop1 ${same}, libqxtools-dev ${same}, qt6-base-dev" "The desktop host's headers and static library.")
endif()
set(CPACK_INSTALL_CMAKE_PROJECTS ${PROJECT_BINARY_DIR} qxTools ALL /)
# The static libraries come from a build of their own.
set(QXTOOLS_STATIC_BUILD "" CACHE PATH "A static build whose libraries go into the packages")
if(QXTOOLS_STATIC_BUILD)
  set(CPACK_COMPONENTS_STATIC ${CPACK_COMPONENTS_ALL})
  list(FILTER CPACK_COMPONENTS_STATIC INCLUDE REGEX "-dev$")
  list(APPEND CPACK_INSTALL_CMAKE_PROJECTS ${QXTOOLS_STATIC_BUILD} qxTools STATIC /)
endif()
include(CPack)
