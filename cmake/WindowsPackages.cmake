# The ZIP and the installer that cpack writes: all that is installed, the examples' sources and the notices.
set(CPACK_GENERATOR ZIP NSIS)
set(CPACK_PACKAGE_NAME qxTools)
set(CPACK_PACKAGE_VENDOR qxTools)
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "${PROJECT_DESCRIPTION}")
set(CPACK_PACKAGE_FILE_NAME qxTools-${PROJECT_VERSION}-windows-${CMAKE_SYSTEM_PROCESSOR})
set(CPACK_PACKAGE_INSTALL_DIRECTORY qxTools)
set(CPACK_RESOURCE_FILE_LICENSE ${PROJECT_SOURCE_DIR}/LICENSE)
set(CPACK_MONOLITHIC_INSTALL ON)
set(CPACK_STRIP_FILES ON)

# The installer: the library's version is seen among the system's programs, and qxtool can be found by its name.
set(CPACK_NSIS_DISPLAY_NAME "qxTools ${PROJECT_VERSION}")
set(CPACK_NSIS_MODIFY_PATH ON)
set(CPACK_NSIS_ENABLE_UNINSTALL_BEFORE_INSTALL ON)
if(CMAKE_SIZEOF_VOID_P EQUAL 8)
  set(CPACK_NSIS_INSTALL_ROOT "$PROGRAMFILES64")
else()
  set(CPACK_NSIS_INSTALL_ROOT "$PROGRAMFILES32")
endif()

install(FILES LICENSE README.md README.zh-TW.md CHANGELOG.md THIRD-PARTY-NOTICES.md DESTINATION doc COMPONENT core)
install(FILES docs/windows.md docs/check.md DESTINATION doc COMPONENT core)
install(FILES LICENSES/Apache-2.0.txt DESTINATION doc/LICENSES COMPONENT core)
install(DIRECTORY examples DESTINATION . COMPONENT core-dev)
# The compiler's own libraries are inside the programs; their notices come with the compiler.
foreach(package gcc-mingw-w64-base mingw-w64-common)
  install(FILES /usr/share/doc/${package}/copyright DESTINATION doc/LICENSES RENAME ${package}.txt COMPONENT core
    OPTIONAL)
endforeach()

# The static library comes from a build of its own.
set(CPACK_INSTALL_CMAKE_PROJECTS ${PROJECT_BINARY_DIR} qxTools ALL /)
set(QXTOOLS_STATIC_BUILD "" CACHE PATH "A static build whose libraries go into the packages")
if(QXTOOLS_STATIC_BUILD)
  list(APPEND CPACK_INSTALL_CMAKE_PROJECTS ${QXTOOLS_STATIC_BUILD} qxTools ALL /)
endif()
include(CPack)
