# What `cmake --install` and the packages hold. A shared and a static build go into one prefix side by side:
# each brings its own list of targets, and find_package takes the one that is asked for.
include(CMakePackageConfigHelpers)

if(BUILD_SHARED_LIBS)
  set(kind shared)
else()
  set(kind static)
endif()
set(package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/qxTools)

# qxtools_install(<target> <component>): the library with its headers and its list of targets.
function(qxtools_install target component)
  install(TARGETS ${target} EXPORT ${target}-${kind}
    RUNTIME COMPONENT ${component}
    LIBRARY COMPONENT ${component} NAMELINK_COMPONENT ${component}-dev
    ARCHIVE COMPONENT ${component}-dev
    FILE_SET HEADERS COMPONENT ${component}-dev)
  install(EXPORT ${target}-${kind} FILE ${target}-${kind}-targets.cmake
    NAMESPACE qxTools:: DESTINATION ${package_dir} COMPONENT ${component}-dev)
endfunction()

# qxtools_compress(<file> <variable>): the name of the compressed file; of the file itself where there is no gzip.
find_program(QXTOOLS_GZIP gzip)
function(qxtools_compress file variable)
  set(${variable} ${file} PARENT_SCOPE)
  if(QXTOOLS_GZIP)
    get_filename_component(name ${file} NAME)
    set(compressed ${PROJECT_BINARY_DIR}/debian/${name}.gz)
    execute_process(COMMAND ${QXTOOLS_GZIP} -9nc ${file} OUTPUT_FILE ${compressed} COMMAND_ERROR_IS_FATAL ANY)
    set_property(DIRECTORY ${PROJECT_SOURCE_DIR} APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${file})
    set(${variable} ${compressed} PARENT_SCOPE)
  endif()
endfunction()

qxtools_install(qxTools core)
if(TARGET qxTools-desktop)
  set_target_properties(qxTools-desktop PROPERTIES EXPORT_NAME desktop)
  qxtools_install(qxTools-desktop desktop)
endif()

configure_package_config_file(cmake/qxToolsConfig.cmake.in ${PROJECT_BINARY_DIR}/qxToolsConfig.cmake
  INSTALL_DESTINATION ${package_dir} NO_SET_AND_CHECK_MACRO)
write_basic_package_version_file(${PROJECT_BINARY_DIR}/qxToolsConfigVersion.cmake COMPATIBILITY SameMajorVersion)
install(FILES ${PROJECT_BINARY_DIR}/qxToolsConfig.cmake ${PROJECT_BINARY_DIR}/qxToolsConfigVersion.cmake
  DESTINATION ${package_dir} COMPONENT core-dev)

# The prefix is found from where the file stands, so that an installed tree can be moved.
file(RELATIVE_PATH prefix_from_pkgconfig ${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig ${CMAKE_INSTALL_PREFIX})
# The system's libraries, which a program with the static library links, too.
get_target_property(libraries qxTools LINK_LIBRARIES)
list(FILTER libraries EXCLUDE REGEX "::@")  # which say in which folder they were named
if(libraries)
  list(TRANSFORM libraries PREPEND " -l" OUTPUT_VARIABLE QXTOOLS_SYSTEM_LIBRARIES)
  string(REPLACE ";" "" QXTOOLS_SYSTEM_LIBRARIES "${QXTOOLS_SYSTEM_LIBRARIES}")
endif()
configure_file(cmake/qxtools.pc.in ${PROJECT_BINARY_DIR}/qxtools.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/qxtools.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig COMPONENT core-dev)

if(QXTOOLS_BUILD_TOOLS)
  # qxtool finds the library beside itself, wherever both are put.
  file(RELATIVE_PATH lib_from_bin ${CMAKE_INSTALL_FULL_BINDIR} ${CMAKE_INSTALL_FULL_LIBDIR})
  set(QXTOOLS_TOOL_RPATH "$ORIGIN/${lib_from_bin}")
endif()
if(WIN32)
  include(cmake/WindowsPackages.cmake)
else()
  include(cmake/Packages.cmake)
endif()
